#pragma once

#include "base/PlainBytes.h"
#include "base/RichText.h"
#include "platform/TextSurface.h"

#include <string>
#include <variant>

namespace quillshift {

/// The contents of a file as text: rich where the bytes are RTF, else plain in the Windows-1251 reading. Read
/// once, it can be loaded into any number of surfaces, which share a plain one.
class FileText {
public:
    explicit FileText(std::string bytes);

    /// None of a rich one.
    const PlainBytes* Plain() const { return std::get_if<PlainBytes>(&text_); }
    /// Rich, and nothing but blanks and breaks.
    bool IsBlankRich() const;
    void LoadInto(TextSurface& surface) const;

private:
    std::variant<PlainBytes, RichText> text_;
};

} // namespace quillshift
