// quarvel-data: looks over, shows, backs up and restores the data that the System Manager edits,
// without a display.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>
#endif

#include "app/system_config.h"
#include "errors/errors.h"
#include "inspect/installation.h"
#include "inspect/uses.h"
#include "text/code_page.h"

namespace {

// What the commands end with.
constexpr int kNothingFound = 0, kSomethingFound = 1, kNotDone = 2;

// What was given on the command line, in the system's character set.
std::string Given(const std::string& utf8) {
    const auto bytes = text::FromUtf8(utf8);
    if (!bytes) throw errors::Error("\"" + utf8 + "\" has a character that the data cannot hold");
    return *bytes;
}

int Tell(const inspect::Findings& findings) {
    for (const auto& finding : findings) std::cout << inspect::Sentence(finding) << '\n';
    return findings.empty() ? kNothingFound : kSomethingFound;
}

int Run(int argc, char** argv) {
    CLI::App app("Looks over the data of the Quarvel nesting system.", "quarvel-data");
    app.set_version_flag("--version", std::string(app::VersionText));
    app.require_subcommand(1);

    std::vector<std::string> drives;
    const auto onDrives = [&](CLI::App* command) {
        command
            ->add_option("--drive", drives, "Only this drive (a letter); more than once for more")
            ->type_name("LETTER");
        return command;
    };
    CLI::App* check = onDrives(app.add_subcommand(
        "check", "Tells what is wrong or doubtful: path:line: error, warning or note: text"));
    CLI::App* uses = app.add_subcommand("uses", "Tells which material lists name something");
    uses->require_subcommand(1);
    std::string name;
    CLI::App* process = onDrives(uses->add_subcommand("process", "A process"));
    process->add_option("NAME", name, "Its name, in any case")->required();
    CLI::App* material = onDrives(uses->add_subcommand("material", "A material type"));
    material->add_option("CODE", name, "Its code, in any case")->required();
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kNothingFound : kNotDone;
    }

    app::LocateConfigFile();
    app::ReadSystemConfig();
    const auto found = inspect::DataDrives(drives);
    if (*check) return Tell(inspect::Check(found));
    const auto what = *process ? inspect::Named::kProcess : inspect::Named::kMaterialType;
    return Tell(inspect::UsesOf(what, Given(name), inspect::MaterialLists(found)));
}

}  // namespace

int main(int argc, char** argv) {
#ifdef _WIN32
    SetConsoleOutputCP(CP_UTF8);
#endif
    try {
        return Run(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << "quarvel-data: " << text::ToUtf8(failure.what()) << '\n';
        return kNotDone;
    }
}
