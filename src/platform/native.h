// What the two platforms do differently below drives.h and files.h; for this folder only.
#pragma once

#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "platform/drives.h"
#include "platform/errors.h"

namespace platform::native {

namespace fs = std::filesystem;

// The operator's own drives. DriveRoot is the directory behind a letter ('a' to 'z').
std::vector<Drive> Drives();
fs::path DriveRoot(char letter);
void PrepareDrives();
std::string WindowsDirectory();

// The entry of `folder` that a component addresses, in its present spelling; `name` itself where
// none does. Throws when more than one matches.
fs::path FindEntry(const fs::path& folder, std::string_view name, Lookup lookup);

// A name of the system's character set as a native one, and back.
fs::path FromSystem(std::string_view name);
std::optional<std::string> ToSystem(const fs::path& name);

// Links and junctions, hidden and read-only entries; false when the entry is gone.
bool IsLink(const fs::path& path);
bool IsHidden(const fs::path& path);
bool IsReadOnly(const fs::path& path);

// Deletes one file or link, not a directory.
void RemoveFile(const fs::path& path, std::error_code& error);

// See platform::ReplaceWholeFile; `target` is resolved and its directory exists.
void ReplaceWholeFile(const fs::path& target, std::string_view bytes, std::error_code& error);

std::string ReadFile(const fs::path& path, std::error_code& error);

std::tm LastChange(const fs::path& path, std::error_code& error);

bool StartBatchFile(const fs::path& path, std::error_code& error);

// The last error of the platform's calls.
std::error_code LastError();

// The system's error kind for a code of the platform.
FileErrorKind KindOf(const std::error_code& error);

}  // namespace platform::native
