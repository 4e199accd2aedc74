// quarvel-data: looks over, shows, backs up and restores the data that the System Manager edits,
// without a display.
#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

#ifdef _WIN32
#include <windows.h>

#include <shellapi.h>
#endif

#include "commandline/commands.h"

#ifdef _WIN32

namespace {

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

// What is said is UTF-8; the console afterwards is as it was, for the batch file that goes on in
// it.
class Utf8Console {
  public:
    Utf8Console() { SetConsoleOutputCP(CP_UTF8); }
    ~Utf8Console() { SetConsoleOutputCP(before_); }
    Utf8Console(const Utf8Console&) = delete;
    Utf8Console& operator=(const Utf8Console&) = delete;

  private:
    const UINT before_ = GetConsoleOutputCP();
};

}  // namespace

#endif

int main([[maybe_unused]] int argc, [[maybe_unused]] char** argv) {
#ifdef _WIN32
    const Utf8Console console;
    const std::vector<std::string> words = ArgumentsInUtf8();
#else
    const std::vector<std::string> words(argv, argv + argc);
#endif
    std::vector<const char*> pointers(words.size());
    std::transform(words.begin(), words.end(), pointers.begin(),
                   [](const std::string& word) { return word.c_str(); });
    return commandline::Main(static_cast<int>(pointers.size()), pointers.data(), std::cout,
                             std::cerr);
}
