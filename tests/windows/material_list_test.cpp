// The material list window, opened for the system list, for a directory and for one just created:
// what it shows, what its commands and editors do, and what a save makes of the files.
#include <gtest/gtest.h>

#include "materiallist/edit_material_list.h"
#include "materiallist/enter_thickness.h"
#include "tests/support/workshop.h"

namespace {

class MaterialListWindow : public ::testing::Test {
  protected:
    MaterialListWindow() {
        // Ranges in mm: Plasma 0 to 25, Oxy Fuel -2 to 150, Water nothing but 0.
        workshop.Write("c:\\tolvarin\\system\\process.dat",
                       "[Processes]\nProcess1=Plasma\nProcess2=Oxy Fuel\nProcess3=Water\n[Plasma]\n"
                       "Thickness1=6\nThickness2=25\n[Oxy Fuel]\nThickness1=150\nThickness2=-2\n");
        workshop.Write("c:\\tolvarin\\system\\mattypes.dat",
                       "[Materials]\nMat1=MS\nMat2=Ss316\nMat3=SS304\nMat4=Wear 400\n");
    }
    const test::Workshop workshop;
};

TEST_F(MaterialListWindow, LooksAroundAndTypesIntoTheGrid) {
    Play(workshop, R"(
click optProduction, choose lstDirectory p10,
write c:\tolvarin\USER\PROD\P10\MATERIAL.DAT '[Mat1]\nType=MS\nThickness=30\nProcess=plasma\n[Mat2]\nType=XX\nThickness=-5\nProcess=OXY FUEL\n[Mat3]\nType=YY\nThickness=30\nProcess=Plas',
click cmdMaterial -> "Edit c:\tolvarin\user\prod\p10\material.dat List"; frmEditMaterialList
  -> resizable; says Material list; row 0: Index | Material Type Code | Process Name | Thickness
  -> (mm); row 1: 1 | MS | plasma | 25; row 2: 2 | XX | OXY FUEL | 0; row 3: 3 | YY | Plas | 30;
  -> 1050 twips high, wide 1125n 2375 2375 2375n; at 1 1; marked; says Material; cboEditDataType
  -> {MS; Ss316; SS304; Wear 400}; cboEditDataType "MS"; says Process; no cboEditDataProcess;
  -> cboEditDataProcess {Plasma; Oxy Fuel; Water}; cboEditDataProcess ""; says Thickness; no
  -> txtSpinText; txtSpinText ""; says Thickness steps; no spinButton; (cmdCopy); (cmdPaste);
  -> (cmdDelete); chkAllowKerfCompensated on; chkNestClearanceCheck off; chkTracePlate off;
  -> chkPrePierceEnabled off; txtMinPlateThickness 8x0; says Min Plate Thickness;
  -> (txtMinPlateThickness); txtMinPlateThickness "0.5"; focus grdMaterialList
Tab, Tab, Tab, Enter -> row 1: 1 | MS | Plasma | 25; at 2 3; no cboEditDataType; cboEditDataProcess
  -> "plasma"; txtSpinText; txtSpinText "0"; spinButton
Shift+Tab, Ctrl+Left, Left, Ctrl+Down, Enter -> row 2: 2 | MS | Oxy Fuel | 0; row 3: 3 | MS | Plas |
  -> 30; at 3 1; cboEditDataType; cboEditDataProcess "OXY FUEL"; no txtSpinText; no spinButton
Ctrl+Right, Ctrl+Up, Up, Down, Left, Ctrl+Left, Ctrl+Home, Ctrl+Space -> at 2 1; marked row 2;
  -> cboEditDataProcess "Oxy Fuel"; cmdCopy; cmdDelete
Home -> marked; (cmdCopy); (cmdDelete)
double 2 0 -> marked row 2; cmdCopy; cmdDelete
Up -> at 1 1; marked; (cmdCopy); (cmdDelete)
double 2 1, click 3 0, click 0 2 -> at 3 1
End, '7x', Home -> row 3: 3 | MS | Plas | 7x; txtSpinText "7x"
no, close,
write c:\tolvarin\USER\PROD\P10\MATERIAL.DAT '[Mat1]\nType=MS\nProcess=Plasma\nThickness=10\n[Mat2]\nType=SS304\nProcess=Oxy Fuel\nThickness=12.5',
click cmdMaterial, 'ab\xFC', Backspace, Backspace -> "Edit c:\tolvarin\user\prod\p10\material.dat
  -> List"; row 1: 1 | a | Plasma | 10; row 2: 2 | SS304 | Oxy Fuel | 12.5; at 1 1; cboEditDataType
  -> "a"; cboEditDataProcess ""; txtSpinText ""; gone row 3: 3 | MS | Plas | 7x; box Yes/No none
  -> "Save Material List file" "<9>Save Changes ?"
Tab, '\x7F', Backspace -> row 1: 1 | MS | - | 10; at 1 2; no cboEditDataType; cboEditDataProcess
click 1 2, 'Water{1-59: }x', click 2 0, 'Wear 400{1-24: }x', Right -> row 1: 1 | MS | Water | 0; row
  -> 2: 2 | Wear 400 | Oxy Fuel | 12.5; at 2 2; cboEditDataType "Wear 400"; cboEditDataProcess "Oxy
  -> Fuel"; txtSpinText "0"
'Water{1-27: }x', Up -> row 2: 2 | Wear 400 | Water | 0; at 1 2; cboEditDataProcess "Water"
click 2 3, Ctrl+Left, 'Wear 400{1-24: }x', End, '8' -> row 2: 2 | MS | Water | 8; at 2 3;
  -> cboEditDataType "MS"; no cboEditDataProcess; txtSpinText; txtSpinText "8"; spinButton
click 2 1, End, '9.5x' -> row 2: 2 | MS | Water | 9.5x; txtSpinText "9.5x"
click 1 2, PageDown, 'o' -> row 2: 2 | MS | o | 0; at 2 2; cboEditDataProcess; cboEditDataProcess
  -> "o"; no txtSpinText; txtSpinText "0"; no spinButton
click 1 1, PageDown, End, '99' -> row 2: 2 | MS | Oxy Fuel | 099; at 2 3; no cboEditDataProcess;
  -> txtSpinText; txtSpinText "099"; spinButton
Up -> row 2: 2 | MS | Oxy Fuel | 99; at 1 3; txtSpinText "0"
no, close, click cmdMaterial, focus cboEditDataType, click cmdClose -> box again "Save Material List
  -> file"
)");
}

TEST_F(MaterialListWindow, WhatIsTypedIntoOrPickedFromTheBoxes) {
    Play(workshop, R"(
click optProduction, choose lstDirectory p10, click cmdMaterial -> ...
focus cboEditDataType, 's', Enter -> row 1: 1 | Ss316 | Plasma | 10; at 2 1; cboEditDataType "SS304"
Up, 'ss30', Enter, Up, 'wear 4', Enter -> row 1: 1 | Wear 400 | Plasma | 10
Up, 'ss316x', Enter -> row 1: 1 | MS | Plasma | 10
Up, 's', Enter, Up, Backspace, Enter, Right, focus cboEditDataProcess, 'wa' -> row 2: 2 | SS304 | wa
  -> | 12.5; at 2 2; no cboEditDataType; cboEditDataProcess; cboEditDataProcess "wa"; focus
  -> cboEditDataProcess
Enter, 'o' -> row 2: 2 | SS304 | o | 0; cboEditDataProcess "o"; txtSpinText "0"; focus
  -> grdMaterialList
choose cboEditDataProcess Plasma, click 2 1, choose cboEditDataType MS -> row 2: 2 | MS | Plasma |
  -> 0; at 2 1; cboEditDataType; cboEditDataType "MS"; no cboEditDataProcess; cboEditDataProcess
  -> "Plasma"; focus cboEditDataType
yes, Alt+C -> box Yes/No none "Save Material List file" "<9>Save Changes ?";
  -> c:\tolvarin\USER\PROD\P10\MATERIAL.DAT -Type=SS304; -Thickness=12.5mm; -Process=Oxy Fuel;
  -> +Type=MS; +Thickness=0mm; +Process=Plasma
click cmdMaterial, click 1 3, focus txtSpinText, click cmdClose ->
click cmdMaterial, click 2 2, focus cboEditDataProcess, no, click cmdClose -> box again "Save
  -> Material List file"
click cmdMaterial, choose cboEditDataType MS, no, close -> box again "Save Material List file"
click cmdMaterial, focus cboEditDataType, Down, no, close -> box again "Save Material List file"
click cmdMaterial, focus cboEditDataType, paste cboEditDataType 'wea', no, Esc -> box again "Save
  -> Material List file"
click cmdMaterial, 'm', no, close, click cmdMaterial, click 1 3, focus spinButton, Up, no, Esc,
click cmdMaterial, click 1 3, focus txtSpinText, '1', no, Esc -> box again "Save Material List
  -> file"; box again "Save Material List file"; box again "Save Material List file"
click cmdSysDefaults, double 2 2 -> "Edit c:\tolvarin\system\material.dat List"; row 1: 1 | MS |
  -> Plasma | -; row 2: 2 | SS304 | Oxy Fuel | -; at 2 2; marked row 2; no cboEditDataType;
  -> cboEditDataProcess; cboEditDataProcess "Oxy Fuel"; txtSpinText ""; cmdCopy; cmdDelete; focus
  -> grdMaterialList
Alt+C, Alt+P, Alt+A -> row 3: 3 | SS304 | Oxy Fuel | -; row 4: 4 | MS | Plasma | -; at 4 1; marked;
  -> cboEditDataType; no cboEditDataProcess; (cmdCopy); cmdPaste; (cmdDelete)
Ctrl+Right, '5', focus txtSpinText, focus spinButton -> at 4 3; no cboEditDataType
Left, 'wa', Up -> row 4: 4 | MS | Water | -; at 3 2; cboEditDataProcess
yes, Alt+C -> focus cmdSysDefaults; box again "Save Material List file";
  -> c:\tolvarin\system\material.dat +\r; +[Mat3]; +Type=SS304; +Thickness=mm; +Process=Oxy Fuel;
  -> +\r; +[Mat4]; +Type=MS; +Thickness=mm; +Process=Water
)");
}

TEST_F(MaterialListWindow, ThicknessesAreTypedAndStepped) {
    Play(workshop, R"(
click optProduction, choose lstDirectory p10, click cmdMaterial -> ...
click 1 3, focus txtSpinText, '30', Shift+Tab -> row 1: 1 | MS | Plasma | 25; at 1 2; no
  -> cboEditDataType; cboEditDataProcess; cboEditDataProcess "Plasma"; txtSpinText "25"
click 1 3, focus txtSpinText, '.5', Down -> row 1: 1 | MS | Plasma | 0.5; at 2 3; no
  -> cboEditDataProcess; txtSpinText; txtSpinText "12.5"; spinButton
Up, focus txtSpinText, '-1', click 2 3 -> row 1: 1 | MS | Plasma | 0
Up, focus txtSpinText, '123456789012345' -> row 1: 1 | MS | Plasma | 12345678901235; at 1 3;
  -> txtSpinText "12345678901235"; focus txtSpinText
Enter -> row 1: 1 | MS | Plasma | 25; at 2 3; txtSpinText "12.5"; focus grdMaterialList
Up, focus txtSpinText, '22.6', Tab, focus spinButton, Up -> row 1: 1 | MS | Plasma | 23.6; at 1 3;
  -> txtSpinText "23.6"; focus spinButton
Up, Up, Down -> row 1: 1 | MS | Plasma | 24; txtSpinText "24"
focus txtSpinText, paste txtSpinText '8 mm', yes, close -> box Yes/No none "Save Material List file"
  -> "<9>Save Changes ?"; c:\tolvarin\USER\PROD\P10\MATERIAL.DAT -Thickness=10mm; +Thickness=8mm
click cmdCreate, 'JOB', Enter -> "Enter Thickness  for job Directory"; frmEnterThickness;
  -> txtInitThickness 24x0; says Enter Thickness; txtInitThickness ""; focus txtInitThickness;
  -> c:\tolvarin\USER\PROD\JOB made; \COMP made; \GROUP made; \MATERIAL.DAT +;..; +;..; +;..; +\r;
  -> +[Mat1]; +Type=MS; +Thickness=mm; +Process=Plasma; +\r; +[Mat2]; +Type=SS304; +Thickness=mm;
  -> +Process=Oxy Fuel; \NEST made; \TAPE made
'0', Enter -> txtInitThickness "[0]"; box "Error in Thickness" "Thickness must be bigger than 0"
'30mm', Alt+O -> "Edit c:\tolvarin\user\prod\job\material.dat List"; row 1: 1 | MS | Plasma | 25;
  -> row 2: 2 | SS304 | Oxy Fuel | 30; at 1 1; cboEditDataType; cboEditDataProcess ""; no
  -> txtSpinText; txtSpinText ""; no spinButton; focus grdMaterialList
no, close, write c:\tolvarin\system\material.dat '', click cmdCreate, 'Q7', Enter, close -> "Edit
  -> c:\tolvarin\user\prod\q7\material.dat List"; row 1: - | - | - | -; no cboEditDataType;
  -> cboEditDataType ""; gone row 2: 2 | SS304 | Oxy Fuel | 30; box again "Save Material List file";
  -> c:\tolvarin\USER\PROD\Q7 made; \COMP made; \GROUP made; \MATERIAL.DAT ; \NEST made; \TAPE made
Tab, click cmdClose -> lstDirectory {job; p10; q7}; lstDirectory "q7"; focus cmdCreate
)");
}

TEST_F(MaterialListWindow, EntriesAreCopiedPastedAndDeleted) {
    Play(workshop, R"(
click optProduction, choose lstDirectory p10, click cmdMaterial -> ...
double 2 2, click cmdCopy, click 1 3, click cmdPaste, Alt+A -> row 3: 3 | SS304 | Oxy Fuel | 12.5;
  -> row 4: 4 | MS | Plasma | 0; at 4 1; cboEditDataProcess "Oxy Fuel"; txtSpinText "10"; cmdPaste
Ctrl+Space, no, click cmdDelete -> unmarked; cmdDelete; focus cmdDelete; box Yes/No none "Deleting
  -> Processing data" "<5>Delete Data Index 4\r<6>Are You Sure ?"
yes, Alt+D -> at 3 1; marked; cboEditDataType "SS304"; (cmdDelete); focus grdMaterialList; gone row
  -> 4: 4 | MS | Plasma | 0; box again "Deleting Processing data"
double 2 1, 'q', yes, Alt+D -> at 2 1; gone row 3: 3 | SS304 | Oxy Fuel | 12.5; box again "Deleting
  -> Processing data" ..2..
click 2 1, 'w', double 1 2, yes, Alt+D -> row 1: 1 | Wear 400 | Oxy Fuel | 12.5; at 1 2; no
  -> cboEditDataType; cboEditDataType "w"; cboEditDataProcess; gone row 2: 2 | SS304 | Oxy Fuel |
  -> 12.5; box again "Deleting Processing data" ..1..
Ctrl+Space, click cmdCopy -> marked row 1; (cmdPaste); cmdDelete; focus cmdDelete
yes, close -> box Yes/No none "Save Material List file" "<9>Save Changes ?";
  -> c:\tolvarin\USER\PROD\P10\MATERIAL.DAT -Type=MS; -Thickness=10mm; -Process=Plasma; -\r;
  -> -[Mat2]; -Type=SS304; +Type=Wear 400
click cmdMaterial, Ctrl+Space, yes, Alt+D, no, close, click cmdMaterial -> "Edit
  -> c:\tolvarin\user\prod\p10\material.dat List"; at 1 1; marked; cboEditDataType; cboEditDataType
  -> "Wear 400"; no cboEditDataProcess; cboEditDataProcess ""; txtSpinText ""; (cmdDelete); focus
  -> grdMaterialList; box again "Deleting Processing data"; box again "Save Material List file"
Ctrl+Space, yes, Alt+D, Right, 'x', Down, Ctrl+Space -> row 1: - | - | - | -; at 1 2; no
  -> cboEditDataType; box again "Deleting Processing data"
Ctrl+Left, click cmdAdd, click cmdAdd -> row 1: 1 | MS | Plasma | 0; row 2: 2 | MS | Plasma | 0; at
  -> 2 1; cboEditDataType; cboEditDataType "MS"; txtSpinText "0"
no, close, write c:\tolvarin\USER\PROD\P10\NEST\OLD\1.NST '', click cmdMaterial, double 1 1 -> "Edit
  -> c:\tolvarin\user\prod\p10\material.dat List"; row 1: 1 | Wear 400 | Oxy Fuel | 12.5; at 1 1;
  -> marked row 1; cboEditDataType "Wear 400"; txtSpinText ""; cmdCopy; cmdDelete; gone row 2: 2 |
  -> MS | Plasma | 0; box again "Save Material List file"
close, write c:\tolvarin\USER\PROD\P10\MATERIAL.DAT '{1-199:[Mat#]\nType=T\n}', click cmdMaterial,
Ctrl+Down, Ctrl+Space, click cmdCopy -> "Edit c:\tolvarin\user\prod\p10\material.dat List"; row 1: 1
  -> | MS | - | 0; row 2: 2 | T | - | 0; row 3: 3 | T | - | 0; row 4: 4 | T | - | 0; .. row 199: 199
  -> | T | - | 0; at 199 1; marked row 199; cboEditDataType "T"; cmdPaste; focus cmdCopy
click cmdAdd -> row 200: 200 | MS | Plasma | 0; at 200 1; marked; cboEditDataType "MS"; (cmdCopy);
  -> (cmdPaste); (cmdDelete); focus grdMaterialList
click cmdAdd -> (cmdAdd)
Ctrl+Up, Ctrl+Space, yes, Alt+D -> row 1: 1 | T | - | 0; row 199: 199 | MS | Plasma | 0; at 1 1;
  -> cboEditDataType "T"; cmdAdd; gone row 200: 200 | MS | Plasma | 0; box again "Deleting
  -> Processing data"
Ctrl+Space, click cmdCopy, click cmdPaste -> row 200: 200 | T | - | 0; at 200 1; (cmdAdd)
no, close, write c:\tolvarin\USER\PROD\P10\NEST\1.NST '', click cmdMaterial, double 1 1 -> "Edit
  -> c:\tolvarin\user\prod\p10\material.dat List"; row 199: 199 | T | - | 0; at 1 1; marked row 1;
  -> cmdAdd; cmdCopy; gone row 200: 200 | T | - | 0; box again "Save Material List file"
close, write c:\tolvarin\USER\PROD\P10\COMP\A.CMP '', remove c:\tolvarin\USER\PROD\P10\NEST,
click cmdMaterial, double 2 1 -> "Edit c:\tolvarin\user\prod\p10\material.dat List"; at 2 1; marked
  -> row 2
close, write c:\tolvarin\USER\PROD\P10\MATERIAL.DAT '{1-200:[Mat#]\nType=T\n}', click cmdMaterial ->
  -> beep; box "Error in Loading" "File c:\tolvarin\user\prod\p10\material.dat is Too big"; beep;
  -> box "Error in Loading" "Problem During Loading files\rCan not start Material List Edit"
write c:\tolvarin\system\mattypes.dat '', write c:\tolvarin\system\process.dat '',
click cmdSysDefaults, Tab, Tab, click cmdAdd -> "Edit c:\tolvarin\system\material.dat List"; row 1:
  -> 1 | MS | Plasma | -; row 2: 2 | SS304 | Oxy Fuel | -; row 3: 3 | - | - | -; at 3 1; marked;
  -> cboEditDataType {}; cboEditDataType ""; cboEditDataProcess {}; cboEditDataProcess "Plasma";
  -> (cmdCopy); gone row 4: 4 | T | - | 0; gone row 5: 5 | T | - | 0; gone row 6: 6 | T | - | 0;
  -> gone row 7: 7 | T | - | 0; .. gone row 199: 199 | T | - | 0
yes, close -> focus cmdSysDefaults; box again "Save Material List file";
  -> c:\tolvarin\system\material.dat +\r; +[Mat3]; +Type=; +Thickness=mm; +Process=
)");
}

TEST_F(MaterialListWindow, OptionsAreSavedByThemselves) {
    Play(workshop, R"(
click optProduction, choose lstDirectory p10, click cmdMaterial, close -> ...
write c:\tolvarin\network\user1\nestuser.ini '[NEST]\r\nAllowKerfProg=on\r\nNestCheck=-1\r\ntracePlateOUTLINE=7\r\nPrePiercingEnabled=.1x\r\nPrePiercingThickness=-5\r\n',
protect c:\tolvarin\USER\PROD\P10\MATERIAL.DAT, click cmdMaterial -> "Edit
  -> c:\tolvarin\user\prod\p10\material.dat List"; frmEditMaterialList resizable; says Material
  -> list; row 0: Index | Material Type Code | Process Name | Thickness (mm); row 1: 1 | MS | Plasma
  -> | 10; row 2: 2 | SS304 | Oxy Fuel | 12.5; 1050 twips high, wide 1125n 2375 2375 2375n; at 1 1;
  -> marked; says Material; cboEditDataType {MS; Ss316; SS304; Wear 400}; cboEditDataType "MS"; says
  -> Process; no cboEditDataProcess; cboEditDataProcess {Plasma; Oxy Fuel; Water};
  -> cboEditDataProcess ""; says Thickness; no txtSpinText; txtSpinText ""; says Thickness steps; no
  -> spinButton; (cmdCopy); (cmdPaste); (cmdDelete); chkAllowKerfCompensated off;
  -> chkNestClearanceCheck on; chkTracePlate on; chkPrePierceEnabled on; txtMinPlateThickness 8x0;
  -> says Min Plate Thickness; txtMinPlateThickness "0"; focus grdMaterialList
click chkAllowKerfCompensated, yes, close -> box Yes/No none "Save Material List file" "<9>Save
  -> Changes ?"; c:\tolvarin\network\user1\nestuser.ini -AllowKerfProg=on; -NestCheck=-1;
  -> -tracePlateOUTLINE=7; -PrePiercingEnabled=.1x; -PrePiercingThickness=-5; +AllowKerfProg=1;
  -> +NestCheck=1; +tracePlateOUTLINE=1; +PrePiercingEnabled=1; +PrePiercingThickness=0
click cmdMaterial, paste txtMinPlateThickness '12.5mm', click chkPrePierceEnabled -> "Edit
  -> c:\tolvarin\user\prod\p10\material.dat List"; chkAllowKerfCompensated on; chkPrePierceEnabled
  -> off; (txtMinPlateThickness); txtMinPlateThickness "12.5mm"; focus chkPrePierceEnabled
click chkNestClearanceCheck, click chkTracePlate, yes, close -> box again "Save Material List file";
  -> c:\tolvarin\network\user1\nestuser.ini -NestCheck=1; -tracePlateOUTLINE=1;
  -> -PrePiercingEnabled=1; -PrePiercingThickness=0; +NestCheck=0; +tracePlateOUTLINE=0;
  -> +PrePiercingEnabled=0; +PrePiercingThickness=12.5
remove c:\tolvarin\network\user1\nestuser.ini, click cmdMaterial -> "Edit
  -> c:\tolvarin\user\prod\p10\material.dat List"; chkAllowKerfCompensated off;
  -> chkNestClearanceCheck off; chkTracePlate off; txtMinPlateThickness "50"; focus grdMaterialList
click chkTracePlate, yes, close -> box again "Save Material List file";
  -> c:\tolvarin\network\user1\nestuser.ini +[Nest]; +AllowKerfProg=0; +NestCheck=0;
  -> +TracePlateOutline=1; +PrePiercingEnabled=0; +PrePiercingThickness=50
click cmdMaterial, click chkPrePierceEnabled, no, close, click cmdMaterial,
click chkNestClearanceCheck, no, close -> box again "Save Material List file"; box again "Save
  -> Material List file"
remove c:\tolvarin\network, click cmdMaterial, 'w', click chkTracePlate, yes, close -> "Edit
  -> c:\tolvarin\user\prod\p10\material.dat List"; row 1: 1 | Wear 400 | Plasma | 10;
  -> cboEditDataType "Wear 400"; chkTracePlate on; focus cmdClose; box again "Save Material List
  -> file"; box "Save Material List file" "c:\tolvarin\USER\PROD\p10\material.dat: is read-only"
remove c:\tolvarin\USER\PROD\P10\MATERIAL.DAT, yes, close -> box again "Save Material List file";
  -> c:\tolvarin\USER\PROD\P10\material.dat +;..; +;..; +;..; +\r; +[Mat1]; +Type=Wear 400;
  -> +Thickness=10mm; +Process=Plasma; +\r; +[Mat2]; +Type=SS304; +Thickness=12.5mm; +Process=Oxy
  -> Fuel
)");
}

// As numbers of mm, in front of them one letter at the most.
TEST_F(MaterialListWindow, ThicknessesAreProposedByTheNamesOfDirectories) {
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"P10", "10"}, {"T12.5", "12.5"}, {"8MM", "8"}, {"JOB12", ""},
        {"P.5", ".5"}, {"05", "5"},       {"9x1", "9"}, {"1", "1"}};
    for (const auto& [name, proposed] : expected) {
        materiallist::Shared().MaterialListDirPath = "c:\\tolvarin\\USER\\PROD\\" + name;
        materiallist::FrmEnterThickness prompt;
        prompt.Open();
        EXPECT_EQ(prompt.Caption() + prompt.txtInitThickness.Text(),
                  "Enter Thickness  for " + name + " Directory" + proposed);
    }
}

// The current row stays in view: it comes to the top where it lay above it or five rows below.
TEST_F(MaterialListWindow, TheRowInView) {
    materiallist::FrmEditMaterialList window;
    window.Open();
    views::Grid& grid = window.grdMaterialList;
    grid.SetShape(7, 4, 1, 1);
    for (const auto& [row, top] : {std::pair{5, 1}, {6, 6}, {5, 5}}) {
        grid.SetCell(row, 1);
        EXPECT_EQ(grid.TopRow(), top) << row;
    }
}

}  // namespace
