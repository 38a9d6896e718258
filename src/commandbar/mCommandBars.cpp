#include "commandbar/mCommandBars.h"

#include "commandbar/qsCommandBar.h"

#include <algorithm>

namespace quillshift {
namespace {

constexpr std::string_view kControlProperty = "qsCommandBar:Control";

} // namespace

mCommandBars::mCommandBars(const BarServices& services)
    : services_(services),
      model_(*this),
      colours_(services.colours, services.theme),
      tracking_(menu_, *this),
      hooks_(menu_, tracking_, *this) {}

mCommandBars::~mCommandBars() = default;

void mCommandBars::Register(qsCommandBar& control) {
    if (controls_.empty()) {
        colours_.Start();
        model_.Open();
        services_.system.SetInputFilter(&hooks_);
    }
    services_.windows.SetProperty(control.Window(), kControlProperty,
                                  AsValue(static_cast<BarControl*>(&control)));
    controls_.push_back(&control);
    control.ApplyIconColours();
}

void mCommandBars::Unregister(qsCommandBar& control) {
    if (controls_.size() == 1)
        tracking_.EndMenuMode();
    services_.windows.SetProperty(control.Window(), kControlProperty, 0);
    std::erase(controls_, &control);
    std::erase(pool_, &control);
    if (!controls_.empty())
        return;
    services_.system.SetInputFilter(nullptr);
    model_.Close();
}

qsCommandBar* mCommandBars::Find(WindowId control) const {
    const auto found = std::ranges::find(controls_, control, &qsCommandBar::Window);
    return found == controls_.end() ? nullptr : *found;
}

void mCommandBars::SetStyle(BarStyle style) {
    if (colours_.SetStyle(style))
        RepaintAll();
}

void mCommandBars::SetCustomColor(int slot, std::optional<Colour> colour) {
    colours_.SetCustomColor(slot, colour);
    RepaintAll();
}

void mCommandBars::RepaintAll() {
    for (qsCommandBar* const control : controls_) {
        control->ApplyIconColours();
        control->Repaint();
    }
}

qsCommandBar* mCommandBars::ObtainPopup() {
    // One that is about to close is no longer in use, but still open.
    auto found = std::ranges::find_if(pool_, [this](const qsCommandBar* popup) {
        return !popup->InUse && menu_.popups.Find(popup->Window()) == nullptr;
    });
    if (found == pool_.end()) {
        if (controls_.empty() || !controls_.front()->RequestNewInstance)
            return nullptr;
        qsCommandBar* const made = controls_.front()->RequestNewInstance();
        if (made == nullptr)
            return nullptr;
        found = pool_.insert(pool_.end(), made);
    }
    (*found)->InUse = true;
    return *found;
}

// --- What the model asks

BarControl* mCommandBars::ControlOf(WindowId window) const {
    return AsAddress<BarControl>(services_.windows.Property(window, kControlProperty));
}

// --- What menu mode asks

std::vector<MenuControl> mCommandBars::Controls() const {
    std::vector<MenuControl> controls;
    controls.reserve(controls_.size());
    for (const qsCommandBar* control : controls_)
        controls.push_back({.window = control->Window(),
                            .topWindow = control->TopWindow(),
                            .isPopup = control->IsPopup(),
                            .isMainMenu = control->MainMenu(),
                            .enabled = control->Enabled()});
    return controls;
}

void mCommandBars::SetEnabled(WindowId control, bool enabled) {
    if (qsCommandBar* const found = Find(control))
        found->SetEnabled(enabled);
}

std::vector<WindowId> mCommandBars::OpenMenus(WindowId control) const {
    const qsCommandBar* const found = Find(control);
    return found ? found->OpenMenus() : std::vector<WindowId>();
}

void mCommandBars::ForgetMenu(WindowId control, WindowId menu) {
    if (qsCommandBar* const found = Find(control))
        found->ForgetMenu(menu);
}

void mCommandBars::AnnounceClosed(WindowId popup) {
    if (qsCommandBar* const found = Find(popup))
        found->AnnounceClosed();
}

void mCommandBars::HidePopup(WindowId popup) {
    if (qsCommandBar* const found = Find(popup))
        found->HidePopup();
}

void mCommandBars::ClearHot(WindowId control) {
    if (qsCommandBar* const found = Find(control))
        found->MakeHot(std::nullopt);
}

void mCommandBars::MakeFirstItemHot(WindowId control) {
    if (qsCommandBar* const found = Find(control))
        found->MakeFirstItemHot();
}

void mCommandBars::DeliverKey(WindowId control, int key) {
    if (qsCommandBar* const found = Find(control))
        found->OnMenuKey(key);
}

bool mCommandBars::RunShortcut(int key, int modifiers) {
    if (BeforeShortcut)
        BeforeShortcut();
    for (const ShortcutAlias& alias : Aliases)
        if (alias.key == key && alias.modifiers == modifiers)
            return RunShortcut(alias.meansKey, alias.meansModifiers);
    const WindowId top = ForegroundWindow();
    const auto match = top != 0 ? model_.FindShortcut(top, key, modifiers) : std::nullopt;
    qsCommandBar* const control = match ? Find(match->control) : nullptr;
    if (control == nullptr)
        return false;
    control->OnShortcut(*match->button);
    return true;
}

WindowId mCommandBars::ForegroundWindow() const {
    return services_.system.ForegroundWindow();
}

WindowId mCommandBars::WindowUnderPointer() const {
    return services_.system.WindowUnderPointer();
}

bool mCommandBars::HasItemUnderPointer(WindowId control) const {
    const qsCommandBar* const found = Find(control);
    return found && found->HasItemAt(services_.system.PointerPosition());
}

} // namespace quillshift
