#include "process_file.h"

#include <array>
#include <string_view>

namespace bench {
namespace {

constexpr std::array<std::string_view, 10> kKinds = {
    "Plasma 130A", "Plasma 260A", "Plasma 400A", "Oxy-Fuel",   "Oxy-Fuel Thick",
    "Laser 4kW",   "Laser 6kW",   "Water Jet",   "Hi-Def 70A", "Marking Only"};

constexpr std::string_view kBlankLine = "\r\r\n";

constexpr std::array<std::pair<std::string_view, std::string_view>, 13> kDefaults = {{
    {"Rapid", "20000"},
    {"LineMarkRate", "6000"},
    {"Leadin", "Line"},
    {"Angle", "45"},
    {"Leadout", "A180"},
    {"LeadoutPercent", "50"},
    {"LeadoutOverrun", "3"},
    {"MajorDir", "-1"},
    {"MinorDir", "1"},
    {"MinorOpenKerf", "1"},
    {"Extension", "0"},
    {"Leadoutextension", "0"},
    {"AddKerf", "1"},
}};

class Writer {
  public:
    void Line(std::string_view text) { file_.bytes.append(text).append("\r\n"); }
    void BlankLine() { file_.bytes += kBlankLine; }
    void Section(std::string_view name) {
        section_ = name;
        Line("[" + section_ + "]");
    }
    void Key(std::string_view key, std::string_view value) {
        file_.keys.emplace_back(section_, key);
        Line(std::string(key).append("=").append(value));
    }
    ProcessFile Finish() { return std::move(file_); }

  private:
    ProcessFile file_;
    std::string section_;
};

std::string NameOf(int process) {
    return std::string(kKinds[process % kKinds.size()]) + " Table " + std::to_string(process + 1);
}

std::string Row(int row) {
    return std::to_string(row) + "mm, " + std::to_string(row / 10) + ".5, " +
           std::to_string(6400 - 60 * row) + ", " + std::to_string(4 + row / 10) + ", 1.5";
}

}  // namespace

ProcessFile MakeProcessFile(int processes) {
    Writer file;
    file.Line("; PROCESS.DAT");
    file.Line("; Holds times etc for different processes");
    file.BlankLine();
    file.Section("Processes");
    file.Line("; This is a List of valid processes on the system");
    for (int process = 0; process < processes; ++process) {
        std::string name = NameOf(process);
        name.resize(64, ' ');  // the writer stores the whole field
        file.Key("Process" + std::to_string(process + 1), name);
    }
    for (int process = 0; process < processes; ++process) {
        file.BlankLine();
        file.Section(NameOf(process));
        file.Line("; Rapid Traverse rate (mm/min)");
        for (const auto& [key, value] : kDefaults) {
            if (key == "Leadin") file.Line("; Default leadin type etc");
            if (key == "LeadoutPercent") {
                file.Line("; default Percent of Leadin Length and leadout Overrun distance");
            }
            file.Key(key, value);
        }
        file.Line("; List of valid thicknesses for this process");
        file.Line(
            "; Thickness, Pierce time(secs), Feedrate(mm/min), Default Leadin(mm), Nozzle size");
        for (int row = 1; row <= 100; ++row) file.Key("Thickness" + std::to_string(row), Row(row));
    }
    return file.Finish();
}

}  // namespace bench
