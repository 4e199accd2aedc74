// backup, restore and verify.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <chrono>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "archive/stored.h"
#include "commandline/commands.h"
#include "errors/errors.h"

namespace commandline {
namespace {

bool IsTerminal() {
#ifdef _WIN32
    return _isatty(_fileno(stderr)) != 0;
#else
    return isatty(STDERR_FILENO) == 1;
#endif
}

// What is told, and in front of it the one line that says how far it is: on a terminal only, and
// no more often than a person can read it.
class Console {
  public:
    explicit Console(std::ostream& out) : out_(out) {}
    archive::Telling Telling() {
        return {[this](const std::string& line) { Say(line); },
                [this](int percent, const std::string& name) { Show(percent, name); }};
    }
    ~Console() { Clear(); }

  private:
    void Say(const std::string& line) {
        Clear();
        out_ << line << '\n' << std::flush;
    }
    void Show(int percent, const std::string& name) {
        const auto now = std::chrono::steady_clock::now();
        if (!terminal_ || now < next_) return;
        next_ = now + std::chrono::milliseconds(100);
        constexpr std::size_t kWidth = 72;
        std::string shown = archive::Shown(name);
        // The end of a path says more than its beginning. No character is cut in two.
        if (shown.size() > kWidth) shown.erase(0, shown.size() - kWidth);
        while (!shown.empty() && (shown[0] & 0xC0) == 0x80) shown.erase(0, 1);
        Clear();
        shown = std::to_string(percent) + " % " + shown;
        std::cerr << shown << std::flush;
        shown_ = shown.size();
    }
    void Clear() {
        if (shown_ > 0) std::cerr << '\r' << std::string(shown_, ' ') << '\r' << std::flush;
        shown_ = 0;
    }

    std::ostream& out_;
    const bool terminal_ = IsTerminal();
    std::chrono::steady_clock::time_point next_;
    std::size_t shown_ = 0;  // bytes, no fewer than columns
};

int Do(std::ostream& out, std::ostream& errors,
       const std::function<archive::Outcome(const archive::Telling&)>& work) {
    Console console(out);
    try {
        return static_cast<int>(work(console.Telling()));
    } catch (const archive::NativeError& failure) {
        // It may have characters that the system's set lacks, so it does not go its way.
        errors << "quarvel-data: " << failure.what() << '\n';
        return kNotDone;
    }
}

struct Options {
    std::string drive;
    std::vector<std::string> name;  // its words
    bool replace = false;

    char Letter() const { return drive[0]; }
    // As the names of backups are, in UTF-8, as it was given.
    std::string Which() const {
        std::string which;
        for (const auto& word : name) which += (which.empty() ? "" : " ") + word;
        return which;
    }
};

using Work = archive::Outcome (*)(const Options& options, const archive::Telling& telling);

archive::Outcome ListOrRestore(const Options& options, const archive::Telling& telling) {
    if (!options.name.empty()) {
        return archive::Restore(options.Letter(), options.Which(), options.replace, telling);
    }
    archive::TellStored(options.Letter(), telling);
    return archive::Outcome::kAllRight;
}

// What is wrong with a drive that was given; empty for one that can be.
std::string DriveFault(const std::string& drive) {
    const char letter = drive.empty() ? '\0' : static_cast<char>(drive[0] | 0x20);
    const std::string rest = drive.substr(drive.empty() ? 0 : 1);
    const bool isDrive =
        letter >= 'a' && letter <= 'z' && (rest.empty() || rest == ":" || rest == ":\\");
    return isDrive ? std::string() : drive + " is no drive";
}

const char* const kBackupHelp =
    "quarvel-data backup SOURCE DESTINATION [/s] [--keep N]\n"
    "SOURCE is everything in front of the last drive: c:\\tolvarin\\USER\\PROD\\my job\\*.*\n"
    "Another wild card than *.* chooses among the files of that folder itself.\n"
    "DESTINATION is a drive: a: gets a:\\QVBACKUP\\DATE TIME NAME with the files as files.\n"
    "  /s         with all folders below\n"
    "  --keep N   deletes older whole backups of this folder until N are left\n"
    "Ends with 0; with 1 where something is not in it as it was, which is told; with 2 where there "
    "is no backup.";

}  // namespace

void AddArchive(CLI::App& app, Run& run, std::ostream& out, std::ostream& errors) {
    const auto options = std::make_shared<Options>();
    // The batch file gives paths with blanks as they are, so the words are put together here.
    CLI::App* backup = app.add_subcommand("backup", "Copies a folder to another drive, checked");
    backup->footer(kBackupHelp);
    backup->prefix_command();
    backup->callback([&, backup] {
        run = [&, words = backup->remaining()] {
            std::vector<std::string> given(words.size());
            std::transform(words.begin(), words.end(), given.begin(), Given);
            const archive::Job job = archive::JobOf(std::move(given));
            return Do(out, errors,
                      [&](const auto& telling) { return archive::Backup(job, telling); });
        };
    });

    const auto add = [&](const char* name, const char* help, Work work) {
        CLI::App* command = app.add_subcommand(name, help);
        command->add_option("DESTINATION", options->drive, "The drive with the backups: a:")
            ->required()
            ->check(DriveFault);
        command->add_option("BACKUP", options->name, "Its number in the list, or its name");
        command->callback([&, options, work] {
            run = [&, options, work] {
                return Do(out, errors,
                          [&](const auto& telling) { return work(*options, telling); });
            };
        });
        return command;
    };
    add("restore", "Lists the backups of a drive, or brings one back to where it came from",
        ListOrRestore)
        ->add_flag("--replace", options->replace,
                   "Also where something else stands; that is kept beside it under a name with "
                   "the date");
    add("verify", "Reads a backup, or all of a drive, and compares it with its list",
        [](const Options& given, const archive::Telling& telling) {
            return archive::Verify(given.Letter(), given.Which(), telling);
        });
}

}  // namespace commandline
