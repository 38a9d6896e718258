#include "shell/StoredToolBars.h"

#include "shell/Catalogue.h"

#include <algorithm>
#include <array>

namespace quillshift {
namespace {

constexpr std::u16string_view kSeparator = u"- Разделитель -";

/// What an item is called in the list where it isn't by its tool tip.
struct ListText {
    std::string_view key;
    std::u16string_view text;
};
constexpr std::array kListTexts{
    ListText{"TOOLBAR:REPLACE", u"Заменить"}, ListText{"TOOLBAR2:DECODE", u"Выбор кодировки"},
    ListText{"TOOLBAR2:START", u"Перекодировать"}, ListText{"TOOLBAR2:STOP", u"Остановить"}};

std::u16string_view ListTextOf(const CatalogueEntry& entry) {
    if (entry.Style == ButtonStyle::Separator)
        return kSeparator;
    const auto* const named = std::ranges::find(kListTexts, entry.Key, &ListText::key);
    return named == kListTexts.end() ? entry.ToolTip : named->text;
}

std::vector<const CatalogueEntry*> EntriesOf(ItemBar bar) {
    std::vector<const CatalogueEntry*> entries;
    for (const CatalogueEntry& entry : Catalogue())
        if (ParentKey(entry.Key) == (bar == ItemBar::Standart ? "TOOLBAR" : "TOOLBAR2"))
            entries.push_back(&entry);
    return entries;
}

} // namespace

StoredToolBars::StoredToolBars(MainBars& bars, MainLayout& layout, Settings& settings, Timers& timers)
    : bars_(bars),
      layout_(layout),
      settings_(settings),
      timerLoadToolBarButtons_(timers.Make([this] { LoadToolBarButtons(); })),
      timerCommandBars_(timers.Make([this] { ApplyOptions(); })) {}

void StoredToolBars::Attach() {
    const ToolBarIcons icons =
        settings_.Is(Setting::UseLargeIcons) ? ToolBarIcons::Large : ToolBarIcons::Small;
    for (const int bar : {1, 2})
        bars_.AttachToolBar(bar, icons);
}

void StoredToolBars::LoadToolBarButtons() {
    for (const ItemBar bar : {ItemBar::Standart, ItemBar::Decode}) {
        int item = 0;
        for (const CatalogueEntry* entry : EntriesOf(bar))
            bars_.Button(entry->Key).SetVisible(settings_.IsItemShown(bar, item++));
    }
}

// Tips that were taken away come back only at the next start.
void StoredToolBars::ApplyOptions() {
    if (settings_.Is(Setting::ShowToolTips, u"0"))
        for (const ItemBar bar : {ItemBar::Standart, ItemBar::Decode})
            for (const CatalogueEntry* entry : EntriesOf(bar))
                bars_.Button(entry->Key).SetToolTip(u"");
    bars_.Bar(0).SetHideInfrequentlyUsed(!settings_.Is(Setting::HideInfrequently));
    Attach();
}

std::vector<ToolBarItem> StoredToolBars::Items(ItemBar bar) const {
    std::vector<ToolBarItem> items;
    for (const CatalogueEntry* entry : EntriesOf(bar))
        items.push_back({ListTextOf(*entry), entry->picture.file});
    return items;
}

void StoredToolBars::FollowStore() {
    timerLoadToolBarButtons_->StartOnce();
    timerCommandBars_->StartOnce();
    layout_.LayOutSoon();
}

} // namespace quillshift
