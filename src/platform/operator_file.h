// Files outside the installation, which the operator names in the platform's own way, relative to
// the working directory.
#pragma once

#include <filesystem>
#include <string_view>

namespace platform {

// Replaces the file whole or not at all, as ReplaceWholeFile does (see files.h); makes one that is
// not there. Throws FileError.
void ReplaceOperatorFile(const std::filesystem::path& path, std::string_view bytes);

// Whether the file lies, or would lie, in a directory of the system, links followed. False where
// there is no such directory. Throws FileError where that cannot be found out.
bool LiesIn(const std::filesystem::path& path, std::string_view directory);

// Where a page lies that is made to be looked at now and can be made again: in a folder of the
// operator's, outside the installation, which is made where it is missing. Throws FileError.
std::filesystem::path PageToShow(std::string_view name);

// Shows the file with the program that the operator's desktop has for it, without waiting for that.
// Throws FileError where it cannot be started.
void ShowToOperator(const std::filesystem::path& path);

}  // namespace platform
