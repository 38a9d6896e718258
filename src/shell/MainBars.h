#pragma once

#include "commandbar/icons/clsImageList.h"
#include "commandbar/qsCommandBar.h"
#include "shell/MainView.h"

#include <array>
#include <functional>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

namespace quillshift {

enum class CatalogueIcons;

/// The command bars of the main window: menu, standard toolbar, recoding toolbar, and whatever popups they
/// open; with the icons and the whole catalogue on them.
class MainBars {
public:
    struct Host {
        std::array<BarWindow*, 3> windows;                  ///< of the bars, in this order
        std::function<BarWindow&()> popupWindow;            ///< makes the window for one more popup
        PanelControl& cmbDecode;                            ///< the list of directions
        std::function<void(std::string_view key)> dispatch; ///< runs the command of a button
        std::function<void()> beforeShortcut;               ///< the commands' states are about to count
        std::function<void()> menuResized;                  ///< the menu may have another number of rows
        FileSystem& files;
        std::u16string programFolder; ///< the icon files lie below it
        int density;                  ///< device pixels per logical pixel, rounded up
    };

    MainBars(mCommandBars& bars, Host host);

    /// Loads the icons, makes the buttons of the catalogue, and the bars from their keys.
    void Build();
    /// "System" and "OfficeXP" name a style; any other text leaves it.
    void ApplyStyle(std::u16string_view style);
    void AttachMenu();
    /// 1: the standard toolbar, 2: the recoding toolbar.
    void AttachToolBar(int bar, ToolBarIcons icons);

    /// Opens one of the menus at a point of the screen.
    void ShowMenu(std::string_view barKey, Point screen);

    cButton Button(std::string_view key) { return cmdBar_[0]->Buttons().Item(key); }
    qsCommandBar& Bar(int index) { return *cmdBar_[static_cast<std::size_t>(index)]; }

private:
    void LoadIcons(CatalogueIcons list);
    qsCommandBar& AddControl(BarWindow& window);
    void OnRightClick(qsCommandBar& control, Point at);

    mCommandBars& bars_;
    Host host_;
    std::map<CatalogueIcons, clsImageList> icons_;
    std::vector<std::unique_ptr<qsCommandBar>> cmdBar_; // the three, then the popups
};

} // namespace quillshift
