#include "profile/profile.h"

#include <algorithm>

#include "errors/errors.h"
#include "platform/files.h"
#include "profile/encoding.h"
#include "text/code_page.h"
#include "text/strings.h"

namespace profile {
namespace {

// What the platform drops around names and values: blanks, the control characters from the tab to
// the carriage return, and the old mark for the end of a text.
bool IsBlank(char c) {
    return c == ' ' || (c >= '\t' && c <= '\r') || c == '\x1A';
}

std::string_view TrimBlanks(std::string_view value) {
    while (!value.empty() && IsBlank(value.front())) value.remove_prefix(1);
    while (!value.empty() && IsBlank(value.back())) value.remove_suffix(1);
    return value;
}

// Equal names must hash alike, so letters lose their case: in ASCII by their one bit, which is
// coarser than the comparison but cheap, beyond it by the character set.
std::uint32_t Hash(std::string_view name, std::uint32_t hash = 2166136261u) {
    for (char c : name) {
        const char upper = static_cast<unsigned char>(c) < 128 ? c : text::UpperChar(c);
        hash = (hash ^ (static_cast<unsigned char>(upper) | 0x20u)) * 16777619u;
    }
    return hash;
}

bool SameName(std::string_view a, std::string_view b) {
    return a.size() == b.size() && (a == b || text::EqualIgnoringCase(a, b));
}

std::string_view WithoutQuotes(std::string_view value) {
    const bool quoted = value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
                        value.back() == value.front();
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::vector<std::uint32_t> EmptyTable(std::size_t entries) {
    std::size_t size = 8;
    while (size < entries * 2) size *= 2;
    return std::vector<std::uint32_t>(size);
}

// The place in a table where an item with that hash for which `same` holds stands, else the free
// place where it belongs.
template <typename Same>
std::size_t PlaceIn(const std::vector<std::uint32_t>& table, std::uint32_t hash, Same same) {
    const std::size_t mask = table.size() - 1;
    std::size_t at = (hash ^ hash >> 15) & mask;
    while (table[at] != 0 && !same(table[at] - 1)) at = (at + 1) & mask;
    return at;
}

}  // namespace

Profile::Profile(std::string bytes) {
    if (IsUtf16(bytes)) bytes = FromUtf16(bytes);
    bytes_ = std::make_unique<const std::string>(std::move(bytes));
    Parse();
    Index();
}

Profile Profile::Load(std::string_view path) {
    return Profile(platform::ReadFileIfThere(path).value_or(std::string()));
}

Profile Profile::LoadIfReadable(std::string_view path) {
    try {
        return Load(path);
    } catch (const errors::FileError&) {
        return Profile();
    }
}

void Profile::Parse() {
    const std::string_view all = *bytes_;
    entries_.reserve(all.size() / 24);
    std::size_t at = MarkLength(all);
    // The lines in front of the first section are a section without a name.
    sections_.push_back({.name = {}, .hash = Hash({}), .end = at});
    std::size_t lineFeed = 0;  // the next LF at or behind `at`; looked for once, not once per CR
    while (at < all.size()) {
        if (lineFeed <= at) lineFeed = std::min(all.find('\n', at), all.size());
        const auto rest = all.substr(at, lineFeed - at);
        const std::size_t length = std::min(rest.find('\r'), rest.size());
        std::size_t next = std::min(at + length + 1, all.size());
        if (next == lineFeed && next < all.size()) ++next;  // CR LF
        const auto line = TrimBlanks(rest.substr(0, length));
        at = next;
        if (line.empty()) continue;
        ParseLine(line);
        sections_.back().end = next;
    }
}

void Profile::ParseLine(std::string_view line) {
    if (line.front() == ';') return;
    const auto close = line.front() == '[' ? line.rfind(']') : line.npos;
    if (close != line.npos) {
        const auto name = text::UntilNul(TrimBlanks(line.substr(1, close - 1)));
        sections_.push_back({name, Hash(name), 0});  // its end is set by the caller
        return;
    }
    const auto equals = line.find('=');
    if (equals == line.npos) return;
    const auto key = text::UntilNul(TrimBlanks(line.substr(0, equals)));
    const auto section = static_cast<std::uint32_t>(sections_.size() - 1);
    entries_.push_back(
        {key, TrimBlanks(line.substr(equals + 1)), Hash(key, sections_.back().hash), section});
}

std::size_t Profile::SectionPlace(std::string_view name, std::uint32_t hash) const {
    return PlaceIn(sectionTable_, hash, [&](std::uint32_t other) {
        return sections_[other].hash == hash && SameName(sections_[other].name, name);
    });
}

std::size_t Profile::EntryPlace(std::string_view key, std::uint32_t hash,
                                std::uint32_t section) const {
    return PlaceIn(entryTable_, hash, [&](std::uint32_t other) {
        const Entry& entry = entries_[other];
        return entry.hash == hash && entry.section == section && SameName(entry.key, key);
    });
}

// The first of a name takes the place, so that later ones are never found.
void Profile::Index() {
    sectionTable_ = EmptyTable(sections_.size());
    for (std::uint32_t i = 0; i < sections_.size(); ++i) {
        auto& place = sectionTable_[SectionPlace(sections_[i].name, sections_[i].hash)];
        if (place == 0) place = i + 1;
    }
    entryTable_ = EmptyTable(entries_.size());
    for (std::uint32_t i = 0; i < entries_.size(); ++i) {
        const Entry& entry = entries_[i];
        auto& place = entryTable_[EntryPlace(entry.key, entry.hash, entry.section)];
        if (place == 0) place = i + 1;
    }
}

const Profile::Section* Profile::FindSection(std::string_view name) const {
    const auto wanted = TrimBlanks(text::UntilNul(name));
    const auto found = sectionTable_[SectionPlace(wanted, Hash(wanted))];
    return found == 0 ? nullptr : &sections_[found - 1];
}

const Profile::Entry* Profile::FindEntry(std::string_view section, std::string_view key) const {
    const Section* in = FindSection(section);
    if (in == nullptr) return nullptr;
    const auto wanted = TrimBlanks(text::UntilNul(key));
    const auto index = static_cast<std::uint32_t>(in - sections_.data());
    const auto found = entryTable_[EntryPlace(wanted, Hash(wanted, in->hash), index)];
    return found == 0 ? nullptr : &entries_[found - 1];
}

std::optional<std::string_view> Profile::Find(std::string_view section,
                                              std::string_view key) const {
    const Entry* entry = FindEntry(section, key);
    if (entry == nullptr) return std::nullopt;
    return WithoutQuotes(text::UntilNul(entry->value));
}

std::string Profile::Text(std::string_view section, std::string_view key,
                          std::string_view otherwise, std::size_t size) const {
    std::string buffer(size, '\0');
    buffer.resize(Read(section, key, otherwise, buffer));
    return buffer;
}

std::size_t Profile::Read(std::string_view section, std::string_view key,
                          std::string_view otherwise, std::span<char> buffer) const {
    if (buffer.empty()) return 0;
    std::string_view value;
    if (const auto found = Find(section, key)) {
        value = *found;
    } else {
        value = text::UntilNul(otherwise);
        value = WithoutQuotes(value.substr(0, value.find_last_not_of(' ') + 1));
    }
    value = value.substr(0, buffer.size() - 1);
    std::copy(value.begin(), value.end(), buffer.begin());
    buffer[value.size()] = '\0';
    return value.size();
}

std::optional<ValuePlace> Profile::PlaceOf(std::string_view section, std::string_view key) const {
    const Entry* entry = FindEntry(section, key);
    if (entry == nullptr) return std::nullopt;
    const auto offset = static_cast<std::size_t>(entry->value.data() - bytes_->data());
    return ValuePlace{offset, entry->value.size()};
}

std::optional<std::size_t> Profile::EndOfSection(std::string_view section) const {
    const Section* found = FindSection(section);
    if (found == nullptr) return std::nullopt;
    return found->end;
}

std::vector<Item> Profile::Items() const {
    std::vector<Item> items;
    const auto offset = [&](std::string_view name) {
        return name.data() == nullptr ? 0 : static_cast<std::size_t>(name.data() - bytes_->data());
    };
    auto entry = entries_.begin();
    for (std::uint32_t i = 0; i < sections_.size(); ++i) {
        const auto name = sections_[i].name;
        const bool first = FindSection(name) == &sections_[i];
        items.push_back({offset(name), name, std::nullopt, {}, first});
        for (; entry != entries_.end() && entry->section == i; ++entry) {
            items.push_back({offset(entry->key), name, entry->key, entry->value,
                             first && FindEntry(name, entry->key) == &*entry});
        }
    }
    return items;
}

}  // namespace profile
