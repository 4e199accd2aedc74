// The commands of the material types window: opening, adding, deleting and saving as an operator
// does them, and what happens when the file cannot be read or written.
#include "tests/materialtypes/material_types_window.h"

namespace materialtypes {
namespace {

TEST_F(MaterialTypesWindow, AMissingFileCanBeBuiltAnew) {
    TheMaterialTypes().Count = 1;
    TheMaterialTypes().Record(1).Description = "left from before";
    Open([&] {
        EXPECT_EQ(screen.TakeLog(),
                  (Log{"beep", test::Box("Error in loading MATTYPES.DAT",
                                         "File MATTYPES.DAT not found\rin c:\\tolvarin\\SYSTEM\\",
                                         "OK", "exclamation")}));
        EXPECT_EQ(Text(1, 1), "left from before");
        screen.answers = {Answer::kYes, Answer::kYes};
        Click(1, 1);
        Push(window->cmdDelete);
        Add("ms");
        Push(window->cmdClose);
    });
    EXPECT_EQ(drives.Read("c:\\tolvarin\\SYSTEM\\mattypes.dat"), FileOf({{"MS", "", "0"}}));
}

TEST_F(MaterialTypesWindow, AFileItCannotHoldIsReportedAndNotOpened) {
    TheMaterialTypes().Count = 2;
    TheMaterialTypes().Record(1).Code = "KEPT";
    std::string list = "[Materials]\n";
    for (int n = 1; n <= 61; ++n) list += "Mat" + std::to_string(n) + "=M\n";
    drives.Write(kPath, list);
    FrmEditMaterialTypes form;
    views::Guard([&] { views::ShowModal(form); });
    EXPECT_EQ(screen.TakeLog(), Log{test::Box("Error in loading MATTYPES.DAT",
                                              "MATTYPES.DAT lists more than 60 material types",
                                              "OK", "exclamation")});
    EXPECT_FALSE(views::ApplicationEnded());
    EXPECT_EQ(TheMaterialTypes().Count, 2);
    EXPECT_EQ(TheMaterialTypes().Record(1).Code.View(), Padded("KEPT", 32));
}

TEST_F(MaterialTypesWindow, AddsTypes) {
    Edit({}, [&] {
        EXPECT_EQ(window->grdMaterialTypes.Rows(), 2);
        EXPECT_FALSE(window->txtEditData.Enabled());
        for (const int column : {0, 1, 2}) Click(1, column);
        Type("x");
        Press(views::kKeyEnter);
        Press(views::kKeyOther);
        EXPECT_EQ(Text(1, 1) + Text(1, 2) + Box(), "");
        EXPECT_EQ(window->grdMaterialTypes.Row(), 1);
        EXPECT_FALSE(window->cmdDelete.Enabled());
        EXPECT_FALSE(Shared().MaterialTypesChanged);

        InDialog([&](FrmAddMaterialTypes& dialog, test::Keyboard& keyboard) {
            EXPECT_EQ(dialog.Caption(), "Add Material Type");
            EXPECT_EQ(dialog.Focus(), &dialog.txtAddMaterial);
            keyboard.Type("  ");
            keyboard.Press(views::kKeyEnter);
            EXPECT_EQ(screen.TakeLog(),
                      (Log{"beep", test::Box("Error in Adding New Material",
                                             "No Material Code Entered.", "OK", "exclamation")}));
            EXPECT_EQ(dialog.Focus(), &dialog.txtAddMaterial);
            keyboard.Type(" ms ");
            keyboard.Press(views::kKeyEnter);
            EXPECT_FALSE(dialog.IsOpen());
        });
        Push(window->cmdAdd);
        EXPECT_EQ(TheMaterialTypes().Count, 1);
        EXPECT_EQ(window->grdMaterialTypes.Rows(), 2) << "the empty row is gone";
        EXPECT_EQ(Text(1, 0) + "|" + Text(1, 1) + "|" + Text(1, 2), "MS||0");
        EXPECT_TRUE(Shared().MaterialTypesChanged);
        EXPECT_TRUE(window->txtEditData.Enabled());
        EXPECT_TRUE(window->cmdDelete.Enabled());
        Type("Mild Steel");  // without another click

        InDialog([&](FrmAddMaterialTypes& dialog, test::Keyboard& keyboard) {
            keyboard.Type("Ms");
            keyboard.Press(views::kKeyEnter);
            EXPECT_EQ(screen.TakeLog(), (Log{"beep", test::Box("Error in Material Code",
                                                               "Material Code MS already exist!",
                                                               "OK", "exclamation")}));
            EXPECT_EQ(dialog.txtAddMaterial.SelLength(), 2u);
            keyboard.Type("\xFC" + std::string(32, 'a'));
            EXPECT_EQ(screen.TakeLog(), Log{"beep"});
            EXPECT_EQ(dialog.txtAddMaterial.Text(), "\xFC" + std::string(31, 'a'));
            EXPECT_EQ(dialog.txtAddMaterial.SelStart(), 32u);
            views::Guard([&] { dialog.cmdOK.Press(); });
        });
        Push(window->cmdAdd);
        EXPECT_EQ(Text(2, 0), "\xDC" + std::string(31, 'A'));
        EXPECT_EQ(Cell(), "2,1");

        Click(1, 2);
        InDialog([](FrmAddMaterialTypes&, test::Keyboard& keyboard) {
            keyboard.Type("no");
            keyboard.Press(views::kKeyEscape);
        });
        Push(window->cmdAdd);
        EXPECT_EQ(TheMaterialTypes().Count, 2);
        EXPECT_EQ(Cell(), "2,1") << "the last one, also after Cancel";
        EXPECT_EQ(window->Focus(), &window->cmdAdd);
        screen.answers = {Answer::kYes};
    });
    EXPECT_EQ(drives.Read(kPath),
              FileOf({{"MS", "Mild Steel", "0"}, {"\xDC" + std::string(31, 'A'), "", "0"}}));
}

TEST_F(MaterialTypesWindow, DeletesTypes) {
    const auto question = [](const std::string& code) {
        return test::Box("Deleting Material Type",
                         "    Delete Material Type Code : \r\r                   " + code +
                             "\r\r      If you delete this material, any \r"
                             "Reference to this will become INVALID\r\r"
                             "                Are you Sure ?",
                         "Yes/No", "none");
    };
    Edit(kThree, [&] {
        Push(window->cmdDelete);  // nothing chosen yet
        Click(2, 2);
        screen.answers = {Answer::kNo};
        Push(window->cmdDelete);
        EXPECT_EQ(screen.TakeLog(), Log{question("AL")});
        EXPECT_EQ(TheMaterialTypes().Count, 3);
        EXPECT_FALSE(Shared().MaterialTypesChanged);

        // What was typed in a density just before is put in order in the row that it moves to.
        Click(3, 2);
        Type("0.50");
        Click(2, 0);
        screen.answers = {Answer::kYes};
        views::Guard([&] { window->Mnemonic('d'); });
        EXPECT_EQ(screen.TakeLog(), Log{question("AL")});
        EXPECT_EQ(TheMaterialTypes().Count, 2);
        EXPECT_EQ(Text(2, 0) + "|" + Text(2, 1) + "|" + Text(2, 2), "PP|Plastic|0.5");
        EXPECT_EQ(Cell(), "2,1");
        EXPECT_EQ(Box(), "Plastic");
        EXPECT_FALSE(window->cmdDelete.Enabled());
        EXPECT_TRUE(Shared().MaterialTypesChanged);

        Click(2, 2);
        screen.answers = {Answer::kYes};
        Push(window->cmdDelete);
        EXPECT_EQ(Cell(), "1,2") << "the last row was current";
        EXPECT_EQ(Box(), "7.85");
        Click(1, 1);
        screen.answers = {Answer::kYes};
        Push(window->cmdDelete);
        EXPECT_EQ(TheMaterialTypes().Count, 0);
        EXPECT_EQ(window->grdMaterialTypes.Rows(), 2);
        EXPECT_EQ(Text(1, 0) + Text(1, 1) + Box(), "");
        EXPECT_FALSE(window->txtEditData.Enabled());
        Click(1, 0);
        EXPECT_FALSE(window->cmdDelete.Enabled());
        screen.answers = {Answer::kYes};
    });
    EXPECT_EQ(drives.Read(kPath), FileOf({}));
}

TEST_F(MaterialTypesWindow, SixtyTypesAreTheLimit) {
    std::vector<Entry> types;
    for (int n = 1; n <= 59; ++n) types.push_back({"M" + std::to_string(n), "", "1"});
    Edit(types, [&] {
        Add("m60");
        EXPECT_EQ(TheMaterialTypes().Count, 60);
        EXPECT_TRUE(window->cmdAdd.Enabled());
        Push(window->cmdAdd);
        EXPECT_EQ(screen.TakeLog(),
                  (Log{"beep", test::Box("Error in adding", "No memory space to add", "OK",
                                         "exclamation")}));
        EXPECT_FALSE(window->cmdAdd.Enabled());
        EXPECT_NE(window->Focus(), &window->cmdDelete) << "where the next key would delete";
        Click(1, 1);
        screen.answers = {Answer::kYes};
        Push(window->cmdDelete);
        screen.TakeLog();
        EXPECT_TRUE(window->cmdAdd.Enabled());
        Add("m61");
        screen.answers = {Answer::kYes};
    });
    EXPECT_NE(drives.Read(kPath).find("\nMat60=M61 "), std::string::npos);
}

TEST_F(MaterialTypesWindow, AFailedSaveKeepsEverything) {
    Edit(kThree, [&] {
        const std::string before = drives.Read(kPath);
        Click(1, 1);
        Type("new");
        drives.SetReadOnly(kPath, true);
        screen.answers = {Answer::kYes};
        Push(window->cmdClose);
        const Log log = screen.TakeLog();
        ASSERT_EQ(log.size(), 3u);
        EXPECT_EQ(log[1], "beep");
        const std::string start =
            "Error in Saving file|Error during Saving file MATTYPES.DAT\rin "
            "c:\\tolvarin\\SYSTEM\\\r\rc:\\tolvarin\\system\\mattypes.dat: ";
        EXPECT_EQ(log[2].substr(0, start.size()), start);
        EXPECT_GT(log[2].size(), start.size() + std::string("|OK|exclamation").size());
        EXPECT_TRUE(window->IsOpen());
        EXPECT_EQ(Text(1, 1), "new");
        EXPECT_EQ(drives.Read(kPath), before);
        drives.SetReadOnly(kPath, false);
        screen.answers = {Answer::kYes};
        Push(window->cmdClose);
        EXPECT_FALSE(window->IsOpen());
    });
    EXPECT_NE(drives.Read(kPath).find("Description=new   "), std::string::npos);

    const std::string before = drives.Read(kPath);
    Open([&] {
        Click(1, 1);
        Type("not kept");
        screen.answers = {Answer::kNo};
        Push(window->cmdClose);
    });
    EXPECT_EQ(drives.Read(kPath), before);
}

}  // namespace
}  // namespace materialtypes
