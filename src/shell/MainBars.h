#pragma once

#include "base/Twips.h"
#include "commandbar/icons/clsImageList.h"
#include "commandbar/qsCommandBar.h"
#include "shell/MainView.h"

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillshift {

enum class ToolBarIcons { Small, Large };

/// The height of a toolbar by the design.
constexpr Twips ToolBarHeight(ToolBarIcons icons) {
    return icons == ToolBarIcons::Large ? 435_twips : 375_twips;
}

/// The command bars of the main window: menu (0), standard toolbar (1), recoding toolbar (2), and whatever
/// popups they open; with the icons and the whole catalogue on them.
class MainBars {
public:
    /// The icon files lie below `programFolder`.
    MainBars(mCommandBars& toolkit, MainView& window, FileSystem& files, std::u16string programFolder);

    std::function<void(std::string_view key)> OnClick; ///< a button was chosen
    std::function<void()> OnMenuResize;                ///< the menu may have another number of rows

    /// Makes the buttons of the catalogue, and the bars from their keys.
    void Build();
    /// "System" and "OfficeXP" name a style; any other text leaves it.
    void ApplyStyle(std::u16string_view style);
    void AttachMenu();
    void AttachToolBar(int bar, ToolBarIcons icons);

    /// Shows or hides bar 1 or 2.
    void Show(int bar, bool visible);
    bool IsShown(int bar) const { return shown_[bar]; }
    /// Extent of a bar: of the menu, which wraps to further rows in a narrow window, or of a toolbar, which
    /// is at least as high as the design has it.
    Twips Height(int bar) const;

    /// Opens one of the menus at a point of the screen.
    void ShowMenu(std::string_view barKey, Point screen);

    cButton Button(std::string_view key) const { return cmdBar_[0]->Buttons().Item(key); }
    qsCommandBar& Bar(int index) { return *cmdBar_[static_cast<std::size_t>(index)]; }

private:
    /// The pictures of a bar, from their files at the first call.
    ImageListHandle Icons(int bar, ToolBarIcons size);
    qsCommandBar& AddControl(BarWindow& window);
    void OnRightClick(qsCommandBar& control, Point at);

    using IconsKey = std::pair<int, ToolBarIcons>; // by bar and size

    mCommandBars& toolkit_;
    MainView& window_;
    FileSystem& files_;
    std::u16string programFolder_;
    bool shown_[3] = {true, false, false};
    std::map<IconsKey, clsImageList> icons_;
    std::vector<std::unique_ptr<qsCommandBar>> cmdBar_; // the three, then the popups
};

} // namespace quillshift
