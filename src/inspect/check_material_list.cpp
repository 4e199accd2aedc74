#include <algorithm>
#include <map>
#include <tuple>

#include "inspect/check_files.h"
#include "inspect/data_file.h"
#include "profile/data_file.h"
#include "text/numbers.h"

namespace inspect {
namespace {

using std::string;

// One entry, and what it is tied to.
void CheckEntry(DataFile& file, const string& section, materiallist::ListSource source,
                const Tables& tables) {
    const string type = file.Value(section, "Type"), process = file.Value(section, "Process");
    file.CheckWidth(file.LineOf(section, "Type"), type,
                    decltype(materiallist::MaterialListEntry::MaterialType)::kWidth);
    file.CheckWidth(file.LineOf(section, "Process"), process,
                    decltype(materiallist::MaterialListEntry::ProcessName)::kWidth);
    if (tables.types && !tables.types->contains(Comparable(type))) {
        file.Report(Severity::kWarning, file.LineOf(section, "Type"),
                    "there is no material type " + type + ": nothing can be cut from this entry");
    }
    std::optional<std::size_t> number;
    if (tables.processAt) {
        const auto found = tables.processAt->find(Comparable(process));
        if (found != tables.processAt->end()) {
            number = found->second;
        } else {
            file.Report(Severity::kWarning, file.LineOf(section, "Process"),
                        process.empty() ? "the entry names no process"
                                        : "there is no process " + process +
                                              ": nothing can be cut with this entry");
        }
    }
    if (source == materiallist::kSystemDefaults) return;  // without thicknesses
    file.CheckNumber(section, "Thickness");
    if (!number) return;
    const float thickness = text::ToSingle(file.Value(section, "Thickness"));
    const float least = tables.processes.ProcessThicknessMin[*number],
                most = tables.processes.ProcessThicknessMax[*number];
    if (thickness < least || thickness > most) {
        file.Report(Severity::kWarning, file.LineOf(section, "Thickness"),
                    text::NumberText(thickness) + " mm is outside the " + text::NumberText(least) +
                        " to " + text::NumberText(most) + " mm of " + process +
                        ": it is pulled inside when the list is opened");
    }
}

}  // namespace

void CheckMaterialList(const string& path, const string& bytes, materiallist::ListSource source,
                       const Tables& tables, Findings& findings) {
    DataFile file(path, bytes, findings);
    const auto name = [](int n) { return profile::Numbered("Mat", n); };
    int count = 0;
    while (!file.Value(name(count + 1), "Type").empty()) file.Use(name(++count));
    constexpr int kMost = materiallist::MaxMaterialListEntries - 1;
    if (count > kMost) {
        file.Report(
            Severity::kError, file.LineOf(name(kMost + 1)),
            "there are more than " + std::to_string(kMost) + " entries: the list cannot be opened");
    } else if (count == kMost) {
        file.Report(Severity::kNote, file.LineOf(name(kMost)),
                    "one entry more, and the list cannot be opened again");
    }
    std::map<std::tuple<string, string, float>, int> seen;
    for (int n = 1; n <= count; ++n) {
        CheckEntry(file, name(n), source, tables);
        const auto [same, first] = seen.try_emplace(
            {Comparable(file.Value(name(n), "Type")), Comparable(file.Value(name(n), "Process")),
             text::ToSingle(file.Value(name(n), "Thickness"))},
            n);
        if (!first) {
            file.Report(Severity::kNote, file.LineOf(name(n)),
                        "entry " + std::to_string(n) + " is the same as entry " +
                            std::to_string(same->second));
        }
    }
    file.CheckUnused({"Type", "Thickness", "Process"});
}

}  // namespace inspect
