#include "archive/sha256.h"

#ifdef __x86_64__
#include <cpuid.h>
#include <immintrin.h>
#endif

#include <algorithm>
#include <bit>
#include <cstring>

namespace archive {
namespace {

constexpr std::size_t kBlock = 64;

constexpr std::uint32_t kRounds[] = {
    0x428a2f98, 0x71374491, 0xb5c0fbcf, 0xe9b5dba5, 0x3956c25b, 0x59f111f1, 0x923f82a4, 0xab1c5ed5,
    0xd807aa98, 0x12835b01, 0x243185be, 0x550c7dc3, 0x72be5d74, 0x80deb1fe, 0x9bdc06a7, 0xc19bf174,
    0xe49b69c1, 0xefbe4786, 0x0fc19dc6, 0x240ca1cc, 0x2de92c6f, 0x4a7484aa, 0x5cb0a9dc, 0x76f988da,
    0x983e5152, 0xa831c66d, 0xb00327c8, 0xbf597fc7, 0xc6e00bf3, 0xd5a79147, 0x06ca6351, 0x14292967,
    0x27b70a85, 0x2e1b2138, 0x4d2c6dfc, 0x53380d13, 0x650a7354, 0x766a0abb, 0x81c2c92e, 0x92722c85,
    0xa2bfe8a1, 0xa81a664b, 0xc24b8b70, 0xc76c51a3, 0xd192e819, 0xd6990624, 0xf40e3585, 0x106aa070,
    0x19a4c116, 0x1e376c08, 0x2748774c, 0x34b0bcb5, 0x391c0cb3, 0x4ed8aa4a, 0x5b9cca4f, 0x682e6ff3,
    0x748f82ee, 0x78a5636f, 0x84c87814, 0x8cc70208, 0x90befffa, 0xa4506ceb, 0xbef9a3f7, 0xc67178f2};

#ifdef __x86_64__

bool ProcessorHasIt() {
    unsigned a = 0, b = 0, c = 0, d = 0;
    constexpr unsigned kSha = 1u << 29, kSse41 = 1u << 19;
    if (!__get_cpuid(1, &a, &b, &c, &d) || (c & kSse41) == 0) return false;
    return __get_cpuid_count(7, 0, &a, &b, &c, &d) && (b & kSha) != 0;
}

// The processor wants the state in the orders abef and cdgh, each beginning with the highest word.
__attribute__((target("sha,sse4.1"))) void AddWithProcessor(std::uint32_t* state,
                                                            const unsigned char* bytes,
                                                            std::size_t blocks) {
    const auto load = [](const void* from) {
        return _mm_loadu_si128(static_cast<const __m128i*>(from));
    };
    const __m128i bigEndian = _mm_set_epi64x(0x0c0d0e0f08090a0b, 0x0405060700010203);
    const __m128i cdab = _mm_shuffle_epi32(load(state), 0xB1);
    const __m128i efgh = _mm_shuffle_epi32(load(state + 4), 0x1B);
    __m128i abef = _mm_alignr_epi8(cdab, efgh, 8), cdgh = _mm_blend_epi16(efgh, cdab, 0xF0);
    for (; blocks > 0; --blocks, bytes += kBlock) {
        const __m128i abefBefore = abef, cdghBefore = cdgh;
        __m128i w[16];  // four words each
        for (std::size_t i = 0; i < 4; ++i) {
            w[i] = _mm_shuffle_epi8(load(bytes + 16 * i), bigEndian);
        }
        for (std::size_t i = 4; i < 16; ++i) {
            const __m128i sum = _mm_add_epi32(_mm_sha256msg1_epu32(w[i - 4], w[i - 3]),
                                              _mm_alignr_epi8(w[i - 1], w[i - 2], 4));
            w[i] = _mm_sha256msg2_epu32(sum, w[i - 1]);
        }
        for (std::size_t i = 0; i < 16; ++i) {
            const __m128i words = _mm_add_epi32(w[i], load(kRounds + 4 * i));
            cdgh = _mm_sha256rnds2_epu32(cdgh, abef, words);
            abef = _mm_sha256rnds2_epu32(abef, cdgh, _mm_shuffle_epi32(words, 0x0E));
        }
        abef = _mm_add_epi32(abef, abefBefore);
        cdgh = _mm_add_epi32(cdgh, cdghBefore);
    }
    const __m128i feba = _mm_shuffle_epi32(abef, 0x1B), dchg = _mm_shuffle_epi32(cdgh, 0xB1);
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state), _mm_blend_epi16(feba, dchg, 0xF0));
    _mm_storeu_si128(reinterpret_cast<__m128i*>(state + 4), _mm_alignr_epi8(dchg, feba, 8));
}

