// The tree of data directories on a drive: <drive><root>\USER with DESIGN and PROD, in them the
// named directories with their category folders.
#pragma once

#include <string>

namespace app {

class SysMan;

enum class DataKind { kDesign, kProduction };

// "DESIGN" or "PROD".
std::string KindFolder(DataKind kind);

// <drive><root>\USER, with the root as it is configured. The drive is a letter and a colon.
std::string UserDataDir(const std::string& drive);

// Refills the window's directory list for its drive and kind; nothing is selected then, and the
// commands for a directory are disabled. For a drive without data the operator is asked whether to
// make it a data drive; No goes back to the home drive. Other failures throw FileError.
void RefreshDirectoryList(SysMan& window);

// Deletes the directory that is selected in the window, with the files in its category folders.
// What cannot be deleted is skipped: nested directories, protected files, links and all they lead
// to, names that cannot be addressed, an item that more than one directory may be meant by.
void DeleteDataDirectory(const SysMan& window);

}  // namespace app
