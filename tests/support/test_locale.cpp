#include "tests/support/test_locale.h"

#include <algorithm>
#include <clocale>
#include <iostream>
#include <string_view>

namespace test {

bool UseLocaleFromArguments(int& argc, char** argv) {
    constexpr std::string_view kOption = "--locale=";
    char** const end = argv + argc;
    char** const found = std::find_if(argv, end, [&](std::string_view argument) {
        return argument.substr(0, kOption.size()) == kOption;
    });
    if (found == end) return true;
    const char* const name = *found + kOption.size();
    std::move(found + 1, end, found);
    --argc;
    if (std::setlocale(LC_ALL, name) == nullptr ||
        std::string_view(std::localeconv()->decimal_point) != ",") {
        std::cerr << "there is no locale " << name << " with a decimal comma\n";
        return false;
    }
    return true;
}

}  // namespace test
