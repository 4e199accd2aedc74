// Printing for real: on the printers of tools/with-print-server where there are any, and without.
#include <gtest/gtest.h>
#include <wx/cmndata.h>
#include <wx/modalhook.h>
#include <wx/timer.h>
#include <wx/uiaction.h>

#ifndef _WIN32
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#endif

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <sstream>

#include "app/sys_man.h"
#include "app/system_config.h"
#include "directories/print_directory.h"
#include "errors/errors.h"
#include "tests/gui/person.h"
#include "tests/support/environment.h"
#include "tests/support/temp_drives.h"
#include "text/code_page.h"
#include "views/application.h"
#include "views/wx/wx_printer.h"

namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

class Printing : public ::testing::Test {
  protected:
    Printing() : before_(views::InstallPrinter(&printer)) {
        views::ResetApplication();
        app::TheConfig() = {};
        app::TheConfig().NestRootDir = "\\tolvarin";
        app::TheConfig().NestHomeDrive = "c:";
        drives.MakeDir("c:\\tolvarin\\USER\\DESIGN");
    }
    ~Printing() override { views::InstallPrinter(before_); }

    // Why the printer refuses a document.
    std::string Refusal() {
        printer.PrintLine("text");
        try {
            printer.EndDocument();
            return "printed";
        } catch (const errors::FatalError& failure) {
            return failure.what();
        }
    }
    test::TempDrives drives;
    views::wx::WxPrinter printer;

  private:
    views::Printer* before_;
};

#ifdef _WIN32

TEST_F(Printing, WithoutAPrinterTheReasonIsSaid) {
    EXPECT_EQ(Refusal(), wxPrintData().IsOk() ? "printed" : "There is no printer.");
}

#else

TEST_F(Printing, WithoutAPrintServerTheReasonIsSaidAndTheRunEnds) {
    const std::string nobody = (drives.Folder() / "nobody").string();
    const test::Environment none("CUPS_SERVER", nobody);
    const std::string reason = "There is no printer: no print server answers at " + nobody + ".";
    EXPECT_EQ(Refusal(), reason);

    drives.MakeDir("c:\\tolvarin\\USER\\DESIGN\\PLATES");
    app::SysMan main;
    main.optDesign.SetValue(true);
    directories::FrmPrint form(main.Listed());
    views::Guard([&] {
        test::WorkIn(form, [&] {
            test::AnswerNextBox(true);
            test::Click(form.cmdOK);
            EXPECT_FALSE(form.IsOpen());
        });
    });
    EXPECT_TRUE(views::ApplicationEnded());
    EXPECT_EQ(views::ExitStatus(), 1);
}

TEST_F(Printing, APrintServerThatSaysNothingIsNotWaitedForForEver) {
    sockaddr_un address = {};
    address.sun_family = AF_UNIX;
    const std::string path = (drives.Folder() / "silent").string();
    path.copy(address.sun_path, sizeof(address.sun_path) - 1);
    const int listener = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof(address)), 0);
    ASSERT_EQ(listen(listener, 5), 0);
    {
        const test::Environment silent("CUPS_SERVER", path);
        EXPECT_EQ(Refusal(), "There is no printer: the print server does not answer.");
    }
    close(listener);
}

// The text on the sheets of a printed document, each line as the columns of the paper show it.
class Paper {
  public:
    // Waits until the printer has printed it.
    explicit Paper(const fs::path& file) {
        EXPECT_TRUE(test::Until([&] { return !Run("pdfinfo", file).empty(); }));
        // One word a line, with its page, place and size.
        std::istringstream words(Run("pdftotext -tsv", file, "-"));
        std::string line, number;
        std::getline(words, line);  // headings
        while (std::getline(words, line)) {
            int level = 0, page = 0;
            double x = 0, y = 0, width = 0, height = 0;
            std::istringstream fields(line);
            fields >> level >> page >> number >> number >> number >> number >> x >> y >> width >>
                height >> number;
            if (level == 1) {
                sheets_.emplace_back();
                width_ = std::lround(width);
            } else if (level == 5) {
                sheets_.back()[std::lround(y)][x] = line.substr(line.rfind('\t') + 1);
            }
        }
        fs::remove(file);
    }

    // Points.
    long Width() const { return width_; }

    std::vector<Lines> Sheets() const {
        // "Quarvel" is in the first column of the first line, "Date" in column 42.
        const auto& title = sheets_.front().begin()->second;
        const double left = title.begin()->first;
        double pitch = 1;
        for (const auto& [x, word] : title) {
            if (word == "Date") pitch = (x - left) / 41;
        }
        std::vector<Lines> result;
        for (const Sheet& sheet : sheets_) {
            result.emplace_back();
            for (const auto& [y, words] : sheet) {
                std::string line;
                for (const auto& [x, word] : words) {
                    const std::string bytes = text::FromUtf8(word).value_or("?");
                    line.resize(static_cast<std::size_t>(std::lround((x - left) / pitch)), ' ');
                    line += bytes;
                }
                result.back().push_back(line);
            }
        }
        return result;
    }

  private:
    // The words of a sheet, by their height and place in the line.
    using Sheet = std::map<long, std::map<double, std::string>>;

    static std::string Run(const std::string& program, const fs::path& file,
                           const std::string& output = "") {
        const std::string command = program + " '" + file.string() + "' " + output + " 2>/dev/null";
        FILE* stream = popen(command.c_str(), "r");
        std::string text;
        for (int c = std::getc(stream); c != EOF; c = std::getc(stream)) {
            text += static_cast<char>(c);
        }
        pclose(stream);
        return text;
    }

