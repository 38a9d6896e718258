#pragma once

#include "commandbar/cButtonInt.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quillshift {

class cButtons;
class cCommandBars;
class PanelControl;

/// One entry of the menu or of a toolbar. Its key is its identity, its place in the tree and the way to its
/// handler: the parent is the key without the last segment.
struct CatalogueEntry {
    std::string_view Key;
    int IconIndex = -1; ///< in the icon list of its bar; -1 none
    std::u16string_view Caption;
    ButtonStyle Style = ButtonStyle::Normal;
    std::u16string_view ToolTip = {};
    std::int16_t ShortcutKey = 0; ///< virtual key code; 0 none
    int ShortcutModifiers = modifier::kCtrl;
};

/// All entries, in the order in which they stand on their bars: the menu's headings, the menus, the standard
/// toolbar, the recoding toolbar.
std::span<const CatalogueEntry> Catalogue();

/// The key without its last segment; empty for a root.
constexpr std::string_view ParentKey(std::string_view key) {
    const auto colon = key.rfind(':');
    return colon == std::string_view::npos ? std::string_view() : key.substr(0, colon);
}

/// The segments of a key, between its colons.
std::vector<std::string_view> SplitKey(std::string_view key);

/// Makes a button of each entry. `cmbDecode`, the list of directions, takes its place as a panel.
void AddCatalogue(const cButtons& buttons, PanelControl& cmbDecode);
/// Makes the bars from the keys of the buttons: each key with others below it gets a bar under its own key,
/// which its button opens; "MENU", "TOOLBAR" and "TOOLBAR2" are the bars that the window shows.
void BuildBars(const cButtons& buttons, const cCommandBars& bars);

enum class CatalogueIcons { Menu, ToolbarSmall, ToolbarLarge, DecodeSmall, DecodeLarge };

struct IconFile {
    std::string_view key;
    std::u16string_view file;
};

/// What an icon list is made from: square icons of `size` pixels, in the order that `IconIndex` counts.
struct IconListSource {
    int size = 0;
    std::u16string_view folder; ///< below the program's folder, a slash at both ends
    std::span<const IconFile> icons;
};
IconListSource IconsOf(CatalogueIcons list);

} // namespace quillshift
