#pragma once

#include "wizard/detect/RussianSum.h"

#include <string_view>

namespace quillshift::wizard {

/// Whether all of a text is UTF-8 and Russian beyond doubt: by how often its letters come, in whatever order,
/// with no capital inside a word and none but the usual signs. Most lines of prose are; of what is not clear
/// so, letters in order have to be asked. Uses wide registers where the processor has them.
bool IsClearlyRussian(std::string_view text);

/// Looks each line of a text of whole lines over.
void LookAtLines(std::string_view text, LookedLines& lines);

/// The same as `IsClearlyRussian`, a character at a time.
bool IsClearlyRussianPlainly(std::string_view text);

} // namespace quillshift::wizard
