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

int Main(int argc, const char* const* argv, std::ostream& out, std::ostream& errors) {
    CLI::App app("Looks over the data of the Quarvel nesting system.", "quarvel-data");
    app.set_version_flag("--version", std::string(app::VersionText));
    app.require_subcommand(1);
    Run run;
    AddInspection(app, run, out);
    AddReport(app, run, errors);
    AddArchive(app, run, out, errors);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error, out, errors) == 0 ? kNothingFound : kNotDone;
    }
    try {
        app::LocateConfigFile();
        app::ReadSystemConfig();
        return run();
    } catch (const std::exception& failure) {
        errors << "quarvel-data: " << text::ToUtf8(failure.what()) << '\n';
        return kNotDone;
    }
}

}  // namespace commandline
