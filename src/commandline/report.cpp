// report.
#include <CLI/CLI.hpp>
#include <ctime>
#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "app/system_config.h"
#include "commandline/commands.h"
#include "errors/errors.h"
#include "platform/drives.h"
#include "platform/operator_file.h"
#include "report/page.h"
#include "text/code_page.h"

namespace commandline {
namespace {

namespace fs = std::filesystem;

struct Options {
    std::vector<std::string> drives;
    std::string file;
    bool open = false;
};

// A page must not take the place of what it tells of.
void RefuseData(const fs::path& file) {
    for (const auto& drive : platform::Drives()) {
        const std::string root = std::string(1, drive.letter) + ":" + app::TheConfig().NestRootDir;
        bool inside = false;
        try {
            inside = platform::LiesIn(file, root);
        } catch (const errors::FileError&) {
            // On a drive that does not answer nothing can be written either.
        }
        if (inside) throw errors::Error("The page would lie in the data, in " + root);
    }
}

void WritePage(const fs::path& file, const std::vector<std::string>& drives, report::First first) {
    RefuseData(file);
    const std::time_t now = std::time(nullptr);
    const std::tm* local = std::localtime(&now);
    platform::ReplaceOperatorFile(file, report::Page(drives, local ? *local : std::tm{}, first));
}

int Report(const Options& options, std::ostream& errors) {
    const fs::path file(std::u8string(options.file.begin(), options.file.end()));
    WritePage(file, options.drives, report::First::kData);
    if (!options.open) return kNothingFound;
    try {
        platform::ShowToOperator(file);
    } catch (const errors::FileError& failure) {
        // It is written all the same.
        errors << "quarvel-data: cannot be shown: " << text::ToUtf8(failure.what()) << '\n';
    }
    return kNothingFound;
}

}  // namespace

void ShowPage(const char* name, const std::vector<std::string>& drives, report::First first) {
    const fs::path file = platform::PageToShow(name);
    WritePage(file, drives, first);
    platform::ShowToOperator(file);
}

void AddReport(CLI::App& app, Run& run, std::ostream& errors) {
    const auto options = std::make_shared<Options>();
    CLI::App* command = app.add_subcommand(
        "report", "Writes a page of all processes, materials and lists, to look at and to print");
    command->add_option("FILE", options->file,
                        "The file to write, as HTML; may be left out with --open");
    command
        ->add_option("--drive", options->drives,
                     "Only this drive, by its letter; more than once for more drives")
        ->type_name("LETTER")
        ->allow_extra_args(false);
    command->add_flag("--open", options->open, "Show it in the browser then");
    command->callback([&, options] {
        if (options->file.empty() && !options->open) throw CLI::RequiredError("FILE or --open");
        run = [options, &errors] {
            if (!options->file.empty()) return Report(*options, errors);
            ShowPage("report.html", options->drives, report::First::kData);
            return kNothingFound;
        };
    });
}

}  // namespace commandline
