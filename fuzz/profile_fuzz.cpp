// Any bytes as a profile file and any names, beside a lookup that goes through the file line by
// line and character by character, slow and plain. The writer's edit of such a file is held to
// what it promises: the value reads back, all other bytes stay, all other keys read as before.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "profile/profile.h"
#include "profile/write_key.h"
#include "text/code_page.h"

namespace {

#define REQUIRE(condition) \
    if (!(condition)) std::abort()

using std::string;

bool IsBlank(char c) {
    return string(" \t\v\f\r\n\x1A").find(c) != string::npos;
}

string Trim(string text) {
    while (!text.empty() && IsBlank(text.front())) text.erase(0, 1);
    while (!text.empty() && IsBlank(text.back())) text.pop_back();
    return text;
}

string UntilNul(const string& text) {
    return text.substr(0, text.find('\0'));
}

bool Same(const string& a, const string& b) {
    string x = a, y = b;
    for (char& c : x) c = text::UpperChar(c);
    for (char& c : y) c = text::UpperChar(c);
    return x == y;
}

string Unquoted(const string& text) {
    if (text.size() < 2 || text.front() != text.back()) return text;
    if (text.front() != '"' && text.front() != '\'') return text;
    return text.substr(1, text.size() - 2);
}

int WidthOf(const string& bytes) {
    return bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") ? 2 : 1;
}

// The text of a file as the platform sees it.
string Text(const string& bytes) {
    if (WidthOf(bytes) == 1) return bytes;
    const bool lowFirst = bytes[0] == '\xFF';
    string text;
    for (std::size_t at = 2; at + 1 < bytes.size(); at += 2) {
        const unsigned first = static_cast<unsigned char>(bytes[at]);
        const unsigned second = static_cast<unsigned char>(bytes[at + 1]);
        const char32_t unit = lowFirst ? first + 256 * second : second + 256 * first;
        text += text::FromUnicode(unit).value_or('?');
    }
    return text;
}

struct Key {
    string section;
    string key;
    string value;        // with its quotes
    std::size_t offset;  // of the value in the text
};

struct Parsed {
    std::vector<Key> keys;                                 // those that count, in file order
    std::vector<std::pair<string, std::size_t>> sections;  // the first of each name, and its end
};

Parsed Parse(const string& text) {
    std::size_t at = text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    Parsed parsed{{}, {{"", at}}};
    bool counts = true;
    while (at < text.size()) {
        std::size_t end = at;
        while (end < text.size() && text[end] != '\r' && text[end] != '\n') ++end;
        const string line = text.substr(at, end - at);
        const string trimmed = Trim(line);
        if (trimmed.starts_with('[') && trimmed.find(']') != string::npos) {
            const string name = UntilNul(Trim(trimmed.substr(1, trimmed.rfind(']') - 1)));
            counts = std::none_of(parsed.sections.begin(), parsed.sections.end(),
                                  [&](const auto& section) { return Same(section.first, name); });
            if (counts) parsed.sections.push_back({name, 0});
        } else if (counts && !trimmed.starts_with(';') && line.find('=') != string::npos) {
            std::size_t value = line.find('=') + 1;
            const string key = UntilNul(Trim(line.substr(0, value - 1)));
            // An empty value stands right behind the "=".
            const bool empty = Trim(line.substr(value)).empty();
            while (!empty && IsBlank(line[value])) ++value;
            parsed.keys.push_back(
                {parsed.sections.back().first, key, Trim(line.substr(value)), at + value});
        }
        at = std::min(end + (text.substr(end, 2) == "\r\n" ? 2 : 1), text.size());
        if (counts && !trimmed.empty()) parsed.sections.back().second = at;
    }
    return parsed;
}

std::optional<Key> Lookup(const std::vector<Key>& keys, const string& section, const string& key) {
    for (const Key& each : keys) {
        if (Same(each.section, Trim(UntilNul(section))) && Same(each.key, Trim(UntilNul(key)))) {
            return each;
        }
    }
    return std::nullopt;
}

std::optional<string> ValueOf(const std::optional<Key>& key) {
    if (!key) return std::nullopt;
    return Unquoted(UntilNul(key->value));
}

void CheckReading(const string& bytes, const std::vector<Key>& keys, const string& section,
                  const string& key) {
    const profile::Profile profile(bytes);
    const auto check = [&](const string& s, const string& k) {
        const auto expected = ValueOf(Lookup(keys, s, k));
        REQUIRE(profile.Find(s, k) == expected);
        std::array<char, 9> buffer;
        buffer.fill('#');
        const string read = expected.value_or("").substr(0, 7);
        REQUIRE(profile.Read(s, k, "", std::span(buffer).first(8)) == read.size());
        const string wanted = read + '\0' + string(8 - read.size(), '#');
        REQUIRE(std::equal(buffer.begin(), buffer.end(), wanted.begin()));
    };
    check(section, key);
    for (const Key& each : keys) {
        check(each.section, each.key);
        check(each.section, key);
        check(section, each.key);
    }
}

bool FitsOnLine(const string& text) {
    return text.find_first_of(string("\r\n\0", 3)) == string::npos;
}

// Whether a key of that name may be one that cannot stand in a file.
bool IsAwkward(const string& key) {
    const string name = Trim(key);
    return name.find('=') != string::npos || name.starts_with(';') || name.starts_with('[') ||
           key.starts_with("\xEF\xBB\xBF") || key.starts_with("\xFF\xFE") ||
           key.starts_with("\xFE\xFF");
}

// The lines that a missing key needs, with the first line end that the file has.
string Addition(const string& text, std::size_t end, const string& section, const string& key,
                const string& value) {
    const auto first = text.find_first_of("\r\n");
    string line = "\r\n";
    if (first != string::npos && text[first] == '\n') line = "\n";
    // A lone CR may be the blank line of a file that ends its lines with CR LF.
    if (first != string::npos && text[first] == '\r' && text.find('\n') == string::npos)
        line = "\r";
    const std::size_t at = std::min(end, text.size());
    const std::size_t mark = text.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    string result;
    if (at > mark && text[at - 1] != '\r' && text[at - 1] != '\n') result = line;
    if (end == string::npos) result += "[" + section + "]" + line;
    return result + key + "=" + value + line;
}

void CheckWriting(const string& bytes, const std::vector<Key>& keys, const string& section,
                  const string& key, const string& value) {
    const auto written = profile::WithKey(bytes, section, key, value);
    const bool fits = FitsOnLine(section) && FitsOnLine(key) && FitsOnLine(value);
    if (!written) {
        REQUIRE(!fits || IsAwkward(key));
        return;
    }
    REQUIRE(fits);
    const auto keysAfter = Parse(Text(*written)).keys;
    REQUIRE(ValueOf(Lookup(keysAfter, section, key)) == Unquoted(Trim(value)));

    // The change is exactly this text in exactly this place.
    const auto old = Lookup(keys, section, key);
    const string text = Text(bytes);
    std::size_t end = string::npos;
    for (const auto& [name, itsEnd] : Parse(text).sections) {
        if (Same(name, Trim(section))) end = itsEnd;
    }
    const std::size_t at = old ? old->offset : std::min(end, text.size());
    const string expected = text.substr(0, at) +
                            (old ? value : Addition(text, end, section, key, value)) +
                            text.substr(at + (old ? old->value.size() : 0));
    if (WidthOf(bytes) == 1) {
        REQUIRE(*written == expected);
    } else {
        // What the set lacks stays as it is, which its "?" in the text does not tell.
        const std::size_t added = expected.size() + (old ? old->value.size() : 0) - text.size();
        REQUIRE(Text(*written) == expected);
        REQUIRE(written->substr(0, 2 + 2 * at) == bytes.substr(0, 2 + 2 * at));
        REQUIRE(written->substr(2 + 2 * (at + added)) ==
                bytes.substr(2 + 2 * (at + (old ? old->value.size() : 0))));
    }

    for (const Key& each : keys) {
        if (Same(Trim(each.section), Trim(section)) && Same(Trim(each.key), Trim(key))) continue;
        REQUIRE(ValueOf(Lookup(keys, each.section, each.key)) ==
                ValueOf(Lookup(keysAfter, each.section, each.key)));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const string section = input.ConsumeRandomLengthString(40);
    const string key = input.ConsumeRandomLengthString(40);
    const string value = input.ConsumeRandomLengthString(40);
    const string bytes = input.ConsumeRemainingBytesAsString();
    const auto keys = Parse(Text(bytes)).keys;
    CheckReading(bytes, keys, section, key);
    CheckWriting(bytes, keys, section, key, value);
    // Names that the file has: these are the ones whose value changes in place.
    if (!keys.empty()) {
        const Key& known = keys[value.size() % keys.size()];
        CheckWriting(bytes, keys, known.section, known.key, value);
        CheckWriting(bytes, keys, known.section, key, value);
    }
    return 0;
}
