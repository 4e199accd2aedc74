// What was found in the data, and where on the page that stands.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "inspect/data_file.h"
#include "inspect/finding.h"
#include "report/html.h"

namespace report {

// A place on the page.
struct Place {
    std::string id;
    std::string name;  // as a reader would call it
};

class Found {
  public:
    explicit Found(inspect::Findings findings);

    std::size_t Count() const { return findings_.size(); }
    const inspect::Finding& operator[](std::size_t n) const { return findings_[n]; }
    std::size_t CountOf(inspect::Severity severity) const;

    // The numbers, from 0, of what was found in a file or directory; its path in any case.
    const std::vector<std::size_t>& In(const std::string& path) const;

    void Put(std::size_t n, const Place& place);
    // What was found there and is not put anywhere yet.
    void PutRest(const std::string& path, const Place& place);
    // Without an id where it was never put anywhere.
    const Place& PlaceOf(std::size_t n) const { return places_[n]; }
    // What was put at an id.
    const std::vector<std::size_t>& At(const std::string& id) const;

  private:
    inspect::Findings findings_;
    std::map<std::string, std::vector<std::size_t>> byPath_, byPlace_;
    std::vector<Place> places_;
};

// "f3": the anchor of a finding; its number is counted from 0 here and from 1 there.
std::string AnchorOf(std::size_t finding);

// Links to what was found at the place: a shape for how bad it is, and its number.
void PutMarks(Html& html, const Found& found, const std::string& id);
const char8_t* ShapeOf(inspect::Severity severity);

// Where the lines of a data file stand on the page.
class FilePlaces {
  public:
    FilePlaces(const profile::Profile& file, Place whole);

    // A key at its line, and all lines of a section that are none of such keys.
    void PutKey(std::string_view section, std::string_view key, const Place& place);
    void PutSection(std::string_view section, const Place& place);
    // Puts everything found in the file where its line stands.
    void PutAll(const std::string& path, Found& found) const;

  private:
    const Place& At(std::size_t line) const;

    const profile::Profile& file_;
    inspect::Lines fileLines_;
    Place whole_;
    std::map<std::size_t, Place> lines_;
    // Where each begins, repeated ones, too.
    std::vector<std::pair<std::size_t, std::string_view>> sectionLines_;
    std::map<std::string, Place> sections_;
};

}  // namespace report
