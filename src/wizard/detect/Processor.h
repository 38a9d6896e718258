#pragma once

#if defined(__x86_64__) && defined(__GNUC__)
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

/// Looks numbers up in a table of 16 bytes for those from `first` on, or of as many rows of them; finds
/// nothing for others.
template <int first, int rows>
QUILLSHIFT_WIDE_PART Wide LookUp(Wide numbers, const std::uint8_t* table) {
    const Wide row = _mm256_broadcastsi128_si256(_mm_loadu_si128(reinterpret_cast<const __m128i*>(table)));
    // A place outside of the row gets its highest bit, for which nothing is found.
    const Wide place = _mm256_adds_epu8(_mm256_xor_si256(numbers, WideAll(first)), WideAll(0x70));
    const Wide found = _mm256_shuffle_epi8(row, place);
    if constexpr (rows == 1)
        return found;
    else
        return _mm256_or_si256(found, LookUp<first + 16, rows - 1>(numbers, table + 16));
}

} // namespace quillshift::wizard
#endif
