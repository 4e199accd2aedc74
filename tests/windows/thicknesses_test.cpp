// The window of the thicknesses of one process, with the dialog that adds one: what it shows, what
// keys, box and mouse do in it, and what comes of it in process.dat.
#include <gtest/gtest.h>

#include "tests/support/workshop.h"

namespace {

// Only after a change the grid is copied back, and only then there is something to save.
TEST(ThicknessWindow, LooksAroundAndTakesWhatIsTyped) {
    test::Play(R"(
click cmdSysProcess, Alt+P, 'New', choose cboCopy Plasma, Alt+O, Alt+H -> "Thickness Data for
  -> Process New<61>"; frmThicknessData resizable; says Thicknesses; row 0: Thickness<9>(mm) |
  -> Pierce Time (secs) | Feed Rate (mm/min) | Leadin Length (mm) | Nozzle Size (mm); row 1: 3 | 0.1
  -> | 6400 | 4 | 1.5; row 2: 25 | 2 | 550 | 12 | 1.5; 600 twips high, wide 1620n 1620n 1620n 1620n
  -> 1620n; at 1 1; says Edit Data; txtEditData "0.1"; focus grdThicknessData
Tab, Tab, Tab, Tab, Enter, Enter -> at 2 4; marked; txtEditData "1.5"
Up, Shift+Tab, 'x-' -> at 1 3; txtEditData "4"
PageDown, End, Down, Right, Up, Down, Ctrl+Left, Home -> at 2 1; txtEditData "2"
click 1 0 -> at 1 1; marked row 1; txtEditData "0.1"
focus txtEditData, click cmdThkDel -> row 1: 25 | 2 | 550 | 12 | 1.5; unmarked; txtEditData "2";
  -> (cmdThkDel); gone row 2: 25 | 2 | 550 | 12 | 1.5
click cmdThkDel, click 1 3, Alt+D -> row 1: - | - | - | - | -; at 1 3; (txtEditData); txtEditData ""
'5', Down, click 1 0, Alt+D -> at 1 1
close, no, Esc, click cmdSysProcess, Alt+H, 'x', focus txtEditData, close, Esc -> box Yes/No none
  -> "Closing Process Defaults" "<13>Save Changes ?"
click cmdSysProcess, Alt+H, focus txtEditData, Left, close, no, Esc -> box again "Closing Process
  -> Defaults"
click cmdSysProcess, Alt+H, paste txtEditData '9', Esc, no, Esc -> box again "Closing Process
  -> Defaults"
click cmdSysProcess, Alt+H, Alt+A, Esc, Esc, no, Esc -> box again "Closing Process Defaults"
click cmdSysProcess, Alt+H, '4', Alt+C, yes, Esc, click cmdSysProcess, Alt+H -> "Thickness Data for
  -> Process Plasma"; row 1: 3 | 4 | 6400 | 4 | 1.5; row 2: 25 | 2 | 550 | 12 | 1.5; txtEditData;
  -> txtEditData "4"; cmdThkDel; box again "Closing Process Defaults";
  -> c:\tolvarin\system\process.dat -Process2=Oxy Fuel<56>; +Process2=Oxy Fuel\0550, 12, 1.5<43>;
  -> -Thickness1=3mm, .1, 6400, 4, 1.5; +Thickness1=3mm, 4, 6400, 4, 1.5
'1a-2 \xFC..0', Backspace, click 2 4, '123456789012345' -> row 1: 3 | 12.. | 6400 | 4 | 1.5; row 2:
  -> 25 | 2 | 550 | 12 | 1234567890123; at 2 4; marked; txtEditData "1234567890123"
click 1 1, focus txtEditData, '7.', Tab, '-3', Tab, '12.5mm', Tab, '.5', Enter -> row 1: 3 | 7 | 0 |
  -> 12.5 | 0.5; txtEditData "[1234567890123]"; focus txtEditData
Up, Shift+Tab, '123456789012345' -> row 1: 3 | 7 | 0 | 12345678901235 | 0.5; row 2: 25 | 2 | 550 |
  -> 12 | 1.234568E+12; at 1 3; txtEditData "12345678901235"
Ctrl+Down, Down, '8', click cmdThkClose, yes, close -> box again "Closing Process Defaults";
  -> c:\tolvarin\system\process.dat -Thickness1=3mm, 4, 6400, 4, 1.5; -Thickness2=25mm, 2, 550, 12,
  -> 1.5; +Thickness1=3mm, 7, 0, 1.234568E+13, .5; +Thickness2=25mm, 2, 550, 8, 1.234568E+12
)");
}

TEST(ThicknessWindow, AddsInOrderWhileTheLastProcessHasRoom) {
    test::Play(R"(
write c:\tolvarin\system\process.dat '[Processes]\nProcess1=1\nProcess2=2', click cmdSysProcess,
click chkAddKerf, yes, Esc, click cmdSysProcess, Alt+H -> ...
Alt+A, '10', Enter -> row 1: 10 | 0 | 0 | 0 | 0; txtEditData; txtEditData "0"
Alt+A, '2', Enter, Alt+A, '40', click cmdAddNewThicknessOK, Alt+A, '5mm', Enter -> row 1: 2 | 0 | 0
  -> | 0 | 0; row 2: 5 | 0 | 0 | 0 | 0; row 3: 10 | 0 | 0 | 0 | 0; row 4: 40 | 0 | 0 | 0 | 0
click 1 1, '7', Alt+A, '.50', Enter, '3' -> row 1: 0.5 | 3 | 0 | 0 | 0; row 2: 2 | 7 | 0 | 0 | 0;
  -> row 3: 5 | 0 | 0 | 0 | 0; row 4: 10 | 0 | 0 | 0 | 0; .. row 5: 40 | 0 | 0 | 0 | 0; txtEditData
  -> "3"; cmdThkDel
Alt+A, '0', Enter, '40.00000001', Enter, '000000000012345' -> "Add New Thickness"; frmAddThickness;
  -> txtNewThickness 26x0; says Enter New Thickness; txtNewThickness "0<10>123"; focus
  -> txtNewThickness; box "Error in Thickness Entry" "Thickness must bigger than 0."; box "Error in
  -> Thickness Entry" "Thickness 40 already exist."
Alt+C, Alt+A, '1.234567890', Enter, Esc, yes, Esc -> box again "Closing Process Defaults";
  -> c:\tolvarin\system\process.dat +Thickness1=.5mm, 3, 0, 0, 0; +Thickness2=1.234568mm, 0, 0, 0,
  -> 0; +Thickness3=2mm, 7, 0, 0, 0; +Thickness4=5mm, 0, 0, 0, 0; +Thickness5=10mm, 0, 0, 0, 0;
  -> +Thickness6=40mm, 0, 0, 0, 0
write c:\tolvarin\system\process.dat '[Processes]\n{1-2:Process#=#\n}[2]\n{1-99:Thickness#=#\n}',
click cmdSysProcess, choose cboProcess 2, Alt+H -> "Thickness Data for Process 2"; row 1: 1 | 0 | 0
  -> | 0 | 0; row 2: 2 | 0 | 0 | 0 | 0; row 3: 3 | 0 | 0 | 0 | 0; row 4: 4 | 0 | 0 | 0 | 0; .. row
  -> 99: 99 | 0 | 0 | 0 | 0; txtEditData "0"
Alt+A, '99.5', Enter -> row 100: 99.5 | 0 | 0 | 0 | 0; (cmdThkAdd)
Esc, choose cboProcess 1, Alt+H -> "Thickness Data for Process 1"; row 1: - | - | - | - | -;
  -> (txtEditData); txtEditData ""; cmdThkAdd; (cmdThkDel); gone row 2: 2 | 0 | 0 | 0 | 0; gone row
  -> 3: 3 | 0 | 0 | 0 | 0; gone row 4: 4 | 0 | 0 | 0 | 0; gone row 5: 5 | 0 | 0 | 0 | 0; .. gone row
  -> 100: 99.5 | 0 | 0 | 0 | 0
Alt+A -> (cmdThkAdd)
Esc, Alt+P, '3', Enter, choose cboProcess 2, Alt+H -> "Thickness Data for Process 2"; row 1: 1 | 0 |
  -> 0 | 0 | 0; row 2: 2 | 0 | 0 | 0 | 0; row 3: 3 | 0 | 0 | 0 | 0; row 4: 4 | 0 | 0 | 0 | 0; .. row
  -> 100: 99.5 | 0 | 0 | 0 | 0; txtEditData; txtEditData "0"; cmdThkAdd; cmdThkDel
Alt+A, no, Esc, Esc -> box again "Closing Process Defaults"
)");
}

}  // namespace
