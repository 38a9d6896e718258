#include "document/modEdit.h"

#include <algorithm>
#include <array>

namespace quillshift {
namespace {

constexpr Twips kIndentStep{13 * 1440 / 25.4F};

// The capitals whose small letters stand at one distance from them.
struct CaseRange {
    char16_t first;
    char16_t last;
    char16_t distance;
};
constexpr auto kRanges = std::to_array<CaseRange>({{u'A', u'Z', 0x20},
                                                   {u'\u0401', u'\u040C', 0x50}, // Ё to Ќ
                                                   {u'\u040E', u'\u040F', 0x50}, // Ў and Џ
                                                   {u'\u0410', u'\u042F', 0x20}, // А to Я
                                                   {u'\u0490', u'\u0490', 1}});  // Ґ

char16_t InCase(char16_t character, LetterCase letterCase) {
    for (const auto& [first, last, distance] : kRanges) {
        const bool isCapital = character >= first && character <= last;
        const bool isSmall = character >= first + distance && character <= last + distance;
        if (letterCase == LetterCase::Lower && isCapital)
            return static_cast<char16_t>(character + distance);
        if (letterCase == LetterCase::Upper && isSmall)
            return static_cast<char16_t>(character - distance);
    }
    return character;
}

} // namespace

std::u16string ToCase(std::u16string_view text, LetterCase letterCase) {
    std::u16string converted(text);
    std::transform(converted.begin(), converted.end(), converted.begin(),
                   [letterCase](char16_t character) { return InCase(character, letterCase); });
    return converted;
}

void modEdit::Cut() {
    TextSurface& document = services_.document;
    services_.clipboard.SetText(document.SelText());
    const std::size_t place = document.SelStart();
    std::u16string text(document.Text());
    text.erase(place, document.SelLength());
    document.SetText(text);
    document.SetSelStart(place);
}

void modEdit::Copy() {
    const std::u16string selected = services_.document.SelText();
    if (selected.empty())
        services_.messageBox.Inform(u"Нет выделенного фрагмента текста!");
    else
        services_.clipboard.SetText(selected);
}

void modEdit::Paste() {
    const auto copied = services_.clipboard.Text();
    if (!copied)
        return;
    TextSurface& document = services_.document;
    std::u16string text(document.Text());
    text.insert(document.SelStart(), *copied);
    document.SetText(text);
    document.SetFocus();
    document.SetSelStart(0);
    services_.state.DocumentModified = true;
}

void modEdit::SelectAll() {
    TextSurface& document = services_.document;
    document.SetFocus();
    document.SetSelStart(0);
    document.SetSelLength(document.Length());
}

void modEdit::SelectionTo(LetterCase letterCase) {
    services_.document.SetSelText(ToCase(services_.document.SelText(), letterCase));
}

void modEdit::AllTextTo(LetterCase letterCase) {
    services_.document.SetText(ToCase(services_.document.Text(), letterCase));
}

void modEdit::Indent() {
    services_.document.SetSelIndent(services_.document.SelIndent() + kIndentStep);
}

void modEdit::Outdent() {
    services_.document.SetSelIndent(std::max(services_.document.SelIndent() - kIndentStep, Twips{0}));
}

} // namespace quillshift
