#include "inspect/data_file.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <utility>

#include "profile/data_file.h"
#include "text/clean_text.h"
#include "text/code_page.h"
#include "text/numbers.h"
#include "text/strings.h"

namespace inspect {
namespace {

// The n of "Key12" where `key` is "Key"; 0 for another name and for what no look-up asks for.
int NumberOf(std::string_view name, std::string_view key) {
    if (!text::EqualIgnoringCase(name.substr(0, key.size()), key)) return 0;
    const std::string_view digits = name.substr(std::min(key.size(), name.size()));
    int number = 0;
    const auto end = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    const bool plain = end.ptr == digits.data() + digits.size() && !digits.starts_with('0');
    return end.ec == std::errc() && plain ? number : 0;
}

bool BeginsWithNumber(std::string_view value) {
    const auto begin = value.find_first_not_of(" +-");
    if (begin == value.npos) return false;
    const auto digit = value.find_first_not_of(" .", begin);
    return digit != value.npos && value[digit] >= '0' && value[digit] <= '9';
}

// "7,85": digits, a comma, and digits behind it.
bool HasDecimalComma(std::string_view value) {
    const auto comma = value.find_first_not_of("0123456789+- ");
    return comma != value.npos && comma > 0 && value[comma] == ',' && comma + 1 < value.size() &&
           value[comma + 1] >= '0' && value[comma + 1] <= '9';
}

}  // namespace

std::string Comparable(std::string_view name) {
    std::string upper = text::UpperCase(name);
    return text::CleanText(upper);
}

Lines::Lines(std::string_view bytes) {
    // Of a file without a line feed the carriage returns end the lines.
    const char end = bytes.find('\n') == bytes.npos ? '\r' : '\n';
    for (auto at = bytes.find(end); at != bytes.npos; at = bytes.find(end, at + 1)) {
        ends.push_back(at);
    }
}

std::size_t Lines::At(std::size_t offset) const {
    const auto end = std::lower_bound(ends.begin(), ends.end(), offset);
    return static_cast<std::size_t>(end - ends.begin()) + 1;
}

DataFile::DataFile(std::string path, std::string bytes, Findings& findings)
    : path_(std::move(path)),
      profile_(std::move(bytes)),
      items_(profile_.Items()),
      lines_(profile_.Bytes()),
      findings_(findings) {
    for (const profile::Item& item : items_) {
        if (item.found || item.offset == 0) continue;
        const bool hidden = item.key && !profile_.Find(item.section, *item.key);
        if (hidden) continue;  // the section itself is told of
        const std::string name(item.key ? *item.key : item.section);
        Report(Severity::kWarning, lines_.At(item.offset),
               (item.key ? name : "[" + name + "]") +
                   " stands a second time: only the first one is read");
    }
    CheckBytes();
}

// One word for each line at the most.
void DataFile::CheckBytes() const {
    const std::string_view all = profile_.Bytes();
    for (std::size_t begin = 0, line = 1; begin < all.size(); ++line) {
        const auto end = line <= lines_.ends.size() ? lines_.ends[line - 1] + 1 : all.size();
        const std::string_view bytes = all.substr(begin, end - begin);
        begin = end;
        const auto odd = std::find_if(bytes.begin(), bytes.end(), [](char c) {
            const auto code = static_cast<unsigned char>(c);
            const bool control = code < 32 && c != '\t' && c != '\r' && c != '\n';
            return control || std::string_view("\x81\x8D\x8F\x90\x9D").find(c) != std::string::npos;
        });
        const bool accents = std::any_of(
            bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) > 127; });
        if (accents && text::FromUtf8(bytes)) {
            Report(Severity::kWarning, line,
                   "the accents are in UTF-8, of which the windows show two characters each");
        } else if (odd != bytes.end()) {
            Report(Severity::kWarning, line,
                   "byte " + std::to_string(static_cast<unsigned char>(*odd)) +
                       " is no character: names and texts end in front of it or show a gap");
        }
    }
}

std::string DataFile::Value(std::string_view section, std::string_view key) const {
    const auto found = profile_.Find(section, key);
    return found ? std::string(found->substr(0, profile::Profile::kBufferSize - 1)) : std::string();
}

std::size_t DataFile::LineOf(std::string_view section, std::string_view key) const {
    if (const auto place = profile_.PlaceOf(section, key)) return lines_.At(place->offset);
    const auto wanted = text::UpperCase(text::Trim(section));
    for (const profile::Item& item : items_) {
        if (item.found && !item.key && text::UpperCase(item.section) == wanted) {
            return lines_.At(item.offset);
        }
    }
    return 0;
}

bool DataFile::HasSection(std::string_view section) const {
    return profile_.EndOfSection(section).has_value();
}

