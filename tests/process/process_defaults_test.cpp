// The process defaults window: what it shows and keeps of a process, and the bytes of process.dat
// before and after.
#include "tests/process/process_windows.h"

namespace process {
namespace {

TEST_F(ProcessWindows, LookingAtEveryProcessIsNoEdit) {
    Work([](FrmProcessDefaults& window, test::Keyboard&) {
        EXPECT_EQ(window.cboProcess.Items(), (Log{"Plasma", "Oxy", "Laser"}));
        EXPECT_EQ(window.Focus(), &window.cboProcess);
        EXPECT_EQ(window.Caption(), "Process Defaults Plasma");
        EXPECT_EQ(Options(window), "X.. .X.. .X X. X.. ...");
        EXPECT_EQ(Texts(window), "10000 5000 45 () 50 2 ");
        window.cboProcess.Choose(1);
        EXPECT_EQ(window.Caption(), "Process Defaults Oxy");
        EXPECT_EQ(Shared().CurrentProcess, 2);
        EXPECT_EQ(Options(window), ".X. ..X. X. .. ..X XXX");
        EXPECT_EQ(Texts(window), "3000 500 () () 0 -1 ");
        EXPECT_EQ(Record(2).Leadin.View(), "Arc ");  // without its blank in the file
        EXPECT_EQ(Record(2).Leadout.View(), "    ");
        window.cboProcess.Choose(2);
        EXPECT_EQ(Options(window), "..X X... .. .. .X. ...");
        EXPECT_EQ(Texts(window), ".5 1 () -30 0 0 ");
        EXPECT_FALSE(Shared().ProcessChanged);
    });
    EXPECT_EQ(screen.TakeLog(), Log{});
    EXPECT_EQ(drives.Read(kFile), kBefore);
}

TEST_F(ProcessWindows, UnknownCodesShowNothingChosen) {
    drives.Write(kFile, Dat({"[Processes]", "Process1=P", "[P]", "Leadin=Quer", "Leadout=Quer",
                             "MinorOpenKerf=7", "Extension=2", "Leadoutextension=1"}));
    Work([](FrmProcessDefaults& window, test::Keyboard&) {
        EXPECT_EQ(Options(window), "... ..X. .. .. ... .X.");
        EXPECT_EQ(Record(1).Leadin.View(), "Quer");
        EXPECT_EQ(Record(1).MinorOpenKerf, 7);
    });
}

TEST_F(ProcessWindows, TabThroughOneBoxAsksAndYesSaves) {
    screen.answers = {Answer::kNo, Answer::kYes};
    for (const bool yes : {false, true}) {
        Work([](FrmProcessDefaults& window, test::Keyboard& keyboard) {
            keyboard.Press(views::kKeyTab);
            EXPECT_EQ(window.Focus(), &window.txtRapid);
            EXPECT_EQ(window.txtRapid.SelLength(), 5u);
            EXPECT_FALSE(Shared().ProcessChanged);
            keyboard.Press(views::kKeyTab);
            EXPECT_TRUE(Shared().ProcessChanged);
            window.cmdClose.Press();
            EXPECT_FALSE(window.IsOpen());
        });
        EXPECT_EQ(screen.TakeLog(), Log{kSave});
        // A process that was not shown keeps the code as read, and the writer knows only the exact
        // one: the lead-in of Oxy goes.
        EXPECT_EQ(drives.Read(kFile), yes ? kHeadAfter + Plasma() + Oxy("") + Laser() : kBefore);
    }
}

TEST_F(ProcessWindows, ALeadInThatWasShownIsKept) {
    screen.answers = {Answer::kYes};
    Work([](FrmProcessDefaults& window, test::Keyboard& keyboard) {
        window.cboProcess.Choose(1);
        keyboard.Press(views::kKeyTab);
        keyboard.Type("2500");
        window.cboProcess.Choose(0);  // what was typed belongs to the process left
        EXPECT_EQ(window.txtRapid.Text(), "10000");
    });
    EXPECT_EQ(drives.Read(kFile),
              kHeadAfter + Plasma() +
                  Oxy(Dat({"; Default leadin type etc", "Leadin=Arc "}), "[Oxy]", "Rapid=2500") +
                  Laser());
}

TEST_F(ProcessWindows, LeadInFromLineToArcIsSaved) {
    screen.answers = {Answer::kYes};
    Work([](FrmProcessDefaults& window, test::Keyboard& keyboard) {
        window.cboProcess.Choose(1);
        window.cboProcess.Choose(0);
        keyboard.Press('A', views::kAlt);
        EXPECT_EQ(Record(1).Leadin.View(), "Arc ");
        EXPECT_EQ(Record(1).Angle, 45);
        EXPECT_EQ(Texts(window), "10000 5000 (45) () 50 2 ");
    });
    EXPECT_EQ(screen.TakeLog(), Log{kSave});
    EXPECT_EQ(drives.Read(kFile), kHeadAfter + Plasma(Dat({"Leadin=Arc "})) + Oxy() + Laser());
}

TEST_F(ProcessWindows, EveryOptionStoresItsCode) {
    screen.answers = {Answer::kNo};
    Work([](FrmProcessDefaults& window, test::Keyboard& keyboard) {
        const auto edited = [] { return std::exchange(Shared().ProcessChanged, false); };
        const auto pick = [&](views::OptionButton& option) {
            option.Pick();
            EXPECT_TRUE(edited()) << option.Name();
        };
        window.cboProcess.Choose(2);
        pick(window.optLeadIn[0]);
        EXPECT_EQ(Record(3).Leadin.View(), "Line");
        EXPECT_TRUE(window.txtLeadInAngle.Enabled());
        pick(window.optLeadIn[2]);
        EXPECT_EQ(Record(3).Leadin.View(), "A180");
        EXPECT_FALSE(window.txtLeadInAngle.Enabled());
        for (const auto& [index, code] : {std::pair(1, "Arc "), std::pair(2, "    "),
                                          std::pair(3, "A180"), std::pair(0, "Line")}) {
            pick(window.optLeadOut[static_cast<std::size_t>(index)]);
            EXPECT_EQ(Record(3).Leadout.View(), code);
            EXPECT_EQ(window.txtLeadOutAngle.Enabled(), index == 0);
        }
        EXPECT_EQ(window.txtLeadOutAngle.Text(), "-30");
        pick(window.optMajorDirection[0]);
        EXPECT_EQ(Record(3).MajorDir, 1);
        keyboard.Press(views::kKeyDown);
        EXPECT_EQ(Record(3).MajorDir, -1);
        pick(window.optMinorDirection[1]);
        EXPECT_EQ(Record(3).MinorDir, -1);
        pick(window.optMinorDirection[0]);
        EXPECT_EQ(Record(3).MinorDir, 1);
        pick(window.optOpenMinor[2]);
        EXPECT_EQ(Record(3).MinorOpenKerf, -1);
        pick(window.optOpenMinor[0]);
        EXPECT_EQ(Record(3).MinorOpenKerf, 1);
        pick(window.optOpenMinor[1]);
        EXPECT_EQ(Record(3).MinorOpenKerf, 0);
        window.optOpenMinor[1].Pick();  // it is chosen already
        EXPECT_FALSE(edited());
        struct Check {
            views::CheckBox& box;
            std::int16_t& field;
        };
        for (const Check& check : {Check{window.chkLeadInExtension, Record(3).Extension},
                                   Check{window.chkLeadOutExtension, Record(3).Leadoutextension},
                                   Check{window.chkAddKerf, Record(3).AddKerf}}) {
            check.box.Toggle();
            EXPECT_EQ(check.field, 1) << check.box.Name();
            EXPECT_TRUE(edited());
            keyboard.Press(views::kKeySpace);
            EXPECT_EQ(check.field, 0) << check.box.Name();
            EXPECT_TRUE(edited());
        }
        Shared().ProcessChanged = true;
    });
}

TEST_F(ProcessWindows, BoxesAreReadWhenTheyAreLeft) {
    screen.answers = {Answer::kNo};
    Work([](FrmProcessDefaults& window, test::Keyboard& keyboard) {
        window.optLeadOut[0].Pick();
        const auto enter = [&](views::TextBox& box, const std::string& typed) {
            box.SetFocus();
            keyboard.Press(views::kKeyBackspace);  // all of it is selected
            keyboard.Type(typed);
            Shared().ProcessChanged = false;
            keyboard.Press(views::kKeyTab);
            EXPECT_TRUE(Shared().ProcessChanged);
            return box.Text();
        };
        for (auto* box : {&window.txtRapid, &window.txtLineMarkRate}) {
            for (const auto& [typed, shown] :
                 {std::pair("abc", "0"), std::pair("12.5mm", "12.5"), std::pair("-3", "0"),
                  std::pair("0.25", ".25"), std::pair("", "0"), std::pair("1 000", "1000"),
                  std::pair("12345678", "1.234568E+07"), std::pair("1e99", "3.402823E+38")}) {
                EXPECT_EQ(enter(*box, typed), shown) << typed;
            }
        }
        EXPECT_EQ(enter(window.txtRapid, ".125"), ".125");
        EXPECT_EQ(Record(1).Rapid, 0.125f);
        const std::vector<std::array<const char*, 5>> numbers = {
            // typed, lead-in angle, lead-out angle, percent, overrun
            {"-400", "-360", "360", "0", "-400"},
            {"400", "360", "360", "400", "400"},
            {"-360", "-360", "-360", "0", "-360"},
            {"2.5", "2", "2", "2", "2"},
            {"32768", "0", "0", "0", "0"},
            {"-40000", "0", "0", "0", "0"},
            {"32767", "360", "360", "32767", "32767"},
            {"x", "0", "0", "0", "0"},
            {"90deg", "90", "90", "90", "90"}};
        for (const auto& row : numbers) {
            EXPECT_EQ(enter(window.txtLeadInAngle, row[0]), row[1]) << row[0];
            EXPECT_EQ(enter(window.txtLeadOutAngle, row[0]), row[2]) << row[0];
            EXPECT_EQ(enter(window.txtLeadoutPercent, row[0]), row[3]) << row[0];
            EXPECT_EQ(enter(window.txtLeadoutOverrun, row[0]), row[4]) << row[0];
            EXPECT_EQ(std::to_string(Record(1).Angle), row[1]);
            EXPECT_EQ(std::to_string(Record(1).Leadoutangle), row[2]);
            EXPECT_EQ(std::to_string(Record(1).LeadoutPercent), row[3]);
            EXPECT_EQ(std::to_string(Record(1).LeadoutOverrun), row[4]);
        }
    });
}

TEST_F(ProcessWindows, WhatIsBeingTypedIsNeverLost) {
    const std::vector<std::function<void(FrmProcessDefaults&, test::Keyboard&)>> ways = {
        [](FrmProcessDefaults& window, test::Keyboard&) { window.cmdClose.Press(); },
        [](FrmProcessDefaults& window, test::Keyboard&) { window.RequestClose(); },
        [](FrmProcessDefaults&, test::Keyboard& keys) { keys.Press(views::kKeyEscape); },
        [](FrmProcessDefaults& window, test::Keyboard&) { window.cboProcess.Choose(2); },
        [](FrmProcessDefaults& window, test::Keyboard&) { window.optLeadIn[1].Pick(); },
        [this](FrmProcessDefaults& window, test::Keyboard& keys) {
            screen.windows.push_back([](views::Form& form) {
                EXPECT_EQ(form.Name(), "frmThicknessData");
                EXPECT_EQ(Record(1).LineMarkRate, 77);
            });
            keys.Press('H', views::kAlt);
            EXPECT_EQ(window.Focus(), &window.cmdThicknessData);
        }};
    for (const auto& leave : ways) {
        drives.Write(kFile, kBefore);
        screen.answers = {Answer::kYes};
        Work([&](FrmProcessDefaults& window, test::Keyboard& keyboard) {
            window.txtLineMarkRate.SetFocus();
            keyboard.Type("77");
            leave(window, keyboard);
        });
        EXPECT_EQ(screen.TakeLog(), Log{kSave});
        EXPECT_NE(drives.Read(kFile).find("Rapid=10000\r\nLineMarkRate=77\r\n"), std::string::npos);
    }
}

TEST_F(ProcessWindows, WithoutAFileOnlyAddingIsOffered) {
    std::filesystem::remove(drives.Path(kFile));
    Shared().CurrentProcess = 3;
    screen.answers = {Answer::kYes};
    Work([&](FrmProcessDefaults& window, test::Keyboard& keyboard) {
        EXPECT_EQ(screen.TakeLog(), Log{Box("Error loading Process.dat",
                                            "File PROCESS.DAT not found\rin c:\\tolvarin\\SYSTEM\\",
                                            "OK", "exclamation")});
        EXPECT_EQ(window.Caption(), "Process Defaults");
        EXPECT_EQ(Shared().CurrentProcess, 0);
        window.txtRapid.SetFocus();
        keyboard.Type("7");
        window.optLeadIn[0].Pick();
        window.chkAddKerf.Toggle();
        window.cmdDeleteProcess.Press();
        EXPECT_EQ(screen.TakeLog(), Log{});
        window.cmdThicknessData.Press();
        EXPECT_EQ(screen.TakeLog(),
                  Log{Box("Error : No Process", "There is no Process.", "OK", "exclamation")});
        Add(window, [](FrmAddProcess& dialog) { dialog.cmdCancel.Press(); });
        EXPECT_EQ(window.cboProcess.ListIndex(), -1);
        EXPECT_FALSE(Shared().ProcessChanged);
        AddNamed(window, "First");
        EXPECT_EQ(Shared().CurrentProcess, 1);
        EXPECT_EQ(window.Caption(), "Process Defaults First");
        EXPECT_EQ(Texts(window), "0 0 0 () 0 0 ");
        EXPECT_EQ(Options(window), "X.. ..X. .X .X X.. ...");
    });
    EXPECT_EQ(screen.TakeLog(), Log{kSave});
    EXPECT_EQ(drives.Read(kFile),
              Head({Field("First", ' ')}) +
                  Dat({"", "[First]", "; Rapid Traverse rate (mm/min)", "Rapid=0", "LineMarkRate=0",
                       "; Default leadin type etc", "Leadin=Line", kAngleComment, "Angle=0",
                       kPercentComment, "LeadoutPercent=0", "LeadoutOverrun=0", "MajorDir=-1",
                       "MinorDir=-1", "MinorOpenKerf=1", "AddKerf=0",
                       "; List of valid thicknesses for this process", kRowsComment}));
}

TEST_F(ProcessWindows, AFileOverCapacityLeavesEverythingAsItWas) {
    std::string list = "[Processes]\r\n";
    for (int n = 1; n <= 21; ++n) {
        list += "Process" + std::to_string(n) + "=P" + std::to_string(n) + "\r\n";
    }
    std::string rows = "[Processes]\r\nProcess1=P\r\n[P]\r\n";
    for (int k = 1; k <= 101; ++k) rows += "Thickness" + std::to_string(k) + "=1mm\r\n";
    Work([](FrmProcessDefaults&, test::Keyboard&) {});
    Shared().CurrentProcess = 2;
    Shared().ProcessChanged = true;
    const auto before = std::make_unique<ProcessTable>(TheProcesses());
    for (const std::string& file :
         {list, rows, Dat({"[Processes]", "Process1=P", "[P]", "MajorDir=40000"})}) {
        drives.Write(kFile, file);
        FrmProcessDefaults window;
        views::ShowModal(window);  // is not shown, so nobody works in it
        EXPECT_FALSE(window.IsOpen());
        const Log log = screen.TakeLog();
        ASSERT_EQ(log.size(), 1u);
        EXPECT_TRUE(log[0].starts_with("Error loading Process.dat|")) << log[0];
        EXPECT_TRUE(log[0].ends_with("|OK|exclamation")) << log[0];
        EXPECT_EQ(TheProcesses().ProcessCount, 3);
        EXPECT_EQ(TheProcesses().Processes, before->Processes);
        EXPECT_EQ(Shared().CurrentProcess, 2);
        EXPECT_TRUE(Shared().ProcessChanged);
        EXPECT_EQ(drives.Read(kFile), file);
    }
}

TEST_F(ProcessWindows, ASaveThatFailsKeepsTheWindowAndTheEdits) {
    drives.SetReadOnly(kFile, true);
    screen.answers = {Answer::kYes, Answer::kYes};
    Work([&](FrmProcessDefaults& window, test::Keyboard& keyboard) {
        window.optMajorDirection[0].Pick();
        keyboard.Press(views::kKeyEscape);
        const Log log = screen.TakeLog();
        ASSERT_EQ(log.size(), 2u);
        EXPECT_EQ(log[0], kSave);
        EXPECT_TRUE(log[1].starts_with("Closing Process Defaults|" + kFile + ": ")) << log[1];
        EXPECT_TRUE(log[1].ends_with("|OK|exclamation")) << log[1];
        EXPECT_TRUE(window.IsOpen());
        EXPECT_TRUE(Shared().ProcessChanged);
        EXPECT_EQ(Record(1).MajorDir, 1);
        EXPECT_EQ(drives.Read(kFile), kBefore);
        EXPECT_EQ(drives.Count("c:\\tolvarin\\system"), 1);
        drives.SetReadOnly(kFile, false);
    });
    EXPECT_EQ(screen.TakeLog(), Log{kSave});
    EXPECT_NE(drives.Read(kFile).find("LeadoutOverrun=2\r\nMajorDir=1\r\n"), std::string::npos);
}

}  // namespace
}  // namespace process
