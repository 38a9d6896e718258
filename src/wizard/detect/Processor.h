#pragma once

#if defined(__x86_64__) && defined(__GNUC__)
#include <algorithm>
#include <array>
#include <cstdint>
#include <immintrin.h>

/// Marks a function that uses registers of 32 bytes; to be called only after asking `HasWideRegisters`.
#define QUILLSHIFT_WIDE __attribute__((target("avx2,popcnt,bmi")))
/// The same of a part of a loop, which is to stay in registers.
#define QUILLSHIFT_WIDE_PART QUILLSHIFT_WIDE __attribute__((always_inline)) inline

namespace quillshift::wizard {

inline bool HasWideRegisters() {
    static const bool has =
        __builtin_cpu_supports("avx2") && __builtin_cpu_supports("popcnt") && __builtin_cpu_supports("bmi");
    return has;
}

/// 32 bytes.
using Wide = __m256i;

QUILLSHIFT_WIDE_PART Wide WideAt(const void* bytes) {
    return _mm256_loadu_si256(static_cast<const Wide*>(bytes));
}

QUILLSHIFT_WIDE_PART Wide WideAll(int value) {
    return _mm256_set1_epi8(static_cast<char>(value));
}

/// The highest bit of each byte.
QUILLSHIFT_WIDE_PART std::uint32_t HighBits(Wide bytes) {
    return static_cast<std::uint32_t>(_mm256_movemask_epi8(bytes));
}

/// All of a byte for each bit.
QUILLSHIFT_WIDE_PART Wide WideOfBits(std::uint32_t bits) {
    const Wide bytesOfBits =
        _mm256_setr_epi64x(0, 0x0101010101010101, 0x0202020202020202, 0x0303030303030303);
    const Wide eachBit = _mm256_set1_epi64x(static_cast<long long>(0x8040201008040201));
    const Wide spread = _mm256_shuffle_epi8(_mm256_set1_epi32(static_cast<int>(bits)), bytesOfBits);
    return _mm256_cmpeq_epi8(_mm256_and_si256(spread, eachBit), eachBit);
}

/// A table of bytes for the numbers from 0 on, in rows of 16, made for `LookUp`.
template <std::size_t rows>
class WideTable {
public:
    static constexpr std::size_t size = 16 * rows;

    WideTable() = default;
    explicit WideTable(const std::array<std::uint8_t, size>& values) {
        // Each row holds what changes beside the row before it, and the last one takes all back.
        for (std::size_t i = 0; i < changes_.size(); ++i)
            changes_[i] =
                static_cast<std::uint8_t>((i < size ? values[i] : 0) ^ (i < 16 ? 0 : values[i - 16]));
    }

    /// Finds nothing for numbers that are not in it; those from 0x80 on are negative.
    QUILLSHIFT_WIDE_PART Wide LookUp(Wide numbers) const {
        Wide found = _mm256_shuffle_epi8(Row(0), numbers);
        for (std::size_t row = 1; row < std::min(rows + 1, mostRows); ++row) {
            numbers = _mm256_subs_epi8(numbers, WideAll(16));
            found = _mm256_xor_si256(found, _mm256_shuffle_epi8(Row(row), numbers));
        }
        return found;
    }

private:
    static constexpr std::size_t mostRows = 8;

    QUILLSHIFT_WIDE_PART Wide Row(std::size_t row) const {
        return _mm256_broadcastsi128_si256(
            _mm_loadu_si128(reinterpret_cast<const __m128i*>(changes_.data() + 16 * row)));
    }

    std::array<std::uint8_t, size + 16> changes_{};
};

} // namespace quillshift::wizard
#endif
