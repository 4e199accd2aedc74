// The process defaults window with the dialog that adds a process: what it shows, what options,
// boxes and keys do in it, and what a save makes of process.dat.
#include <gtest/gtest.h>

#include "tests/support/workshop.h"

namespace {

TEST(ProcessWindow, ShowsProcessesAndReadsBoxesThatAreLeft) {
    test::Play(R"(
click cmdSysProcess -> "Process Defaults Plasma"; frmProcessDefaults; cboProcess 40x0; says Process;
  -> cboProcess {Plasma; Oxy Fuel}; cboProcess "Plasma"; txtRapid 10x0; says Rapid (mm/min);
  -> txtRapid "20000"; txtLineMarkRate 10x0; says Line Mark (mm / min); txtLineMarkRate "6000";
  -> optLeadIn(0) on; txtLeadInAngle 6x0; says Angle; txtLeadInAngle "45"; chkLeadInExtension off;
  -> optLeadOut(1) on; txtLeadOutAngle 6x0; says Angle; (txtLeadOutAngle); txtLeadOutAngle "";
  -> txtLeadoutPercent 6x0; says % of Leadin; txtLeadoutPercent "50"; txtLeadoutOverrun 6x0; says
  -> Overrun (mm); txtLeadoutOverrun "3"; chkLeadOutExtension off; optMajorDirection(1) on;
  -> optMinorDirection(0) on; optOpenMinor(0) on; chkAddKerf on; focus cboProcess
choose cboProcess Oxy Fuel -> "Process Defaults Oxy Fuel"; cboProcess "Oxy Fuel"; txtRapid ".5";
  -> txtLineMarkRate "1"; optLeadIn(2) on; (txtLeadInAngle); txtLeadInAngle ""; chkLeadInExtension
  -> on; optLeadOut(0) on; txtLeadOutAngle; txtLeadOutAngle "-30"; txtLeadoutPercent "0";
  -> txtLeadoutOverrun "0"; chkLeadOutExtension on; optMajorDirection(0) on; optOpenMinor(1) on;
  -> chkAddKerf off; gone optMinorDirection(0) on
choose cboProcess Plasma, Esc ->
click cmdSysProcess, Tab, Tab, no, close -> box Yes/No none "Closing Process Defaults" "<13>Save
  -> Changes ?"
click cmdSysProcess, click chkAddKerf, no, close, click cmdSysProcess, click optLeadOut(0),
focus txtLeadOutAngle, '361', yes, Esc -> box again "Closing Process Defaults"; box again "Closing
  -> Process Defaults"; c:\tolvarin\system\process.dat -Process2=Oxy Fuel<56>; +Process2=Oxy
  -> Fuel\0550, 12, 1.5<43>; -Leadout=Arc ; +Leadout=Line; +Leadoutangle=360
click cmdSysProcess -> "Process Defaults Plasma"; cboProcess "Plasma"; txtRapid "20000";
  -> txtLineMarkRate "6000"; optLeadIn(0) on; txtLeadInAngle; txtLeadInAngle "45";
  -> chkLeadInExtension off; txtLeadOutAngle "360"; txtLeadoutPercent "50"; txtLeadoutOverrun "3";
  -> chkLeadOutExtension off; optMajorDirection(1) on; optMinorDirection(0) on; optOpenMinor(0) on;
  -> chkAddKerf on
focus txtRapid, 'abc', focus txtLineMarkRate, '12.5mm', focus txtLeadInAngle, '-400',
focus txtLeadOutAngle, '-400', focus txtLeadoutPercent, '-1', Alt+V, '-400', Tab -> txtRapid "0";
  -> txtLineMarkRate "12.5"; txtLeadInAngle "-360"; txtLeadoutPercent "0"; txtLeadoutOverrun "-400";
  -> focus chkLeadOutExtension
focus txtRapid, '1 000', focus txtLineMarkRate, '-3', focus txtLeadInAngle, '361',
focus txtLeadOutAngle, '-360', focus txtLeadoutPercent, '32767', Alt+V, '32768', Tab -> txtRapid
  -> "1000"; txtLineMarkRate "0"; txtLeadInAngle "360"; txtLeadOutAngle "-360"; txtLeadoutPercent
  -> "32767"; txtLeadoutOverrun "0"
focus txtRapid, '78', choose cboProcess Oxy Fuel, choose cboProcess Plasma -> txtRapid "78"; focus
  -> cboProcess
no, Esc, click cmdSysProcess, focus txtRapid, '80', yes, click cmdClose -> box again "Closing
  -> Process Defaults"; box again "Closing Process Defaults"; c:\tolvarin\system\process.dat
  -> -Rapid=20000; +Rapid=80
protect c:\tolvarin\system\process.dat, click cmdSysProcess, Alt+T, yes, Esc -> "Process Defaults
  -> Plasma"; txtRapid "80"; txtLineMarkRate "6000"; txtLeadInAngle "45"; txtLeadOutAngle "360";
  -> txtLeadoutPercent "50"; txtLeadoutOverrun "3"; optMajorDirection(0) on; focus cmdClose; box
  -> again "Closing Process Defaults"; box "Closing Process Defaults"
  -> "c:\tolvarin\system\process.dat: is read-only"
)");
}

// What a process keeps is shown when it is chosen again, as the last one is after Add Process.
TEST(ProcessWindow, AFirstProcessAndItsOptions) {
    test::Play(R"(
click cmdSysProcess, yes, Alt+D -> "Process Defaults Oxy Fuel"; frmProcessDefaults; cboProcess 40x0;
  -> says Process; cboProcess {Oxy Fuel}; cboProcess "Oxy Fuel"; txtRapid 10x0; says Rapid (mm/min);
  -> txtRapid ".5"; txtLineMarkRate 10x0; says Line Mark (mm / min); txtLineMarkRate "1";
  -> optLeadIn(2) on; txtLeadInAngle 6x0; says Angle; (txtLeadInAngle); txtLeadInAngle "";
  -> chkLeadInExtension on; optLeadOut(0) on; txtLeadOutAngle 6x0; says Angle; txtLeadOutAngle
  -> "-30"; txtLeadoutPercent 6x0; says % of Leadin; txtLeadoutPercent "0"; txtLeadoutOverrun 6x0;
  -> says Overrun (mm); txtLeadoutOverrun "0"; chkLeadOutExtension on; optMajorDirection(0) on;
  -> optOpenMinor(1) on; chkAddKerf off; focus cmdDeleteProcess; box Yes/No none "Delete Process"
  -> "<13>If you Delete this Process Plasma\r<21>then any components or\rnest that uses this process
  -> will become INVALID.\r<9>Are you sure you want to continue ?"
no, Esc, remove c:\tolvarin\system\process.dat, click cmdSysProcess, Alt+A, Alt+E, Alt+D, Esc -> box
  -> Yes/No none "Closing Process Defaults" "<13>Save Changes ?"; box "Error loading Process.dat"
  -> "File PROCESS.DAT not found\rin c:\tolvarin\SYSTEM\"
click cmdSysProcess -> ...
Alt+P, Esc, Alt+H -> focus cmdThicknessData; box "Error : No Process" "There is no Process."
Alt+P, 'First', Enter -> "Process Defaults First"; cboProcess {First<59>}; cboProcess "First<59>";
  -> txtRapid "0"; txtLineMarkRate "0"; optLeadIn(0) on; txtLeadInAngle "0"; optLeadOut(2) on;
  -> (txtLeadOutAngle); txtLeadoutPercent "0"; txtLeadoutOverrun "0"; optMajorDirection(1) on;
  -> optMinorDirection(1) on; optOpenMinor(0) on; focus cmdAddProcess
yes, Alt+D -> cboProcess {}; cboProcess ""; txtRapid ""; txtLeadInAngle ""; (cmdDeleteProcess);
  -> (cmdThicknessData); focus cmdClose; gone optLeadIn(0) on; gone optMajorDirection(1) on; gone
  -> optMinorDirection(1) on; box again "Delete Process" ..First<59>..
Alt+P, 'A', Enter -> "Process Defaults A"; cboProcess {A<63>}; cboProcess "A<63>"; txtRapid "0";
  -> optLeadIn(0) on; txtLeadInAngle "0"; optMajorDirection(1) on; optMinorDirection(1) on;
  -> cmdDeleteProcess; cmdThicknessData; focus cmdAddProcess
yes, Alt+D -> cboProcess {}; cboProcess ""; txtRapid ""; txtLeadInAngle ""; (cmdDeleteProcess);
  -> (cmdThicknessData); focus cmdClose; gone optLeadIn(0) on; gone optMajorDirection(1) on; gone
  -> optMinorDirection(1) on; box again "Delete Process" ..A<63>..
Alt+L, Alt+E, focus txtRapid, '7', yes, Esc -> box again "Closing Process Defaults";
  -> c:\tolvarin\system\process.dat +;..; +;..; +\r
click cmdSysProcess, Alt+P, 'Second', Enter -> "Process Defaults Second"; cboProcess {Second<58>};
  -> cboProcess "Second<58>"; txtRapid "0"; optLeadIn(0) on; txtLeadInAngle "0";
  -> optMajorDirection(1) on; optMinorDirection(1) on; cmdDeleteProcess; cmdThicknessData; focus
  -> cmdAddProcess
click optLeadIn(2), Alt+I, Alt+T, Alt+W, Alt+N, Alt+E, Alt+X, Alt+P, Esc -> optLeadIn(2) on;
  -> (txtLeadInAngle); txtLeadInAngle ""; chkLeadInExtension on; optLeadOut(0) on; txtLeadOutAngle;
  -> txtLeadOutAngle "0"; chkLeadOutExtension on; optMajorDirection(0) on; optMinorDirection(0) on;
  -> optOpenMinor(1) on
Alt+L, Alt+R, Alt+C, Alt+K, Alt+F, Space, click chkAddKerf, Alt+E, Alt+P, Esc -> optLeadIn(0) on;
  -> txtLeadInAngle; txtLeadInAngle "0"; chkLeadInExtension off; optLeadOut(1) on;
  -> (txtLeadOutAngle); txtLeadOutAngle ""; optMajorDirection(1) on; optMinorDirection(1) on;
  -> chkAddKerf on
Alt+A, click optLeadOut(3), Alt+G, Alt+E, yes, Esc -> box again "Closing Process Defaults";
  -> c:\tolvarin\system\process.dat +[Processes]; +;..; +Process1=Second<58>; +\r; +[Second]; +;..;
  -> +Rapid=0; +LineMarkRate=0; +;..; +Leadin=Arc ; +;..; +LeadoutPercent=0; +LeadoutOverrun=0;
  -> +MajorDir=-1; +MinorDir=-1; +MinorOpenKerf=-1; +Extension=1; +AddKerf=1; +;..; +;..;
  -> +Leadout=A180; +Leadoutextension=1
)");
}

TEST(ProcessWindow, NamesOfNewProcessesAndOfThoseBehindADeletedOne) {
    test::Play(R"(
click cmdSysProcess -> ...
Alt+P -> "Add Process"; frmAddProcess; txtNewProcessName 40x0; says Process Name; txtNewProcessName
  -> ""; cboCopy 40x0; says Copy From; cboCopy {Plasma; Oxy Fuel; None}; cboCopy "None"; focus
  -> txtNewProcessName
click cmdOk, '  ', Enter, '{1-65:n}', Alt+O, ' Plasma  ', Enter, 'Oxy Fuel', Enter ->
  -> txtNewProcessName "[Oxy Fuel]"; beep; box "Error" "No Process Name Entered"; beep; box again
  -> "Error"; beep; box "Error" "Maximum size of Process name allow is 64"; box "Error" "Process
  -> Name Plasma already exist"; box again "Error" ..Oxy Fuel..
'{1-64:n}', Enter -> "Process Defaults n<64>"; cboProcess {Plasma; Oxy Fuel; n<64>}; cboProcess
  -> "n<64>"; txtRapid "0"; txtLineMarkRate "0"; txtLeadInAngle "0"; optLeadOut(2) on;
  -> txtLeadoutPercent "0"; txtLeadoutOverrun "0"; optMinorDirection(1) on; chkAddKerf off; focus
  -> cmdAddProcess
Alt+P, ' plasma ', choose cboCopy Oxy Fuel, focus txtNewProcessName, Enter -> "Process Defaults
  -> plasma"; cboProcess {Plasma; Oxy Fuel; n<64>; plasma<58>}; cboProcess "plasma<58>"; txtRapid
  -> ".5"; txtLineMarkRate "1"; optLeadIn(2) on; (txtLeadInAngle); txtLeadInAngle "";
  -> chkLeadInExtension on; optLeadOut(0) on; txtLeadOutAngle; txtLeadOutAngle "-30";
  -> chkLeadOutExtension on; optMajorDirection(0) on; optOpenMinor(1) on; gone optMinorDirection(1)
  -> on
choose cboProcess Oxy Fuel, no, Alt+D, yes, Enter -> "Process Defaults Plasma"; cboProcess {Plasma;
  -> n<64>; plasma<58>}; cboProcess "Plasma"; txtRapid "20000"; txtLineMarkRate "6000"; optLeadIn(0)
  -> on; txtLeadInAngle; txtLeadInAngle "45"; chkLeadInExtension off; optLeadOut(1) on;
  -> (txtLeadOutAngle); txtLeadOutAngle ""; txtLeadoutPercent "50"; txtLeadoutOverrun "3";
  -> chkLeadOutExtension off; optMajorDirection(1) on; optMinorDirection(0) on; optOpenMinor(0) on;
  -> chkAddKerf on; focus cmdDeleteProcess; box Yes/No none "Delete Process" "<13>If you Delete this
  -> Process Oxy Fuel\r<21>then any components or\rnest that uses this process will become
  -> INVALID.\r<9>Are you sure you want to continue ?"; box again "Delete Process"
yes, Esc -> box Yes/No none "Closing Process Defaults" "<13>Save Changes ?";
  -> c:\tolvarin\system\process.dat -Process2=Oxy Fuel<56>; +Process2=Oxy Fuel\0550, 12, 1.5<43>;
  -> +Process3=n<64>; +Rapid=0; +LineMarkRate=0; +;..; +Leadin=Line; +;..; +Angle=0; +;..;
  -> +LeadoutPercent=0; +LeadoutOverrun=0; +MajorDir=-1; +MinorDir=-1; +MinorOpenKerf=1; +AddKerf=0;
  -> +;..; +;..; +\r; +[n<64>]; +;..
click cmdSysProcess, choose cboProcess Oxy Fuel -> "Process Defaults Oxy Fuel"; cboProcess {Plasma;
  -> Oxy Fuel; n<64>}; cboProcess "Oxy Fuel"; txtRapid "0"; txtLineMarkRate "0"; txtLeadInAngle "0";
  -> optLeadOut(2) on; txtLeadoutPercent "0"; txtLeadoutOverrun "0"; optMinorDirection(1) on;
  -> chkAddKerf off; focus cboProcess
)");
}

TEST(ProcessWindow, TwentyProcessesAreTheLimit) {
    test::Play(R"(
write c:\tolvarin\system\process.dat '[Processes]\r\n{1-19:Process#=P#\r\n}', click cmdSysProcess -> ...
Alt+P, 'P20', Enter -> "Process Defaults P20"; cboProcess {P1; P2; P3; P4; P5; P6; P7; P8; P9; P10;
  -> P11; P12; P13; P14; P15; P16; P17; P18; P19; P20<61>}; cboProcess "P20<61>"; txtRapid "0";
  -> txtLineMarkRate "0"; optLeadIn(0) on; txtLeadInAngle; txtLeadInAngle "0"; optMajorDirection(1)
  -> on; optMinorDirection(1) on; focus cmdAddProcess
click cmdAddProcess -> (cmdAddProcess); focus cmdDeleteProcess; box "Error in Adding Process" "No
  -> More Space to Add\r<10>another Process."
yes, Alt+D -> "Process Defaults P1"; cboProcess {P1; P2; P3; P4; P5; P6; P7; P8; P9; P10; P11; P12;
  -> P13; P14; P15; P16; P17; P18; P19}; cboProcess "P1"; txtRapid "1"; txtLineMarkRate "1";
  -> (txtLeadInAngle); txtLeadInAngle ""; cmdAddProcess; gone optLeadIn(0) on; gone
  -> optMajorDirection(1) on; gone optMinorDirection(1) on; box Yes/No none "Delete Process" "<13>If
  -> you Delete this Process P20<61>\r<21>then any components or\rnest that uses this process will
  -> become INVALID.\r<9>Are you sure you want to continue ?"
Alt+P, Esc, no, Esc -> box Yes/No none "Closing Process Defaults" "<13>Save Changes ?"
write c:\tolvarin\system\process.dat '[Processes]\n{1-21:Process#=P#\n}', click cmdSysProcess -> box
  -> "Error loading Process.dat" "PROCESS.DAT lists more than 20 processes"
write c:\tolvarin\system\process.dat '', click cmdSysProcess, Alt+P, 'Q', Enter, no, Esc -> box
  -> again "Closing Process Defaults"
write c:\tolvarin\system\process.dat '[Processes]\nProcess1=P\n[P]\n{1-100:Thickness#=1\n}',
click cmdSysProcess, Alt+E, no, Esc -> box again "Closing Process Defaults"
write c:\tolvarin\system\process.dat '[Processes]\nProcess1=P\n[P]\n{1-101:Thickness#=1\n}',
click cmdSysProcess -> box again "Error loading Process.dat" ..100 thicknesses for P..
)");
}

}  // namespace
