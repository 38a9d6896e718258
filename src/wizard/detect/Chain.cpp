#include "wizard/detect/Chain.h"

#include <algorithm>

namespace quillshift::wizard {

namespace {

bool CanBeLayer(const Layer& layer) {
    return (IsSingleByte(layer.writtenIn) || layer.writtenIn == Set::Utf8) && IsSingleByte(layer.readAs) &&
           layer.writtenIn != layer.readAs;
}

std::optional<Layer> LayerFrom(std::string_view text) {
    const std::size_t arrow = text.find('>');
    if (arrow == text.npos)
        return std::nullopt;
    const auto writtenIn = SetNamed(text.substr(0, arrow));
    const auto readAs = SetNamed(text.substr(arrow + 1));
    if (!writtenIn || !readAs || !CanBeLayer({*writtenIn, *readAs}))
        return std::nullopt;
    return Layer{*writtenIn, *readAs};
}

std::uint16_t Unit(std::string_view bytes, std::size_t at, bool big) {
    const auto first = static_cast<std::uint8_t>(bytes[at]);
    const auto second = static_cast<std::uint8_t>(bytes[at + 1]);
    return static_cast<std::uint16_t>(big ? first << 8 | second : second << 8 | first);
}

std::string DecodeUtf16(std::string_view bytes, bool big, std::size_t& lost) {
    std::string text;
    std::size_t at = 0;
    for (; at + 1 < bytes.size(); at += 2) {
        std::uint32_t character = Unit(bytes, at, big);
        if (character >= 0xD800 && character < 0xE000) {
            const std::uint32_t low = at + 3 < bytes.size() ? Unit(bytes, at + 2, big) : 0;
            if (character < 0xDC00 && low >= 0xDC00 && low < 0xE000) {
                character = 0x10000 + ((character - 0xD800) << 10) + (low - 0xDC00);
                at += 2;
            } else {
                character = lostMark;
                ++lost;
            }
        }
        AppendUtf8(text, character);
    }
    if (at < bytes.size()) {
        AppendUtf8(text, lostMark);
        ++lost;
    }
    return text;
}

std::string EncodeUtf16(std::string_view text, bool big) {
    std::string bytes;
    const auto add = [&](std::uint32_t unit) {
        bytes += static_cast<char>(big ? unit >> 8 : unit);
        bytes += static_cast<char>(big ? unit : unit >> 8);
    };
    for (std::size_t at = 0; at < text.size();) {
        const auto character = static_cast<std::uint32_t>(NextUtf8(text, at));
        if (character < 0x10000) {
            add(character);
        } else {
            add(0xD800 + ((character - 0x10000) >> 10));
            add(0xDC00 + ((character - 0x10000) & 0x3FF));
        }
    }
    return bytes;
}

/// Writes text in a single-byte set; a character that the set can't hold becomes the byte `substitute`.
std::string EncodeLoosely(Set set, std::string_view text, char substitute, std::size_t& lost) {
    std::string bytes;
    for (std::size_t at = 0; at < text.size();) {
        const std::int32_t character = NextUtf8(text, at);
        const int byte =
            character < 0 || character > 0xFFFF ? -1 : ByteOf(set, static_cast<char16_t>(character));
        lost += byte < 0;
        bytes += byte < 0 ? substitute : static_cast<char>(byte);
    }
    return bytes;
}

std::string DecodeLossyUtf8(std::string_view bytes, std::size_t& lost) {
    std::string text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const std::int32_t character = NextLossyUtf8(bytes, at);
        lost += character < 0;
        AppendUtf8(text, character < 0 ? lostMark : static_cast<std::uint32_t>(character));
    }
    return text;
}

} // namespace

std::string ToString(const Chain& chain) {
    const std::string debris = chain.debris ? "+" + std::string(NameOf(*chain.debris)) : "";
    if (chain.layers.empty())
        return std::string(NameOf(chain.stored)) + debris;
    std::string text;
    for (const Layer& layer : chain.layers)
        text.append(text.empty() ? "" : ",")
            .append(NameOf(layer.writtenIn))
            .append(">")
            .append(NameOf(layer.readAs));
    if (chain.stored != Set::Utf8)
        text.append("@").append(NameOf(chain.stored));
    return text + debris;
}

