#include "report/places.h"

#include <set>

#include "directories/data_area.h"
#include "report/lists.h"
#include "report/process_section.h"
#include "text/strings.h"

namespace report {
namespace {

std::string FolderOf(const std::string& path) {
    return path.substr(0, path.rfind('\\'));
}

}  // namespace

Place PlaceOfDrive(const DriveData& drive) {
    return {"drive-" + drive.drive.substr(0, 1), "Drive " + drive.drive};
}

Place PlaceOfDesign(const DriveData& drive, std::size_t index) {
    const std::string& path = drive.designs[index];
    return {"g-" + drive.drive.substr(0, 1) + std::to_string(index + 1),
            drive.drive + " " + directories::ListedName(path.substr(path.rfind('\\') + 1))};
}

Place PlaceOfList(const DriveData& drive, std::size_t index) {
    return {"d-" + drive.drive.substr(0, 1) + std::to_string(index + 1),
            drive.drive + " " + drive.lists[index].directory};
}

void PlaceAll(Installation& all, Found& found) {
    const std::string processes = process::ProcessFilePath(),
                      types = materialtypes::MaterialTypesPath();
    if (!all.processBytes.empty()) {
        PlaceProcesses(processes, all.processBytes, all.processes, found);
    }
    if (!all.typeBytes.empty()) PlaceTypes(types, all.typeBytes, all.types, found);
    found.PutRest(processes, kProcessesPlace);
    found.PutRest(types, kTypesPlace);

    std::set<std::string> lists{text::UpperCase(all.defaultList.path)};
    for (const DriveData& drive : all.drives) {
        for (std::size_t i = 0; i < drive.designs.size(); ++i) {
            found.PutRest(drive.designs[i], PlaceOfDesign(drive, i));
        }
        for (std::size_t i = 0; i < drive.lists.size(); ++i) {
            lists.insert(text::UpperCase(drive.lists[i].path));
            found.PutRest(FolderOf(drive.lists[i].path), PlaceOfList(drive, i));
        }
    }
    // What else there is on a drive, like a file among the directories.
    for (std::size_t n = 0; n < found.Count(); ++n) {
        const std::string& path = found[n].path;
        if (!found.PlaceOf(n).id.empty() || lists.contains(text::UpperCase(path))) continue;
        for (const DriveData& drive : all.drives) {
            if (text::EqualIgnoringCase(path.substr(0, 2), drive.drive)) {
                found.Put(n, PlaceOfDrive(drive));
            }
        }
    }
}

}  // namespace report