#endif

}  // namespace

void Sha256::AddBlocks(const unsigned char* bytes, std::size_t blocks) {
#ifdef __x86_64__
    static const bool processorHasIt = ProcessorHasIt();
    if (processorHasIt && way_ == Way::kFastest) {
        return AddWithProcessor(state_.data(), bytes, blocks);
    }
#endif
    using std::rotr;
    for (; blocks > 0; --blocks, bytes += kBlock) {
        std::uint32_t w[64];
        for (std::size_t t = 0; t < 16; ++t) {
            w[t] = std::uint32_t{bytes[4 * t]} << 24 | std::uint32_t{bytes[4 * t + 1]} << 16 |
                   std::uint32_t{bytes[4 * t + 2]} << 8 | bytes[4 * t + 3];
        }
        for (int t = 16; t < 64; ++t) {
            const std::uint32_t s0 = rotr(w[t - 15], 7) ^ rotr(w[t - 15], 18) ^ w[t - 15] >> 3;
            const std::uint32_t s1 = rotr(w[t - 2], 17) ^ rotr(w[t - 2], 19) ^ w[t - 2] >> 10;
            w[t] = w[t - 16] + s0 + w[t - 7] + s1;
        }
        auto [a, b, c, d, e, f, g, h] = state_;
        for (int t = 0; t < 64; ++t) {
            const std::uint32_t t1 = h + (rotr(e, 6) ^ rotr(e, 11) ^ rotr(e, 25)) +
                                     ((e & f) ^ (~e & g)) + kRounds[t] + w[t];
            const std::uint32_t t2 =
                (rotr(a, 2) ^ rotr(a, 13) ^ rotr(a, 22)) + ((a & b) ^ (a & c) ^ (b & c));
            h = g, g = f, f = e, e = d + t1, d = c, c = b, b = a, a = t1 + t2;
        }
        const std::uint32_t worked[] = {a, b, c, d, e, f, g, h};
        for (std::size_t i = 0; i < 8; ++i) state_[i] += worked[i];
    }
}

void Sha256::Add(std::string_view bytes) {
    const std::size_t begun = size_ % kBlock;
    size_ += bytes.size();
    if (begun > 0) {
        const std::size_t taken = std::min(bytes.size(), kBlock - begun);
        std::memcpy(rest_.data() + begun, bytes.data(), taken);
        bytes.remove_prefix(taken);
        if (begun + taken < kBlock) return;
        AddBlocks(rest_.data(), 1);
    }
    const std::size_t blocks = bytes.size() / kBlock;
    AddBlocks(reinterpret_cast<const unsigned char*>(bytes.data()), blocks);
    bytes.remove_prefix(blocks * kBlock);
    if (!bytes.empty()) std::memcpy(rest_.data(), bytes.data(), bytes.size());
}

std::string Sha256::Hex() {
    const std::uint64_t bits = size_ * 8;
    std::string end(1, '\x80');
    end.append((kBlock + 55 - size_ % kBlock) % kBlock, '\0');
    for (int shift = 56; shift >= 0; shift -= 8) end += static_cast<char>(bits >> shift);
    Add(end);
    std::string hex;
    for (const std::uint32_t word : state_) {
        for (int shift = 28; shift >= 0; shift -= 4) hex += "0123456789abcdef"[word >> shift & 15];
    }
    return hex;
}

}  // namespace archive
