// quarvel-data: looks over, shows, backs up and restores the data that the System Manager edits,
// without a display.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#ifdef _WIN32
#include <windows.h>
#endif

#include "app/system_config.h"
#include "commandline/commands.h"
#include "errors/errors.h"
#include "text/code_page.h"

namespace commandline {

std::string Given(const std::string& utf8) {
    const auto bytes = text::FromUtf8(utf8);
    if (!bytes) throw errors::Error("What was given has a character that the data cannot hold");
    return *bytes;
}

namespace {

int Main(int argc, char** argv) {
    CLI::App app("Looks over the data of the Quarvel nesting system.", "quarvel-data");
    app.set_version_flag("--version", std::string(app::VersionText));
    app.require_subcommand(1);
    Run run;
    AddInspection(app, run);
    AddArchive(app, run);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? kNothingFound : kNotDone;
    }
    app::LocateConfigFile();
    app::ReadSystemConfig();
    return run();
}

}  // namespace
}  // namespace commandline

int main(int argc, char** argv) {
#ifdef _WIN32
    SetConsoleOutputCP(CP_UTF8);
#endif
    try {
        return commandline::Main(argc, argv);
    } catch (const std::exception& failure) {
        std::cerr << "quarvel-data: " << text::ToUtf8(failure.what()) << '\n';
        return commandline::kNotDone;
    }
}
