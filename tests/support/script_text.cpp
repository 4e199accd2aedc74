#include "tests/support/script_text.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <iterator>
#include <regex>

#include "text/strings.h"

namespace test {

using std::string;

namespace {

Strings LinesOf(const string& bytes) {
    Strings lines;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto end = std::min(bytes.find('\n', at), bytes.size());
        const string line = bytes.substr(at, end - at);
        const bool usual = end < bytes.size() && line.ends_with('\r');
        const char* const otherEnd = usual ? "" : end < bytes.size() ? "\\n" : "<no end>";
        // The text of comments is a matter of whole files.
        const string text = line.starts_with(';') ? ";.." : line.substr(0, line.size() - usual);
        lines.push_back(Visible(text) + otherEnd);
        at = end + 1;
    }
    return lines;
}

}  // namespace

Strings Split(std::string_view text, char divider, char quote) {
    Strings parts{""};
    bool quoted = false;
    for (char c : text) {
        if (c == quote) quoted = !quoted;
        if (c == divider && !quoted) {
            parts.emplace_back();
        } else {
            parts.back() += c;
        }
    }
    for (string& part : parts) part = string(text::Trim(part));
    return parts;
}

string Join(const Strings& parts, const string& between) {
    string joined;
    for (const string& part : parts) {
        if (!part.empty()) joined += (joined.empty() ? "" : between) + part;
    }
    return joined;
}

string Unbroken(const string& text) {
    return std::regex_replace(string(text::Trim(text)), std::regex("; "), " ");
}

string Visible(std::string_view text) {
    string shown;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto run = std::min(text.find_first_not_of(text[i], i), text.size()) - i;
        char other[24] = {text[i], '\0'};
        if (run > 8 || (run > 3 && text[i] == ' ')) {
            std::snprintf(other, sizeof other, "%.*s<%zu>", text[i] != ' ', &text[i], run);
            i += run - 1;
        } else if (const auto end = std::string_view("\r\n\0", 3).find(text[i]); end < 3) {
            std::snprintf(other, sizeof other, "\\%c", "rn0"[end]);
        } else if (text[i] < ' ' || text[i] > '~') {
            std::snprintf(other, sizeof other, "\\x%02X", text[i] & 0xFF);
        }
        shown += other;
    }
    return shown;
}

string LineChanges(const string& before, const string& after) {
    const auto old = LinesOf(before), now = LinesOf(after);
    // How many lines are the same from a line of the old and one of the new on.
    std::vector<std::vector<int>> same(old.size() + 1, std::vector<int>(now.size() + 1));
    for (auto i = old.size(); i-- > 0;) {
        for (auto j = now.size(); j-- > 0;) {
            same[i][j] = old[i] == now[j] ? same[i + 1][j + 1] + 1
                                          : std::max(same[i + 1][j], same[i][j + 1]);
        }
    }
    Strings changes;
    for (std::size_t i = 0, j = 0; i < old.size() || j < now.size();) {
        if (i < old.size() && j < now.size() && old[i] == now[j]) {
            ++i, ++j;
        } else if (j == now.size() || (i < old.size() && same[i + 1][j] >= same[i][j + 1])) {
            changes.push_back("-" + old[i++]);
        } else {
            changes.push_back("+" + now[j++]);
        }
    }
    return Join(changes);
}

string Meant(std::string_view text) {
    string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto after = [&](char c) { return string(text.substr(text.find(c, i) + 1)); };
        const string next(text.substr(i, 2));
        const auto end = next.size() < 2 ? string::npos : string("rn0").find(next[1]);
        if (text[i] == '{') {
            const auto colon = text.find(':', i), close = text.find('}', i);
            const string part = Meant(text.substr(colon + 1, close - colon - 1));
            for (int n = std::stoi(after('{')), last = std::stoi(after('-')); n <= last; ++n) {
                for (char c : part) bytes += c == '#' ? std::to_string(n) : string(1, c);
            }
            i = close;
        } else if (next == "\\x") {
            bytes += static_cast<char>(std::stoi(string(text.substr(i + 2, 2)), nullptr, 16));
            i += 3;
        } else if (next[0] == '\\' && end != string::npos) {
            bytes += "\r\n\0"[end];
            ++i;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

string SourceFile(const string& path) {
    std::ifstream file(SYSMAN_SOURCE_DIR "/" + path, std::ios::binary);
    EXPECT_TRUE(file) << path;
    return {std::istreambuf_iterator<char>(file), {}};
}

}  // namespace test
