// The thickness prompt: what it proposes, what it takes and what it refuses.
#include "materiallist/enter_thickness.h"

#include "tests/materiallist/material_list_fixture.h"
#include "tests/support/scripted_screen.h"
#include "views/application.h"

namespace {

using materiallist::FrmEnterThickness;

class EnterThickness : public ::testing::Test {
  protected:
    void SetUp() override {
        files.Load(materiallist::kNewDirectory,
                   test::ListFile({{"MS", "WATER", ""}, {"SS", "?", ""}}));
    }
    // Shows the prompt for a directory with a person who does this in it.
    void Prompt(const std::string& directory,
                const std::function<void(FrmEnterThickness&, test::Keyboard&)>& steps) {
        materiallist::Shared().MaterialListDirPath = directory;
        FrmEnterThickness prompt;
        screen.windows.push_back([&](views::Form& form) {
            test::Keyboard keyboard(form);
            steps(prompt, keyboard);
        });
        views::ShowModal(prompt);
    }
    test::MaterialListFiles files;
    test::ScriptedScreen screen;
};

TEST_F(EnterThickness, ProposesWhatTheDirectoryIsNamedAfter) {
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"P10", "10"},  {"T12.5", "12.5"}, {"8MM", "8"}, {"JOB12", ""}, {"25", "25"},
        {"P0.5", ".5"}, {"P", ""},         {"P-5", ""},  {"PP5", ""},   {"05", "5"}};
    for (const auto& row : expected) {
        Prompt("c:\\tolvarin\\USER\\PROD\\" + row.first, [&](FrmEnterThickness& prompt, auto&) {
            EXPECT_EQ(prompt.Caption(), "Enter Thickness  for " + row.first + " Directory");
            EXPECT_EQ(prompt.txtInitThickness.Text(), row.second) << row.first;
            EXPECT_EQ(prompt.txtInitThickness.SelLength(), row.second.size());
            EXPECT_TRUE(prompt.txtInitThickness.HasFocus());
        });
    }
    Prompt("P7", [](FrmEnterThickness& prompt, auto&) {
        EXPECT_EQ(prompt.Caption(), "Enter Thickness  for P7 Directory");
    });
    Prompt("c:\\", [](FrmEnterThickness& prompt, auto&) {
        EXPECT_EQ(prompt.Caption(), "Enter Thickness  ");
    });
}

TEST_F(EnterThickness, EnterSetsEveryEntry) {
    Prompt("c:\\P10", [](FrmEnterThickness& prompt, test::Keyboard& keyboard) {
        keyboard.Press(views::kKeyEnter);
        EXPECT_FALSE(prompt.IsOpen());
    });
    EXPECT_EQ(test::EntryText(1), "MS|WATER|10");
    EXPECT_EQ(test::EntryText(2), "SS|?|10");
    EXPECT_TRUE(materiallist::Shared().MaterialListChanged);
    Prompt("c:\\P10", [](FrmEnterThickness& prompt, test::Keyboard& keyboard) {
        keyboard.Type("6.5mm");  // replaces the proposal
        prompt.cmdOk.Press();
    });
    EXPECT_EQ(test::EntryText(2), "SS|?|6.5");
}

TEST_F(EnterThickness, AnEmptyListIsMarkedAsChangedAllTheSame) {
    files.Load(materiallist::kNewDirectory, test::kListHeader);
    Prompt("c:\\P10", [](auto&, test::Keyboard& keyboard) { keyboard.Press(views::kKeyEnter); });
    EXPECT_TRUE(materiallist::Shared().MaterialListChanged);
}

TEST_F(EnterThickness, OnlyAThicknessAboveZeroIsTaken) {
    const std::string refusal =
        test::Box("Error in Thickness", "Thickness must be bigger than 0", "OK", "exclamation");
    for (const char* typed : {"", "0", "-3", "mm", "1e-60"}) {
        Prompt("c:\\JOB", [&](FrmEnterThickness& prompt, test::Keyboard& keyboard) {
            keyboard.Type(typed);
            keyboard.Press(views::kKeyEnter);
            EXPECT_TRUE(prompt.IsOpen());
            EXPECT_TRUE(prompt.txtInitThickness.HasFocus());
            EXPECT_EQ(screen.TakeLog(), std::vector{refusal}) << typed;
        });
    }
    EXPECT_FALSE(materiallist::Shared().MaterialListChanged);
}

TEST_F(EnterThickness, ClosedAnotherWayItChangesNothing) {
    Prompt("c:\\P10", [](FrmEnterThickness& prompt, test::Keyboard& keyboard) {
        keyboard.Press(views::kKeyEscape);
        EXPECT_FALSE(prompt.IsOpen());
    });
    Prompt("c:\\P10", [](FrmEnterThickness& prompt, auto&) { prompt.RequestClose(); });
    EXPECT_EQ(test::EntryText(1), "MS|WATER|0");
    EXPECT_FALSE(materiallist::Shared().MaterialListChanged);
}

}  // namespace
