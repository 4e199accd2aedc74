#include "report/lists.h"

#include <optional>
#include <utility>
#include <vector>

#include "errors/errors.h"
#include "inspect/data_file.h"
#include "materiallist/material_list_table.h"
#include "platform/files.h"
#include "profile/data_file.h"
#include "report/process_words.h"
#include "text/numbers.h"
#include "text/strings.h"

namespace report {
namespace {

using materiallist::MaterialListTable;
using std::string;

string EntryAnchor(const string& list, int entry) {
    return list + "e" + std::to_string(entry);
}

// Entries of one type and process, as a cutter looks for them: by what is cut, not by number.
struct Group {
    string type, process;
    std::vector<int> entries;
};

std::vector<Group> GroupsOf(MaterialListTable& table) {
    std::vector<Group> groups;
    std::map<std::pair<string, string>, std::size_t> places;
    std::size_t place = 0;
    for (int i = 1; i <= table.EntryCount; ++i) {
        const auto& entry = table.Entry(i);
        // Mostly it is that of the entry before.
        if (i == 1 || table.Entry(i - 1).MaterialType != entry.MaterialType ||
            table.Entry(i - 1).ProcessName != entry.ProcessName) {
            const std::pair names{Cleaned(entry.MaterialType), Cleaned(entry.ProcessName)};
            place = places.try_emplace(names, groups.size()).first->second;
            if (place == groups.size()) groups.push_back({names.first, names.second, {}});
        }
        groups[place].entries.push_back(i);
    }
    return groups;
}

void PlaceEntries(const string& path, const profile::Profile& file, const MaterialListTable& table,
                  const Place& place, Found& found) {
    FilePlaces places(file, place);
    for (int i = 1; i <= table.EntryCount; ++i) {
        places.PutSection(profile::Numbered("Mat", i),
                          {EntryAnchor(place.id, i), place.name + ", entry " + std::to_string(i)});
    }
    places.PutAll(path, found);
}

// The name, linked to where it stands on the page.
void PutName(Html& html, const std::map<string, string>& anchors, const string& name) {
    const auto anchor = anchors.find(inspect::Comparable(name));
    if (anchor == anchors.end()) return html.Text(name);
    html.Put("a", {{"href", "#" + anchor->second}}, name);
}

class ListTable {
  public:
    ListTable(Html& html, const string& path, const Place& place, const Names& names,
              const Found& found)
        : html_(html), place_(place), names_(names), found_(found), none_(found.In(path).empty()) {}

    void Put(MaterialListTable& table, bool thicknesses) {
        bool last = thicknesses;
        for (int i = 1; i <= table.EntryCount; ++i) last = last || HasMarks(i);
        const auto element = html_.In("table", {{"class", "list"}});
        html_.Put("caption", {{"class", "unseen"}}, "Material list of " + place_.name);
        {
            const auto head = html_.In("thead");
            const auto row = html_.In("tr");
            html_.Put("th", {{"scope", "col"}}, "Material");
            html_.Put("th", {{"scope", "col"}}, "Process");
            if (last) {
                const auto cell = html_.In("th", {{"scope", "col"}});
                thicknesses ? html_.TextIn("Thicknesses", "mm") : html_.Text("Found");
            }
        }
        const auto body = html_.In("tbody");
        for (const Group& group : GroupsOf(table)) {
            const auto row = html_.In("tr");
            {
                const auto cell = html_.In("th", {{"scope", "row"}});
                PutName(html_, names_.types, group.type);
            }
            {
                const auto cell = html_.In("td");
                PutName(html_, names_.processes, group.process);
            }
            if (!last) continue;
            const auto cell = html_.In("td", {{"class", "sizes"}});
            for (std::size_t i = 0; i < group.entries.size(); ++i) {
                if (thicknesses && i > 0) html_.Text(u8" · ");
                const int entry = group.entries[i];
                PutEntry(entry, thicknesses ? text::ShownNumber(table.Entry(entry).Thickness) : "");
            }
        }
    }

