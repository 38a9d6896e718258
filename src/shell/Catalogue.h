#pragma once

#include "commandbar/cButtonInt.h"
#include "shell/Command.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace quillshift {

class cButtons;
class cCommandBars;
class PanelControl;

/// A picture of an entry: its key in the icon list of its bar, and its file.
struct Picture {
    std::string_view key;
    std::u16string_view file; ///< empty: none
};

/// One place on the menu or on a toolbar, and the command that it runs. Its key is its identity and its place
/// in the tree: the parent is the key without the last segment.
struct CatalogueEntry {
    std::string_view Key;
    std::u16string_view Caption = {};
    bool showsCaption = false; ///< beside the picture, or in its stead
    Picture picture = {};
    ButtonStyle Style = ButtonStyle::Normal;
    std::u16string_view ToolTip = {};
    std::int16_t ShortcutKey = 0; ///< virtual key code; 0 none
    int ShortcutModifiers = modifier::kCtrl;
    Action action = {};
};

/// All entries, in the order in which they stand on their bars: the menu's headings, the menus, the standard
/// toolbar, the recoding toolbar. The pictures of a bar's icon list are those of its entries, in this order.
std::span<const CatalogueEntry> Catalogue();
/// Null for a key that is not in the catalogue.
const CatalogueEntry* FindEntry(std::string_view key);

/// The key without its last segment; empty for a root.
constexpr std::string_view ParentKey(std::string_view key) {
    const auto colon = key.rfind(':');
    return colon == std::string_view::npos ? std::string_view() : key.substr(0, colon);
}
/// The first segment: "MENU", "TOOLBAR" or "TOOLBAR2".
constexpr std::string_view RootOf(std::string_view key) {
    return key.substr(0, key.find(':'));
}
/// The segments of a key, between its colons.
std::vector<std::string_view> SplitKey(std::string_view key);

/// Makes a button of each entry. `cmbDecode`, the list of directions, takes its place as a panel.
void AddCatalogue(const cButtons& buttons, PanelControl& cmbDecode);
/// Makes the bars from the keys of the buttons: each key with others below it gets a bar under its own key,
/// which its button opens; "MENU", "TOOLBAR" and "TOOLBAR2" are the bars that the window shows.
void BuildBars(const cButtons& buttons, const cCommandBars& bars);

} // namespace quillshift
