// Profile files: sections in square brackets, key=value lines, comment lines beginning with ";".
//
// A file is read and parsed once; any number of keys is then looked up in memory, with the rules
// of the platform's GetPrivateProfileStringA: names are compared without regard to case, the
// first section of a name counts and in it the first key, blanks and tabs around names and values
// are dropped, one pair of matching quotes around a value too.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace profile {

// Where a key stands in the text of its file; for the writer.
struct ValuePlace {
    std::size_t offset;  // behind the "=" and the blanks in front of the value, if there is one
    std::size_t length;
};

// A section line or a key as it stands in the file.
struct Item {
    std::size_t offset;  // of its name
    std::string_view section;
    std::optional<std::string_view> key;  // nothing for the line of the section itself
    std::string_view value;               // with its quotes, without blanks around it
    bool found;  // by a look-up; another one of its name in front of it takes its place otherwise
};

class Profile {
  public:
    // The size of the buffer that the system reads every value into, its final NUL included.
    static constexpr std::size_t kBufferSize = 255;

    // Of the bytes of a file. UTF-16 text with a byte order mark is converted first.
    explicit Profile(std::string bytes = {});

    // Reads a file. A missing one is an empty profile; one that cannot be read throws FileError.
    static Profile Load(std::string_view path);

    // The same, but what cannot be read is an empty profile too: the configuration then takes
    // its defaults.
    static Profile LoadIfReadable(std::string_view path);

    Profile(const Profile&) = delete;
    Profile& operator=(const Profile&) = delete;
    Profile(Profile&&) = default;
    Profile& operator=(Profile&&) = default;

    // The value without blanks and quotes around it, up to its first NUL; nothing when the file
    // has no such section or key. Valid as long as the profile.
    std::optional<std::string_view> Find(std::string_view section, std::string_view key) const;

    // The value, or the default without its trailing blanks and quotes around it, cut to `size` - 1
    // characters.
    std::string Text(std::string_view section, std::string_view key, std::string_view otherwise,
                     std::size_t size = kBufferSize) const;

    // The same into a buffer that keeps behind the value and its NUL what it held before.
    // Returns the number of characters in front of the NUL.
    std::size_t Read(std::string_view section, std::string_view key, std::string_view otherwise,
                     std::span<char> buffer) const;

    // For the writer: where the value of a key stands, and where a further key of a section
    // would: behind the last line of it that is not blank.
    std::optional<ValuePlace> PlaceOf(std::string_view section, std::string_view key) const;
    std::optional<std::size_t> EndOfSection(std::string_view section) const;

    // All sections and keys in the order of the file, those too that no look-up finds. What stands
    // in front of the first section line is a section without a name at offset 0. Valid as long as
    // the profile.
    std::vector<Item> Items() const;

    const std::string& Bytes() const { return *bytes_; }

  private:
    struct Section {
        std::string_view name;
        std::uint32_t hash;
        std::size_t end;  // offset behind its last line that is not blank
    };
    struct Entry {
        std::string_view key;
        std::string_view value;  // with its quotes, without blanks around it
        std::uint32_t hash;      // of section and key
        std::uint32_t section;   // index of its section
    };

    void Parse();
    void ParseLine(std::string_view line);  // trimmed, not empty
    void Index();
    std::size_t SectionPlace(std::string_view name, std::uint32_t hash) const;
    std::size_t EntryPlace(std::string_view key, std::uint32_t hash, std::uint32_t section) const;
    const Section* FindSection(std::string_view name) const;
    const Entry* FindEntry(std::string_view section, std::string_view key) const;

    // On the heap, so that the views into it stay valid when the profile is moved.
    std::unique_ptr<const std::string> bytes_;
    std::vector<Section> sections_;
    std::vector<Entry> entries_;
    // Open-addressing tables of index + 1, 0 for a free place; sizes are powers of two.
    std::vector<std::uint32_t> sectionTable_;
    std::vector<std::uint32_t> entryTable_;
};

}  // namespace profile
