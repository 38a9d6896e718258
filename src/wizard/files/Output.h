#pragma once

#include "wizard/detect/Chain.h"

namespace quillshift::wizard {

enum class Target { Utf8, Windows1251, Keep };

/// The set to write in, for a text that was stored in `stored`.
Set SetOf(Target target, Set stored);

/// The repaired text as it is written: in the target's set, where `Keep` is the set the bytes were stored in.
/// A charset that HTML or XML declares in its head is corrected with it. None where the set can't hold the
/// text.
std::optional<std::string> Output(const std::string& text, Target target, Set stored);

} // namespace quillshift::wizard
