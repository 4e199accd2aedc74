// The material types window on real files: showing, editing, adding, deleting and saving as an
// operator does it.
#include "materialtypes/edit_material_types.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

#include "app/system_config.h"
#include "materialtypes/add_material_types.h"
#include "materialtypes/material_type_table.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/temp_drives.h"
#include "views/application.h"
#include "views/view_procedures.h"

namespace {

using Log = std::vector<std::string>;
using materialtypes::FrmAddMaterialTypes;
using materialtypes::FrmEditMaterialTypes;
using materialtypes::MaterialTypesChanged;
using materialtypes::TheMaterialTypes;
using views::Answer;

const std::string kPath = "c:\\tolvarin\\SYSTEM\\MATTYPES.DAT";
const std::string kSaveBox =
    test::Box("Material Types Save", "       Save Changes ?", "Yes/No", "none");

struct Entry {
    std::string code, description, density;
};

std::string Padded(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

std::string FileOf(const std::vector<Entry>& types) {
    std::string bytes =
        "; MATTYPES.DAT\r\n; Material types database.\r\n\r\r\n"
        "; Densities are in tonnes/cubic metre\r\n\r\r\n";
    if (types.empty()) return bytes;
    bytes += "[Materials]\r\n";
    int n = 0;
    for (const Entry& type : types) {
        bytes += "Mat" + std::to_string(++n) + "=" + Padded(type.code, 32) + "\r\n";
    }
    for (const Entry& type : types) {
        bytes += "\r\r\n[" + type.code + "]\r\nDescription=" + Padded(type.description, 50) +
                 "\r\nDensity=" + type.density + "\r\n";
    }
    return bytes;
}

class MaterialTypesWindow : public ::testing::Test {
  protected:
    MaterialTypesWindow() {
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
        materialtypes::ResetMaterialTypes();
        drives.MakeDir("c:\\tolvarin\\SYSTEM");
    }
    ~MaterialTypesWindow() override {
        materialtypes::ResetMaterialTypes();
        app::TheConfig() = {};
    }

    // Opens the window on a file with these types, for a person who does this in it.
    void Edit(const std::vector<Entry>& types, const std::function<void()>& steps) {
        drives.Write(kPath, FileOf(types));
        Open(steps);
    }
    void Open(const std::function<void()>& steps) {
        FrmEditMaterialTypes form;
        window = &form;
        screen.windows.push_back([&](views::Form&) { steps(); });
        views::Guard([&] { views::ShowModal(form); });
        window = nullptr;
    }
    // What is done in the next dialog for a new type.
    void InDialog(const std::function<void(FrmAddMaterialTypes&, test::Keyboard&)>& steps) {
        screen.windows.push_back([steps](views::Form& form) {
            test::Keyboard keyboard(form);
            steps(dynamic_cast<FrmAddMaterialTypes&>(form), keyboard);
        });
    }
    void Add(const std::string& code) {
        InDialog([code](FrmAddMaterialTypes&, test::Keyboard& keyboard) {
            keyboard.Type(code);
            keyboard.Press(views::kKeyEnter);
        });
        Push(window->cmdAdd);
    }
    static void Push(views::CommandButton& button) {
        views::Guard([&] { button.Press(); });
    }
    void Click(int row, int column) {
        views::Guard([&] { window->grdMaterialTypes.ClickCell(row, column); });
    }
    void Press(int key, int shift = 0) { test::Keyboard(*window).Press(key, shift); }
    void Type(std::string_view text) { test::Keyboard(*window).Type(text); }

    const std::string& Text(int row, int column) const {
        return window->grdMaterialTypes.Text(row, column);
    }
    std::string Cell() const {
        return std::to_string(window->grdMaterialTypes.Row()) + "," +
               std::to_string(window->grdMaterialTypes.Column());
    }
    const std::string& Box() const { return window->txtEditData.Text(); }

    test::TempDrives drives;
    test::ScriptedScreen screen;
    FrmEditMaterialTypes* window = nullptr;
};

const std::vector<Entry> kThree = {
    {"MS", "Mild Steel", "7.85"}, {"AL", "Aluminium", "2.7"}, {"PP", "Plastic", ".5"}};

TEST_F(MaterialTypesWindow, ShowsTheFileAndClosesUnchanged) {
    std::string file = FileOf(kThree);
    file.replace(file.find("=2.7"), 4, "=-3");
    drives.Write(kPath, file);
    MaterialTypesChanged = true;
    Open([&] {
        const auto& grid = window->grdMaterialTypes;
        EXPECT_EQ(window->Caption(), "Edit Material Types");
        EXPECT_EQ(grid.Rows(), 4);
        EXPECT_EQ(Text(0, 0) + "|" + Text(0, 1) + "|" + Text(0, 2), "Code|Description|Density");
        EXPECT_EQ(grid.RowHeight(0), 720);
        EXPECT_EQ(grid.ColumnWidth(0), 1100);
        EXPECT_EQ(grid.ColumnWidth(1), 2200);
        EXPECT_EQ(Text(1, 0) + "|" + Text(1, 1) + "|" + Text(1, 2), "MS|Mild Steel|7.85");
        EXPECT_EQ(Text(2, 2), "-3") << "shown as it is until the cell is left";
        EXPECT_EQ(Text(3, 2), "0.5");
        EXPECT_EQ(TheMaterialTypes().Record(1).Code.View(), Padded("MS", 32)) << "without a NUL";
        EXPECT_EQ(window->Focus(), &grid);
        EXPECT_EQ(Cell(), "1,1");
        EXPECT_EQ(Box(), "Mild Steel");
        EXPECT_FALSE(window->cmdDelete.Enabled());
        EXPECT_FALSE(MaterialTypesChanged);
        Press(views::kKeyRight);
        Press(views::kKeyDown);
        Press(views::kKeyEscape);
    });
    EXPECT_EQ(screen.TakeLog(), Log{});
    EXPECT_EQ(drives.Read(kPath), file);
}

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

TEST_F(MaterialTypesWindow, TypingIntoTheGrid) {
    Edit(kThree, [&] {
        Click(1, 2);
        EXPECT_EQ(Box(), "7.85");
        EXPECT_TRUE(window->cmdDelete.Enabled());
        Type("07.850");
        EXPECT_EQ(Text(1, 2), "07.850") << "not put in order while typing";
        EXPECT_EQ(Box(), "07.850");
        EXPECT_TRUE(MaterialTypesChanged);
        Press(views::kKeyTab);
        EXPECT_EQ(Cell(), "1,2") << "no way on from the last column";
        EXPECT_EQ(Text(1, 2), "7.85");
        Press(views::kKeyBackspace);  // still the cell typed in last
        EXPECT_EQ(Text(1, 2), "7.8");

        struct {
            const char *typed, *left;
        } const numbers[] = {{"0.5", "0.5"},   {"abc", "0"}, {"-3", "0"},
                             {"1e3x", "1000"}, {"", "2.7"},  {"12345678901234", "1.234568E+09"}};
        for (const auto& [typed, left] : numbers) {
            Click(2, 1);
            Click(2, 2);
            window->grdMaterialTypes.SetText(2, 2, "2.7");
            Type(typed);
            Press(views::kKeyEnter);
            EXPECT_EQ(Text(2, 2), left) << typed;
            EXPECT_EQ(Cell(), "3,2") << typed;
        }
        Click(2, 2);
        Type("12345678901");
        EXPECT_EQ(Text(2, 2), "1234567890") << "10 characters";
        Press(views::kKeyLeft);  // the grid's own movement leaves the cell as well
        EXPECT_EQ(Cell(), "2,1");
        EXPECT_EQ(Text(2, 2), "1.234568E+09");
        EXPECT_EQ(Box(), "Aluminium");

        Type("A b\xFC\x01~");  // only what the code page shares with ASCII
        EXPECT_EQ(Text(2, 1), "A b~");
        Press(views::kKeyRight);
        Press(views::kKeyLeft);
        Type("x");
        EXPECT_EQ(Text(2, 1), "x") << "another cell was entered in between";
        Press(views::kKeyUp);
        Press(views::kKeyBackspace);
        EXPECT_EQ(Text(1, 1), "") << "Backspace as the first key empties the cell";
        Click(3, 0);
        Click(1, 0);
        Type(std::string(60, 'd'));
        EXPECT_EQ(Text(1, 1).size(), 60u);
        screen.answers = {Answer::kYes};
    });
    EXPECT_EQ(drives.Read(kPath), FileOf({{"MS", std::string(50, 'd'), "7.8"},
                                          {"AL", "x", "1.234568E+09"},
                                          {"PP", "Plastic", ".5"}}));
}

// The same keys lead to the same cells from the grid and from the box.
TEST_F(MaterialTypesWindow, KeysLeadToCells) {
    struct Case {
        int row, column, key, shift;
        const char* cell;
    };
    using namespace views;
    const Case cases[] = {
        {1, 1, kKeyTab, 0, "1,2"},      {1, 2, kKeyTab, 0, "1,2"},
        {2, 2, kKeyTab, kShift, "2,1"}, {2, 1, kKeyTab, kShift, "2,1"},
        {2, 1, kKeyTab, kCtrl, "2,2"},  {1, 1, kKeyEnter, 0, "2,1"},
        {3, 2, kKeyEnter, 0, "3,2"},    {2, 1, kKeyEnter, kShift, "3,1"},
        {1, 2, kKeyUp, 0, "1,2"},       {3, 2, kKeyUp, 0, "2,2"},
        {3, 1, kKeyUp, kCtrl, "1,1"},   {2, 1, kKeyDown, 0, "3,1"},
        {3, 1, kKeyDown, 0, "3,1"},     {1, 2, kKeyDown, kCtrl, "3,2"},
    };
    Edit(kThree, [&] {
        for (const bool inBox : {false, true}) {
            for (const Case& c : cases) {
                Click(c.row, c.column);
                if (inBox) window->txtEditData.SetFocus();
                const Control* const focus = window->Focus();
                Press(c.key, c.shift);
                EXPECT_EQ(Cell(), c.cell) << c.row << "," << c.column << " " << c.key;
                EXPECT_EQ(Box(), window->grdMaterialTypes.CurrentText());
                EXPECT_EQ(window->Focus(), focus);
            }
        }
        // The grid moves by itself, too; in the box these keys move the caret.
        Click(3, 2);
        Press(kKeyLeft);
        EXPECT_EQ(Cell(), "3,1");
        Press(kKeyRight, kCtrl);
        EXPECT_EQ(Cell(), "3,2");
        Press(kKeyLeft, kShift);
        EXPECT_EQ(Cell(), "3,2");
        Press(kKeyPageUp);
        Press(kKeyHome);
        EXPECT_EQ(Cell(), "2,1");
        window->txtEditData.SetFocus();
        Press(kKeyRight);
        Press(kKeyHome);
        EXPECT_EQ(Cell(), "2,1");
        screen.answers = {Answer::kNo};
    });
    EXPECT_EQ(screen.TakeLog(), Log{kSaveBox}) << "moving from the box counts as a change";
}

TEST_F(MaterialTypesWindow, TheBoxEditsTheCurrentCell) {
    Edit(kThree, [&] {
        Click(2, 1);
        window->txtEditData.SetFocus();
        EXPECT_EQ(window->txtEditData.SelLength(), 9u);
        EXPECT_FALSE(MaterialTypesChanged);
        Type("Brass \xE9");
        EXPECT_EQ(Text(2, 1), "Brass \xE9");
        EXPECT_TRUE(MaterialTypesChanged);
        Press(views::kKeyTab);
        Type("-3");  // the whole text was selected
        EXPECT_EQ(Text(2, 2), "-3");
        Press(views::kKeyDown);
        EXPECT_EQ(Text(2, 2), "0");
        Type("1234567890123");
        EXPECT_EQ(Box(), "12345678903") << "cut to 10 before each key";
        EXPECT_EQ(window->txtEditData.SelStart(), 11u);
        EXPECT_EQ(Text(3, 2), Box());
        window->txtEditData.Select(0, 0);
        Press(views::kKeyBackspace);
        EXPECT_EQ(Box(), "123456789") << "cut, then one less";
        screen.answers = {Answer::kYes};
        Press(views::kKeyEscape);  // straight from the box
    });
    EXPECT_EQ(screen.TakeLog(), Log{kSaveBox});
    EXPECT_EQ(drives.Read(kPath), FileOf({{"MS", "Mild Steel", "7.85"},
                                          {"AL", "Brass \xE9", "0"},
                                          {"PP", "Plastic", "1.234568E+08"}}));
}

TEST_F(MaterialTypesWindow, APastedTextIsNotLost) {
    Edit(kThree, [&] {
        Click(1, 2);
        window->txtEditData.SetFocus();
        window->txtEditData.Edited("8.00", 4);  // by mouse: no key was pressed
        EXPECT_TRUE(MaterialTypesChanged);
        screen.answers = {Answer::kYes};
        views::Guard([&] { window->Mnemonic('c'); });
    });
    EXPECT_NE(drives.Read(kPath).find("Density=8\r\n"), std::string::npos);
}

TEST_F(MaterialTypesWindow, MarksWhatIsChosen) {
    Edit(kThree, [&] {
        auto& grid = window->grdMaterialTypes;
        EXPECT_FALSE(grid.Highlight());
        Click(2, 0);
        EXPECT_EQ(Cell(), "2,1");
        EXPECT_EQ(grid.Selection(), (views::Grid::Block{2, 1, 2, 2}));
        EXPECT_TRUE(grid.Highlight());
        EXPECT_TRUE(window->cmdDelete.Enabled());
        EXPECT_EQ(Box(), "Aluminium");
        window->cmdDelete.SetFocus();
        EXPECT_TRUE(grid.Highlight()) << "one sees what would be deleted";
        grid.SetFocus();
        EXPECT_FALSE(grid.Highlight());
        EXPECT_FALSE(window->cmdDelete.Enabled()) << "chosen afresh for every delete";
        Press(views::kKeyDown);
        EXPECT_TRUE(grid.Highlight());
        EXPECT_TRUE(window->cmdDelete.Enabled());
        EXPECT_EQ(grid.Selection(), (views::Grid::Block{3, 1, 3, 1}));
    });
}

TEST_F(MaterialTypesWindow, KeepsTheRowInView) {
    std::vector<Entry> types;
    for (int n = 1; n <= 20; ++n) types.push_back({"M" + std::to_string(n), "", "1"});
    Edit(types, [&] {
        auto& grid = window->grdMaterialTypes;
        for (int n = 0; n < 5; ++n) Press(views::kKeyDown);
        EXPECT_EQ(Cell(), "6,1");
        EXPECT_EQ(grid.TopRow(), 1);
        Press(views::kKeyDown);
        EXPECT_EQ(grid.TopRow(), 7) << "jumps to the top";
        Press(views::kKeyUp);
        EXPECT_EQ(grid.TopRow(), 6);
        Press(views::kKeyDown, views::kCtrl);
        EXPECT_EQ(grid.TopRow(), 20);
        Press(views::kKeyUp, views::kCtrl);
        EXPECT_EQ(grid.TopRow(), 1);
    });
}

TEST_F(MaterialTypesWindow, AddsTypes) {
    Edit({}, [&] {
        EXPECT_EQ(window->grdMaterialTypes.Rows(), 2);
        EXPECT_FALSE(window->txtEditData.Enabled());
        for (const int column : {0, 1, 2}) Click(1, column);
        Type("x");
        Press(views::kKeyEnter);
        Press(views::kKeyDelete);
        EXPECT_EQ(Text(1, 1) + Text(1, 2) + Box(), "");
        EXPECT_EQ(window->grdMaterialTypes.Row(), 1);
        EXPECT_FALSE(window->cmdDelete.Enabled());
        EXPECT_FALSE(MaterialTypesChanged);

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
        EXPECT_TRUE(MaterialTypesChanged);
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
        EXPECT_FALSE(MaterialTypesChanged);

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
        EXPECT_TRUE(MaterialTypesChanged);

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