    std::vector<Sheet> sheets_;
    long width_ = 0;
};

class OnPaper : public Printing {
  protected:
    void SetUp() override {
        const char* folder = std::getenv("SYSMAN_TEST_PRINTED");
        if (folder == nullptr) GTEST_SKIP() << "not run under tools/with-print-server";
        folder_ = folder;
    }
    fs::path Pdf(const char* printerName) const {
        return folder_ / (std::string(printerName) + ".pdf");
    }

  private:
    fs::path folder_;
};

TEST_F(OnPaper, EveryDirectoryBeginsASheetAndTheColumnsStand) {
    const test::Environment language("LC_ALL", "C");
    const std::string job = "c:\\tolvarin\\USER\\PROD\\JOB1\\TAPE\\";
    for (int i = 100; i < 200; ++i) drives.Write(job + "A" + std::to_string(i) + ".TAP", "12345");
    const std::string longName = std::string(60, 'b') + ".tap";
    drives.Write(job + longName, std::string(1234, 'x'));
    drives.Write(job + "c \xC4\xD6\xDC.tap", "");  // capital umlauts
    drives.MakeDir("c:\\tolvarin\\USER\\PROD\\JOB2");
    // 27 October 2026, 14:05:09
    std::tm time = {};
    time.tm_year = 126, time.tm_mon = 9, time.tm_mday = 27;
    time.tm_hour = 14, time.tm_min = 5, time.tm_sec = 9, time.tm_isdst = -1;
    const auto changed = std::chrono::file_clock::from_sys(
        std::chrono::system_clock::from_time_t(std::mktime(&time)));
    for (const auto& file : fs::directory_iterator(drives.Path(job))) {
        fs::last_write_time(file, changed);
    }

    app::SysMan main;
    main.optProduction.SetValue(true);
    directories::FrmPrint form(main.Listed());
    test::WorkIn(form, [&] {
        for (const auto* box : {&form.chkComp, &form.chkGroups, &form.chkNest}) test::Click(*box);
        test::Click(form.cmdOK);
        EXPECT_FALSE(form.IsOpen());
    });

    const auto sheets = Paper(Pdf("PDF")).Sheets();
    ASSERT_EQ(sheets.size(), 3u);  // two for the first directory
    Lines job1 = sheets[0];
    job1.insert(job1.end(), sheets[1].begin(), sheets[1].end());
    ASSERT_EQ(job1.size(), 4u + 100 + 2 + 1);
    EXPECT_EQ(job1[0].substr(0, 46), "Quarvel for Windows by Halcor.           Date ");
    EXPECT_EQ((Lines{job1.begin() + 1, job1.begin() + 4}),
              (Lines{"Production Data", "job1 directory", "Tapes"}));
    const std::string gap(42, ' ');
    EXPECT_EQ(job1[4], "A100.TAP" + gap + "     5   10/27/26 14:05:09");
    EXPECT_EQ(job1[103], "A199.TAP" + gap + "     5   10/27/26 14:05:09");
    EXPECT_EQ(job1[104], longName);
    EXPECT_EQ(job1[105], std::string(50, ' ') + "  1234   10/27/26 14:05:09");
    EXPECT_EQ(job1[106],
              "c \xC4\xD6\xDC.tap" + std::string(50 - 9 + 5, ' ') + "0   10/27/26 14:05:09");
    EXPECT_EQ((Lines{sheets[2].begin() + 1, sheets[2].end()}),
              (Lines{"Production Data", "job2 directory", "Tapes", "<No files>"}));
}

// Chooses US Letter, the first paper of the list, in the platform's set-up as soon as it is there.
class ChooseLetter : public wxModalDialogHook, public wxTimer {
  public:
    ChooseLetter() { Register(); }

  protected:
    int Enter(wxDialog*) override {
        Start(100);
        return wxID_NONE;
    }
    void Exit(wxDialog*) override {
        Stop();
        Unregister();
    }
    void Notify() override {
        ++step_;
        if (step_ > 200) {
            std::fputs("the printer set-up cannot be worked\n", stderr);
            std::_Exit(1);  // nothing else ends a dialog that takes no keys
        }
        // It takes the focus when it likes, so the key to the list is pressed until it surely has.
        wxUIActionSimulator simulator;
        if (step_ < 10) {
            simulator.Char('P', wxMOD_ALT);
        } else if (step_ == 10) {
            simulator.Char(WXK_HOME);
        } else {
            simulator.Char('A', wxMOD_ALT);
        }
    }

  private:
    int step_ = 0;
};

TEST_F(OnPaper, WhatIsSetUpHoldsForTheRestOfTheRun) {
    drives.MakeDir("c:\\tolvarin\\USER\\DESIGN\\PLATES");
    app::SysMan main;
    main.optDesign.SetValue(true);
    const auto widthPrinted = [&](bool setUp) {
        directories::FrmPrint form(main.Listed());
        test::WorkIn(form, [&] {
            if (setUp) {
                ChooseLetter choice;
                test::Click(form.cmdSetup);
            }
            test::Click(form.cmdOK);
        });
        return Paper(Pdf("PDF")).Width();
    };
    EXPECT_EQ(widthPrinted(false), 595);  // A4
    EXPECT_EQ(widthPrinted(true), 612);
    EXPECT_EQ(widthPrinted(false), 612);
}

#endif

}  // namespace
