#pragma once

#include "base/RichText.h"

#include <QTextFormat>

namespace quillshift {

// Formats of rich text in the widget's words.

QTextCharFormat ToQt(const CharacterFormat& from);
QTextBlockFormat ToQt(const ParagraphFormat& from);

} // namespace quillshift
