#include "shell/MainBars.h"

#include "commandbar/VirtualKeys.h"
#include "platform/Keys.h"
#include "shell/Catalogue.h"

#include <utility>

namespace quillshift {
namespace {

// What many hands still know from older editors.
constexpr mCommandBars::ShortcutAlias kOldChords[] = {
    {key::kDelete, modifier::kShift, 'X', modifier::kCtrl},
    {key::kInsert, modifier::kCtrl, 'C', modifier::kCtrl},
    {key::kInsert, modifier::kShift, 'V', modifier::kCtrl},
    {key::kBackspace, modifier::kAlt, 'Z', modifier::kCtrl},
    {'Z', modifier::kCtrl | modifier::kShift, FunctionKey(4), 0}};

constexpr std::string_view kRoots[] = {"MENU", "TOOLBAR", "TOOLBAR2"};

} // namespace

MainBars::MainBars(mCommandBars& toolkit, MainView& window, FileSystem& files, std::u16string programFolder)
    : toolkit_(toolkit), window_(window), files_(files), programFolder_(std::move(programFolder)) {
    for (const int bar : {0, 1, 2})
        AddControl(window.CmdBar(bar));
    cmdBar_[0]->Resize = [this, height = 0]() mutable {
        const int now = window_.CmdBar(0).ClientSize().height;
        if (std::exchange(height, now) != now && OnMenuResize)
            OnMenuResize();
    };
    toolkit_.Aliases = kOldChords;
}

qsCommandBar& MainBars::AddControl(BarWindow& window) {
    qsCommandBar& control = *cmdBar_.emplace_back(std::make_unique<qsCommandBar>(toolkit_, window));
    control.ButtonClick = [this](const cButton& button) { OnClick(button.Key()); };
    control.RightClick = [this, &control](const std::optional<cButton>& /*button*/, Point at) {
        OnRightClick(control, at);
    };
    control.RequestNewInstance = [this] { return &AddControl(window_.AddPopupWindow()); };
    control.MoreToolTip = u"Остальные кнопки";
    return control;
}

void MainBars::OnRightClick(qsCommandBar& control, Point at) {
    const auto shown = control.Toolbar();
    if (!shown || (shown->Key() != "TOOLBAR" && shown->Key() != "TOOLBAR2"))
        return;
    ShowMenu("MENU:VIEW:TOOLBARS", control.ClientCoordinatesToScreen(at));
}

void MainBars::ShowMenu(std::string_view barKey, Point screen) {
    cmdBar_[0]->ShowPopupMenu(screen, cmdBar_[0]->CommandBars().Item(barKey));
}

ImageListHandle MainBars::Icons(int bar, ToolBarIcons size) {
    const auto [found, isNew] = icons_.try_emplace(IconsKey(bar, size), files_, toolkit_.Services().colours);
    clsImageList& icons = found->second;
    if (!isNew)
        return icons.hIml();
    icons.IconSizeX = icons.IconSizeY = size == ToolBarIcons::Large ? 24 : 16;
    icons.Density = window_.Density();
    icons.Create();
    const std::u16string folder =
        programFolder_ + (bar == 0                      ? u"/Data/icons/menu/"
                          : size == ToolBarIcons::Large ? u"/Data/icons/toolbars/large/"
                                                        : u"/Data/icons/toolbars/small/");
    for (const CatalogueEntry& entry : Catalogue())
        if (RootOf(entry.Key) == kRoots[bar] && !entry.picture.file.empty())
            icons.AddFromFile(folder + std::u16string(entry.picture.file), clsImageList::ImageType::Icon,
                              entry.picture.key);
    return icons.hIml();
}

void MainBars::Build() {
    AddCatalogue(cmdBar_[0]->Buttons(), window_.CmbDecode());
    BuildBars(cmdBar_[0]->Buttons(), cmdBar_[0]->CommandBars());
}

void MainBars::ApplyStyle(std::u16string_view style) {
    if (style == u"System")
        toolkit_.SetStyle(BarStyle::System);
    else if (style == u"OfficeXP")
        toolkit_.SetStyle(BarStyle::OfficeXP);
}

void MainBars::AttachMenu() {
    qsCommandBar& menu = *cmdBar_[0];
    menu.SetMainMenu(true);
    menu.SetMenuImageList(Icons(0, ToolBarIcons::Small));
    menu.SetToolbar(menu.CommandBars().Item(kRoots[0]));
}

void MainBars::AttachToolBar(int bar, ToolBarIcons icons) {
    qsCommandBar& control = Bar(bar);
    control.SetHeight(ToPixels(ToolBarHeight(icons)));
    control.SetToolbarImageList(Icons(bar, icons));
    control.SetToolbar(control.CommandBars().Item(kRoots[bar]));
}

void MainBars::Show(int bar, bool visible) {
    shown_[bar] = visible;
    window_.SetBarVisible(bar, visible);
}

Twips MainBars::Height(int bar) const {
    return FromPixels(window_.CmdBar(bar).ClientSize().height);
}

} // namespace quillshift
