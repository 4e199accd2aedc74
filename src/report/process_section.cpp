#include "report/process_section.h"

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "inspect/believable.h"
#include "profile/data_file.h"
#include "report/chart.h"
#include "report/lead_drawing.h"
#include "report/lead_geometry.h"
#include "report/process_words.h"
#include "text/numbers.h"
#include "text/strings.h"

namespace report {
namespace {

using process::ProcessRecord;
using process::ThicknessRow;
using std::string;

struct Column {
    const char *name, *unit;
    float ThicknessRow::* value;
};
constexpr std::array<Column, 5> kColumns{{
    {"Thickness", "mm", &ThicknessRow::Thickness},
    {"Pierce time", "s", &ThicknessRow::PierceTime},
    {"Feed rate", "mm/min", &ThicknessRow::Feedrate},
    {"Lead-in", "mm", &ThicknessRow::DefaultLeadin},
    {"Nozzle", "mm", &ThicknessRow::NozzleSize},
}};
constexpr const Column &kThickness = kColumns[0], &kPierceTime = kColumns[1],
                       &kFeedRate = kColumns[2];

class Section {
  public:
    Section(Html& html, const process::ProcessTable& table, int process, const Found& found)
        : html_(html),
          record_(table.Process(process)),
          process_(process),
          id_(ProcessAnchor(process)),
          name_(ProcessName(table, process)),
          found_(found),
          doubts_(inspect::DoubtsOf(record_)) {}

    void Put() {
        const bool empty = record_.ThicknessCount == 0;
        const auto section = html_.In("section", {{"id", id_},
                                                  {"class", empty ? "process" : "process whole"},
                                                  {"aria-labelledby", id_ + "h"}});
        {
            const auto heading = html_.In("h2", {{"id", id_ + "h"}});
            html_.Text(name_);
            PutMarks(html_, found_, id_);
        }
        PutDefaults();
        DrawLeads(html_, record_, name_, id_);
        if (empty) {
            html_.Put("p", "There are no thicknesses.");
        } else {
            const auto data = html_.In("div", {{"class", "data"}});
            PutRows();
            const auto charts = html_.In("div", {{"class", "charts"}});
            PutChart("feed", kFeedRate);
            PutChart("pierce", kPierceTime);
        }
        const auto back = html_.In("p", {{"class", "back"}});
        html_.Put("a", {{"href", "#contents"}}, "Contents");
    }

  private:
    void Fact(const char* what, const Words& value, const char* unit = "") {
        const auto fact = html_.In("div");
        html_.Put("dt", what);
        const auto shown = html_.In("dd");
        html_.TextIn(value, unit);
    }

    void PutDefaults() {
        const auto facts = html_.In("dl", {{"class", "facts"}});
        const auto onOff = [](int value) { return value == 1 ? "on" : "off"; };
        Fact("Rapid traverse", text::ShownNumber(record_.Rapid), "mm/min");
        Fact("Line marking", text::ShownNumber(record_.LineMarkRate), "mm/min");
        Fact("Major contours", DirectionWords(record_.MajorDir));
        Fact("Minor contours", DirectionWords(record_.MinorDir));
        Fact("Lead-in", LeadInWords(record_));
        Fact("Lead-in extension", onOff(record_.Extension));
        Fact("Open minor kerf", KerfSideWords(record_.MinorOpenKerf));
        Fact("Add kerf to nest", record_.AddKerf == 1 ? "yes" : "no");
        Fact("Lead-out", LeadOutWords(record_));
        Fact("Lead-out extension", onOff(record_.Leadoutextension));
        Fact("Lead-out length", text::NumberText(record_.LeadoutPercent), "% of lead-in");
        Fact("Overrun", text::NumberText(record_.LeadoutOverrun), "mm");
    }

    bool HasMarks() const {
        for (int k = 1; k <= record_.ThicknessCount; ++k) {
            if (!found_.At(RowAnchor(process_, k)).empty()) return true;
        }
        return false;
    }

