// Directories and files under the system's paths (see drives.h). Every function that fails throws
// FileError with the kind that the platform reports for it.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/folder.h"

namespace platform {

// The names in a directory that match the last component of the pattern (wild cards * and ?,
// "*.*" for all), as Folder::Names gives them; with directories also "." and ".." below a drive's
// root. Nothing when the directory is missing; one that cannot be read throws.
std::vector<std::string> Dir(std::string_view pattern, DirKinds kinds);

// Makes one directory. kPathFileAccess when any spelling of it exists or the name is refused,
// kPathNotFound when its parent is missing.
void MkDir(std::string_view path);

// The whole file.
std::string ReadFile(std::string_view path);

// The same, but nothing when there is no file of that name. One that may be there but cannot be
// reached is no missing one: that throws.
std::optional<std::string> ReadFileIfThere(std::string_view path);

// Replaces the file whole or not at all: the bytes go to a temporary file in the same directory,
// are checked, flushed to the disk and renamed over the target, whose spelling, mode, group and
// access list stay, and its owner where the platform allows it. A read-only target and anything
// but a file, or a link to one, in its place is a failure. Nothing is left behind by a failure.
void ReplaceWholeFile(std::string_view path, std::string_view bytes);

// Copies a file over the target, which is replaced whole or not at all.
void FileCopy(std::string_view from, std::string_view to);

// Size in bytes. kFileNotFound or kPathNotFound for a missing file.
std::uintmax_t FileLen(std::string_view path);

// Starts a batch file with the command interpreter in a maximised window that takes the focus,
// without waiting for it. It is read in the system's character set, in its own directory, and
// finds the programs beside this one first. On a platform without that interpreter what its line
// "backup ..." says is done by quarvel-data in a terminal of the desktop; false where there is no
// such line, no terminal or no quarvel-data.
bool StartBatchFile(std::string_view path);

}  // namespace platform
