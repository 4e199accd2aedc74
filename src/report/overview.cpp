#include "report/overview.h"

#include <algorithm>
#include <string>

#include "report/process_section.h"
#include "report/process_words.h"
#include "text/numbers.h"

namespace report {
namespace {

using process::ProcessRecord;
using process::ThicknessRow;

// "3 – 25": the least and the greatest of a column; one number where they are the same.
Words RangeOf(const ProcessRecord& record, float ThicknessRow::* value) {
    if (record.ThicknessCount == 0) return "";
    const auto [least, most] = std::minmax_element(
        record.Rows.begin(), record.Rows.begin() + record.ThicknessCount,
        [value](const ThicknessRow& a, const ThicknessRow& b) { return a.*value < b.*value; });
    const std::string from = text::ShownNumber((*least).*value),
                      to = text::ShownNumber((*most).*value);
    return from == to ? Words(from) : Words(from) + u8" – " + to;
}

}  // namespace

void PutOverview(Html& html, const process::ProcessTable& table) {
    const auto element = html.In("table", {{"class", "overview"}});
    html.Put("caption", {{"class", "unseen"}}, "Processes");
    {
        const auto head = html.In("thead");
        const auto row = html.In("tr");
        const auto column = [&](const char* name, const char* unit) {
            const auto cell = html.In("th", {{"scope", "col"}});
            html.TextIn(name, unit);
        };
        column("Process", "");
        column("Thickness", "mm");
        column("Feed rate", "mm/min");
        column("Pierce time", "s");
        column("Lead-in", "");
        column("Lead-out", "");
    }
    const auto body = html.In("tbody");
    for (int n = 1; n <= table.ProcessCount; ++n) {
        const ProcessRecord& record = table.Process(n);
        const auto row = html.In("tr");
        {
            const auto cell = html.In("th", {{"scope", "row"}});
            html.Put("a", {{"href", "#" + ProcessAnchor(n)}}, ProcessName(table, n));
        }
        for (const auto value :
             {&ThicknessRow::Thickness, &ThicknessRow::Feedrate, &ThicknessRow::PierceTime}) {
            html.Put("td", RangeOf(record, value));
        }
        html.Put("td", LeadInWords(record));
        html.Put("td", LeadOutWords(record));
    }
}

}  // namespace report
