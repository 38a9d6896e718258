#pragma once

#include "platform/TextSurface.h"

#include <cstddef>
#include <optional>
#include <string_view>

namespace quillshift {

/// The rule by which the surface finds: see `TextSurface::FindIn`. A match begins and ends at whole
/// characters. Case is folded letter by letter, so that what matches is as long as what is wanted.
std::optional<std::size_t> FindText(std::u16string_view text, std::u16string_view wanted, std::size_t start,
                                    FindOptions options);

} // namespace quillshift
