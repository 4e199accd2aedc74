// Profile and WriteKeys beside the platform's own profile functions, which they stand in for. The
// same files must read alike and the same writes must read back alike, awkward files included.
//
// Settled otherwise, and so left out of the comparison:
// - A line without "=" is no key. (The library of Wine lets it hide a later key of that name.)
// - A line that begins with ";" is no key. (There, ";k=1" can be asked for as ";k".)
// - Names have no case in the whole character set. (There, accented letters do.)
// - A UTF-8 byte order mark is skipped and the bytes behind it stay as they are. (There, they are
//   converted.)
// - What a UTF-16 file has beyond the set is read as "?". (There, as a similar letter.)
// - A value in quotes is cut at the buffer's size less one as any other. (There, one that just
//   fills the buffer loses one more character.)
// - Trailing blanks of the default go even when nothing else is in it. (There, one stays.)
// - What would break a line or not be found again is refused. (There, it is written.)
// - A read-only file is never written. (There, it is.)
#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif

#include <gtest/gtest.h>

#include <windows.h>

#include <algorithm>
#include <array>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "profile/profile.h"
#include "profile/write_key.h"
#include "tests/profile/awkward_files.h"
#include "tests/support/temp_drives.h"
#include "text/strings.h"

namespace profile {
namespace {

using namespace std::string_literals;
using Buffer = std::array<char, Profile::kBufferSize>;

// Leftovers of earlier reads: no two neighbours alike, no NUL.
Buffer UsedBuffer() {
    Buffer buffer;
    for (std::size_t i = 0; i < buffer.size(); ++i) buffer[i] = static_cast<char>('A' + i % 26);
    return buffer;
}

class WindowsFunctions : public testing::Test {
  protected:
    // A file of a name of its own: the platform remembers files by name and time, and two may be
    // written within one tick.
    std::string NewFile(std::string_view bytes) {
        const std::string path = "c:\\p\\" + std::to_string(++files_) + ".ini";
        drives_.Write(path, bytes);
        return path;
    }

    std::string Native(const std::string& path) const { return drives_.Path(path).string(); }

    DWORD RealRead(const std::string& path, const Name& name, const std::string& otherwise,
                   std::span<char> buffer) const {
        return GetPrivateProfileStringA(name.section.c_str(), name.key.c_str(), otherwise.c_str(),
                                        buffer.data(), static_cast<DWORD>(buffer.size()),
                                        Native(path).c_str());
    }

    // Reads with both and compares the count and the whole buffer.
    void Compare(const std::string& realPath, const Profile& ours, const Name& name,
                 const std::string& otherwise, const std::string& shown, std::size_t size = 255) {
        Buffer theirBuffer = UsedBuffer(), ourBuffer = UsedBuffer();
        const auto theirs = RealRead(realPath, name, otherwise, std::span(theirBuffer).first(size));
        const auto count =
            ours.Read(name.section, name.key, otherwise, std::span(ourBuffer).first(size));
        if (theirs == count && theirBuffer == ourBuffer) return;
        ADD_FAILURE() << testing::PrintToString(name.section) << "/"
                      << testing::PrintToString(name.key) << " is "
                      << testing::PrintToString(std::string(theirBuffer.data(), theirs))
                      << " there and "
                      << testing::PrintToString(std::string(ourBuffer.data(), count)) << " here in "
                      << testing::PrintToString(shown.substr(0, 300));
    }

    // The bytes after the platform has written a key.
    std::string RealWrite(std::string_view bytes, const Name& name, const std::string& value) {
        const std::string path = NewFile(bytes);
        EXPECT_TRUE(WritePrivateProfileStringA(name.section.c_str(), name.key.c_str(),
                                               value.c_str(), Native(path).c_str()));
        WritePrivateProfileStringA(nullptr, nullptr, nullptr, Native(path).c_str());
        return drives_.Read(path);
    }

