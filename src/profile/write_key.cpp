#include "profile/write_key.h"

#include "errors/errors.h"
#include "platform/files.h"
#include "profile/encoding.h"
#include "profile/profile.h"

namespace profile {
namespace {

// The part of a text that changes, and what comes in its place.
struct Edit {
    std::size_t offset;
    std::size_t length;
    std::string text;
};

bool FitsOnLine(std::string_view part) {
    return part.find_first_of(std::string_view("\r\n\0", 3)) == part.npos;
}

bool EndsLine(char c) {
    return c == '\n' || c == '\r';
}

// The line end that the file uses, by its first one.
std::string_view LineEndOf(std::string_view bytes) {
    const auto at = bytes.find_first_of("\r\n");
    if (at == bytes.npos || bytes.substr(at, 2) == "\r\n") return "\r\n";
    // A lone CR in front of CR LF is the blank line of the system's own files.
    return bytes[at] == '\n' ? "\n" : bytes.find('\n') == bytes.npos ? "\r" : "\r\n";
}

Edit EditFor(const Profile& profile, std::string_view section, std::string_view key,
             std::string_view value) {
    if (const auto place = profile.PlaceOf(section, key)) {
        return {place->offset, place->length, std::string(value)};
    }
    const std::string_view bytes = profile.Bytes();
    const auto end = profile.EndOfSection(section);
    const std::size_t at = end.value_or(bytes.size());
    const std::string lineEnd(LineEndOf(bytes));
    std::string lines;
    if (at > MarkLength(bytes) && !EndsLine(bytes[at - 1])) lines += lineEnd;
    if (!end) lines.append("[").append(section).append("]").append(lineEnd);
    lines.append(key).append("=").append(value).append(lineEnd);
    return {at, 0, std::move(lines)};
}

}  // namespace

std::optional<std::string> WithKey(std::string_view bytes, std::string_view section,
                                   std::string_view key, std::string_view value) {
    if (!FitsOnLine(section) || !FitsOnLine(key) || !FitsOnLine(value)) return std::nullopt;
    const Profile before{std::string(bytes)};
    Edit edit = EditFor(before, section, key, value);
    if (IsUtf16(bytes)) edit = {2 + 2 * edit.offset, 2 * edit.length, ToUtf16(edit.text, bytes)};
    std::string written = std::string(bytes).replace(edit.offset, edit.length, edit.text);

    // Reading it back is the plainest test of whether the names can stand in a file at all.
    const Profile after{written};
    const Profile alone("k=" + std::string(value));
    if (after.Find(section, key) != alone.Find("", "k")) return std::nullopt;
    return written;
}

void WriteKeys(std::string_view path, std::string_view section, const Pairs& pairs) {
    const auto before = platform::ReadFileIfThere(path);
    std::string bytes = before.value_or(std::string());
    for (const auto& [key, value] : pairs) {
        auto written = WithKey(bytes, section, key, value);
        if (!written) {
            throw errors::FileError(errors::FileErrorKind::kOther, std::string(path),
                                    std::string("a profile cannot hold the key ").append(key));
        }
        bytes = std::move(*written);
    }
    if (bytes != before) platform::ReplaceWholeFile(path, bytes);
}

}  // namespace profile
