#include "document/rtf/RtfReader.h"

#include "document/rtf/RtfCodePages.h"
#include "document/rtf/RtfTokenizer.h"
#include "document/rtf/RtfWords.h"
#include "document/rtf/RtfWriter.h"

#include <algorithm>
#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

namespace quillshift {
namespace {

enum class Destination : std::uint8_t { Text, Skip, Container, FontTable, ColourTable };

/// What a group hands on to the groups in it, and gets back when they end.
struct State {
    RtfLook look;
    ParagraphFormat paragraph;
    int unicodeSkip = 1; ///< characters behind a `\u` that stand in for it
    Destination destination = Destination::Text;
};

class Reader {
public:
    explicit Reader(std::string_view bytes) : tokens_(bytes) {}

    RichText Read();

private:
    using Kind = RtfToken::Kind;

    // Deeper groups share the state of this depth: no document needs them, and memory stays bounded.
    static constexpr std::size_t kDeepest = 1024;
    static constexpr std::size_t kMostTabs = 16;

    void BeginGroup();
    void EndGroup();
    void Word(const RtfToken& token);
    void Symbol(char symbol);
    void Bytes(std::string_view bytes);

    bool InText(RtfAction action, int value);
    bool OnCharacters(RtfAction action, std::optional<int> number);
    bool OnParagraph(RtfAction action, int number);
    bool OnDestination(RtfAction action);
    void OnTables(RtfAction action, const RtfWord& word, int number);

    bool Shows() const { return state_.destination == Destination::Text && !state_.look.hidden; }
    bool SkipOne();
    void FlushLead();
    void Show(char16_t character) {
        if (Shows())
            writer_.AppendUnit(character, state_.look, state_.paragraph);
    }
    void Unicode(int number);
    void FontChosen(int number);
    RtfLook DefaultLook() const { return {.font = defaultFont_}; }