    test::TempDrives drives_;
    int files_ = 0;
};

// Whether some line holds the name alone, without "=": there the library reads otherwise.
bool HasNameWithoutValue(std::string_view file, std::string_view key) {
    constexpr std::string_view kBlanks = " \t\x0B\x0C\x1A\r\n";
    const auto trim = [&](std::string_view part) {
        const auto first = part.find_first_not_of(kBlanks);
        if (first == part.npos) return std::string_view();
        return part.substr(first, part.find_last_not_of(kBlanks) - first + 1);
    };
    while (!file.empty()) {
        const auto end = std::min(file.find_first_of("\r\n"), file.size());
        const auto line = trim(file.substr(0, end));
        if (!line.empty() && line.find('=') == line.npos &&
            text::EqualIgnoringCase(text::UntilNul(line), trim(key))) {
            return true;
        }
        file.remove_prefix(std::min(end + 1, file.size()));
    }
    return false;
}

// Whether some section may have an empty name: the library writes such a file back without its
// line.
bool HasNamelessSection(std::string_view file) {
    for (auto at = file.find('['); at != file.npos; at = file.find('[', at + 1)) {
        const auto inside = file.find_first_not_of(" \t\x0B\x0C\x1A", at + 1);
        if (inside != file.npos && file[inside] == ']') return true;
    }
    return false;
}

TEST_F(WindowsFunctions, AwkwardFilesReadAlike) {
    for (const std::string& file : AwkwardFiles()) {
        const std::string path = NewFile(file);
        const Profile ours = Profile::Load(path);
        for (const Name& name : Names()) {
            Compare(path, ours, name, " \"d\" ", file);
            Compare(path, ours, name, "", file, 3);
        }
    }
}

TEST_F(WindowsFunctions, DefaultsAndSizesAreTakenAlike) {
    const std::string file = "[s]\r\nk=abcdef\r\nm=\"abcdef\"\r\nn=\r\n";
    const std::string path = NewFile(file);
    const Profile ours = Profile::Load(path);
    for (const std::size_t size : {255, 8, 6, 5, 3, 2, 1, 0}) {
        for (const char* key : {"k", "m", "n"}) Compare(path, ours, {"s", key}, "", file, size);
    }
    for (const char* otherwise : {"", "\t", "d", " d", "d ", "d\t", "d \t ", "\"ddd\"", "'ddd' ",
                                  " 'd'", "\"", "'\"d\"'", "\"d'", "\" d \"", "\xE9\x81\r\n"}) {
        for (const std::size_t size : {255, 5, 3, 2, 1, 0}) {
            Compare(path, ours, {"s", "none"}, otherwise, otherwise, size);
            Compare(path, ours, {"none", "k"}, otherwise, otherwise, size);
        }
    }
    Compare(path, ours, {"s", "none"}, "\"\"", "an empty text in quotes");
}

class WindowsWriting : public WindowsFunctions {
  protected:
    // Writes with both and compares everything that reads back from the two files.
    void CompareWrite(const std::string& file, const Name& name, const std::string& value) {
        if (HasNamelessSection(file)) return;
        const std::string path = NewFile(file);
        ASSERT_TRUE(WriteKeys(path, name.section, {{name.key, value}})) << name.section << name.key;
        const Profile ours = Profile::Load(path);
        const std::string realPath = NewFile(RealWrite(file, name, value));
        std::vector<Name> names = Names();
        names.push_back(name);
        for (const Name& each : names) {
            if (HasNameWithoutValue(file, each.key)) continue;
            Compare(realPath, ours, each, "d",
                    name.section + "/" + name.key + "=" + value + " into " + file);
        }
    }
};

const std::vector<std::string>& Values() {
    static const std::vector<std::string> values = {
        "v", "", " v ", "\"v\"", "' v '", "\"", "a=b", ";c", "[x]", "\xE9\x81\xFF", "\t1\x1A"};
    return values;
}

TEST_F(WindowsWriting, AwkwardFilesReadBackAlike) {
    const std::vector<Name> written = {{"s", "k"}, {"S", "M"}, {" s ", " n "}, {"t", "k"},
                                       {"u", "k"}, {"", "k"},  {"s", ""},      {"[s]", "k"}};
    std::size_t turn = 0;
    for (const std::string& file : AwkwardFiles()) {
        // The library writes the whole file anew, without what stands behind a NUL in a name.
        const bool wide = file.starts_with("\xFF\xFE") || file.starts_with("\xFE\xFF");
        if (!wide && file.find('\0') != file.npos) continue;
        for (const Name& name : written)
            CompareWrite(file, name, Values()[++turn % Values().size()]);
    }
}

}  // namespace
}  // namespace profile

#endif
