#pragma once

#include "wizard/detect/CharacterSets.h"
#include "wizard/detect/Debris.h"

#include <vector>

namespace quillshift::wizard {

/// One wrong reading: text written in one set and read as if in another.
struct Layer {
    Set writtenIn = Set::Utf8;
    Set readAs = Set::Utf8;
    bool operator==(const Layer&) const = default;
};

/// What happened to a text: its wrong readings from the first to the last, the set its bytes were stored in,
/// and the way these were written down in ASCII.
struct Chain {
    Set stored = Set::Utf8;
    std::vector<Layer> layers;
    std::optional<Debris> debris = std::nullopt;
    bool operator==(const Chain&) const = default;
};

constexpr std::size_t deepestChain = 3;

/// "koi8-r" without a wrong reading; "koi8-r>866,utf-8>1251" with two, saved as UTF-8; "koi8-r>866@1251"
/// saved as 1251; with "+base64" and the like where the bytes are written down so.
std::string ToString(const Chain& chain);
/// The chain that `ToString` gives as this text; none for anything else.
std::optional<Chain> ChainFrom(std::string_view text);

struct Undone {
    std::string text;     ///< UTF-8, with U+FFFD for what is lost
    std::size_t lost = 0; ///< characters lost on the way
};

/// Goes a chain back. What a step can't hold is lost, and counted.
Undone Undo(const Chain& chain, std::string_view bytes);

/// Which of the two sets in `Set::Latin` a reader had.
enum class LatinReader { Windows1252, Iso88591 };

/// Goes a chain forth: what the chain makes of UTF-8 text; none where a step can't hold a character,
/// or with debris, which can be written in many ways.
std::optional<std::string> Garble(const Chain& chain, std::string_view text,
                                  LatinReader latin = LatinReader::Windows1252);

/// Whether going the chain forth again makes the very bytes out of the text, so that nothing was lost in
/// undoing it.
bool Proves(const Chain& chain, std::string_view text, std::string_view bytes);

/// Writes UTF-8 text in a set; none where the set can't hold a character.
std::optional<std::string> Encode(Set set, std::string_view text);
/// Reads bytes in a set, as UTF-8; what is none in the set becomes U+FFFD and is counted in `lost`.
std::string Decode(Set set, std::string_view bytes, std::size_t& lost);

} // namespace quillshift::wizard