  private:
    bool HasMarks(int entry) const {
        return !none_ && !found_.At(EntryAnchor(place_.id, entry)).empty();
    }
    // With an anchor only where a finding leads to it.
    void PutEntry(int entry, const string& thickness) {
        if (!HasMarks(entry)) return html_.Text(thickness);
        const string id = EntryAnchor(place_.id, entry);
        const auto span = html_.In("span", {{"id", id}, {"class", "found"}});
        html_.Text(thickness);
        PutMarks(html_, found_, id);
    }

    Html& html_;
    const Place& place_;
    const Names& names_;
    const Found& found_;
    bool none_;  // of the list
};

// Why a list cannot be shown; nothing, with the table filled, where it can.
std::optional<string> Read(const inspect::ListFile& list, const Place& place,
                           MaterialListTable& table, Found& found) {
    try {
        const auto bytes = platform::ReadFileIfThere(list.path);
        if (!bytes) return "There is no material list.";
        const profile::Profile file(*bytes);
        const auto result = ReadMaterialList(file, table);
        if (result == profile::ReadResult::kTooBig) table.EntryCount = 0;
        // Of most lists there is nothing to say.
        if (!found.In(list.path).empty()) PlaceEntries(list.path, file, table, place, found);
        if (result == profile::ReadResult::kTooBig) {
            return "The list has more than " +
                   std::to_string(materiallist::MaxMaterialListEntries - 1) +
                   " entries and cannot be opened.";
        }
    } catch (const errors::FileError& failure) {
        return "The list cannot be read: " + failure.Reason();
    }
    if (table.EntryCount == 0) return "The list is empty.";
    return std::nullopt;
}

}  // namespace

string TypeAnchor(int type) {
    return "m" + std::to_string(type);
}

Names::Names(const materialtypes::MaterialTypeTable& typeTable,
             const process::ProcessTable& processTable) {
    for (int n = 1; n <= processTable.ProcessCount; ++n) {
        processes.try_emplace(inspect::Comparable(Cleaned(processTable.Process(n).Name)),
                              "p" + std::to_string(n));
    }
    for (int n = 1; n <= typeTable.Count; ++n) {
        types.try_emplace(
            inspect::Comparable(Cleaned(typeTable.Records[static_cast<std::size_t>(n - 1)].Code)),
            TypeAnchor(n));
    }
}

void PlaceTypes(const string& path, const string& bytes, materialtypes::MaterialTypeTable& table,
                Found& found) {
    const profile::Profile file(bytes);
    FilePlaces places(file, {"types", "Material types"});
    for (int n = 1; n <= table.Count; ++n) {
        const auto& record = table.Record(n);
        const Place place{TypeAnchor(n), Cleaned(record.Code)};
        places.PutKey("Materials", profile::Numbered("Mat", n), place);
        places.PutSection(text::UntilNul(record.Code.View()), place);
    }
    places.PutAll(path, found);
}

void PutTypes(Html& html, materialtypes::MaterialTypeTable& table, const Found& found) {
    const auto element = html.In("table");
    html.Put("caption", {{"class", "unseen"}}, "Material types");
    {
        const auto head = html.In("thead");
        const auto row = html.In("tr");
        html.Put("th", {{"scope", "col"}}, "Code");
        html.Put("th", {{"scope", "col"}}, "Description");
        const auto density = html.In("th", {{"scope", "col"}, {"class", "number"}});
        html.TextIn("Density", u8"t/m³");
    }
    const auto body = html.In("tbody");
    for (int n = 1; n <= table.Count; ++n) {
        const auto& record = table.Record(n);
        const auto row = html.In("tr", {{"id", TypeAnchor(n)}});
        {
            const auto cell = html.In("th", {{"scope", "row"}});
            html.Text(Cleaned(record.Code));
            PutMarks(html, found, TypeAnchor(n));
        }
        html.Put("td", Cleaned(record.Description));
        html.Put("td", {{"class", "number"}}, text::ShownNumber(record.Density));
    }
}

void PutList(Html& html, const inspect::ListFile& list, const Place& place, const Names& names,
             Found& found) {
    MaterialListTable table;
    const auto failure = Read(list, place, table, found);
    found.PutRest(list.path, place);
    PutMarks(html, found, place.id);
    if (failure) {
        html.Put("p", {{"class", "failure"}}, *failure);
    } else {
        ListTable(html, list.path, place, names, found)
            .Put(table, list.source != materiallist::kSystemDefaults);
    }
}

}  // namespace report
