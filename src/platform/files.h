// Directories and files under the system's paths (see drives.h). Every function that fails throws
// FileError with the kind that the platform reports for it.
#pragma once

#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

enum class DirKinds {
    kFiles,                // normal files only
    kFilesAndDirectories,  // also directories, "." and ".." included below a drive's root
};

// The names in a directory that match the last component of the pattern (wild cards * and ?,
// "*.*" for all), sorted without regard to case. Hidden entries are left out. Nothing when the
// directory is missing; a directory that may not be read throws.
std::vector<std::string> Dir(std::string_view pattern, DirKinds kinds);

// Whether a file (not a directory) of exactly this path exists.
bool FileExists(std::string_view path);

// Makes one directory. kPathFileAccess when any spelling of it exists or the name is refused,
// kPathNotFound when its parent is missing.
void MkDir(std::string_view path);

// Removes an empty directory. A link or junction is not followed and not removed.
void RmDir(std::string_view path);

// Deletes the files that match, hidden ones included. Of a linked file the link goes. Directories,
// links to them and read-only files stay; kFileNotFound when no file matches, kPathFileAccess when
// one stays or the directory is reached through a link.
void Kill(std::string_view pattern);

// Whether the path itself is a link or junction, wherever that leads.
bool IsLink(std::string_view path);

// The whole file.
std::string ReadFile(std::string_view path);

// Replaces the file whole or not at all: the bytes go to a temporary file in the same directory,
// are flushed to the disk and renamed over the target, whose spelling and permissions stay. A
// read-only target is a failure. Nothing is left behind by a failure.
void ReplaceWholeFile(std::string_view path, std::string_view bytes);

// Copies a file over the target, which is replaced whole or not at all.
void FileCopy(std::string_view from, std::string_view to);

// Size in bytes. kFileNotFound for a missing file.
std::uintmax_t FileLen(std::string_view path);

// Local time of the last change.
std::tm FileDateTime(std::string_view path);

// Starts a batch file with the command interpreter in a maximised window that takes the focus,
// without waiting for it. False on a platform without a command interpreter.
bool StartBatchFile(std::string_view path);

}  // namespace platform
