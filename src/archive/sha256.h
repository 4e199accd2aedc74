// SHA-256 (FIPS 180-4), by which a list of backed-up files can be checked with tools that every
// computer has, in ten years, too, and by which no two files are taken for one. Own code because
// neither platform brings one that the other has.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace archive {

class Sha256 {
  public:
    // With what the processor has for it, six times as fast, or without.
    enum class Way { kFastest, kPlain };
    explicit Sha256(Way way = Way::kFastest) : way_(way) {}

    void Add(std::string_view bytes);
    // 64 hexadecimal digits in lower case of everything that was added. Ends it.
    std::string Hex();

  private:
    void AddBlocks(const unsigned char* bytes, std::size_t blocks);

    Way way_;
    std::array<std::uint32_t, 8> state_{0x6a09e667, 0xbb67ae85, 0x3c6ef372, 0xa54ff53a,
                                        0x510e527f, 0x9b05688c, 0x1f83d9ab, 0x5be0cd19};
    std::array<unsigned char, 64> rest_{};
    std::uint64_t size_ = 0;  // bytes
};

}  // namespace archive
