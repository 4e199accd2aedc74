// check and uses.
#include <CLI/CLI.hpp>
#include <memory>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "commandline/commands.h"
#include "inspect/installation.h"
#include "inspect/uses.h"

namespace commandline {
namespace {

int Tell(std::ostream& out, const inspect::Findings& findings) {
    for (const auto& finding : findings) out << inspect::Sentence(finding) << '\n';
    return findings.empty() ? kNothingFound : kSomethingFound;
}

struct Options {
    std::vector<std::string> drives;
    std::string name;
    bool open = false;
};

}  // namespace

void AddInspection(CLI::App& app, Run& run, std::ostream& out) {
    const auto options = std::make_shared<Options>();
    const auto add = [&](CLI::App& to, const char* name, const char* help, Run action) {
        CLI::App* command = to.add_subcommand(name, help);
        command
            ->add_option("--drive", options->drives,
                         "Only this drive, by its letter; more than once for more drives")
            ->type_name("LETTER")
            ->allow_extra_args(false);
        command->callback([&run, action = std::move(action)] { run = action; });
        return command;
    };
    add(app, "check", "Tells what is wrong or doubtful: path:line: error, warning or note: text",
        [options, &out] {
            // First the page: on it a drive that does not answer does not hide the others.
            if (options->open) ShowPage("check.html", options->drives, report::First::kFindings);
            return Tell(out, inspect::Check(inspect::DataDrives(options->drives)));
        })
        ->add_flag("--open", options->open, "Show it in the browser, too");

    CLI::App* uses = app.add_subcommand("uses", "Tells which material lists name something");
    uses->require_subcommand(1);
    const auto tellUses = [options, &out](inspect::Named what) {
        const auto lists = inspect::MaterialLists(inspect::DataDrives(options->drives));
        return Tell(out, inspect::UsesOf(what, Given(options->name), lists));
    };
    add(*uses, "process", "A process", [=] { return tellUses(inspect::Named::kProcess); })
        ->add_option("NAME", options->name, "Its name, in any case")
        ->required();
    add(*uses, "material", "A material type",
        [=] { return tellUses(inspect::Named::kMaterialType); })
        ->add_option("CODE", options->name, "Its code, in any case")
        ->required();
}

}  // namespace commandline
