#pragma once

#include "wizard/detect/ModelData.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

namespace quillshift::wizard {

/// A text as numbers of characters: what a set makes of it, or a wrong reading undone, changes the alphabet
/// only.
struct Reading {
    std::span<const std::uint8_t> symbols;
    std::span<const char16_t> alphabet; ///< at most 256; the character of each symbol
};

/// How many bits a reading costs as a text of one language: the fewer, the likelier.
class Model {
public:
    explicit Model(const ModelData& data);

    /// Once they are more than `most` the rest is not counted.
    double Bits(const Reading& reading, double most = std::numeric_limits<double>::infinity()) const;

    /// An estimate from how often each symbol stands, without an order: cheap, and good enough to sort out.
    double RoughBits(std::span<const std::uint32_t> counts, std::span<const char16_t> alphabet) const;

    /// How many of the characters are letters of the language.
    std::size_t Letters(std::span<const std::uint32_t> counts, std::span<const char16_t> alphabet) const;

    /// What a letter costs after two others, by their numbers in the data; 0 is the gap between words.
    double Cost(std::size_t before, std::size_t last, std::size_t next) const;
    /// What a character that is no letter of the language costs.
    static double SignCost(char16_t character);

private:
    static constexpr std::size_t reach = 0x2600;

    const ModelData& data_;
    std::size_t size_;
    std::vector<std::uint8_t> costs_;          ///< the data's, in quarters of a bit
    std::array<std::uint8_t, reach> letter_{}; ///< number of the letter, 0 for none; high bit: a capital
    std::array<float, reach> rough_{};
};

/// The models in the order of `modelData`.
const std::vector<Model>& Models();

} // namespace quillshift::wizard