    void PutRows() {
        const bool marks = HasMarks();
        const auto table = html_.In("table", {{"class", "figures"}});
        html_.Put("caption", "Thicknesses of " + name_);
        {
            const auto head = html_.In("thead");
            const auto row = html_.In("tr");
            for (const Column& column : kColumns) {
                const auto cell = html_.In("th", {{"scope", "col"}});
                html_.TextIn(column.name, column.unit);
            }
            if (marks) html_.Put("th", {{"scope", "col"}}, "Found");
        }
        const auto body = html_.In("tbody");
        for (int k = 1; k <= record_.ThicknessCount; ++k) PutRow(k, marks);
    }

    void PutRow(int k, bool marks) {
        const string id = RowAnchor(process_, k);
        const bool found = !found_.At(id).empty();
        const auto row = html_.In("tr", {{"id", id}, {"class", found ? "found" : "plain"}});
        for (const Column& column : kColumns) {
            const string value = text::ShownNumber(record_.Row(k).*column.value);
            if (column.value == kThickness.value) {
                html_.Put("th", {{"scope", "row"}}, value);
            } else {
                html_.Put("td", value);
            }
        }
        if (!marks) return;
        const auto cell = html_.In("td", {{"class", "marks"}});
        PutMarks(html_, found_, id);
    }

    void PutChart(const char* which, const Column& column) {
        Chart chart{id_ + which, name_, column.name, column.unit, {}};
        for (int k = 1; k <= record_.ThicknessCount; ++k) {
            const ThicknessRow& row = record_.Row(k);
            ChartPoint point{std::max(row.*kThickness.value, 0.0F),
                             std::max(row.*column.value, 0.0F), "", ""};
            for (const inspect::Doubt& doubt : doubts_) {
                // One of the feed rate is none of the pierce time.
                const bool here = doubt.value == column.value || doubt.value == kThickness.value;
                if (doubt.row == k && here) Mark(point, k, doubt.text);
            }
            chart.points.push_back(std::move(point));
        }
        DrawChart(html_, chart);
    }

    // With the first doubt of several, like the row's own mark.
    void Mark(ChartPoint& point, int row, const string& doubt) const {
        if (!point.doubt.empty()) return;
        point.doubt = doubt;
        for (const std::size_t n : found_.At(RowAnchor(process_, row))) {
            if (found_[n].text == doubt) point.link = "#" + AnchorOf(n);
        }
    }

    Html& html_;
    const ProcessRecord& record_;
    int process_;
    string id_, name_;
    const Found& found_;
    std::vector<inspect::Doubt> doubts_;
};

}  // namespace

string ProcessAnchor(int process) {
    return "p" + std::to_string(process);
}

string RowAnchor(int process, int row) {
    return ProcessAnchor(process) + "r" + std::to_string(row);
}

string ProcessName(const process::ProcessTable& table, int process) {
    const string name = Cleaned(table.Process(process).Name);
    return name.empty() ? "Process " + std::to_string(process) : name;
}

void PlaceProcesses(const string& path, const string& bytes, const process::ProcessTable& table,
                    Found& found) {
    const profile::Profile file(bytes);
    FilePlaces places(file, {"processes", "Processes"});
    for (int n = 1; n <= table.ProcessCount; ++n) {
        const ProcessRecord& record = table.Process(n);
        const Place place{ProcessAnchor(n), ProcessName(table, n)};
        const string section(text::UntilNul(record.Name.View()));
        places.PutKey("Processes", profile::Numbered("Process", n), place);
        places.PutSection(section, place);
        for (int k = 1; k <= record.ThicknessCount; ++k) {
            places.PutKey(section, profile::Numbered("Thickness", k),
                          {RowAnchor(n, k),
                           place.name + ", " + text::ShownNumber(record.Row(k).Thickness) + " mm"});
        }
    }
    places.PutAll(path, found);
}

void PutProcess(Html& html, const process::ProcessTable& table, int process, const Found& found) {
    Section(html, table, process, found).Put();
}

}  // namespace report
