#pragma once

#include "base/RichText.h"
#include "platform/TextSurface.h"

#include <string>
#include <string_view>
#include <variant>

namespace quillshift {

/// The contents of a file as text: rich where the bytes are RTF, else plain in the Windows-1251 reading. Read
/// once, it can be loaded into any number of surfaces, as long as there are the bytes.
class FileText {
public:
    explicit FileText(std::string_view bytes);

    bool IsPlain() const { return std::holds_alternative<std::string_view>(text_); }
    /// Rich, and nothing but blanks and breaks.
    bool IsBlankRich() const;
    void LoadInto(TextSurface& surface) const;

private:
    std::variant<std::string_view, RichText> text_;
};

} // namespace quillshift
