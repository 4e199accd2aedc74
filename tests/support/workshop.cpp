#include "tests/support/workshop.h"

#include <initializer_list>
#include <string>
#include <string_view>

namespace test {
namespace {

// Lines with the line ends of the data files, in which a blank line is a CR of its own.
std::string Lines(std::initializer_list<std::string_view> lines) {
    std::string text;
    for (std::string_view line : lines) text.append(line.empty() ? "\r" : line).append("\r\n");
    return text;
}

std::string Padded(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

}  // namespace

Workshop::Workshop() {
    const std::string system = "c:\\tolvarin\\system\\", user = "c:\\tolvarin\\USER\\";
    Write(system + "process.dat",
          Lines({"; PROCESS.DAT",
                 "; Holds times etc for different processes",
                 "",
                 "[Processes]",
                 "; This is a List of valid processes on the system",
                 "Process1=" + Padded("Plasma", 64),
                 "Process2=" + Padded("Oxy Fuel", 64),
                 "",
                 "[Plasma]",
                 "; Rapid Traverse rate (mm/min)",
                 "Rapid=20000",
                 "LineMarkRate=6000",
                 "; Default leadin type etc",
                 "Leadin=Line",
                 "; Default leadin angle - zero if missing",
                 "Angle=45",
                 "; default Percent of Leadin Length and leadout Overrun distance",
                 "LeadoutPercent=50",
                 "LeadoutOverrun=3",
                 "MajorDir=-1",
                 "MinorDir=1",
                 "MinorOpenKerf=1",
                 "AddKerf=1",
                 "; List of valid thicknesses for this process",
                 "; Thickness, Pierce time(secs), Feedrate(mm/min), Default Leadin(mm), optional "
                 "Nozzle size",
                 "Thickness1=3mm, .1, 6400, 4, 1.5",
                 "Thickness2=25mm, 2, 550, 12, 1.5",
                 "Leadout=Arc ",
                 "",
                 "[Oxy Fuel]",
                 "; Rapid Traverse rate (mm/min)",
                 "Rapid=.5",
                 "LineMarkRate=1",
                 "; Default leadin type etc",
                 "Leadin=A180",
                 "; default Percent of Leadin Length and leadout Overrun distance",
                 "LeadoutPercent=0",
                 "LeadoutOverrun=0",
                 "MajorDir=1",
                 "MinorOpenKerf=0",
                 "Extension=1",
                 "AddKerf=0",
                 "; List of valid thicknesses for this process",
                 "; Thickness, Pierce time(secs), Feedrate(mm/min), Default Leadin(mm), optional "
                 "Nozzle size",
                 "Leadout=Line",
                 "Leadoutangle=-30",
                 "Leadoutextension=1"}));
    Write(system + "mattypes.dat",
          Lines({"; MATTYPES.DAT", "; Material types database.", "",
                 "; Densities are in tonnes/cubic metre", "", "[Materials]",
                 "Mat1=" + Padded("MS", 32), "Mat2=" + Padded("SS304", 32), "", "[MS]",
                 "Description=" + Padded("Mild steel", 50), "Density=7.85", "", "[SS304]",
                 "Description=" + Padded("Stainless", 50), "Density=.5"}));
    const std::string list =
        Lines({"; MATERIAL.DAT", "; Defaults Material Database",
               "; Used for creating new directories", "", "[Mat1]", "Type=MS", "Thickness=mm",
               "Process=Plasma", "", "[Mat2]", "Type=SS304", "Thickness=mm", "Process=Oxy Fuel"});
    Write(system + "material.dat", list);
    Write(user + "PROD\\P10\\MATERIAL.DAT",
          Lines({"; MATERIAL.DAT", "; Defaults Material Database",
                 "; Used for creating new directories", "", "[Mat1]", "Type=MS", "Thickness=10mm",
                 "Process=Plasma", "", "[Mat2]", "Type=SS304", "Thickness=12.5mm",
                 "Process=Oxy Fuel"}));
    for (const char* folder : {"COMP", "GROUP", "NEST", "TAPE"}) {
        MakeDir(user + "PROD\\P10\\" + folder);
    }
    Write(user + "DESIGN\\PLATES\\GEOMETRY\\A.DSN", "x");
    Write("c:\\tolvarin\\network\\user1\\nestuser.ini",
          "; kept\r\n[Nest]\r\nAllowKerfProg=1\r\nother=x\r\nPrePiercingThickness=.5\r\n");
}

}  // namespace test
