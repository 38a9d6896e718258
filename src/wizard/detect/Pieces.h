#pragma once

#include "wizard/detect/Chain.h"

namespace quillshift::wizard {

/// How much of the bytes' beginning can be undone by itself, when more of them will come: whole lines, and of
/// a line that is too long what ends where no character is cut. 0 where too little is there yet.
std::size_t WholeLines(const Chain& chain, std::string_view bytes);

/// The same of what is written down in ASCII: no number and no word is cut.
std::size_t WholePieces(Debris debris, std::string_view bytes);

/// How many bytes so many lines are.
std::size_t BytesOfLines(std::string_view bytes, std::size_t count);

/// A line of which so many bytes are there is taken in pieces.
constexpr std::size_t longestWhole = 64 << 10;

} // namespace quillshift::wizard
