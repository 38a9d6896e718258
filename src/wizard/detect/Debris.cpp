#include "wizard/detect/Debris.h"

#include "wizard/detect/Chain.h"

#include <algorithm>
#include <array>

namespace quillshift::wizard {

namespace {

constexpr std::array<std::string_view, 6> names = {"quoted-printable", "base64",  "words",
                                                   "entities",         "escapes", "percent"};
constexpr std::string_view base64Digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int HexDigit(char c) {
    return c >= '0' && c <= '9'   ? c - '0'
           : c >= 'A' && c <= 'F' ? c - 'A' + 10
           : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                  : -1;
}

/// A number of so many hexadecimal digits at a place; -1 where they are none.
std::int32_t Hex(std::string_view text, std::size_t at, std::size_t digits) {
    if (at + digits > text.size())
        return -1;
    std::int32_t number = 0;
    for (std::size_t i = at; i < at + digits; ++i) {
        const int digit = HexDigit(text[i]);
        if (digit < 0)
            return -1;
        number = number * 16 + digit;
    }
    return number;
}

/// A piece that was read back: how long it was, and what it says.
struct Piece {
    std::size_t length = 0;
    std::string plain;
};

Piece ByteAfter(std::string_view text, std::size_t at) {
    const std::int32_t byte = Hex(text, at + 1, 2);
    return byte < 0 ? Piece{} : Piece{3, std::string(1, static_cast<char>(byte))};
}

Piece QuotedPiece(std::string_view text, std::size_t at) {
    if (text[at] != '=')
        return {};
    if (text.substr(at + 1, 1) == "\n")
        return {2, ""};
    if (text.substr(at + 1, 2) == "\r\n")
        return {3, ""};
    return ByteAfter(text, at);
}

Piece EntityPiece(std::string_view text, std::size_t at) {
    if (text.substr(at, 2) != "&#")
        return {};
    const bool hex = text.substr(at + 2, 1) == "x" || text.substr(at + 2, 1) == "X";
    std::size_t end = at + (hex ? 3 : 2);
    std::uint32_t character = 0;
    for (int digit = 0;
         end < text.size() && end < at + 10 && (digit = HexDigit(text[end])) >= 0 && (hex || digit < 10);
         ++end)
        character = character * (hex ? 16 : 10) + static_cast<std::uint32_t>(digit);
    const bool isCharacter =
        character >= 0x80 && character < 0x110000 && (character < 0xD800 || character > 0xDFFF);
    if (!isCharacter || end >= text.size() || text[end] != ';')
        return {};
    Piece piece{end + 1 - at, {}};
    AppendUtf8(piece.plain, character);
    return piece;
}

Piece EscapePiece(std::string_view text, std::size_t at) {
    if (text.substr(at, 2) != "\\u" || (at > 0 && text[at - 1] == '\\'))
        return {};
    std::int32_t character = Hex(text, at + 2, 4);
    std::size_t length = 6;
    if (character >= 0xD800 && character < 0xDC00 && text.substr(at + 6, 2) == "\\u") {
        const std::int32_t low = Hex(text, at + 8, 4);
        if (low < 0xDC00 || low > 0xDFFF)
            return {};
        character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
        length = 12;
    }
    if (character < 0x80 || (character >= 0xD800 && character < 0xE000))
        return {};
    Piece piece{length, {}};
    AppendUtf8(piece.plain, static_cast<std::uint32_t>(character));
    return piece;
}

Piece PercentPiece(std::string_view text, std::size_t at) {
    const bool high = text[at] == '%' && at + 1 < text.size() && HexDigit(text[at + 1]) >= 8;
    return high ? ByteAfter(text, at) : Piece{};
}

std::string FromBase64(std::string_view text) {
    std::string bytes;
    std::uint32_t bits = 0;
    int count = 0;
    for (const char c : text) {
        const std::size_t digit = base64Digits.find(c);
        if (digit == base64Digits.npos)
            continue;
        bits = bits << 6 | static_cast<std::uint32_t>(digit);
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += static_cast<char>(bits >> count);
        }
    }
    return bytes;
}

std::optional<Set> SetOfMail(std::string_view charset) {
    std::string name(charset);
    std::transform(name.begin(), name.end(), name.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
    if (name == "us-ascii" || name == "iso-8859-1")
        return Set::Latin;
    for (const std::string_view prefix : {"windows-", "ibm", "cp"})
        if (name.starts_with(prefix))
            name.erase(0, prefix.size());
    return name == "x-mac-cyrillic" ? Set::Mac : SetNamed(name);
}

/// Where the content of an encoded word that starts at `start` ends; npos where another word begins before
/// that.
std::size_t CloseOfWord(std::string_view text, std::size_t start) {
    for (std::size_t at = start; (at = text.find('?', at)) != text.npos; ++at) {
        if (text.substr(at + 1, 1) == "=")
            return at;
        if (at > start && text[at - 1] == '=')
            break;
    }
    return text.npos;
}

/// A mail header's encoded word, with the blanks to the next one. In the middle of a character a word can
/// end, so that the bytes of words in one set are read together.
Piece WordPiece(std::string_view text, std::size_t at) {
    std::size_t end = at;
    std::string bytes;
    std::optional<Set> set;
    while (text.substr(end, 2) == "=?") {
        const std::size_t charset = text.find('?', end + 2);
        if (charset == text.npos || charset - end > 30 || charset + 3 >= text.size() ||
            text[charset + 2] != '?')
            break;
        const std::size_t close = CloseOfWord(text, charset + 3);
        const auto wordSet = SetOfMail(text.substr(end + 2, charset - end - 2));
        if (close == text.npos || close - charset > 200000 || !wordSet || (set && set != wordSet))
            break;
        const std::string_view content = text.substr(charset + 3, close - charset - 3);
        if (text[charset + 1] == 'B' || text[charset + 1] == 'b') {
            bytes += FromBase64(content);
        } else {
            std::string spaced(content);
            std::replace(spaced.begin(), spaced.end(), '_', ' ');
            bytes += UndoDebris(Debris::QuotedPrintable, spaced);
        }
        set = wordSet;
        at = close + 2; // what follows belongs to it only if it leads to another word
        end = std::min(text.find_first_not_of(" \t\r\n", at), text.size());
    }
    std::size_t lost = 0;
    return set ? Piece{at, Decode(*set, bytes, lost)} : Piece{};
}

Piece PieceAt(Debris debris, std::string_view text, std::size_t at) {
    switch (debris) {
    case Debris::QuotedPrintable:
        return QuotedPiece(text, at);
    case Debris::EncodedWords: {
        Piece piece = WordPiece(text, at);
        piece.length -= piece.length == 0 ? 0 : at;
        return piece;
    }
    case Debris::Entities:
        return EntityPiece(text, at);
    case Debris::Escapes:
        return EscapePiece(text, at);
    case Debris::Percent:
        return PercentPiece(text, at);
    case Debris::Base64:
        break;
    }
    return {};
}

/// Lines of one length, but for the last; nothing but padding at the end.
bool IsBase64(std::string_view text) {
    constexpr std::size_t fewestDigits = 12, digitsAtATime = 4;
    std::size_t width = 0, all = 0;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find_first_of("\r\n"));
        const std::size_t digits = std::min(line.find_first_not_of(base64Digits), line.size());
        const std::size_t padding = line.size() - digits;
        text.remove_prefix(std::min(text.find_first_not_of("\r\n", line.size()), text.size()));
        width = width == 0 ? line.size() : width;
        all += digits;
        const bool whole = padding == 0 && line.size() == width && width % digitsAtATime == 0;
        if (!whole && (!text.empty() || line.size() > width || padding > 2 ||
                       line.substr(digits) != std::string_view("==").substr(0, padding)))
            return false;
    }
    return all >= fewestDigits;
}

} // namespace

