#include "app/system_config.h"

#include <algorithm>

#include "errors/errors.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "profile/profile.h"
#include "profile/write_key.h"
#include "text/strings.h"

namespace app {
namespace {

// The sizes of the read buffers, final NUL included: the short one keeps two characters, so that
// a drive fits exactly and a longer value is cut.
constexpr std::size_t kRootBuffer = 256;
constexpr std::size_t kShortBuffer = 3;

// A file that cannot be reached is no missing one.
bool IsMissing(const std::string& path) {
    try {
        platform::FileLen(path);
        return false;
    } catch (const errors::FileError& failure) {
        return failure.IsMissing();
    }
}

}  // namespace

std::string SystemConfig::SystemDir() const {
    return NestHomeDrive + NestRootDir + "\\system";
}

std::string SystemConfig::UpperSystemDir() const {
    return NestHomeDrive + NestRootDir + "\\SYSTEM";
}

std::string SystemConfig::NestIniPath() const {
    return SystemDir() + "\\nest.ini";
}

std::string SystemConfig::UserDir() const {
    return NestHomeDrive + NestRootDir + "\\network\\user" + UserNumber;
}

std::string SystemConfig::UserProfilePath() const {
    return UserProfileIn(UserDir());
}

std::string UserProfileIn(const std::string& userDir) {
    return userDir + "\\nestuser.ini";
}

SystemConfig& TheConfig() {
    static SystemConfig config;
    return config;
}

std::string StripNulls(std::string_view value) {
    std::string result(value);
    std::replace(result.begin(), result.end(), '\0', ' ');
    return std::string(text::Trim(result));
}

void LocateConfigFile() {
    const std::string folder = StripNulls(platform::WindowsDirectory());
    std::string& path = TheConfig().ConfigFilePath;
    path = folder + "\\nestcfg32.ini";
    if (IsMissing(path)) path = folder + "\\nestcfg.ini";
}

void ReadSystemConfig() {
    SystemConfig& config = TheConfig();
    const auto system = profile::Profile::LoadIfReadable(config.ConfigFilePath);
    config.NestRootDir =
        StripNulls(system.Text("system", "NestRootDir", "\\tolvarin", kRootBuffer));
    config.NestHomeDrive = StripNulls(system.Text("system", "NestHomeDrive", "c:", kShortBuffer));
    config.UserNumber = StripNulls(profile::Profile::LoadIfReadable(config.NestIniPath())
                                       .Text("UserInfo", "UserNumber", "1", kShortBuffer));
    config.CurrentSysManDrive = StripNulls(
        profile::Profile::LoadIfReadable(config.UserProfilePath())
            .Text("SystemManager", "CurrentSysManDrive", config.NestHomeDrive, kShortBuffer));
}

void SaveCurrentSysManDrive(std::string_view drive) {
    SystemConfig& config = TheConfig();
    config.CurrentSysManDrive = drive.substr(0, 2);
    try {
        profile::WriteKeys(config.UserProfilePath(), "SystemManager",
                           {{"CurrentSysManDrive", config.CurrentSysManDrive}});
    } catch (const errors::FileError&) {
        // The next start begins with the home drive.
    }
}

}  // namespace app
