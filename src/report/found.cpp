#include "report/found.h"

#include <algorithm>
#include <utility>

#include "text/strings.h"

namespace report {
namespace {

const std::vector<std::size_t> kNone;

const std::vector<std::size_t>& Entry(const std::map<std::string, std::vector<std::size_t>>& map,
                                      const std::string& key) {
    const auto at = map.find(key);
    return at == map.end() ? kNone : at->second;
}

}  // namespace

Found::Found(inspect::Findings findings)
    : findings_(std::move(findings)), places_(findings_.size()) {
    for (std::size_t n = 0; n < findings_.size(); ++n) {
        byPath_[text::UpperCase(findings_[n].path)].push_back(n);
    }
}

std::size_t Found::CountOf(inspect::Severity severity) const {
    return static_cast<std::size_t>(
        std::count_if(findings_.begin(), findings_.end(),
                      [&](const auto& finding) { return finding.severity == severity; }));
}

const std::vector<std::size_t>& Found::In(const std::string& path) const {
    return Entry(byPath_, text::UpperCase(path));
}

void Found::Put(std::size_t n, const Place& place) {
    places_[n] = place;
    byPlace_[place.id].push_back(n);
}

void Found::PutRest(const std::string& path, const Place& place) {
    for (const std::size_t n : In(path)) {
        if (places_[n].id.empty()) Put(n, place);
    }
}

const std::vector<std::size_t>& Found::At(const std::string& id) const {
    return Entry(byPlace_, id);
}

std::string AnchorOf(std::size_t finding) {
    return "f" + std::to_string(finding + 1);
}

const char8_t* ShapeOf(inspect::Severity severity) {
    static constexpr const char8_t* kShapes[] = {u8"✖", u8"▲", u8"◆"};
    return kShapes[static_cast<int>(severity)];
}

void PutMarks(Html& html, const Found& found, const std::string& id) {
    for (const std::size_t n : found.At(id)) {
        const inspect::Finding& finding = found[n];
        const std::string severity = inspect::NameOf(finding.severity);
        html.Text(" ");
        html.Put("a",
                 {{"class", "mark " + severity},
                  {"href", "#" + AnchorOf(n)},
                  {"title", finding.text},
                  {"aria-label", severity + " " + std::to_string(n + 1) + ": " + finding.text}},
                 Words(ShapeOf(finding.severity)) + (n + 1));
    }
}

FilePlaces::FilePlaces(const profile::Profile& file, Place whole)
    : file_(file), fileLines_(file.Bytes()), whole_(std::move(whole)) {
    for (const profile::Item& item : file.Items()) {
        if (!item.key) sectionLines_.emplace_back(fileLines_.At(item.offset), item.section);
    }
}

void FilePlaces::PutKey(std::string_view section, std::string_view key, const Place& place) {
    if (const auto value = file_.PlaceOf(section, key)) {
        lines_.try_emplace(fileLines_.At(value->offset), place);
    }
}

void FilePlaces::PutSection(std::string_view section, const Place& place) {
    sections_.try_emplace(inspect::Comparable(section), place);
}

void FilePlaces::PutAll(const std::string& path, Found& found) const {
    for (const std::size_t n : found.In(path)) found.Put(n, At(found[n].line));
}

const Place& FilePlaces::At(std::size_t line) const {
    if (const auto at = lines_.find(line); at != lines_.end()) return at->second;
    auto section = std::upper_bound(
        sectionLines_.begin(), sectionLines_.end(), line,
        [](std::size_t wanted, const auto& begin) { return wanted < begin.first; });
    if (section == sectionLines_.begin()) return whole_;
    const auto place = sections_.find(inspect::Comparable((--section)->second));
    return place == sections_.end() ? whole_ : place->second;
}

}  // namespace report
