// Adding and deleting processes.
#include "tests/process/process_windows.h"

namespace process {
namespace {

TEST_F(ProcessWindows, DeletingMovesTheSettingsButNotTheNames) {
    screen.answers = {Answer::kNo, Answer::kYes, Answer::kYes};
    Work([&](FrmProcessDefaults& window, test::Keyboard& keyboard) {
        keyboard.Press('D', views::kAlt);
        EXPECT_EQ(window.cboProcess.Count(), 3);
        EXPECT_FALSE(Shared().ProcessChanged);
        keyboard.Press(views::kKeyEnter);
        const std::string question = Box("Delete Process",
                                         "             If you Delete this Process Plasma\r"
                                         "                     then any components or\r"
                                         "nest that uses this process will become INVALID.\r"
                                         "         Are you sure you want to continue ?",
                                         "Yes/No", "none");
        EXPECT_EQ(screen.TakeLog(), (Log{question, question}));
        EXPECT_EQ(window.cboProcess.Items(), (Log{"Oxy", "Laser"}));
        EXPECT_EQ(Shared().CurrentProcess, 1);
        EXPECT_EQ(window.Caption(), "Process Defaults Oxy");
        EXPECT_EQ(window.txtRapid.Text(), "3000");
        EXPECT_TRUE(Shared().ProcessChanged);
        window.cboProcess.Choose(1);
    });
    EXPECT_EQ(drives.Read(kFile),
              Head({kPlasmaField, kOxyField}) +
                  Oxy(Dat({"; Default leadin type etc", "Leadin=Arc "}), "[Plasma]") +
                  Laser("[Oxy]"));
}

TEST_F(ProcessWindows, AfterTheLastDeletionOnlyAddingIsLeft) {
    screen.answers = std::deque(5, Answer::kYes);
    Work([&](FrmProcessDefaults& window, test::Keyboard& keyboard) {
        window.cboProcess.Choose(1);
        for (int i = 0; i < 3; ++i) window.cmdDeleteProcess.Press();
        EXPECT_EQ(TheProcesses().ProcessCount, 0);
        EXPECT_EQ(Shared().CurrentProcess, 0);
        EXPECT_EQ(window.cboProcess.Text(), "");
        EXPECT_EQ(Texts(window), " 1 ()  0 0 ");               // of Laser, the last one shown
        EXPECT_EQ(Options(window), "..X .... .. .. .X. ...");  // only 0 and 1 are cleared
        EXPECT_FALSE(window.cmdDeleteProcess.Enabled() || window.cmdThicknessData.Enabled());
        EXPECT_EQ(window.Focus(), &window.cmdClose);
        keyboard.Press(views::kKeyTab, views::kShift);
        window.txtRapid.SetFocus();
        keyboard.Type("5");
        keyboard.Press(views::kKeyTab);
        EXPECT_EQ(window.txtRapid.Text(), "5");  // there is no process to keep it
        AddNamed(window, "Again");
        EXPECT_TRUE(window.cmdDeleteProcess.Enabled() && window.cmdThicknessData.Enabled());
        EXPECT_EQ(Options(window), "X.. ..X. .X .X X.. ...");
        window.cmdDeleteProcess.Press();
    });
    EXPECT_EQ(drives.Read(kFile),
              Dat({"; PROCESS.DAT", "; Holds times etc for different processes", ""}));
}

TEST_F(ProcessWindows, AddingACopyAndAProcessWithDefaults) {
    screen.answers = {Answer::kYes};
    Work([&](FrmProcessDefaults& window, test::Keyboard&) {
        window.cboProcess.Choose(1);
        Add(window, [&](FrmAddProcess& dialog) {
            EXPECT_EQ(dialog.Focus(), &dialog.txtNewProcessName);
            EXPECT_EQ(dialog.cboCopy.Items(), (Log{"Plasma", "Oxy", "Laser", "None"}));
            EXPECT_EQ(dialog.cboCopy.Text(), "None");
            dialog.cboCopy.Choose(0);
            dialog.txtNewProcessName.SetFocus();
            test::Keyboard keys(dialog);
            keys.Type("  Plasma 2 ");
            keys.Press(views::kKeyEnter);
            EXPECT_FALSE(dialog.IsOpen());
            EXPECT_EQ(dialog.Focus(), &dialog.cmdOk);
        });
        EXPECT_TRUE(Shared().ProcessChanged);
        EXPECT_EQ(Shared().CurrentProcess, 4);
        EXPECT_EQ(window.Caption(), "Process Defaults Plasma 2");
        EXPECT_EQ(Options(window), "X.. .X.. .X X. X.. ...");
        EXPECT_EQ(window.cboProcess.Text(), Field("Plasma 2", ' '));
        AddNamed(window, "Neu");
        EXPECT_EQ(Record(5).ThicknessCount, 0);
        EXPECT_EQ(window.Caption(), "Process Defaults Neu");
    });
    const std::string neu = Dat(
        {"", "[Neu]", "; Rapid Traverse rate (mm/min)", "Rapid=0", "LineMarkRate=0",
         "; Default leadin type etc", "Leadin=Line", kAngleComment, "Angle=0", kPercentComment,
         "LeadoutPercent=0", "LeadoutOverrun=0", "MajorDir=-1", "MinorDir=-1", "MinorOpenKerf=1",
         "AddKerf=0", "; List of valid thicknesses for this process", kRowsComment});
    EXPECT_EQ(
        drives.Read(kFile),
        Head({kPlasmaField, kOxyField, kLaserField, Field("Plasma 2", ' '), Field("Neu", ' ')}) +
            Plasma() + Oxy() + Laser() +
            Plasma(Dat({"Leadin=Line", kAngleComment, "Angle=45"}), "[Plasma 2]") + neu);
}

TEST_F(ProcessWindows, NamesThatAreRefused) {
    const auto error = [](const std::string& text) {
        return Box("Error", text, "OK", "exclamation");
    };
    screen.answers = {Answer::kNo};
    Work([&](FrmProcessDefaults& window, test::Keyboard&) {
        Add(window, [&](FrmAddProcess& dialog) {
            test::Keyboard keys(dialog);
            const auto refused = [&](const std::string& name) {
                dialog.txtNewProcessName.Edited(name, name.size());
                keys.Press('O', views::kAlt);
                EXPECT_EQ(dialog.Focus(), &dialog.txtNewProcessName);
                EXPECT_EQ(dialog.txtNewProcessName.SelLength(), name.size());
                EXPECT_TRUE(dialog.IsOpen());
                return screen.TakeLog();
            };
            EXPECT_EQ(refused(""), (Log{"beep", error("No Process Name Entered")}));
            EXPECT_EQ(refused("   "), (Log{"beep", error("No Process Name Entered")}));
            EXPECT_EQ(refused(std::string(65, 'n')),
                      (Log{"beep", error("Maximum size of Process name allow is 64")}));
            EXPECT_EQ(refused(" Laser  "), Log{error("Process Name Laser already exist")});
            keys.Press(views::kKeyEscape);
            EXPECT_FALSE(dialog.IsOpen());
        });
        EXPECT_EQ(TheProcesses().ProcessCount, 3);
        EXPECT_FALSE(Shared().ProcessChanged);
        EXPECT_EQ(Shared().CurrentProcess, 3);  // the last one is shown after a Cancel too
        AddNamed(window, std::string(64, 'n'));
        EXPECT_EQ(Record(4).Name.View(), std::string(64, 'n'));
        AddNamed(window, "laser");
        EXPECT_EQ(TheProcesses().ProcessCount, 5);
        window.cboProcess.Choose(0);
        screen.answers.push_front(Answer::kYes);
        window.cmdDeleteProcess.Press();
        // "laser" is still in the list but no name of a record any more.
        AddNamed(window, "laser");
        EXPECT_EQ(window.cboProcess.Items().back(), window.cboProcess.Items()[3]);
    });
}

TEST_F(ProcessWindows, TwentyProcessesAreTheLimit) {
    screen.answers = {Answer::kYes, Answer::kNo};
    Work([&](FrmProcessDefaults& window, test::Keyboard&) {
        for (int n = 4; n <= 20; ++n) AddNamed(window, "P" + std::to_string(n), 0);
        EXPECT_EQ(screen.TakeLog(), Log{});
        EXPECT_EQ(Record(20).ThicknessCount, 1);
        window.cmdAddProcess.Press();
        EXPECT_EQ(screen.TakeLog(), Log{Box("Error in Adding Process",
                                            "No More Space to Add\r          another Process.",
                                            "OK", "exclamation")});
        EXPECT_FALSE(window.cmdAddProcess.Enabled());
        window.cmdDeleteProcess.Press();
        EXPECT_TRUE(window.cmdAddProcess.Enabled());
        EXPECT_EQ(TheProcesses().ProcessCount, 19);
        AddNamed(window, "P20");
        EXPECT_EQ(Shared().CurrentProcess, 20);
    });
}

}  // namespace
}  // namespace process
