#include "document/rtf/RtfWriter.h"

#include <utility>

namespace quillshift {
namespace {

constexpr std::u16string_view kBreak = u"\r\n";
constexpr std::u16string_view kBroken = u"\uFFFD";

bool IsHighHalf(char16_t unit) {
    return unit >= 0xD800 && unit <= 0xDBFF;
}

bool IsLowHalf(char16_t unit) {
    return unit >= 0xDC00 && unit <= 0xDFFF;
}

} // namespace

void RtfWriter::Add(std::u16string_view text, const RtfLook& look) {
    if (text.empty())
        return;
    if (result_.runs.empty() || look != look_) {
        CharacterFormat format;
        format.font = fonts_.Name(look.font);
        format.halfPoints = look.halfPoints;
        format.bold = look.bold;
        format.italic = look.italic;
        format.underline = look.underline;
        format.strike = look.strike;
        format.script = look.script;
        format.colour = colours_.Find(look.colour);
        if (look.background != 0)
            format.background = colours_.Find(look.background);
        look_ = look;
        // Different numbers may stand for the same look.
        if (result_.runs.empty() || result_.runs.back().format != format)
            result_.runs.push_back({0, std::move(format)});
    }
    result_.runs.back().length += text.size();
    result_.text += text;
}

void RtfWriter::FlushHalf() {
    if (std::exchange(highHalf_, u'\0') != 0)
        Add(kBroken, look_);
}

void RtfWriter::FlushCells() {
    for (; cells_ > 0; --cells_)
        Add(u"\t", look_);
}

void RtfWriter::Append(std::u16string_view text, const RtfLook& look, const ParagraphFormat& paragraph) {
    if (text.empty())
        return;
    FlushHalf();
    FlushCells();
    Add(text, look);
    paragraph_ = paragraph;
}

void RtfWriter::AppendUnit(char16_t unit, const RtfLook& look, const ParagraphFormat& paragraph) {
    if (IsLowHalf(unit)) {
        const char16_t pair[] = {std::exchange(highHalf_, u'\0'), unit};
        Append(pair[0] == 0 ? kBroken : std::u16string_view(pair, 2), look, paragraph);
        return;
    }
    FlushHalf();
    if (IsHighHalf(unit))
        highHalf_ = unit;
    else
        Append({&unit, 1}, look, paragraph);
}

void RtfWriter::Break(const RtfLook& look, const ParagraphFormat& paragraph) {
    FlushHalf();
    FlushCells();
    Add(kBreak, look);
    result_.paragraphs.push_back(paragraph);
    paragraph_ = paragraph;
}

void RtfWriter::EndRow(const RtfLook& look, const ParagraphFormat& paragraph) {
    cells_ -= cells_ > 0 ? 1 : 0;
    Break(look, paragraph);
}

RichText RtfWriter::Finish() {
    FlushHalf();
    result_.paragraphs.push_back(paragraph_);
    return std::move(result_);
}

} // namespace quillshift
