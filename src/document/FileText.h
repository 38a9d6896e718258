#pragma once

#include "base/RichText.h"
#include "platform/TextSurface.h"

#include <string>
#include <string_view>
#include <variant>

namespace quillshift {

/// The contents of a file as text: rich where the bytes are RTF, else plain in the Windows-1251 reading. Read
/// once, it can be loaded into any number of surfaces.
class FileText {
public:
    explicit FileText(std::string_view bytes);

    bool IsPlain() const { return std::holds_alternative<std::u16string>(text_); }
    /// Nothing but blanks and breaks.
    bool IsBlank() const;
    void LoadInto(TextSurface& surface) const;

private:
    std::variant<std::u16string, RichText> text_;
};

} // namespace quillshift
