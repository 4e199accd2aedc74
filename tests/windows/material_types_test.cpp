// The material types window: what it shows, what keys, box and mouse do in it, and what a save
// makes of mattypes.dat.
#include <gtest/gtest.h>

#include "tests/support/workshop.h"

namespace {

TEST(MaterialTypesWindow, LooksAroundAndTakesWhatIsTyped) {
    test::Play(R"(
click cmdSysMaterial -> "Edit Material Types"; frmEditMaterialTypes resizable; says Material types;
  -> row 0: Code | Description | Density; row 1: MS | Mild steel | 7.85; row 2: SS304 | Stainless |
  -> 0.5; 720 twips high, wide 1100 2200 1100n; at 1 1; says Edit Data; txtEditData "Mild steel";
  -> (cmdDelete); focus grdMaterialTypes
Tab, Tab -> at 1 2; marked; txtEditData "7.85"; cmdDelete
Shift+Tab, Enter, Enter -> at 2 1; txtEditData "Stainless"
Ctrl+Up, Ctrl+Right, Ctrl+Down -> at 2 2; txtEditData "0.5"
Ctrl+Left, Up, Shift+Right -> at 1 1; txtEditData "Mild steel"
PageDown, End -> at 2 2; txtEditData "0.5"
click 2 0 -> at 2 1; marked row 2; txtEditData "Stainless"
focus cmdDelete, focus grdMaterialTypes -> unmarked; (cmdDelete)
double 1 2, Ctrl+Space -> at 1 2; marked row 1; txtEditData "7.85"; cmdDelete
click 0 1, click cmdClose ->
click cmdSysMaterial, click 1 2, '07.850' -> "Edit Material Types"; row 1: MS | Mild steel | 07.850;
  -> marked; txtEditData "07.850"
Tab, Backspace -> row 1: MS | Mild steel | 7.8; txtEditData "7.8"
click 2 1, click 2 2, 'abc', Up -> row 2: SS304 | Stainless | 0
Down, '-3', Up, Down, '1e3x', Up -> row 2: SS304 | Stainless | 1000
Down, '12345678901234' -> row 2: SS304 | Stainless | 1234567890; at 2 2; txtEditData "1234567890"
Left, 'A b\xFC~' -> row 2: SS304 | A b~ | 1.234568E+09; at 2 1; txtEditData "A b~"
Right, Left, 'x', Up, Backspace -> row 1: MS | - | 7.8; row 2: SS304 | x | 1.234568E+09; at 1 1;
  -> txtEditData ""
'{1-60:d}' -> row 1: MS | d<60> | 7.8; txtEditData "d<60>"
yes, close -> box Yes/No none "Material Types Save" "<7>Save Changes ?";
  -> c:\tolvarin\system\mattypes.dat -Description=Mild steel<40>; -Density=7.85; +Description=d<50>;
  -> +Density=7.8; -Description=Stainless<41>; -Density=.5; +Description=x<49>;
  -> +Density=1.234568E+09
click cmdSysMaterial, click 2 1, focus txtEditData -> "Edit Material Types"; row 1: MS | d<50> |
  -> 7.8; at 2 1; txtEditData "[x]"; focus txtEditData
'Brass \xE9', Tab -> row 2: SS304 | Brass \xE9 | 1.234568E+09; at 2 2; txtEditData "[1.234568E+09]"
'-3', Up, Ctrl+Down -> row 2: SS304 | Brass \xE9 | 1234.568; txtEditData "[1234.568]"
'12345678901234' -> row 2: SS304 | Brass \xE9 | 12345678904; txtEditData "12345678904"
Home, Right, Down -> row 2: SS304 | Brass \xE9 | 1.234568E+10; txtEditData "[1.234568E+10]"
no, Esc -> box again "Material Types Save"
click cmdSysMaterial, focus txtEditData, Left, no, Alt+C, click cmdSysMaterial, 'x', no, Esc,
click cmdSysMaterial, focus txtEditData, paste txtEditData '8\r\nx', no, close -> box again
  -> "Material Types Save"; box again "Material Types Save"; box again "Material Types Save"
click cmdSysMaterial, 'new', protect c:\tolvarin\system\mattypes.dat -> "Edit Material Types"; row
  -> 1: MS | new | 7.8; row 2: SS304 | x | 1.234568E+09; at 1 1; unmarked; txtEditData "new";
  -> (cmdDelete); focus grdMaterialTypes
yes, click cmdClose -> marked; focus cmdClose; box again "Material Types Save"; beep; box "Error in
  -> Saving file" "Error during Saving file MATTYPES.DAT\rin
  -> c:\tolvarin\SYSTEM\\r\rc:\tolvarin\system\mattypes.dat: is read-only"
click 1 2, write c:\tolvarin\system\mattypes.dat '' -> at 1 2; txtEditData "7.8"; cmdDelete; focus
  -> grdMaterialTypes
)");
}

TEST(MaterialTypesWindow, TypesAreAddedAndDeletedUpToSixty) {
    test::Play(R"(
remove c:\tolvarin\system\mattypes.dat, click cmdSysMaterial -> "Edit Material Types";
  -> frmEditMaterialTypes resizable; says Material types; row 0: Code | Description | Density; row
  -> 1: - | - | -; 720 twips high, wide 1100 2200 1100n; at 1 1; says Edit Data; (txtEditData);
  -> txtEditData ""; (cmdDelete); focus grdMaterialTypes; beep; box "Error in loading MATTYPES.DAT"
  -> "File MATTYPES.DAT not found\rin c:\tolvarin\SYSTEM\"
click 1 0, click 1 2, 'x', Enter -> at 1 2
click cmdAdd -> "Add Material Type"; frmAddMaterialTypes; txtAddMaterial 32x0; says Enter  New
  -> Material Code; txtAddMaterial ""; focus txtAddMaterial
'  ', Enter -> beep; box "Error in Adding New Material" "No Material Code Entered."
' ms ', Enter -> row 1: MS | - | 0; at 1 1; marked; txtEditData; cmdDelete
'Mild steel', click cmdAdd, 'Ms', Enter -> "Add Material Type"; txtAddMaterial "[Ms]"; beep; box
  -> "Error in Material Code" "Material Code MS already exist!"
'\xFC{1-32:a}' -> txtAddMaterial "\xFCa<31>"; beep
click cmdOK -> row 1: MS | Mild steel | 0; row 2: \xDCA<31> | - | 0; at 2 1
click 1 2, click cmdAdd, 'no', Esc -> focus cmdAdd
yes, close -> box Yes/No none "Material Types Save" "<7>Save Changes ?";
  -> c:\tolvarin\system\mattypes.dat +;..; +;..; +\r; +;..; +\r; +[Materials]; +Mat1=MS<30>;
  -> +Mat2=\xDCA<31>; +\r; +[MS]; +Description=Mild steel<40>; +Density=0; +\r; +[\xDCA<31>];
  -> +Description=<50>; +Density=0
click cmdSysMaterial, click 1 2, no, click cmdDelete -> "Edit Material Types"; at 1 2; txtEditData
  -> "0"; focus cmdDelete; box Yes/No none "Deleting Material Type" "<4>Delete Material Type Code :
  -> \r\r<19>MS\r\r<6>If you delete this material, any \rReference to this will become
  -> INVALID\r\r<16>Are you Sure ?"
focus grdMaterialTypes, click 2 2, '0.50', click 1 0, yes, Alt+D -> row 1: \xDCA<31> | - | 0.5; at 1
  -> 1; txtEditData ""; (cmdDelete); focus grdMaterialTypes; gone row 2: \xDCA<31> | - | 0; box
  -> again "Deleting Material Type"
click 1 2, yes, click cmdDelete -> row 1: - | - | -; at 1 2; unmarked; (txtEditData); box again
  -> "Deleting Material Type" ..\xDCA<31>..
click 1 0, 'x' -> at 1 1
yes, click cmdClose -> box again "Material Types Save"; c:\tolvarin\system\mattypes.dat
  -> -[Materials]; -Mat1=MS<30>; -Mat2=\xDCA<31>; -\r; -[MS]; -Description=Mild steel<40>;
  -> -Density=0; -\r; -[\xDCA<31>]; -Description=<50>; -Density=0
write c:\tolvarin\system\mattypes.dat '[Materials]\r\n{1-60:Mat#=M#\r\n}[M1]\r\nDensity=-2',
click cmdSysMaterial -> "Edit Material Types"; row 1: M1 | - | -2; row 2: M2 | - | 0; row 3: M3 | -
  -> | 0; row 4: M4 | - | 0; .. row 60: M60 | - | 0; txtEditData
click cmdAdd -> (cmdAdd); beep; box "Error in adding" "No memory space to add"
Ctrl+Up, Down, Down, Down, Down, Down, Down -> at 7 1; marked; cmdDelete
yes, Alt+D -> row 7: M8 | - | 0; row 8: M9 | - | 0; row 9: M10 | - | 0; row 10: M11 | - | 0; .. row
  -> 59: M60 | - | 0; cmdAdd; (cmdDelete); gone row 60: M60 | - | 0; box again "Deleting Material
  -> Type" ..M7..
click cmdAdd, 'm61', Enter -> row 60: M61 | - | 0; at 60 1; cmdDelete
no, close -> box again "Material Types Save"
write c:\tolvarin\system\mattypes.dat '[Materials]\nMat1=M\x01S\nMat2=x\n[M\x01S]\nDescription=a\x01b',
click cmdSysMaterial, click 2 2, yes, click cmdDelete, no, Esc, click cmdSysMaterial, click 1 2,
'0.5', yes, Esc -> box again "Deleting Material Type" ..x..; box again "Material Types Save"; box
  -> again "Material Types Save"; c:\tolvarin\system\mattypes.dat -[Materials]\n; -Mat1=M\x01S\n;
  -> -Mat2=x\n; -[M\x01S]\n; -Description=a\x01b<no end>; +;..; +;..; +\r; +;..; +\r; +[Materials];
  -> +Mat1=M<31>; +Mat2=x<31>; +\r; +[M]; +Description=a<49>; +Density=.5; +\r; +[x];
  -> +Description=<50>; +Density=0
write c:\tolvarin\system\mattypes.dat '[Materials]\r\n{1-61:Mat#=M#\r\n}', click cmdSysMaterial ->
  -> box "Error in loading MATTYPES.DAT" "MATTYPES.DAT lists more than 60 material types"
)");
}

}  // namespace
