#pragma once

#include <string_view>

namespace quillshift {

/// What a control word does.
enum class RtfAction {
    Unknown,
    // The text
    Character, ///< stands for the character in `value`
    Break,
    Cell,
    Row,
    Unicode,
    UnicodeSkip,
    // How characters look; a parameter of 0 takes a switch away
    Plain,
    Font,
    FontSize,
    Bold,
    Italic,
    Underline,
    NoUnderline,
    Strike,
    Superscript,
    Subscript,
    NoScript,
    Raise,
    Lower,
    Hidden,
    Colour,
    Background,
    // How paragraphs are set
    ParagraphDefault,
    Left,
    Right,
    Centre,
    Justified,
    LeftIndent,
    RightIndent,
    FirstIndent,
    SpaceBefore,
    SpaceAfter,
    TabStop,
    // Where text goes
    FontTable,
    ColourTable,
    Skip,      ///< a destination that is not shown
    Container, ///< not shown but for what a `Shown` within it holds
    Shown,
    // The tables
    FontCharset,
    Red,
    Green,
    Blue,
    // The document
    CodePage,
    FixedCodePage, ///< the page in `value`
    DefaultFont,
};

struct RtfWord {
    std::string_view name;
    RtfAction action = RtfAction::Unknown;
    int value = 0;
};

/// The entry of a control word, `Unknown` for one that is not heeded.
RtfWord FindRtfWord(std::string_view name);

} // namespace quillshift
