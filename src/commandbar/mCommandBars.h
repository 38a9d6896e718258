#pragma once

#include "commandbar/CommandBarHandles.h"
#include "commandbar/CommandBarModel.h"
#include "commandbar/MenuMode.h"
#include "commandbar/mCommandBarColours.h"
#include "commandbar/mHooks.h"
#include "controls/hooks/MSubclass.h"
#include "platform/BarWindow.h"
#include "platform/SystemColours.h"
#include "platform/Timer.h"

#include <functional>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace quillshift {

class qsCommandBar;

/// What the toolkit needs of the machine. All of it outlives the toolkit.
struct BarServices {
    BarSystem& system;
    WindowMessages& windows;
    MSubclass& subclass;
    const SystemColours& colours;
    const ThemeService& theme;
    Timers& timers;
};

/// All that the bars of the process share: the model, the colours, menu mode, the list of controls and the
/// pool of popups. The first control opens it and the last one closes it.
class mCommandBars final : private ControlDirectory, private MenuModeHost {
public:
    explicit mCommandBars(const BarServices& services);
    ~mCommandBars() override;
    mCommandBars(const mCommandBars&) = delete;
    mCommandBars& operator=(const mCommandBars&) = delete;

    const BarServices& Services() const { return services_; }
    CommandBarModel& Model() { return model_; }
    mCommandBarColours& Colours() { return colours_; }
    const MenuState& Menu() const { return menu_; }
    MenuTracking& Tracking() { return tracking_; }

    /// Raised before a key is matched with shortcuts, which count for enabled buttons only.
    std::function<void()> BeforeShortcut;
    /// Further shortcuts that do what others do, and are shown nowhere.
    struct ShortcutAlias {
        int key, modifiers;
        int meansKey, meansModifiers;
    };
    std::span<const ShortcutAlias> Aliases;
    /// Menus leave out what is rarely used.
    bool HideInfrequentlyUsed = false;

    BarStyle Style() const { return colours_.Style(); }
    /// Another style repaints every control.
    void SetStyle(BarStyle style);
    /// Overrides a colour of the table, or no longer does, and repaints every control.
    void SetCustomColor(int slot, std::optional<Colour> colour);

    void Register(qsCommandBar& control);
    void Unregister(qsCommandBar& control);
    qsCommandBar* Find(WindowId control) const;

    /// A control for one more popup, marked in use: one from the pool, or a new one of the host's. Null if
    /// the host gives none.
    qsCommandBar* ObtainPopup();
    /// Whether this is another item than the one of the call before.
    bool IsNewlyHot(WindowId control, const BarPath& path) {
        return std::exchange(hot_, {control, path}) != std::pair(control, path);
    }

private:
    void RepaintAll();
    BarControl* ControlOf(WindowId window) const override;

    std::vector<MenuControl> Controls() const override;
    void SetEnabled(WindowId control, bool enabled) override;
    std::vector<WindowId> OpenMenus(WindowId control) const override;
    void ForgetMenu(WindowId control, WindowId menu) override;
    void AnnounceClosed(WindowId popup) override;
    void HidePopup(WindowId popup) override;
    void ClearHot(WindowId control) override;
    void MakeFirstItemHot(WindowId control) override;
    void DeliverKey(WindowId control, int key) override;
    bool RunShortcut(int key, int modifiers) override;
    WindowId ForegroundWindow() const override;
    void WatchPresses(bool on) override { services_.system.WatchPresses(on); }
    WindowId WindowUnderPointer() const override;
    bool HasItemUnderPointer(WindowId control) const override;

    BarServices services_;
    CommandBarModel model_;
    mCommandBarColours colours_;
    MenuState menu_;
    MenuTracking tracking_;
    mHooks hooks_;
    std::vector<qsCommandBar*> controls_; // in order of registration
    std::vector<qsCommandBar*> pool_;     // those of them ever taken for a popup
    std::pair<WindowId, BarPath> hot_;    // the item that was announced last
};

} // namespace quillshift
