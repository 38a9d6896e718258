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

} // namespace

MainBars::MainBars(mCommandBars& bars, Host host) : bars_(bars), host_(std::move(host)) {
    for (BarWindow* const window : host_.windows)
        AddControl(*window);
    cmdBar_[0]->Resize = [this, height = 0]() mutable {
        const int now = host_.windows[0]->ClientSize().height;
        if (std::exchange(height, now) != now && host_.menuResized)
            host_.menuResized();
    };
    bars_.BeforeShortcut = host_.beforeShortcut;
    bars_.Aliases = kOldChords;
}

qsCommandBar& MainBars::AddControl(BarWindow& window) {
    qsCommandBar& control = *cmdBar_.emplace_back(std::make_unique<qsCommandBar>(bars_, window));
    control.ButtonClick = [this](const cButton& button) { host_.dispatch(button.Key()); };
    control.RightClick = [this, &control](const std::optional<cButton>& /*button*/, Point at) {
        OnRightClick(control, at);
    };
    control.RequestNewInstance = [this] { return &AddControl(host_.popupWindow()); };
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

void MainBars::LoadIcons(CatalogueIcons list) {
    const IconListSource source = IconsOf(list);
    clsImageList& icons = icons_.try_emplace(list, host_.files, bars_.Services().colours).first->second;
    icons.IconSizeX = icons.IconSizeY = source.size;
    icons.Density = host_.density;
    icons.Create();
    for (const IconFile& icon : source.icons)
        icons.AddFromFile(host_.programFolder + std::u16string(source.folder) + std::u16string(icon.file),
                          clsImageList::ImageType::Icon, icon.key);
}

void MainBars::Build() {
    for (const CatalogueIcons list :
         {CatalogueIcons::Menu, CatalogueIcons::ToolbarSmall, CatalogueIcons::ToolbarLarge,
          CatalogueIcons::DecodeSmall, CatalogueIcons::DecodeLarge})
        LoadIcons(list);
    AddCatalogue(cmdBar_[0]->Buttons(), host_.cmbDecode);
    BuildBars(cmdBar_[0]->Buttons(), cmdBar_[0]->CommandBars());
}

void MainBars::ApplyStyle(std::u16string_view style) {
    if (style == u"System")
        bars_.SetStyle(BarStyle::System);
    else if (style == u"OfficeXP")
        bars_.SetStyle(BarStyle::OfficeXP);
}

void MainBars::AttachMenu() {
    qsCommandBar& menu = *cmdBar_[0];
    menu.SetMainMenu(true);
    menu.SetMenuImageList(icons_.at(CatalogueIcons::Menu).hIml());
    menu.SetToolbar(menu.CommandBars().Item("MENU"));
}

void MainBars::AttachToolBar(int bar, ToolBarIcons icons) {
    constexpr CatalogueIcons kLists[2][2] = {{CatalogueIcons::ToolbarSmall, CatalogueIcons::ToolbarLarge},
                                             {CatalogueIcons::DecodeSmall, CatalogueIcons::DecodeLarge}};
    qsCommandBar& control = Bar(bar);
    control.SetToolbarImageList(icons_.at(kLists[bar - 1][icons == ToolBarIcons::Large ? 1 : 0]).hIml());
    control.SetToolbar(control.CommandBars().Item(bar == 1 ? "TOOLBAR" : "TOOLBAR2"));
}

} // namespace quillshift