std::optional<Chain> ChainFrom(std::string_view text) {
    Chain chain;
    if (const std::size_t plus = text.find('+'); plus != text.npos) {
        chain.debris = DebrisNamed(text.substr(plus + 1));
        if (!chain.debris)
            return std::nullopt;
        text = text.substr(0, plus);
    }
    if (text.find('>') == text.npos) {
        const auto set = SetNamed(text);
        return set ? std::optional(Chain{*set, {}, chain.debris}) : std::nullopt;
    }
    if (const std::size_t at = text.find('@'); at != text.npos) {
        const auto set = SetNamed(text.substr(at + 1));
        if (!set || set == Set::Utf8)
            return std::nullopt;
        chain.stored = *set;
        text = text.substr(0, at);
    }
    while (true) {
        const std::size_t comma = text.find(',');
        const auto layer = LayerFrom(text.substr(0, comma));
        if (!layer || chain.layers.size() == deepestChain)
            return std::nullopt;
        chain.layers.push_back(*layer);
        if (comma == text.npos)
            return chain;
        text = text.substr(comma + 1);
    }
}

std::string Decode(Set set, std::string_view bytes, std::size_t& lost) {
    if (set == Set::Utf16Le || set == Set::Utf16Be)
        return DecodeUtf16(bytes, set == Set::Utf16Be, lost);
    std::string text;
    text.reserve(2 * bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        std::int32_t character = 0;
        if (set == Set::Utf8)
            character = NextUtf8(bytes, at);
        else
            character = CharacterOf(set, static_cast<std::uint8_t>(bytes[at++]));
        lost += character < 0;
        AppendUtf8(text, character < 0 ? lostMark : static_cast<std::uint32_t>(character));
    }
    return text;
}

std::optional<std::string> Encode(Set set, std::string_view text) {
    if (set == Set::Utf8)
        return std::string(text);
    if (!IsSingleByte(set))
        return EncodeUtf16(text, set == Set::Utf16Be);
    std::size_t lost = 0;
    std::string bytes = EncodeLoosely(set, text, '?', lost);
    return lost == 0 ? std::optional(std::move(bytes)) : std::nullopt;
}

Undone Undo(const Chain& chain, std::string_view bytes) {
    Undone undone;
    std::string plain;
    if (chain.debris)
        bytes = plain = UndoDebris(*chain.debris, bytes);
    undone.text = Decode(chain.stored, bytes, undone.lost);
    std::for_each(chain.layers.rbegin(), chain.layers.rend(), [&](const Layer& layer) {
        // In UTF-8 a byte that never stands there marks the loss; elsewhere a question mark says as much.
        const char substitute = layer.writtenIn == Set::Utf8 ? '\xFF' : '?';
        std::size_t inStep = 0;
        const std::string before = EncodeLoosely(layer.readAs, undone.text, substitute, inStep);
        if (layer.writtenIn != Set::Utf8)
            undone.lost += inStep;
        undone.text = layer.writtenIn == Set::Utf8 ? DecodeLossyUtf8(before, undone.lost)
                                                   : Decode(layer.writtenIn, before, undone.lost);
    });
    return undone;
}

std::optional<std::string> Garble(const Chain& chain, std::string_view text, LatinReader latin) {
    if (chain.debris)
        return std::nullopt;
    std::string garbled(text);
    for (const Layer& layer : chain.layers) {
        const auto bytes = Encode(layer.writtenIn, garbled);
        if (!bytes)
            return std::nullopt;
        if (layer.readAs == Set::Latin && latin == LatinReader::Iso88591) {
            garbled.clear();
            for (const char byte : *bytes)
                AppendUtf8(garbled, static_cast<std::uint8_t>(byte));
        } else {
            std::size_t lost = 0;
            garbled = Decode(layer.readAs, *bytes, lost);
        }
    }
    return Encode(chain.stored, garbled);
}

bool Proves(const Chain& chain, std::string_view text, std::string_view bytes) {
    std::string plain;
    Chain inner = chain;
    if (chain.debris) {
        bytes = plain = UndoDebris(*chain.debris, bytes);
        inner.debris.reset();
    }
    return Garble(inner, text) == bytes || Garble(inner, text, LatinReader::Iso88591) == bytes;
}

} // namespace quillshift::wizard
