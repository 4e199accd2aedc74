#include "report/html.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "text/code_page.h"
#include "text/strings.h"

namespace report {
namespace {

bool IsControl(char byte) {
    const char32_t character = text::ToUnicode(byte);
    return character < 32 || (character >= 127 && character < 160);
}

}  // namespace

Words::Words(const std::string& data) {
    // Nearly every text is plain, and a page has hundreds of thousands.
    if (std::all_of(data.begin(), data.end(), [](char c) { return c >= ' ' && c < 127; })) {
        utf8_ = data;
        return;
    }
    for (const char byte : data) {
        if (IsControl(byte)) {
            utf8_ += text::CodeOf(byte);
        } else {
            utf8_ += text::ToUtf8({&byte, 1});
        }
    }
}

Words::Words(double number) {
    // Whatever a file makes of a drawing, its coordinates stay within what browsers can draw.
    constexpr double kMost = 1e6;
    const double shown = std::isnan(number) ? 0 : std::clamp(number, -kMost, kMost);
    std::array<char, 32> buffer{};
    const double rounded = std::round(shown * 100) / 100 + 0.0;  // never "-0"
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), rounded,
                                   std::chars_format::fixed, 2)
                         .ptr;
    utf8_.assign(buffer.data(), end);
    utf8_.erase(utf8_.find_last_not_of('0') + 1);
    if (utf8_.back() == '.') utf8_.pop_back();
}

void Html::Escape(std::string_view utf8) {
    for (;;) {
        const auto at = std::min(utf8.find_first_of("&<>\"'"), utf8.size());
        bytes_.append(utf8.substr(0, at));
        if (at == utf8.size()) return;
        switch (utf8[at]) {
            case '&':
                bytes_ += "&amp;";
                break;
            case '<':
                bytes_ += "&lt;";
                break;
            case '>':
                bytes_ += "&gt;";
                break;
            case '"':
                bytes_ += "&quot;";
                break;
            default:
                bytes_ += "&#39;";
        }
        utf8.remove_prefix(at + 1);
    }
}

// What ends at the same place ends in the same line.
void Html::BreakLine() {
    if (lineIsDone_) bytes_ += '\n';
    lineIsDone_ = false;
}

void Html::Begin(const char* name, Attributes attributes, const char* end) {
    BreakLine();
    bytes_.append("<").append(name);
    for (const Attribute& attribute : attributes) {
        bytes_.append(" ").append(attribute.name).append("=\"");
        Escape(attribute.value.Utf8());
        bytes_ += '"';
    }
    bytes_ += end;
}

void Html::End(std::string_view name) {
    bytes_.append("</").append(name).append(">");
    // What somebody who looks into the file takes in at a glance, a row of a table or the facts of
    // a process, is one line.
    static constexpr std::string_view kWithin[] = {"td", "th", "dd", "div"};
    lineIsDone_ = std::ranges::find(kWithin, name) == std::end(kWithin);
}

Html::Element Html::In(const char* name, Attributes attributes) {
    Begin(name, attributes, ">");
    return {*this, name};
}

void Html::Put(const char* name, Attributes attributes, const Words& text) {
    Begin(name, attributes, ">");
    Text(text);
    bytes_.append("</").append(name).append(">");
}

void Html::TextIn(const Words& text, const Words& unit) {
    Text(text);
    if (unit.Utf8().empty()) return;
    Text(" ");
    Put("small", unit);
}

void Html::Empty(const char* name, Attributes attributes) {
    Begin(name, attributes, "/>");
}

void Html::Style(const char* css) {
    bytes_.append("<style>").append(css).append("</style>\n");
}

}  // namespace report
