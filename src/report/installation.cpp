#include "report/installation.h"

#include <algorithm>

#include "directories/data_area.h"
#include "errors/errors.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "process/process_file.h"
#include "profile/profile.h"

namespace report {
namespace {

using directories::DataArea;
using directories::DataKind;
using std::string;

// Fills the table from the file, or says why it cannot be.
template <typename Table>
string ReadTable(const string& path, string& bytes, Table& table,
                 void (*read)(const profile::Profile&, Table&)) {
    try {
        auto there = platform::ReadFileIfThere(path);
        if (!there) return "There is no file " + path + ".";
        bytes = std::move(*there);
        read(profile::Profile(bytes), table);
    } catch (const errors::FileError& failure) {
        return path + " cannot be read: " + failure.Reason();
    } catch (const errors::FatalError& failure) {
        return failure.what();
    }
    return {};
}

DriveData ReadDrive(const string& drive) {
    DriveData data;
    data.drive = drive;
    try {
        data.lists = inspect::MaterialLists({drive});
        data.lists.erase(data.lists.begin());  // the default list, which belongs to no drive
        const DataArea area{drive, DataKind::kDesign};
        for (const string& name :
             platform::Dir(area.ListedPath() + "\\*.*", platform::DirKinds::kFilesAndDirectories)) {
            if (name == "." || name == "..") continue;
            data.designs.push_back(area.ListedPath() + "\\" + name);
        }
    } catch (const errors::FileError& failure) {
        data.failure = failure.what();
    }
    return data;
}

// The drives to tell of. One that was not named and does not answer is told of; the others are
// still there.
std::vector<DriveData> ReadDrives(const std::vector<string>& named) {
    std::vector<DriveData> drives;
    if (!named.empty()) {
        for (const string& drive : inspect::DataDrives(named)) {
            const bool again = std::any_of(drives.begin(), drives.end(),
                                           [&](const auto& other) { return other.drive == drive; });
            if (!again) drives.push_back(ReadDrive(drive));
        }
        return drives;
    }
    for (const platform::Drive& drive : platform::Drives()) {
        try {
            if (!inspect::DataDrives({string(1, drive.letter)}).empty()) {
                drives.push_back(ReadDrive({drive.letter, ':'}));
            }
        } catch (const errors::FileError& failure) {
            drives.push_back({{drive.letter, ':'}, failure.what(), {}, {}});
        }
    }
    return drives;
}

}  // namespace

Installation ReadInstallation(const std::vector<string>& drives) {
    Installation all;
    all.drives = ReadDrives(drives);
    all.processFailure = ReadTable(process::ProcessFilePath(), all.processBytes, all.processes,
                                   process::ReadProcesses);
    all.typeFailure = ReadTable(materialtypes::MaterialTypesPath(), all.typeBytes, all.types,
                                materialtypes::ReadMaterialTypes);
    all.defaultList = inspect::MaterialLists({}).front();
    std::vector<string> readable;
    for (const DriveData& drive : all.drives) {
        if (drive.failure.empty()) readable.push_back(drive.drive);
    }
    try {
        all.findings = inspect::Check(readable);
    } catch (const errors::FileError& failure) {
        all.checkFailure = failure.what();
    }
    return all;
}

}  // namespace report