std::string_view NameOf(Debris debris) {
    return names[static_cast<std::size_t>(debris)];
}

std::optional<Debris> DebrisNamed(std::string_view name) {
    for (std::size_t i = 0; i < names.size(); ++i)
        if (names[i] == name)
            return static_cast<Debris>(i);
    return std::nullopt;
}

std::string UndoDebris(Debris debris, std::string_view text) {
    if (debris == Debris::Base64)
        return FromBase64(text);
    std::string plain;
    for (std::size_t at = 0; at < text.size();) {
        const Piece piece = PieceAt(debris, text, at);
        plain += piece.length == 0 ? text.substr(at, 1) : piece.plain;
        at += std::max<std::size_t>(piece.length, 1);
    }
    return plain;
}

std::optional<Debris> FindDebris(std::string_view text) {
    if (text.find_first_of("=&\\%") == text.npos)
        return IsBase64(text) ? std::optional(Debris::Base64) : std::nullopt;
    for (const Debris debris : {Debris::EncodedWords, Debris::Entities, Debris::Escapes, Debris::Percent,
                                Debris::QuotedPrintable}) {
        std::size_t pieces = 0;
        for (std::size_t at = 0; at < text.size();) {
            const Piece piece = PieceAt(debris, text, at);
            const bool high = std::any_of(piece.plain.begin(), piece.plain.end(),
                                          [](char c) { return static_cast<std::uint8_t>(c) >= 0x80; });
            pieces += high ? debris == Debris::EncodedWords ? 4 : 1 : 0;
            at += std::max<std::size_t>(piece.length, 1);
        }
        if (pieces >= 4)
            return debris;
    }
    return IsBase64(text) ? std::optional(Debris::Base64) : std::nullopt;
}

} // namespace quillshift::wizard
