// The material types window on real files: what it shows, and editing by keys, box and mouse.
#include "tests/materialtypes/material_types_window.h"

namespace materialtypes {
namespace {

TEST_F(MaterialTypesWindow, ShowsTheFileAndClosesUnchanged) {
    std::string file = FileOf(kThree);
    file.replace(file.find("=2.7"), 4, "=-3");
    drives.Write(kPath, file);
    Shared().MaterialTypesChanged = true;
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
        EXPECT_FALSE(Shared().MaterialTypesChanged);
        Press(views::kKeyRight);
        Press(views::kKeyDown);
        Press(views::kKeyEscape);
    });
    EXPECT_EQ(screen.TakeLog(), Log{});
    EXPECT_EQ(drives.Read(kPath), file);
}

TEST_F(MaterialTypesWindow, TypingIntoTheGrid) {
    Edit(kThree, [&] {
        Click(1, 2);
        EXPECT_EQ(Box(), "7.85");
        EXPECT_TRUE(window->cmdDelete.Enabled());
        Type("07.850");
        EXPECT_EQ(Text(1, 2), "07.850") << "not put in order while typing";
        EXPECT_EQ(Box(), "07.850");
        EXPECT_TRUE(Shared().MaterialTypesChanged);
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
        EXPECT_FALSE(Shared().MaterialTypesChanged);
        Type("Brass \xE9");
        EXPECT_EQ(Text(2, 1), "Brass \xE9");
        EXPECT_TRUE(Shared().MaterialTypesChanged);
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
        EXPECT_TRUE(Shared().MaterialTypesChanged);
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

}  // namespace
}  // namespace materialtypes
