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

// The names of a table by what a look-up makes of them, for lists of many entries.
using Places = std::map<string, std::size_t>;

template <typename Names>
Places PlacesOf(const Names& names, int count) {
    Places places;
    for (std::size_t i = 0; i < static_cast<std::size_t>(count); ++i) {
        places.try_emplace(Comparable(names[i]), i);
    }
    return places;
}

// One entry, and what it is tied to.
void CheckEntry(DataFile& file, const string& section, materiallist::ListSource source,
                const Tables& tables, const Places& types, const Places& processes) {
    const string type = file.Value(section, "Type"), process = file.Value(section, "Process");
    file.CheckWidth(file.LineOf(section, "Type"), type,
                    decltype(materiallist::MaterialListEntry::MaterialType)::kWidth);
    file.CheckWidth(file.LineOf(section, "Process"), process,
                    decltype(materiallist::MaterialListEntry::ProcessName)::kWidth);
    if (tables.hasTypes && !types.contains(Comparable(type))) {
        file.Report(Severity::kWarning, file.LineOf(section, "Type"),
                    "there is no material type " + type + ": nothing can be cut from this entry");
    }
    const auto number = processes.find(Comparable(process));
    if (tables.hasProcesses && number == processes.end()) {
        file.Report(Severity::kWarning, file.LineOf(section, "Process"),
                    process.empty() ? "the entry names no process"
                                    : "there is no process " + process +
                                          ": nothing can be cut with this entry");
    }
    if (source == materiallist::kSystemDefaults) return;  // without thicknesses
    file.CheckNumber(section, "Thickness");
    if (number == processes.end() || !tables.hasProcesses) return;
    const std::size_t at = number->second;
    const float thickness = text::ToSingle(file.Value(section, "Thickness"));
    const float least = tables.processes.ProcessThicknessMin[at],
                most = tables.processes.ProcessThicknessMax[at];
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
    const Places types = PlacesOf(tables.types.Codes, tables.types.Count),
                 processes = PlacesOf(tables.processes.ProcessNames, tables.processes.ProcessCount);
    std::map<std::tuple<string, string, float>, int> seen;
    for (int n = 1; n <= count; ++n) {
        CheckEntry(file, name(n), source, tables, types, processes);
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