void DataFile::Report(Severity severity, std::size_t line, const std::string& text) const {
    findings_.push_back({path_, line, severity, text});
}

void DataFile::Use(std::string_view section) {
    used_.insert(text::UpperCase(text::Trim(text::UntilNul(section))));
}

int DataFile::CountNumbered(const std::string& section, const std::string& key, int most,
                            const std::string& what) {
    Use(section);
    int count = 0;
    while (!Value(section, profile::Numbered(key, count + 1)).empty()) ++count;
    const std::string gap = profile::Numbered(key, count + 1);
    for (const profile::Item& item : items_) {
        if (!item.key || !item.found || !text::EqualIgnoringCase(item.section, section)) continue;
        if (NumberOf(*item.key, key) > count + 1) {
            Report(Severity::kWarning, lines_.At(item.offset),
                   std::string(*item.key) + " is not read: " + gap + " is missing or empty");
        }
    }
    const std::string limit = std::to_string(most) + " " + what;
    if (count > most) {
        Report(Severity::kError, LineOf(section, profile::Numbered(key, most + 1)),
               "there are more than " + limit + ": the file cannot be opened");
    } else if (count == most) {
        Report(Severity::kNote, LineOf(section, profile::Numbered(key, most)),
               "there is no room for more than these " + limit);
    }
    return count;
}

void DataFile::CheckNumber(const std::string& section, const std::string& key) const {
    const std::string value = Value(section, key);
    if (value.empty()) return;
    const std::string reads =
        key + "=" + value + " reads as " + text::NumberText(text::ToSingle(value));
    const std::size_t line = LineOf(section, key);
    if (!BeginsWithNumber(value)) {
        Report(Severity::kWarning, line, reads + ": it does not begin with a number");
    } else if (HasDecimalComma(value)) {
        Report(Severity::kWarning, line, reads + ": decimals stand behind a point");
    } else if (std::abs(text::Val(value)) > std::numeric_limits<float>::max()) {
        Report(Severity::kWarning, line, reads + ", the largest number");
    }
}

void DataFile::CheckInteger(const std::string& section, const std::string& key) const {
    const std::string value = Value(section, key);
    if (value.empty()) return;
    const double number = text::Val(value);
    const auto rounded = text::ToInteger16(number);
    const std::size_t line = LineOf(section, key);
    if (!rounded) {
        Report(Severity::kError, line,
               key + "=" + value + " is outside -32768 to 32767: the file cannot be opened");
    } else if (!BeginsWithNumber(value) || HasDecimalComma(value)) {
        CheckNumber(section, key);
    } else if (*rounded != number) {
        Report(Severity::kNote, line, key + "=" + value + " reads as " + std::to_string(*rounded));
    }
}

void DataFile::CheckWidth(std::size_t line, const std::string& value, std::size_t width) const {
    if (value.size() <= width) return;
    Report(Severity::kWarning, line,
           "\"" + value + "\" is cut to " + std::to_string(width) + " characters");
}

void DataFile::CheckName(std::size_t line, const std::string& name, std::size_t width) const {
    CheckWidth(line, name, width);
    std::string clean = name.substr(0, width);
    clean = text::CleanText(clean);
    if (clean != name.substr(0, width)) {
        Report(Severity::kWarning, line,
               "the section of this name would be saved as [" + clean +
                   "] and not be found again: it has a character that does not print");
    }
}

void DataFile::ReportShared(std::size_t line, const std::string& name,
                            const std::string& section) const {
    Report(Severity::kWarning, line,
           name + " shares the section [" + section +
               "] with another name: what is set for one of them is lost");
}

void DataFile::ReportNoSection(std::size_t line, const std::string& name,
                               const std::string& section, const std::string& what) const {
    Report(Severity::kWarning, line,
           "there is no section [" + section + "]: " + name + " has " + what);
}

void DataFile::CheckUnused(std::initializer_list<std::string_view> keys) const {
    const auto known = [&](std::string_view name) {
        return std::any_of(keys.begin(), keys.end(), [&](std::string_view key) {
            if (!key.ends_with('#')) return text::EqualIgnoringCase(key, name);
            return NumberOf(name, key.substr(0, key.size() - 1)) > 0;
        });
    };
    for (const profile::Item& item : items_) {
        const bool used = used_.contains(text::UpperCase(item.section));
        const std::string name(item.section);
        if (item.key && used && item.found && !known(*item.key)) {
            Report(Severity::kNote, lines_.At(item.offset),
                   std::string(*item.key) + " is not read here, and the next save leaves it out");
        } else if (!item.key && !used && item.found && item.offset > 0) {
            Report(Severity::kWarning, lines_.At(item.offset),
                   "[" + name + "] is not used: nothing lists it, and the next save leaves it out");
        }
    }
}

}  // namespace inspect
