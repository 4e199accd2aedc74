// A data file while it is looked over: its keys and where they stand, and what every format asks.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/finding.h"
#include "profile/profile.h"

namespace inspect {

// The lines of a file, counted from 1.
struct Lines {
    std::vector<std::size_t> ends;  // offsets

    explicit Lines(std::string_view bytes);
    std::size_t At(std::size_t offset) const;
};

class DataFile {
  public:
    // Looks at once for what no format has: sections and keys that stand behind another of their
    // name, and bytes that are no text.
    DataFile(std::string path, std::string bytes, Findings& findings);

    const std::string& Path() const { return path_; }
    const profile::Profile& Profile() const { return profile_; }

    // The value as the system reads it: up to its first NUL, cut to 254 characters, empty where
    // there is none.
    std::string Value(std::string_view section, std::string_view key) const;
    // Of the key; of its section where that has no such key; 0 where there is neither.
    std::size_t LineOf(std::string_view section, std::string_view key = {}) const;
    bool HasSection(std::string_view section) const;
    bool HasKey(std::string_view section, std::string_view key) const {
        return profile_.Find(section, key).has_value();
    }

    void Report(Severity severity, std::size_t line, const std::string& text) const;

    // How many keys "Key1", "Key2"... there are up to the first gap. Tells of those behind it, of
    // more than `most`, which nothing can be read with, and of a list that is full.
    int CountNumbered(const std::string& section, const std::string& key, int most,
                      const std::string& what);

    // A number of which nothing may be lost: names what Val makes of a text that is no number, has
    // a decimal comma or exceeds a 32-bit float.
    void CheckNumber(const std::string& section, const std::string& key) const;
    // The same of one that is kept in 16 bits.
    void CheckInteger(const std::string& section, const std::string& key) const;

    // A name of at most `width` characters that is the name of a section, too.
    void CheckName(std::size_t line, const std::string& name, std::size_t width) const;
    // Cut to its width when it is read.
    void CheckWidth(std::size_t line, const std::string& value, std::size_t width) const;

    // Of a list: its name has the section of another one, or none.
    void ReportShared(std::size_t line, const std::string& name, const std::string& section) const;
    void ReportNoSection(std::size_t line, const std::string& name, const std::string& section,
                         const std::string& what) const;

    // Sections that were not asked about, and keys other than those (and Key1, Key2... for "Key#")
    // of those that were: a save leaves them out.
    void CheckUnused(std::initializer_list<std::string_view> keys) const;

  private:
    std::string path_;
    profile::Profile profile_;
    std::vector<profile::Item> items_;
    Lines lines_;
    std::set<std::string> used_;  // sections in capitals
    Findings& findings_;

    void CheckBytes() const;

  public:
    // From now on the section is one that is read.
    void Use(std::string_view section);
};

// Whether two names are one to the look-up of sections and keys.
std::string Comparable(std::string_view name);

}  // namespace inspect
