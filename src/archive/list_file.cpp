#include "archive/list_file.h"

#include <charconv>
#include <cstdio>
#include <optional>
#include <set>
#include <utility>

#include "archive/sha256.h"

namespace archive {
namespace {

using std::string;
using std::string_view;

constexpr string_view kFirstLine = "# Quarvel backup 1; sha256sum -c reads this file\n";
constexpr string_view kEnd = "# end ";
constexpr std::size_t kDigits = 64;

// A line ends with its name, which may hold the characters that end a line.
string Escaped(string_view name) {
    string escaped;
    for (const char c : name) {
        if (c == '\\') {
            escaped += "\\\\";
        } else if (c == '\n') {
            escaped += "\\n";
        } else if (c == '\r') {
            escaped += "\\r";
        } else {
            escaped += c;
        }
    }
    return escaped;
}

std::optional<string> Unescaped(string_view escaped) {
    string name;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        if (escaped[i] != '\\') {
            name += escaped[i];
            continue;
        }
        const char c = ++i < escaped.size() ? escaped[i] : '\0';
        if (c != '\\' && c != 'n' && c != 'r') return std::nullopt;
        name += c == 'n' ? '\n' : c == 'r' ? '\r' : '\\';
    }
    return name;
}

[[noreturn]] void Fail(const string& why) {
    throw NativeError(string(kListName) + ": " + why);
}

// Takes what stands in front of the mark off the text.
string_view Take(string_view& text, char mark) {
    const auto end = text.find(mark);
    if (end == text.npos) Fail("a line is not as it should be");
    const string_view taken = text.substr(0, end);
    text.remove_prefix(end + 1);
    return taken;
}

template <typename Number>
Number NumberIn(string_view digits) {
    Number number{};
    const auto [end, failure] =
        std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (failure != std::errc() || end != digits.data() + digits.size()) Fail("a number is none");
    return number;
}

// Size, time and rights, in front of the name.
string Details(const raw::Info& info) {
    char time[48];
    std::snprintf(time, sizeof time, "%lld.%09d", static_cast<long long>(info.changed.seconds),
                  static_cast<int>(info.changed.nanoseconds));
    return std::to_string(info.size) + " " + time + " " + (info.rights.empty() ? "-" : info.rights);
}

raw::Info InfoIn(string_view& line) {
    raw::Info info;
    info.size = NumberIn<std::uint64_t>(Take(line, ' '));
    info.changed.seconds = NumberIn<std::int64_t>(Take(line, '.'));
    info.changed.nanoseconds = NumberIn<std::int32_t>(Take(line, ' '));
    if (info.changed.nanoseconds < 0 || info.changed.nanoseconds > 999'999'999)
        Fail("a time is none");
    info.rights = Take(line, ' ');
    if (info.rights == "-") info.rights.clear();
    return info;
}

// A name that leads nowhere but below the backup.
string NameIn(string_view escaped, bool isEscaped) {
    const auto name = isEscaped ? Unescaped(escaped) : string(escaped);
    if (!name) Fail("a name is none");
    for (string_view rest = *name;;) {
        const auto end = rest.find('/');
        if (!raw::IsName(rest.substr(0, end))) {
            Fail("\"" + Shown(*name) + "\" cannot be a name here");
        }
        if (end == rest.npos) return *name;
        rest.remove_prefix(end + 1);
    }
}

}  // namespace

string TextOf(const List& list) {
    string text(kFirstLine);
    const std::pair<const char*, string> head[] = {{"what", list.what},
                                                   {"folder", list.folder},
                                                   {"root", list.root},
                                                   {"files", list.pattern},
                                                   {"below", list.below ? "yes" : "no"}};
    for (const auto& [key, value] : head)
        text.append("# ").append(key).append(" ").append(value) += '\n';
    for (const Item& item : list.items) {
        const string escaped = Escaped(item.name);
        const string details = Details(item.info) + " ";
        if (item.IsFolder()) {
            text.append("# d ").append(details).append(item.name.empty() ? "." : escaped) += '\n';
            continue;
        }
        // That something in the name is escaped is said in front.
        text.append("# f ").append(details).append(escaped == item.name ? "\n" : "\n\\");
        text.append(item.checksum).append("  ").append(escaped) += '\n';
    }
    Sha256 sum;
    sum.Add(text);
    return text + string(kEnd) + sum.Hex() + "\n";
}

List ListOf(string_view text) {
    const std::size_t lastLine = kEnd.size() + kDigits + 1;
    if (!text.starts_with(kFirstLine)) Fail("it is no list of a backup");
    if (text.size() < kFirstLine.size() + lastLine) Fail("it is cut off");
    const string_view last = text.substr(text.size() - lastLine);
    text.remove_suffix(lastLine);
    Sha256 sum;
    sum.Add(text);
    if (last != string(kEnd) + sum.Hex() + "\n") Fail("it is cut off or was changed");

    text.remove_prefix(kFirstLine.size());
    List list;
    const auto head = [&](string_view key) {
        const string_view line = Take(text, '\n');
        if (!line.starts_with(key)) Fail("a line is not as it should be");
        return string(line.substr(key.size()));
    };
    list.what = head("# what ");
    list.folder = head("# folder ");
    list.root = head("# root ");
    list.pattern = head("# files ");
    list.below = head("# below ") == "yes";
    std::set<string> names;
    while (!text.empty()) {
        string_view line = Take(text, '\n');
        Item item;
        const bool folder = line.starts_with("# d ");
        if (!folder && !line.starts_with("# f ")) Fail("a line is not as it should be");
        line.remove_prefix(4);
        item.info = InfoIn(line);
        item.info.type = folder ? raw::EntryType::kDirectory : raw::EntryType::kFile;
        if (folder) {
            if (line != "." || !list.items.empty()) item.name = NameIn(line, true);
        } else {
            line = Take(text, '\n');
            const bool escaped = line.starts_with('\\');
            if (escaped) line.remove_prefix(1);
            item.checksum = line.substr(0, kDigits);
            if (line.substr(item.checksum.size(), 2) != "  ") Fail("a line is not as it should be");
            item.name = NameIn(line.substr(kDigits + 2), escaped);
        }
        if (!names.insert(item.name).second) Fail("it names " + Shown(item.name) + " twice");
        list.items.push_back(std::move(item));
    }
    return list;
}

}  // namespace archive
