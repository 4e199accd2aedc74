// The commands of quarvel-data. Each part adds its own to the command line and sets, when one of
// them was given, what is to be run; that returns the exit status.
#pragma once

#include <functional>
#include <string>

namespace CLI {
class App;
}

namespace commandline {

// What the commands end with.
inline constexpr int kNothingFound = 0, kSomethingFound = 1, kNotDone = 2;

using Run = std::function<int()>;

void AddInspection(CLI::App& app, Run& run);  // check, uses
void AddArchive(CLI::App& app, Run& run);     // backup, restore, verify

// What was given on the command line, in the system's character set. Throws errors::Error for what
// the set lacks.
std::string Given(const std::string& utf8);

}  // namespace commandline
