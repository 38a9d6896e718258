#pragma once

#include <random>
#include <string>

namespace quillshift::attack {

/// Damages files as a bad disk, a broken transfer or ill will would. One seed gives one row of damages.
class Mutator {
public:
    explicit Mutator(unsigned seed) : random_(seed) {}

    /// A number from 0 to below `limit`.
    std::size_t Below(std::size_t limit) {
        return limit == 0 ? 0 : std::uniform_int_distribution<std::size_t>(0, limit - 1)(random_);
    }
    /// The bytes with one to eight damages.
    std::string Damaged(std::string bytes);

private:
    void Damage(std::string& bytes);

    std::mt19937 random_;
};

} // namespace quillshift::attack
