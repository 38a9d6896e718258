#include "Mutator.h"

#include <algorithm>
#include <array>

namespace quillshift::attack {

std::string Mutator::Damaged(std::string bytes) {
    for (std::size_t left = 1 + Below(8); left > 0; --left)
        Damage(bytes);
    return bytes;
}

void Mutator::Damage(std::string& bytes) {
    const std::size_t place = Below(bytes.size() + 1);
    const std::size_t length = Below(std::min<std::size_t>(bytes.size() - place + 1, 4096));
    // The beginning of a file is where its structure is told.
    const std::size_t early = Below(std::min<std::size_t>(bytes.size(), 64));
    constexpr std::array kNumbers{'\0', '\1', '\x7F', '\x80', '\xFF'};
    switch (Below(8)) {
    case 0:
        bytes.resize(place);
        break;
    case 1:
        bytes.erase(place, length);
        break;
    case 2:
        bytes.insert(place, bytes.substr(Below(bytes.size()), length));
        break;
    case 3:
        std::fill_n(bytes.begin() + static_cast<std::ptrdiff_t>(place), length, '\0');
        break;
    case 4:
        for (std::size_t at = place; at < place + length; ++at)
            bytes[at] = static_cast<char>(Below(256));
        break;
    case 5: // the largest number that there is room for
        for (std::size_t at = early; at < std::min(early + 4, bytes.size()); ++at)
            bytes[at] = '\xFF';
        break;
    default:
        if (!bytes.empty())
            bytes[Below(2) == 0 ? early : Below(bytes.size())] = kNumbers[Below(kNumbers.size())];
    }
}

} // namespace quillshift::attack
