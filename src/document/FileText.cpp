#include "document/FileText.h"

#include "document/rtf/RtfReader.h"

#include <utility>

namespace quillshift {

FileText::FileText(std::string bytes) {
    if (IsRtf(bytes))
        text_ = ReadRtf(bytes);
    else
        text_ = PlainBytes(std::move(bytes));
}

bool FileText::IsBlankRich() const {
    const auto* rich = std::get_if<RichText>(&text_);
    return rich != nullptr && rich->text.find_first_not_of(u" \t\r\n") == std::u16string::npos;
}

void FileText::LoadInto(TextSurface& surface) const {
    if (const PlainBytes* plain = Plain())
        surface.LoadBytes(*plain);
    else
        surface.LoadRich(std::get<RichText>(text_));
}

} // namespace quillshift
