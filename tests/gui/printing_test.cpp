// Printing for real: on the printers of tools/with-print-server where there are any, and without.
#include <gtest/gtest.h>
#include <wx/cmndata.h>
#include <wx/dialog.h>
#include <wx/modalhook.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#ifndef _WIN32
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#endif

#include <cstdio>
#include <cstdlib>

#include "tests/gui/person.h"
#include "tests/gui/real_player.h"
#include "tests/support/environment.h"
#include "tests/support/workshop.h"
#include "text/code_page.h"
#include "views/wx/wx_printer.h"

namespace {

namespace fs = std::filesystem;
using std::string;

// The real printer, which also keeps what it is told.
class Printer : public views::wx::WxPrinter {
  public:
    Printer() : before_(views::InstallPrinter(this)) {}
    ~Printer() override { views::InstallPrinter(before_); }
    std::vector<Page> pages;

  protected:
    void Send(const std::vector<Page>& told) override {
        pages = told;
        WxPrinter::Send(told);
    }

  private:
    views::Printer* before_;
};

class Printing : public ::testing::Test {
  protected:
    // The run ends with the reason.
    void ExpectRefused(const string& reason) {
        const string script = R"(
            write c:\tolvarin\network\user1\nestuser.ini '' -> ...
            choose lstDirectory plates, click cmdPrint, click cmdOK -> box critical "REASON"
                -> c:\tolvarin\network\user1\nestuser.ini +[SystemManager]
                -> +CurrentSysManDrive=c:; ended 1)";
        const auto at = script.find("REASON");
        test::RealPlayer().Play(workshop, string(script).replace(at, 6, reason),
                                test::Paper::kReal);
    }
    const test::Workshop workshop;
    Printer printer;
};

#ifdef _WIN32

TEST_F(Printing, WithoutAPrinterTheReasonIsSaid) {
    if (wxPrintData().IsOk()) GTEST_SKIP() << "there is a printer";
    ExpectRefused("There is no printer.");
}

#else

TEST_F(Printing, WithoutAPrintServerTheReasonIsSaid) {
    const string nobody = workshop.Folder().string() + "-nobody";
    const test::Environment none("CUPS_SERVER", nobody);
    ExpectRefused("There is no printer: no print server answers at <drives>-nobody.");
}

TEST_F(Printing, APrintServerThatSaysNothingIsNotWaitedForForEver) {
    sockaddr_un address = {AF_UNIX, ""};
    const string path = workshop.Folder().string() + "-silent";
    path.copy(address.sun_path, sizeof(address.sun_path) - 1);
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
    ASSERT_EQ(listen(listener, 5), 0);
    const test::Environment silent("CUPS_SERVER", path);
    ExpectRefused("There is no printer: the print server does not answer.");
    close(listener);
    fs::remove(path);
}

class OnPaper : public Printing {
  protected:
    void SetUp() override {
        const char* folder = std::getenv("SYSMAN_TEST_PRINTED");
        if (folder == nullptr) GTEST_SKIP() << "not run under tools/with-print-server";
        file_ = fs::path(folder) / "PDF.pdf";
    }
    // What a program says of the document once it is printed.
    string Paper(const string& program, const string& output = "") const {
        string said;
        const string command = program + " '" + file_.string() + "' " + output + " 2>/dev/null";
        test::Until([&] {
            FILE* stream = popen(command.c_str(), "r");
            for (int c = std::getc(stream); c != EOF; c = std::getc(stream)) {
                said += static_cast<char>(c);
            }
            pclose(stream);
            return !said.empty();
        });
        return said;
    }
    string Width() const {
        const string said = Paper("pdfinfo");
        fs::remove(file_);
        return said.substr(said.find_first_of("0123456789", said.find("Page size:")), 3);
    }

  private:
    fs::path file_;
};

TEST_F(OnPaper, EveryDirectoryBeginsASheetAndTheColumnsStand) {
    const string job = "c:\\tolvarin\\USER\\PROD\\P10\\TAPE\\";
    for (int i = 100; i < 200; ++i) workshop.Write(job + "A" + std::to_string(i) + ".TAP", "12345");
    workshop.Write(job + string(60, 'b') + ".tap", string(1234, 'x'));
    workshop.Write(job + "c \xC4\xD6\xDC.tap", "");  // capital umlauts
    workshop.MakeDir("c:\\tolvarin\\USER\\PROD\\P20\\TAPE");
    test::RealPlayer().Play(workshop, R"(
        click optProduction, choose lstDirectory p10, click cmdPrint, click chkComp, click chkNest, click cmdOK -> ...
    )",
                            test::Paper::kReal);
    // What the printer was told, column by column; a directory that is full goes on on a sheet
    // more.
    std::vector<std::vector<string>> told, paper(1);
    for (const auto& page : printer.pages) {
        told.emplace_back();
        for (const string& text : page) {
            const auto end = text.find_last_not_of(' ');
            if (end != text.npos) told.back().push_back(text.substr(0, end + 1));
        }
    }
    std::istringstream lines(text::FromUtf8(Paper("pdftotext -fixed 6", "-")).value_or("?"));
    int sheets = 0;
    for (string text; std::getline(lines, text);) {
        if (text.starts_with('\f') && ++sheets == 2) paper.emplace_back();
        const auto margin = text.find_first_not_of('\f');
        if (margin < text.size()) paper.back().push_back(text.substr(margin + 7));
    }
    EXPECT_EQ(sheets, 3);
    EXPECT_EQ(paper, told);
}

// In the platform's set-up, the next dialog, chooses US Letter, the first paper of its list. It
// takes the focus when it likes, so the key to the list is pressed until it surely has it.
class ChooseLetter : public wxModalDialogHook, public wxTimer {
    int Enter(wxDialog*) override {
        Start(100);
        return wxID_NONE;
    }
    void Exit(wxDialog*) override {
        Stop();
        Unregister();
    }
    void Notify() override {
        if (++tries_ > 200) {
            std::fputs("the printer set-up cannot be worked\n", stderr);
            std::_Exit(1);  // nothing else ends a dialog that takes no keys
        }
        const int key = tries_ < 10 ? int('P') : tries_ > 10 ? int('A') : WXK_HOME;
        wxUIActionSimulator().Char(key, tries_ == 10 ? 0 : wxMOD_ALT);
    }
    int tries_ = 0;
};

TEST_F(OnPaper, WhatIsSetUpHoldsForTheRestOfTheRun) {
    std::vector<string> widths;
    ChooseLetter keys;
    test::RealPlayer player;
    player.own = [&](views::Form&) {
        widths.push_back(Width());
        if (widths.size() == 1) keys.Register();
    };
    player.Play(workshop, R"(
        choose lstDirectory plates, click cmdPrint, click cmdOK -> ...
        click cmdPrint, '*', click cmdSetup, click cmdOK, click cmdPrint, '*', click cmdOK -> ...
    )",
                test::Paper::kReal);
    EXPECT_EQ(widths, (std::vector<string>{"595", "612"}));
    EXPECT_EQ(Width(), "612");
}

#endif

}  // namespace
