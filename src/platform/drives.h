// Drives, and how the system's paths ("c:\tolvarin\system") reach the platform's file system.
//
// Everywhere above this folder a path is a drive letter, a colon and components separated by
// backslashes, compared without regard to case. Only the file layer knows what stands behind it.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace platform {

struct Drive {
    char letter;        // 'a' to 'z'
    std::string label;  // volume label, empty where there is none
};

// Maps every drive letter to the entry of that name ('a' to 'z', a directory or a link to one) of
// the folder, and the Windows directory to c:\windows. Before that the drives are those of the
// operator: the platform's own where it has drive letters, else the entries of quarvel/drives in
// the user's data folder, where c is made when no drive is there yet.
void MapDrives(const std::filesystem::path& folder);

// The drives that are there and ready, by letter.
std::vector<Drive> Drives();

// Whether the drive (either case) is there and ready.
bool DriveReady(char letter);

// Where drives are looked for, in words for the operator.
std::string DrivesPlace();

// The Windows directory, where the configuration profile lies, without a trailing backslash.
std::string WindowsDirectory();

// How a name is looked up on a file system that distinguishes case.
enum class Lookup {
    kAny,        // exactly first, else the only name that matches without regard to case
    kOnlyMatch,  // the only name that matches without regard to case; for what gets deleted
};

// The native path. Components that exist come in their present spelling, the others as given.
// Throws FileError: kPathNotFound when the drive is missing or the path has none,
// kPathFileAccess when a component is a name that Windows refuses or more than one name matches,
// and the platform's own reason when it cannot be found out what is there.
std::filesystem::path Resolve(std::string_view path, Lookup lookup = Lookup::kAny);

// The name of a directory entry in the system's character set, or nothing when it has characters
// that the set lacks; such a name cannot be addressed and is never shown.
std::optional<std::string> SystemName(const std::filesystem::path& name);

// Whether Windows accepts the name for a new file or directory: no control character and none of
// / \ : * ? " < > |, no point or blank at its end, no device (CON, NUL, COM1, ...).
bool IsValidName(std::string_view name);

}  // namespace platform
