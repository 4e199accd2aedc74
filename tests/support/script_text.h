// The texts of scripts: how they are taken apart, and how a text of the system is shown in them.
// Texts of the source that are compared with.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace test {

using Strings = std::vector<std::string>;

// Its parts without the blanks around them; between two quotes no divider counts.
Strings Split(std::string_view text, char divider, char quote = '\0');
std::string Join(const Strings& parts, const std::string& between = "; ");

// However it is broken into lines.
std::string Unbroken(const std::string& text);

// What cannot be seen, and long runs of blanks or of another character.
std::string Visible(std::string_view text);

// The lines of a file that went and came.
std::string LineChanges(const std::string& before, const std::string& after);

// The bytes that a text in quotes stands for.
std::string Meant(std::string_view text);

// The bytes of a file, its path given from the root of the source; fails the test without it.
std::string SourceFile(const std::string& path);

}  // namespace test