    RtfTokenizer tokens_;
    RtfFontTable fonts_;
    RtfColourTable colours_;
    RtfWriter writer_{fonts_, colours_};
    State state_;
    std::vector<State> outer_;
    std::size_t tooDeep_ = 0; // open groups beyond the deepest
    int codePage_ = kWindows1252;
    int defaultFont_ = 0;
    int skip_ = 0;           // what is left of the stand-ins behind a `\u`
    bool starred_ = false;   // `\*`: the next word may be passed over with its group
    bool ended_ = false;     // the group of the document is closed
    char lead_ = 0;          // first byte of a double-byte character that waits for its second
    std::string joined_;     // that byte with what follows
    std::u16string decoded_; // kept for its memory
};

RichText Reader::Read() {
    for (RtfToken token = tokens_.Next(); token.kind != Kind::End && !ended_; token = tokens_.Next()) {
        if (token.kind != Kind::Byte && token.kind != Kind::Text)
            FlushLead();
        switch (token.kind) {
        case Kind::GroupStart:
            BeginGroup();
            break;
        case Kind::GroupEnd:
            EndGroup();
            break;
        case Kind::Word:
            Word(token);
            break;
        case Kind::Symbol:
            Symbol(token.character);
            break;
        case Kind::Byte:
            Bytes({&token.character, 1});
            break;
        case Kind::Text:
            Bytes(token.text);
            break;
        case Kind::End:
            break;
        }
    }
    FlushLead();
    return writer_.Finish();
}

// --- Groups

void Reader::BeginGroup() {
    skip_ = 0;
    starred_ = false;
    if (outer_.size() < kDeepest)
        outer_.push_back(state_);
    else
        ++tooDeep_;
}

void Reader::EndGroup() {
    skip_ = 0;
    starred_ = false;
    if (tooDeep_ > 0) {
        --tooDeep_;
        return;
    }
    if (outer_.empty())
        return;
    state_ = outer_.back();
    outer_.pop_back();
    ended_ = outer_.empty();
}

// --- Words and symbols

void Reader::Word(const RtfToken& token) {
    if (SkipOne())
        return;
    const RtfWord word = FindRtfWord(token.text);
    const bool starred = std::exchange(starred_, false);
    if (OnDestination(word.action))
        return;
    if (starred) {
        state_.destination = Destination::Skip;
        return;
    }
    const int number = token.number.value_or(0);
    if (InText(word.action, word.action == RtfAction::Character ? word.value : number) ||
        OnCharacters(word.action, token.number) || OnParagraph(word.action, number))
        return;
    OnTables(word.action, word, number);
}

bool Reader::OnDestination(RtfAction action) {
    Destination& destination = state_.destination;
    switch (action) {
    case RtfAction::FontTable:
    case RtfAction::ColourTable:
        if (destination == Destination::Text)
            destination = action == RtfAction::FontTable ? Destination::FontTable : Destination::ColourTable;
        return true;
    case RtfAction::Container:
        if (destination == Destination::Text)
            destination = Destination::Container;
        return true;
    case RtfAction::Shown:
        if (destination == Destination::Container)
            destination = Destination::Text;
        return true;
    case RtfAction::Skip:
        destination = Destination::Skip;
        return true;
    default:
        return false;
    }
}

bool Reader::InText(RtfAction action, int value) {
    switch (action) {
    case RtfAction::Character:
        Show(static_cast<char16_t>(value));
        return true;
    case RtfAction::Break:
        if (Shows())
            writer_.Break(state_.look, state_.paragraph);
        return true;
    case RtfAction::Cell:
        if (Shows())
            writer_.EndCell();
        return true;
    case RtfAction::Row:
        if (Shows())
            writer_.EndRow(state_.look, state_.paragraph);
        return true;
    case RtfAction::Unicode:
        Unicode(value);
        return true;
    case RtfAction::UnicodeSkip:
        state_.unicodeSkip = std::clamp(value, 0, 255);
        return true;
    default:
        return false;
    }
}

bool Reader::OnCharacters(RtfAction action, std::optional<int> number) {
    RtfLook& look = state_.look;
    const bool on = number != 0;
    const int value = number.value_or(0);
    switch (action) {
    case RtfAction::Plain:
        look = DefaultLook();
        return true;
    case RtfAction::Font:
        FontChosen(value);
        return true;
    case RtfAction::FontSize:
        look.halfPoints = std::clamp(value, 1, 3276);
        return true;
    case RtfAction::Bold:
        look.bold = on;
        return true;
    case RtfAction::Italic:
        look.italic = on;
        return true;
    case RtfAction::Underline:
        look.underline = on;
        return true;
    case RtfAction::NoUnderline:
        look.underline = false;
        return true;
    case RtfAction::Strike:
        look.strike = on;
        return true;
    case RtfAction::Superscript:
        look.script = on ? Script::Superscript : Script::Normal;
        return true;
    case RtfAction::Subscript:
        look.script = on ? Script::Subscript : Script::Normal;
        return true;
    case RtfAction::NoScript:
        look.script = Script::Normal;
        return true;
    case RtfAction::Raise:
        look.script = on ? Script::Superscript : Script::Normal;
        return true;
    case RtfAction::Lower:
        look.script = on ? Script::Subscript : Script::Normal;
        return true;
    case RtfAction::Hidden:
        look.hidden = on;
        return true;
    case RtfAction::Colour:
        look.colour = value;
        return true;
    case RtfAction::Background:
        look.background = value;
        return true;
    default:
        return false;
    }
}

bool Reader::OnParagraph(RtfAction action, int number) {
    ParagraphFormat& paragraph = state_.paragraph;
    // The widest page is 22 inches; more is an error of the file.
    const Twips length{static_cast<float>(std::clamp(number, -31680, 31680))};
    switch (action) {
    case RtfAction::ParagraphDefault:
        paragraph = {};
        return true;
    case RtfAction::Left:
        paragraph.alignment = Alignment::Left;
        return true;
    case RtfAction::Right:
        paragraph.alignment = Alignment::Right;
        return true;
    case RtfAction::Centre:
        paragraph.alignment = Alignment::Centre;
        return true;
    case RtfAction::Justified:
        paragraph.alignment = Alignment::Justified;
        return true;
    case RtfAction::LeftIndent:
        paragraph.leftIndent = length;
        return true;
    case RtfAction::RightIndent:
        paragraph.rightIndent = length;
        return true;
    case RtfAction::FirstIndent:
        paragraph.firstLineIndent = length;
        return true;
    case RtfAction::SpaceBefore:
        paragraph.spaceBefore = length;
        return true;
    case RtfAction::SpaceAfter:
        paragraph.spaceAfter = length;
        return true;
    case RtfAction::TabStop:
        // Each paragraph keeps its own, so their number bounds memory.
        if (paragraph.tabs.size() < kMostTabs)
            paragraph.tabs.insert(std::upper_bound(paragraph.tabs.begin(), paragraph.tabs.end(), length),
                                  length);
        return true;
    default:
        return false;
    }
}

void Reader::OnTables(RtfAction action, const RtfWord& word, int number) {
    switch (action) {
    case RtfAction::FontCharset:
        fonts_.SetCharset(number, codePage_);
        break;
    case RtfAction::Red:
        colours_.SetRed(number);
        break;
    case RtfAction::Green:
        colours_.SetGreen(number);
        break;
    case RtfAction::Blue:
        colours_.SetBlue(number);
        break;
    case RtfAction::CodePage:
        codePage_ = number;
        break;
    case RtfAction::FixedCodePage:
        codePage_ = word.value;
        break;
    case RtfAction::DefaultFont:
        defaultFont_ = number;
        state_.look.font = number;
        break;
    default:
        break;
    }
}

void Reader::FontChosen(int number) {
    if (state_.destination == Destination::FontTable)
        fonts_.Begin(number, codePage_);
    else
        state_.look.font = number;
}

void Reader::Symbol(char symbol) {
    if (symbol == '*') {
        starred_ = true;
        return;
    }
    if (SkipOne())
        return;
    switch (symbol) {
    case '\\':
    case '{':
    case '}':
        Bytes({&symbol, 1});
        break;
    case '~':
        Show(u'\u00A0');
        break;
    case '-':
        Show(u'\u00AD');
        break;
    case '_':
        Show(u'\u2011');
        break;
    case '\t':
        Show(u'\t');
        break;
    case '\r':
    case '\n':
        InText(RtfAction::Break, 0);
        break;
    default:
        break;
    }
}

// --- Text

// What stands behind a `\u` for readers that do not know it; a word or a symbol counts as one.
bool Reader::SkipOne() {
    if (skip_ == 0)
        return false;
    --skip_;
    return true;
}

void Reader::Unicode(int number) {
    const auto unit = static_cast<char16_t>(static_cast<unsigned>(number) & 0xFFFFU);
    constexpr std::u16string_view kBreaks = u"\r\n\u2028\u2029\uFDD0\uFDD1";
    if (kBreaks.find(unit) != std::u16string_view::npos)
        InText(RtfAction::Break, 0);
    else
        Show(unit);
    skip_ = state_.unicodeSkip;
}

void Reader::FlushLead() {
    if (std::exchange(lead_, '\0') != 0 && Shows())
        writer_.Append(u"\uFFFD", state_.look, state_.paragraph);
}

void Reader::Bytes(std::string_view bytes) {
    const auto skipped = std::min(static_cast<std::size_t>(skip_), bytes.size());
    skip_ -= static_cast<int>(skipped);
    bytes.remove_prefix(skipped);
    if (bytes.empty())
        return;
    if (state_.destination == Destination::FontTable)
        fonts_.AddName(bytes);
    else if (state_.destination == Destination::ColourTable)
        colours_.AddSeparators(bytes);
    if (!Shows())
        return;
    const int page = fonts_.CodePage(state_.look.font, codePage_);
    const auto first = static_cast<unsigned char>(bytes.front());
    if (IsDoubleByte(page) && bytes.size() == 1 && lead_ == 0 && first >= 0x80) {
        lead_ = bytes.front(); // the second byte comes with the next piece
        return;
    }
    if (lead_ != 0) {
        joined_.assign(1, std::exchange(lead_, '\0'));
        joined_.append(bytes);
        bytes = joined_;
    }
    decoded_.clear();
    AppendDecoded(decoded_, bytes, page);
    // Control characters have no place in a paragraph, and a break given as a byte is a break.
    std::size_t at = 0;
    while (at < decoded_.size()) {
        const auto* const stop = std::find_if(decoded_.data() + at, decoded_.data() + decoded_.size(),
                                              [](char16_t c) { return c < u' ' && c != u'\t'; });
        const auto end = static_cast<std::size_t>(stop - decoded_.data());
        writer_.Append(std::u16string_view(decoded_).substr(at, end - at), state_.look, state_.paragraph);
        if (end < decoded_.size() && (decoded_[end] == u'\r' || decoded_[end] == u'\n'))
            writer_.Break(state_.look, state_.paragraph);
        at = end + 1;
    }
}

} // namespace

bool IsRtf(std::string_view bytes) {
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kMark))
        bytes.remove_prefix(kMark.size());
    bytes.remove_prefix(std::min(bytes.find_first_not_of(" \t\r\n"), bytes.size()));
    return bytes.starts_with("{\\rtf");
}

RichText ReadRtf(std::string_view bytes) {
    return Reader(bytes.substr(std::min(bytes.find('{'), bytes.size()))).Read();
}

} // namespace quillshift
