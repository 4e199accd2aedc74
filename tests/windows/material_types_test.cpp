// The material types window: what it shows, what keys, box and mouse do in it, and what a save
// makes of mattypes.dat.
#include <gtest/gtest.h>

#include "tests/support/script.h"
#include "tests/support/workshop.h"

namespace {

using test::Play;

class MaterialTypesWindow : public ::testing::Test {
  protected:
    const test::Workshop workshop;
};

TEST_F(MaterialTypesWindow, LooksAroundWithoutAChange) {
    Play(workshop, R"(
        click cmdSysMaterial -> "Edit Material Types"; row 0: Code | Description | Density
            -> row 1: MS | Mild steel | 7.85; row 2: SS304 | Stainless | 0.5; at 1 1
            -> txtEditData "Mild steel"; (cmdDelete); focus grdMaterialTypes
        Tab -> at 1 2; marked; txtEditData "7.85"; cmdDelete
        Tab ->
        Shift+Tab -> at 1 1; txtEditData "Mild steel"
        Enter -> at 2 1; txtEditData "Stainless"
        Enter ->
        Ctrl+Up -> at 1 1; txtEditData "Mild steel"
        Ctrl+Right, Ctrl+Down -> at 2 2; txtEditData "0.5"
        Ctrl+Left, Up -> at 1 1; txtEditData "Mild steel"
        Shift+Right ->
        PageDown, End -> at 2 2; txtEditData "0.5"
        click 2 0 -> at 2 1; marked row 2; txtEditData "Stainless"
        focus cmdDelete, focus grdMaterialTypes -> unmarked; (cmdDelete)
        double 1 2, Ctrl+Space -> at 1 2; marked row 1; txtEditData "7.85"; cmdDelete
        click 0 1 ->
        click cmdClose -> focus cmdSysMaterial
    )");
}

TEST_F(MaterialTypesWindow, WhatIsTypedIntoTheGrid) {
    Play(workshop, R"(
        click cmdSysMaterial, click 1 2 -> "Edit Material Types"
            -> row 0: Code | Description | Density; row 1: MS | Mild steel | 7.85
            -> row 2: SS304 | Stainless | 0.5; at 1 2; marked; txtEditData "7.85"
            -> focus grdMaterialTypes
        '07.850' -> row 1: MS | Mild steel | 07.850; txtEditData "07.850"
        Tab -> row 1: MS | Mild steel | 7.85; txtEditData "7.85"
        Backspace -> row 1: MS | Mild steel | 7.8; txtEditData "7.8"
        click 2 1, click 2 2, 'abc', Up -> row 2: SS304 | Stainless | 0
        Down, '-3', Up ->
        Down, '1e3x', Up -> row 2: SS304 | Stainless | 1000
        Down, '12345678901234' -> row 2: SS304 | Stainless | 1234567890; at 2 2
            -> txtEditData "1234567890"
        Left -> row 2: SS304 | Stainless | 1.234568E+09; at 2 1; txtEditData "Stainless"
        'A b\xFC~' -> row 2: SS304 | A b~ | 1.234568E+09; txtEditData "A b~"
        Right, Left, 'x' -> row 2: SS304 | x | 1.234568E+09; txtEditData "x"
        Up, Backspace -> row 1: MS | - | 7.8; at 1 1; txtEditData ""
        '{1-60:d}' -> row 1: MS | dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd |
            -> 7.8; txtEditData "dddddddddddddddddddddddddddddddddddddddddddddddddddddddddddd"
        yes, close -> focus cmdSysMaterial
            -> box Yes/No none "Material Types Save" "<7>Save Changes ?"
            -> c:\tolvarin\system\mattypes.dat -Description=Mild steel<40>; -Density=7.85; -\r
            -> -[SS304]; -Description=Stainless<41>; -Density=.5
            -> +Description=dddddddddddddddddddddddddddddddddddddddddddddddddd; +Density=7.8; +\r
            -> +[SS304]; +Description=x<49>; +Density=1.234568E+09
    )");
}

TEST_F(MaterialTypesWindow, WhatIsTypedIntoTheBox) {
    Play(workshop, R"(
        click cmdSysMaterial, click 2 1, focus txtEditData -> "Edit Material Types"
            -> row 0: Code | Description | Density; row 1: MS | Mild steel | 7.85
            -> row 2: SS304 | Stainless | 0.5; at 2 1; marked; txtEditData "[Stainless]"
            -> focus txtEditData
        'Brass \xE9' -> row 2: SS304 | Brass \xE9 | 0.5; txtEditData "Brass \xE9"
        Tab -> at 2 2; txtEditData "[0.5]"
        '-3', Up -> row 2: SS304 | Brass \xE9 | 0; at 1 2; txtEditData "[7.85]"
        Ctrl+Down, '12345678901234' -> row 2: SS304 | Brass \xE9 | 12345678904; at 2 2
            -> txtEditData "12345678904"
        Home, Right, Down -> row 2: SS304 | Brass \xE9 | 1.234568E+10; txtEditData "[1.234568E+10]"
        no, Esc -> focus cmdSysMaterial; box Yes/No none "Material Types Save" "<7>Save Changes ?"
    )");
    Play(workshop, R"(
        click cmdSysMaterial, click 1 2, focus txtEditData, paste txtEditData '8.00\r\nx' -> "Edit
            -> Material Types"; row 0: Code | Description | Density; row 1: MS | Mild steel | 8.00
            -> row 2: SS304 | Stainless | 0.5; at 1 2; marked; txtEditData "8.00"; focus txtEditData
        yes, Alt+C -> focus cmdSysMaterial
            -> box Yes/No none "Material Types Save" "<7>Save Changes ?"
            -> c:\tolvarin\system\mattypes.dat -Density=7.85; +Density=8
    )");
}

TEST_F(MaterialTypesWindow, TypesAreAdded) {
    Play(workshop, R"(
        remove c:\tolvarin\system\mattypes.dat -> ...
        click cmdSysMaterial -> "Edit Material Types"; row 0: Code | Description | Density
            -> row 1: - | - | -; at 1 1; (txtEditData); txtEditData ""; (cmdDelete)
            -> focus grdMaterialTypes; beep
            -> box "Error in loading MATTYPES.DAT" "File MATTYPES.DAT not found\rin
            -> c:\tolvarin\SYSTEM\"
        click 1 0, click 1 2, 'x', Enter -> at 1 2
        click cmdAdd -> "Add Material Type"; txtAddMaterial ""; focus txtAddMaterial
        '  ', Enter -> beep; box "Error in Adding New Material" "No Material Code Entered."
        ' ms ', Enter -> row 1: MS | - | 0; at 1 1; marked; txtEditData; cmdDelete
        'Mild steel', click cmdAdd, 'Ms', Enter -> "Add Material Type"; txtAddMaterial "[Ms]"
            -> focus txtAddMaterial; beep
            -> box "Error in Material Code" "Material Code MS already exist!"
        '\xFC{1-32:a}' -> txtAddMaterial "\xFCaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa"; beep
        click cmdOK -> row 1: MS | Mild steel | 0
            -> row 2: \xDCAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA | - | 0; at 2 1
        click 1 2, click cmdAdd, 'no', Esc -> focus cmdAdd
        yes, close -> focus cmdSysMaterial
            -> box Yes/No none "Material Types Save" "<7>Save Changes ?"
            -> c:\tolvarin\system\mattypes.dat +; MATTYPES.DAT; +; Material types database.; +\r; +
            -> Densities are in tonnes/cubic metre; +\r; +[Materials]; +Mat1=MS<30>
            -> +Mat2=\xDCAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA; +\r; +[MS]; +Description=Mild steel<40>
            -> +Density=0; +\r; +[\xDCAAAAAAAAAAAAAAAAAAAAAAAAAAAAAAA]; +Description=<50>
            -> +Density=0
    )");
}

TEST_F(MaterialTypesWindow, TypesAreDeleted) {
    Play(workshop, R"(
        click cmdSysMaterial, click 1 2 -> "Edit Material Types"
            -> row 0: Code | Description | Density; row 1: MS | Mild steel | 7.85
            -> row 2: SS304 | Stainless | 0.5; at 1 2; marked; txtEditData "7.85"
            -> focus grdMaterialTypes
        no, click cmdDelete -> focus cmdDelete
            -> box Yes/No none "Deleting Material Type" "<4>Delete Material Type Code :
            -> \r\r<19>MS\r\r<6>If you delete this material, any \rReference to this will become
            -> INVALID\r\r<16>Are you Sure ?"
        focus grdMaterialTypes, click 2 2, '0.50', click 1 0, yes, Alt+D -> row 1: SS304 | Stainless
            -> | 0.5; at 1 1; txtEditData "Stainless"; (cmdDelete); focus grdMaterialTypes
            -> gone row 2: SS304 | Stainless | 0.5; box again "Deleting Material Type"
        click 1 2, yes, click cmdDelete -> row 1: - | - | -; at 1 2; unmarked; (txtEditData)
            -> txtEditData ""
            -> box Yes/No none "Deleting Material Type" "<4>Delete Material Type Code :
            -> \r\r<19>SS304\r\r<6>If you delete this material, any \rReference to this will become
            -> INVALID\r\r<16>Are you Sure ?"
        click 1 0, 'x' -> at 1 1
        yes, click cmdClose -> focus cmdSysMaterial
            -> box Yes/No none "Material Types Save" "<7>Save Changes ?"
            -> c:\tolvarin\system\mattypes.dat -[Materials]; -Mat1=MS<30>; -Mat2=SS304<27>; -\r
            -> -[MS]; -Description=Mild steel<40>; -Density=7.85; -\r; -[SS304]
            -> -Description=Stainless<41>; -Density=.5
    )");
}

TEST_F(MaterialTypesWindow, SixtyTypesAreTheLimit) {
    Play(workshop, R"(
        write c:\tolvarin\system\mattypes.dat '[Materials]\r\n{1-59:Mat#=M#\r\n}' -> ...
        click cmdSysMaterial, click cmdAdd, 'm60', Enter -> ...
        click cmdAdd -> unmarked; (cmdAdd); beep; box "Error in adding" "No memory space to add"
        Ctrl+Up, Down, Down, Down, Down, Down, Down -> at 7 1; marked
        yes, Alt+D -> row 7: M8 | - | 0; row 8: M9 | - | 0; row 9: M10 | - | 0; row 10: M11 | - | 0
            -> .. row 59: M60 | - | 0; cmdAdd; (cmdDelete); gone row 60: M60 | - | 0
            -> box Yes/No none "Deleting Material Type" "<4>Delete Material Type Code :
            -> \r\r<19>M7\r\r<6>If you delete this material, any \rReference to this will become
            -> INVALID\r\r<16>Are you Sure ?"
        click cmdAdd, 'm61', Enter -> row 60: M61 | - | 0; at 60 1; cmdDelete
        no, close -> focus cmdSysMaterial; box Yes/No none "Material Types Save" "<7>Save Changes ?"
        write c:\tolvarin\system\mattypes.dat '[Materials]\r\n{1-61:Mat#=M#\r\n}' -> ...
        click cmdSysMaterial -> box "Error in loading MATTYPES.DAT" "MATTYPES.DAT lists more than 60
            -> material types"
    )");
}

TEST_F(MaterialTypesWindow, ASaveThatFailsKeepsTheEdits) {
    Play(workshop, R"(
        click cmdSysMaterial, 'new', protect c:\tolvarin\system\mattypes.dat -> "Edit Material
            -> Types"; row 0: Code | Description | Density; row 1: MS | new | 7.85
            -> row 2: SS304 | Stainless | 0.5; at 1 1; txtEditData "new"; (cmdDelete)
            -> focus grdMaterialTypes
        yes, click cmdClose -> marked; focus cmdClose
            -> box Yes/No none "Material Types Save" "<7>Save Changes ?"; beep
            -> box "Error in Saving file" "Error during Saving file MATTYPES.DAT\rin
            -> c:\tolvarin\SYSTEM\\r\rc:\tolvarin\system\mattypes.dat: is read-only"
        write c:\tolvarin\system\mattypes.dat '' ->
    )");
}

}  // namespace
