// The configuration of a run: where the installation lies, which operator works and on which drive.
#pragma once

#include <string>
#include <string_view>

#include "app/version.h"

namespace app {

inline constexpr std::string_view VersionText = SYSMAN_VERSION;

// Read once at start-up; only CurrentSysManDrive changes afterwards, when the run ends.
struct SystemConfig {
    std::string ConfigFilePath;      // nestcfg32.ini of the Windows directory, or nestcfg.ini
    std::string NestRootDir;         // begins with a backslash, without a drive: "\tolvarin"
    std::string NestHomeDrive;       // letter and colon; at most 2 characters
    std::string UserNumber;          // number of the network user; at most 2 characters
    std::string CurrentSysManDrive;  // the drive last worked on; at most 2 characters

    // Plain concatenations of the above, without a trailing backslash.
    std::string SystemDir() const;        // <home><root>\system
    std::string UpperSystemDir() const;   // <home><root>\SYSTEM, as messages and copies spell it
    std::string NestIniPath() const;      // <home><root>\system\nest.ini
    std::string UserDir() const;          // <home><root>\network\user<N>
    std::string UserProfilePath() const;  // <home><root>\network\user<N>\nestuser.ini
};

// The profile of the operator in his directory (SystemConfig::UserDir).
std::string UserProfileIn(const std::string& userDir);

// The one configuration of the run.
SystemConfig& TheConfig();

// Text from a profile read: every NUL becomes a blank, then blanks go at both ends.
std::string StripNulls(std::string_view value);

// Sets ConfigFilePath. Never fails.
void LocateConfigFile();

// Reads the configuration, with defaults for what is missing or cannot be read.
void ReadSystemConfig();

// Keeps the drive ("d: [label]") in the operator's profile for the next start. A profile that
// cannot be written simply does not remember it.
void SaveCurrentSysManDrive(std::string_view drive);

}  // namespace app
