#include "document/FileText.h"

#include "base/Windows1251.h"
#include "document/rtf/RtfReader.h"

namespace quillshift {

FileText::FileText(std::string_view bytes) {
    if (IsRtf(bytes))
        text_ = ReadRtf(bytes);
    else
        text_ = windows1251::Decode(bytes);
}

bool FileText::IsBlank() const {
    const auto* plain = std::get_if<std::u16string>(&text_);
    const std::u16string& text = plain != nullptr ? *plain : std::get<RichText>(text_).text;
    return text.find_first_not_of(u" \t\r\n") == std::u16string::npos;
}

void FileText::LoadInto(TextSurface& surface) const {
    if (const auto* plain = std::get_if<std::u16string>(&text_))
        surface.LoadPlain(*plain);
    else
        surface.LoadRich(std::get<RichText>(text_));
}

} // namespace quillshift
