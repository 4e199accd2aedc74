// The one thing that batch files are written for here, a backup, in a terminal of the desktop:
// there is no interpreter for them on Linux.
#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string>
#include <vector>

#include "platform/native.h"
#include "platform/posix/descriptor.h"
#include "text/code_page.h"

namespace platform::native {
namespace {

bool IsProgram(const fs::path& path) {
    std::error_code ignored;
    return fs::is_regular_file(path, ignored) && access(path.c_str(), X_OK) == 0;
}

// The first program of the name in the search path; empty for none.
fs::path FindProgram(const std::string& name) {
    const char* const path = std::getenv("PATH");
    std::string_view rest = path != nullptr ? path : "";
    while (!rest.empty()) {
        const auto end = std::min(rest.find(':'), rest.size());
        const fs::path program = fs::path(rest.substr(0, end)) / name;
        if (program.is_absolute() && IsProgram(program)) return program;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return {};
}

// Beside this program, as both are installed, else in the search path.
fs::path DataProgram() {
    std::error_code error;
    const fs::path beside =
        fs::read_symlink("/proc/self/exe", error).parent_path() / "quarvel-data";
    return !error && IsProgram(beside) ? beside : FindProgram("quarvel-data");
}

// What stands behind "backup " in the batch file: the source, the destination and /s. Of the source
// nothing is taken apart, so that two blanks stay two.
std::vector<std::string> BackupWords(const std::string& batchFile) {
    const std::string begin = "\nbackup ", all = " /s";
    const auto at = batchFile.find(begin);
    if (at == batchFile.npos) return {};
    const auto from = at + begin.size();
    std::string line = batchFile.substr(from, batchFile.find_first_of("\r\n", from) - from);
    std::vector<std::string> words;
    if (line.ends_with(all)) {
        words.push_back(all.substr(1));
        line.erase(line.size() - all.size());
    }
    const auto blank = line.rfind(' ');
    if (blank == line.npos) return {};
    words.insert(words.begin(), {text::ToUtf8(line.substr(0, blank)), line.substr(blank + 1)});
    return words;
}

// The words are arguments of the shell, never part of what it reads, so none of them is a command.
const char* const kScript =
    "\"$@\"; status=$?; echo; printf 'Press Enter to close this window. '; read -r answer; "
    "exit $status";

std::vector<std::string> CommandFor(const std::string& batchFile) {
    const auto words = BackupWords(batchFile);
    const fs::path program = DataProgram();
    std::vector<std::string> command;
    if (const fs::path chosen = FindProgram("xdg-terminal-exec"); !chosen.empty()) {
        command = {chosen.native()};
    } else if (const fs::path any = FindProgram("x-terminal-emulator"); !any.empty()) {
        command = {any.native(), "-e"};
    }
    if (command.empty() || program.empty() || words.empty()) return {};
    command.insert(command.end(), {"/bin/sh", "-c", kScript, "sh", program.native(), "backup"});
    command.insert(command.end(), words.begin(), words.end());
    return command;
}

}  // namespace

bool StartBatchFile(const fs::path& path, std::error_code& error) {
    const std::string batchFile = ReadFile(path, error);
    if (error) return false;
    std::vector<std::string> command = CommandFor(batchFile);
    if (command.empty()) return false;
    std::vector<char*> arguments(command.size() + 1, nullptr);
    std::transform(command.begin(), command.end(), arguments.begin(),
                   [](std::string& argument) { return argument.data(); });
    const std::string folder = path.parent_path().native();

    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) {
        error = LastError();
        return false;
    }
    Descriptor told(ends[0]), telling(ends[1]);
    // A child of a child, which nobody has to wait for. Between fork and exec only what is allowed
    // there: the toolkit has threads.
    const pid_t child = fork();
    if (child == 0) {
        if (const pid_t own = fork(); own != 0) _exit(own > 0 ? 0 : 1);
        setsid();
        if (chdir(folder.c_str()) == 0) execv(arguments[0], arguments.data());
        const int reason = errno;
        [[maybe_unused]] const auto size = write(telling.Get(), &reason, sizeof reason);
        _exit(1);
    }
    if (child < 0) {
        error = LastError();
        return false;
    }
    telling.Close();
    int status = 0, reason = 0;
    Retry([&] { return waitpid(child, &status, 0); });
    // The pipe ends without a word when the terminal has taken over.
    const bool failed =
        Retry([&] { return read(told.Get(), &reason, sizeof reason); }) == sizeof reason;
    if (failed || status != 0) {
        error = {failed ? reason : EAGAIN, std::generic_category()};
        return false;
    }
    return true;
}

}  // namespace platform::native
