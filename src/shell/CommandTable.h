#pragma once

#include <span>
#include <string_view>

namespace quillshift {

enum class CommandStyle { Normal, Separator, Check };

/// Bits of a shortcut's modifiers.
enum ShortcutModifier : unsigned { kNoModifier = 0, kShift = 1, kCtrl = 2, kAlt = 4 };

/// One entry of the menus. The key is its identity, its place in the tree and the way to its handler: its
/// parent is the key without its last segment.
struct CommandEntry {
    std::string_view key;
    std::u16string_view caption;
    CommandStyle style = CommandStyle::Normal;
    std::string_view shortcutKey = {}; ///< a letter or "F1" to "F12"; empty for none
    unsigned shortcutModifiers = kNoModifier;
};

/// All entries of the menu, in the order in which they stand there.
std::span<const CommandEntry> CommandTable();

/// The key without its last segment; empty for a root.
constexpr std::string_view ParentKey(std::string_view key) {
    const auto colon = key.rfind(':');
    return colon == std::string_view::npos ? std::string_view() : key.substr(0, colon);
}

} // namespace quillshift
