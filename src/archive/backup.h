// Backing up a folder of the system: into a folder of its own on another drive, checked against
// what the disk there has really kept.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "archive/tree.h"

namespace archive {

// What a command ends with.
enum class Outcome {
    kAllRight = 0,
    kSomething = 1,  // it was done, or looked at, and there is something that was told
    kNotDone = 2,
};

struct Job {
    std::string folder;       // of the system: "c:\tolvarin\USER\PROD\my job"
    std::string pattern;      // of its own files: "*.*"
    char drive = 0;           // letter of the destination
    bool below = false;       // with the folders in it
    std::optional<int> keep;  // so many whole backups of the folder stay; without, all

    // What it is called: the last component of the folder, "All Data", "Design Data" or "Production
    // Data" for the folders of these, "Drive c" for a whole drive.
    std::string What() const;
};

// The job of the words behind `backup`: the source in front of the last drive, blanks and all, then
// the drive; /s for the folders in it, --keep N in front or at the end. Words are in the system's
// character set. Throws errors::Error when they make no sense.
Job JobOf(std::vector<std::string> words);

// Whether a name fits a pattern with * and ?, "*.*" for all. Both in UTF-8; what differs in case
// only is the same.
bool Matches(std::string_view name, std::string_view pattern);

// Copies, reads back and compares, and gives the backup its name when all is there. What of it is
// not as it was, or not there, is told (kSomething). A file that cannot be read makes it kNotDone,
// and what could be read stays under the name of an interrupted one. Throws errors::Error and
// removes what it has made when the destination cannot take it.
Outcome Backup(const Job& job, const Telling& telling);

}  // namespace archive
