#include "inspect/uses.h"

#include "inspect/data_file.h"
#include "platform/files.h"
#include "profile/data_file.h"

namespace inspect {

Findings UsesOf(Named what, const std::string& name, const std::vector<ListFile>& lists) {
    Findings uses;
    const std::string key = what == Named::kProcess ? "Process" : "Type";
    for (const ListFile& list : lists) {
        auto bytes = platform::ReadFileIfThere(list.path);
        if (!bytes) continue;
        Findings doubts;  // not asked for here
        const DataFile file(list.path, std::move(*bytes), doubts);
        for (int n = 1;; ++n) {
            const std::string section = profile::Numbered("Mat", n);
            const std::string type = file.Value(section, "Type");
            if (type.empty()) break;
            if (Comparable(file.Value(section, key)) != Comparable(name)) continue;
            const std::string thickness = file.Value(section, "Thickness");
            uses.push_back({list.path, file.LineOf(section, key), Severity::kNote,
                            "entry " + std::to_string(n) + ": " + type + ", " +
                                file.Value(section, "Process") +
                                (thickness.empty() || thickness == "mm" ? "" : ", " + thickness)});
        }
    }
    return uses;
}

}  // namespace inspect
