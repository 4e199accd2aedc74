// What the tests of the process windows share: a file of three processes as text, and a person who
// works in the windows.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/system_config.h"
#include "process/add_process.h"
#include "process/process_defaults.h"
#include "process/process_file.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/temp_drives.h"
#include "views/application.h"
#include "views/view_procedures.h"

namespace process {

using Log = std::vector<std::string>;
using test::Box;
using views::Answer;

inline const std::string kFile = "c:\\tolvarin\\system\\process.dat";
inline const std::string kSave =
    Box("Closing Process Defaults", "             Save Changes ?", "Yes/No", "none");

// A text with the line ends of the data files, in which a blank line is a CR of its own.
inline std::string Dat(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (std::string_view line : lines) {
        text += line.empty() ? "\r" : line;
        text += "\r\n";
    }
    return text;
}

// A name field: the text, filled up to its 64 characters.
inline std::string Field(const std::string& text, char filler = '\0') {
    return text + std::string(64 - text.size(), filler);
}

inline constexpr std::string_view kRowsComment =
    "; Thickness, Pierce time(secs), Feedrate(mm/min), Default Leadin(mm), optional Nozzle size";
inline constexpr std::string_view kPercentComment =
    "; default Percent of Leadin Length and leadout Overrun distance";
inline constexpr std::string_view kAngleComment = "; Default leadin angle - zero if missing";

inline std::string Head(std::initializer_list<std::string> names) {
    std::string text = Dat({"; PROCESS.DAT", "; Holds times etc for different processes", "",
                            "[Processes]", "; This is a List of valid processes on the system"});
    int n = 0;
    for (const std::string& name : names) {
        text += "Process" + std::to_string(++n) + "=" + name + "\r\n";
    }
    return text;
}

// The sections of three processes as the file holds them; `name` because a deletion leaves the
// settings of one process under the name of another.
inline std::string Plasma(const std::string& leadIn = Dat({"Leadin=Line", kAngleComment,
                                                           "Angle=45"}),
                          const std::string& name = "[Plasma]") {
    return Dat({"", name, "; Rapid Traverse rate (mm/min)", "Rapid=10000", "LineMarkRate=5000",
                "; Default leadin type etc"}) +
           leadIn +
           Dat({kPercentComment, "LeadoutPercent=50", "LeadoutOverrun=2", "MajorDir=-1",
                "MinorDir=1", "MinorOpenKerf=1", "AddKerf=0",
                "; List of valid thicknesses for this process", kRowsComment,
                "Thickness1=10mm, 2.5, 1200, 5, 1.5", "Leadout=Arc "});
}
inline std::string Oxy(const std::string& leadIn = Dat({"; Default leadin type etc",
                                                        "Leadin=Arc "}),
                       const std::string& name = "[Oxy]", const std::string& rapid = "Rapid=3000") {
    return Dat({"", name, "; Rapid Traverse rate (mm/min)", rapid, "LineMarkRate=500"}) + leadIn +
           Dat({kPercentComment, "LeadoutPercent=0", "LeadoutOverrun=-1", "MajorDir=1",
                "MinorOpenKerf=-1", "Extension=1", "AddKerf=1",
                "; List of valid thicknesses for this process", kRowsComment,
                "Leadoutextension=1"});
}
inline std::string Laser(const std::string& name = "[Laser]") {
    return Dat({"", name, "; Rapid Traverse rate (mm/min)", "Rapid=.5", "LineMarkRate=1",
                "; Default leadin type etc", "Leadin=A180", kPercentComment, "LeadoutPercent=0",
                "LeadoutOverrun=0", "MinorOpenKerf=0", "AddKerf=0",
                "; List of valid thicknesses for this process", kRowsComment, "Leadout=Line",
                "Leadoutangle=-30"});
}

// The file as the operator's last save left it, and what the list of a save from these windows
// looks like: behind a name that was read stand remains of the values read before it.
inline const std::string kBefore =
    Head({Field("Plasma", ' '), Field("Oxy", ' '), Field("Laser", ' ')}) + Plasma() + Oxy() +
    Laser();
inline const std::string kPlasmaField = Field("Plasma");
inline const std::string kOxyField = Field(std::string("Oxy\0, 2.5, 1200, 5, 1.5", 23));
inline const std::string kLaserField = Field(std::string("Laser\0002.5, 1200, 5, 1.5", 23));
inline const std::string kHeadAfter = Head({kPlasmaField, kOxyField, kLaserField});

class ProcessWindows : public ::testing::Test {
  protected:
    ProcessWindows() {
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
        drives.Write(kFile, kBefore);
    }
    // Opens the window for a person who does this in it and then leaves it by Close.
    void Work(const std::function<void(FrmProcessDefaults&, test::Keyboard&)>& steps) {
        FrmProcessDefaults window;
        screen.windows.push_back([&](views::Form&) {
            test::Keyboard keyboard(window);
            steps(window, keyboard);
        });
        views::Guard([&] { views::ShowModal(window); });
    }
    // Presses Add Process and does this in the dialog.
    void Add(FrmProcessDefaults& window, const std::function<void(FrmAddProcess&)>& steps) {
        screen.windows.push_back(
            [steps](views::Form& form) { steps(dynamic_cast<FrmAddProcess&>(form)); });
        window.cmdAddProcess.Press();
    }
    void AddNamed(FrmProcessDefaults& window, const std::string& name, int copyFrom = -1) {
        Add(window, [&](FrmAddProcess& dialog) {
            test::Keyboard(dialog).Type(name);
            if (copyFrom >= 0) dialog.cboCopy.Choose(copyFrom);
            dialog.cmdOk.Press();
        });
    }
    static ProcessRecord& Record(int n) { return TheProcesses().Process(n); }

    test::TempDrives drives;
    test::ScriptedScreen screen;
};

// The options and boxes of the window: one sign per option, X for a chosen one.
inline std::string Options(const FrmProcessDefaults& window) {
    std::string signs;
    const auto add = [&](const auto& options) {
        for (const auto& option : options) signs += option.Value() ? 'X' : '.';
        signs += ' ';
    };
    add(window.optLeadIn);
    add(window.optLeadOut);
    add(window.optMajorDirection);
    add(window.optMinorDirection);
    add(window.optOpenMinor);
    for (const auto* box :
         {&window.chkLeadInExtension, &window.chkLeadOutExtension, &window.chkAddKerf}) {
        signs += box->Value() ? 'X' : '.';
    }
    return signs;
}

// The texts of the boxes in the order of the window; a disabled one in brackets.
inline std::string Texts(const FrmProcessDefaults& window) {
    std::string texts;
    for (const auto* box :
         {&window.txtRapid, &window.txtLineMarkRate, &window.txtLeadInAngle,
          &window.txtLeadOutAngle, &window.txtLeadoutPercent, &window.txtLeadoutOverrun}) {
        texts += box->Enabled() ? box->Text() + " " : "(" + box->Text() + ") ";
    }
    return texts;
}

}  // namespace process
