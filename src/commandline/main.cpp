// quarvel-data: looks over, shows, backs up and restores the data that the System Manager edits,
// without a display.
#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>

#include <shellapi.h>
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

#ifdef _WIN32
// In the set of the ANSI code page, in which they come, names would lack characters, and *.* might
// have become what matches in the current directory.
std::vector<std::string> ArgumentsInUtf8() {
    int count = 0;
    wchar_t** const wide = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 0; i < count; ++i) {
        const auto convert = [&](char* to, int size) {
            return WideCharToMultiByte(CP_UTF8, 0, wide[i], -1, to, size, nullptr, nullptr);
        };
        std::string argument(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
        convert(argument.data(), static_cast<int>(argument.size()));
        arguments.emplace_back(argument.c_str());
    }
    LocalFree(wide);
    return arguments;
}
#endif

int Main(int argc, char** argv) {
#ifdef _WIN32
    std::vector<std::string> arguments = ArgumentsInUtf8();
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    argc = static_cast<int>(pointers.size());
    argv = pointers.data();
#endif
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
