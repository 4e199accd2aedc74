// The commands of quarvel-data. Each part adds its own to the command line and sets, when one of
// them was given, what is to be run; that returns the exit status.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>
#include <vector>

#include "report/page.h"

namespace CLI {
class App;
}

namespace commandline {

// What the commands end with.
inline constexpr int kNothingFound = 0, kSomethingFound = 1, kNotDone = 2;

using Run = std::function<int()>;

// What they have to say goes to `out`, and what keeps them from it to `errors`, in UTF-8.
void AddInspection(CLI::App& app, Run& run, std::ostream& out);  // check, uses
void AddReport(CLI::App& app, Run& run, std::ostream& errors);   // report
// backup, restore, verify
void AddArchive(CLI::App& app, Run& run, std::ostream& out, std::ostream& errors);

// The whole program: reads the command line, finds the installation as the System Manager does and
// runs the command. Returns the exit status; never throws.
int Main(int argc, const char* const* argv, std::ostream& out, std::ostream& errors);

// Makes the page of the report, of these drives or of all, in a folder for such (see
// platform::PageToShow) and shows it. Throws FileError where it can be neither written nor shown.
void ShowPage(const char* name, const std::vector<std::string>& drives, report::First first);

// What was given on the command line, in the system's character set. Throws errors::Error for what
// the set lacks.
std::string Given(const std::string& utf8);

}  // namespace commandline
