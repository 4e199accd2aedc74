// Text fields of a fixed width, as the shared records hold them (4, 32, 50 or 64 characters).
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace text {

// Always exactly Width characters: a shorter value is padded with blanks, a longer one cut.
// Every character is kept as it is, NULs included: a field that was filled from a read buffer
// holds the value, a NUL and what earlier reads left behind it, and is written out so.
template <std::size_t Width>
class FixedText {
  public:
    static constexpr std::size_t kWidth = Width;

    FixedText() { chars_.fill(' '); }
    explicit FixedText(std::string_view value) { *this = value; }

    FixedText& operator=(std::string_view value) {
        // The value may be a part of this very field, so it is copied before the padding.
        std::array<char, Width> chars;
        chars.fill(' ');
        std::copy_n(value.begin(), std::min(value.size(), Width), chars.begin());
        chars_ = chars;
        return *this;
    }

    std::string_view View() const { return {chars_.data(), Width}; }

    bool operator==(const FixedText&) const = default;

  private:
    std::array<char, Width> chars_;
};

}  // namespace text
