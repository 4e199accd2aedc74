// The list file of a backup: what was backed up from where, and each file with its size, time and
// checksum.
//
// It is plain text in which `sha256sum -c QVBACKUP.LST` finds the files; what that has no place for
// stands in comments in front of each file. Its last line is a checksum of all lines before it: a
// list that was cut off or changed says nothing about the files.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "archive/tree.h"

namespace archive {

inline constexpr const char* kListName = "QVBACKUP.LST";

struct List {
    std::string what;  // "my job", "All Data"; UTF-8, and so are the others
    // The folder that was backed up, drive first, and below which root of the installation it lay.
    std::string folder, root;
    std::string pattern;  // which of its own files
    bool below = false;   // and the folders in it
    std::vector<Item> items;
};

std::string TextOf(const List& list);

// Throws NativeError for what is no list, is cut off, changed, or names what cannot be a file
// below the backup.
List ListOf(std::string_view text);

}  // namespace archive
