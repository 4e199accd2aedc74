// The backups that a drive has.
#pragma once

#include <ctime>
#include <string>
#include <vector>

#include "archive/backup.h"
#include "archive/list_file.h"

namespace archive {

// While a backup is made its name ends so; one that was interrupted keeps that.
inline constexpr const char* kPart = ".part";

struct Stored {
    fs::path path;
    std::string name;  // "2026-11-21 14.05.09 my job", UTF-8
    bool whole = false;

    std::string Date() const { return name.substr(0, 19); }
    std::string What() const { return name.substr(20); }
};

// Date and time as they begin a name: "2026-11-21 14.05.09".
std::string Stamp(std::time_t time);
bool IsStamp(const std::string& text);

// The folder with the backups of a drive, whether it is there or not. Throws errors::FileError for
// a drive that is not.
fs::path BackupsFolder(char drive);

// By date. What else lies there is not named.
std::vector<Stored> StoredIn(const fs::path& folder);

// The list of a whole backup. Throws errors::Error when it cannot be read or is not intact.
List ListIn(const Stored& stored);

// Tells number, date, what, files, bytes and whether it is whole, of each.
void TellStored(char drive, const Telling& telling);

// Reads the backup of that number or name, or all when it is empty, against their lists.
Outcome Verify(char drive, const std::string& which, const Telling& telling);

// The backup of that number, counted from 1, or name. Throws errors::Error for none.
Stored Chosen(const std::vector<Stored>& stored, const std::string& which);

// Brings a backup back to where it came from, on this installation: into place where nothing
// stands. Where something does, what differs is told (kSomething), and only `replace` puts the
// backup in its place; what stood there gets a name with the date. Built beside the place, checked,
// then renamed.
Outcome Restore(char drive, const std::string& which, bool replace, const Telling& telling);

}  // namespace archive
