// The process windows on a real screen, worked by keyboard alone and by mouse: the same requests
// lead to the same bytes of process.dat.
#include <wx/app.h>
#include <wx/dialog.h>
#include <wx/modalhook.h>

#include "tests/gui/next_dialog.h"
#include "tests/gui/person.h"
#include "tests/process/process_windows.h"

namespace process {
namespace {

// The key that answers No: a Yes/No box of Windows cannot be dismissed, one of GTK has its letters
// only behind Alt.
#ifdef _WIN32
constexpr int kNo = 'N';
#else
constexpr int kNo = WXK_ESCAPE;
#endif

void ClickIn(wxDialog& dialog, const char* name) {
    wxWindow* real = wxWindow::FindWindowByName(name, &dialog);
    ASSERT_NE(real, nullptr) << name;
    test::ClickAt([real] {
        const wxSize size = real->GetSize();
        return real->GetScreenPosition() + wxPoint(12, size.y / 2);
    });
}

class RealProcessWindows : public ::testing::Test {
  protected:
    RealProcessWindows() {
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
        drives.Write(kFile, kBefore);
    }
    // The file after: Plasma with other settings, and a copy of it added at the end.
    static std::string After() {
        std::string plasma = Plasma(Dat({"Leadin=Arc "}));
        const auto change = [&plasma](const std::string& from, const std::string& to) {
            const auto at = plasma.find(from);
            ASSERT_NE(at, plasma.npos) << from;
            plasma.replace(at, from.size(), to);
        };
        change("Rapid=10000", "Rapid=2500");
        change("LeadoutOverrun=2", "LeadoutOverrun=4");
        change("MajorDir=-1", "MajorDir=1");
        change("MinorOpenKerf=1\r\n", "MinorOpenKerf=0\r\nExtension=1\r\n");
        change("Leadout=Arc ", "Leadout=Line\r\nLeadoutangle=30");
        std::string copy = plasma;
        copy.replace(copy.find("[Plasma]"), 8, "[neu1]");
        return Head({kPlasmaField, kOxyField, kLaserField, Field("neu1", ' ')}) + plasma + Oxy("") +
               Laser() + copy;
    }

    test::TempDrives drives;
    FrmProcessDefaults window;
};

TEST_F(RealProcessWindows, ByKeyboardAlone) {
    test::WorkIn(window, [&] {
        test::Key(WXK_TAB);
        EXPECT_EQ(window.Focus(), &window.txtRapid);
        test::Type("2500");  // over all that was selected
        test::Key('A', wxMOD_ALT);
        EXPECT_FALSE(test::RealOf(window.txtLeadInAngle)->IsEnabled());
        test::Key('E', wxMOD_ALT);
        test::Key('I', wxMOD_ALT);
        test::Key(WXK_TAB);
        EXPECT_EQ(window.Focus(), &window.txtLeadOutAngle);
        test::Type("30");
        test::Key('V', wxMOD_ALT);
        test::Type("4");
        test::Key('T', wxMOD_ALT);
        test::Key('N', wxMOD_ALT);
        {
            const test::InNextDialog dialog([&](wxDialog&) {
                test::Type("neu1");
                test::Key(WXK_TAB);
                for (int i = 0; i < 3; ++i) test::Key(WXK_UP);
                test::Key(WXK_TAB, wxMOD_SHIFT);
                test::Key(WXK_RETURN);
            });
            test::Key('P', wxMOD_ALT);
        }
        EXPECT_EQ(window.Caption(), "Process Defaults neu1");
        test::AnswerNextBox(false);
        test::Key('D', wxMOD_ALT);
        EXPECT_EQ(TheProcesses().ProcessCount, 4);
        test::AnswerNextBox(true);
        test::Key(WXK_ESCAPE);
        EXPECT_TRUE(test::Until([&] { return !window.IsOpen(); }));
    });
    EXPECT_EQ(drives.Read(kFile), After());
}

TEST_F(RealProcessWindows, ByMouse) {
    test::WorkIn(window, [&] {
        test::Click(window.txtRapid);
        window.txtRapid.SelectAll();
        test::Type("2500");
        test::Click(window.optLeadIn[1]);
        EXPECT_EQ(window.txtRapid.Text(), "2500");
        EXPECT_TRUE(Shared().ProcessChanged);
        test::Click(window.chkLeadInExtension);
        test::Click(window.optLeadOut[0]);
        test::Click(window.txtLeadOutAngle);
        window.txtLeadOutAngle.SelectAll();
        test::Type("30");
        test::Click(window.txtLeadoutOverrun);
        window.txtLeadoutOverrun.SelectAll();
        test::Type("4");
        test::Click(window.optMajorDirection[0]);
        test::Click(window.optOpenMinor[1]);
        {
            const test::InNextDialog dialog([&](wxDialog& real) {
                test::Type("neu1");
                // In the list only keys know where an entry is on every platform.
                wxWindow::FindWindowByName("cboCopy", &real)->SetFocus();
                for (int i = 0; i < 3; ++i) test::Key(WXK_UP);
                ClickIn(real, "cmdOk");
            });
            test::Click(window.cmdAddProcess);
        }
        {
            const test::InNextDialog dialog([&](wxDialog& real) {
                EXPECT_NE(wxWindow::FindWindowByName("grdThicknessData", &real), nullptr);
                ClickIn(real, "cmdThkClose");
            });
            test::Click(window.cmdThicknessData);
        }
        test::AnswerNextBox(true);
        test::Click(window.cmdClose);
        EXPECT_TRUE(test::Until([&] { return !window.IsOpen(); }));
    });
    EXPECT_EQ(drives.Read(kFile), After());
}

TEST_F(RealProcessWindows, LookingAtEveryProcessAsksNothing) {
    test::WorkIn(window, [&] {
        // The arrow opens the list or moves in it, by platform.
        for (const int number : {2, 3}) {
            test::Key(WXK_DOWN);
            if (Shared().CurrentProcess != number) {
                test::Key(WXK_DOWN);
                test::Key(WXK_RETURN);
            }
            EXPECT_TRUE(test::Until([&] { return Shared().CurrentProcess == number; }));
        }
        EXPECT_TRUE(test::RealOf(window.txtLeadOutAngle)->IsEnabled());
        EXPECT_FALSE(test::RealOf(window.txtLeadInAngle)->IsEnabled());
        test::Click(window.cmdClose);
        EXPECT_FALSE(window.IsOpen());
    });
    EXPECT_EQ(drives.Read(kFile), kBefore);
}

}  // namespace
}  // namespace process
