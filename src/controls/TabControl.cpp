#include "controls/TabControl.h"

#include "base/Error.h"
#include "base/Texts.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace quillshift {
namespace {

constexpr int kErrorBase = -2147221504 + 1048;

std::optional<int> NumberOf(const TabRef& tab) {
    if (const int* number = std::get_if<int>(&tab))
        return *number;
    const std::u16string& key = std::get<std::u16string>(tab);
    const std::string text(key.begin(), key.end()); // what is no digit stays none
    double number = 0;
    const auto [end, failure] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (failure != std::errc() || end != text.data() + text.size() || !(std::abs(number) < 1e9) ||
        std::ranges::any_of(key, [](char16_t c) { return c > 0x7F; }))
        return std::nullopt;
    return static_cast<int>(std::nearbyint(number));
}

std::u16string Words(const TabRef& tab) {
    const int* number = std::get_if<int>(&tab);
    return number != nullptr ? WholeNumberText(*number) : std::get<std::u16string>(tab);
}

[[noreturn]] void Fail(int failure, std::u16string words) {
    throw Error(kErrorBase + failure, u"quillshift.cTabCtrl", std::move(words));
}

[[noreturn]] void FailToFind(int failure, const TabRef& tab) {
    Fail(failure, u"TabIndex " + Words(tab) + u" does not exist");
}

} // namespace

TabControl::TabControl(TabStrip& strip) : strip_(strip) {
    strip_.OnChanging = [this] { return MayLeave(); };
    strip_.OnChanged = [this] { Click(); };
    strip_.OnRightClick = [this] {
        if (TabRightClick)
            TabRightClick();
    };
    strip_.OnDraw = [this](int position, Surface& surface, const Rect& place, bool selected) {
        return Draw(position, surface, place, selected);
    };
    strip_.OnMeasure = [this](int position, Size own) -> std::optional<Size> {
        bool doDefault = true;
        if (MeasureItem)
            MeasureItem(position + 1, own, doDefault);
        return doDefault ? std::nullopt : std::optional(own);
    };
    strip_.Create(Styles);
    strip_.SetFont(font_);
}

bool TabControl::MayLeave() const {
    bool cancel = false;
    if (SelectedTab() > 0 && BeforeClick)
        BeforeClick(SelectedTab(), cancel);
    return !cancel;
}

void TabControl::Click() const {
    if (TabClick)
        TabClick(SelectedTab());
}

void TabControl::SetFlatSeparators(bool on) {
    flatSeparators_ = on;
    strip_.SetFlatSeparators(on);
}

void TabControl::SetFont(const FontSpec& font) {
    if (font == font_)
        return;
    font_ = font;
    strip_.SetFont(font_);
}

void TabControl::AddTab(std::u16string_view text, int image, const TabRef& before, std::u16string_view key,
                        std::int32_t itemData) {
    const std::optional<int> number = NumberOf(before);
    const int position = !number ? IndexForTab(before) - 1 : *number > -1 ? *number - 1 : strip_.Count();
    const std::u16string shown(text.substr(0, text.find(u'\0')));
    if (strip_.Insert(position, {.text = shown, .image = image, .data = itemData}) == position)
        keys_.insert(keys_.begin() + position, std::u16string(key));
    else
        keys_.resize(static_cast<std::size_t>(strip_.Count()));
}

void TabControl::RemoveTab(const TabRef& tab) {
    const int position = IndexForTab(tab) - 1;
    const bool wasSelected = strip_.Selection() == position;
    if (!strip_.Remove(position))
        return;
    keys_.erase(keys_.begin() + position);
    if (wasSelected && !keys_.empty())
        SelectTab(std::min(position + 1, strip_.Count()));
}

void TabControl::RemoveAllTabs() {
    strip_.RemoveAll();
    keys_.clear();
}

void TabControl::SelectTab(const TabRef& tab, bool noEvents) {
    const int position = IndexForTab(tab) - 1;
    if (position < 0 || (!noEvents && !MayLeave()))
        return;
    const int before = strip_.Select(position);
    if (!noEvents && before != 0)
        Click();
}

void TabControl::Rebuild() {
    std::vector<TabItem> items;
    items.reserve(static_cast<std::size_t>(strip_.Count()));
    for (int position = 0; position < strip_.Count(); ++position)
        items.push_back(strip_.Item(position).value_or(TabItem()));
    const int selected = SelectedTab();
    strip_.Create(Styles);
    strip_.SetFlatSeparators(flatSeparators_);
    for (const TabItem& item : items)
        strip_.Insert(strip_.Count(), item);
    strip_.SetFont(font_);
    SelectTab(selected, true);
}

TabItem TabControl::ItemOf(const TabRef& tab, int failure, std::u16string_view words) const {
    if (const auto item = strip_.Item(IndexForTab(tab) - 1))
        return *item;
    Fail(failure, std::u16string(words) + Words(tab));
}

std::u16string TabControl::TabText(const TabRef& tab) const {
    const auto item = strip_.Item(IndexForTab(tab) - 1);
    if (!item)
        FailToFind(3, tab);
    return item->text.substr(0, 255);
}

int TabControl::TabImage(const TabRef& tab) const {
    return ItemOf(tab, 2, u"Failed to get image for tab ").image;
}

void TabControl::SetTabImage(const TabRef& tab, int image) {
    constexpr std::u16string_view kWords = u"Failed to set image for tab ";
    TabItem item = ItemOf(tab, 7, kWords);
    item.image = image;
    if (!strip_.SetItem(IndexForTab(tab) - 1, item))
        Fail(7, std::u16string(kWords) + Words(tab));
}

std::int32_t TabControl::TabItemData(const TabRef& tab) const {
    return ItemOf(tab, 5, u"Failed to get item data for tab ").data;
}

void TabControl::SetTabItemData(const TabRef& tab, std::int32_t data) {
    constexpr std::u16string_view kWords = u"Failed to set item data for tab ";
    TabItem item = ItemOf(tab, 6, kWords);
    item.data = data;
    if (!strip_.SetItem(IndexForTab(tab) - 1, item))
        Fail(6, std::u16string(kWords) + Words(tab));
}

bool TabControl::TabHot(const TabRef& tab) const {
    return ItemOf(tab, 5, u"Failed to get hot state for tab ").hot;
}

const std::u16string& TabControl::TabKey(int tab) const {
    if (tab < 1 || tab > static_cast<int>(keys_.size()))
        FailToFind(1, tab);
    return keys_[static_cast<std::size_t>(tab - 1)];
}

int TabControl::IndexForTab(const TabRef& tab) const {
    if (const std::optional<int> number = NumberOf(tab)) {
        if (*number > strip_.Count())
            FailToFind(1, tab);
        return *number;
    }
    const std::u16string& key = std::get<std::u16string>(tab);
    const auto found = std::ranges::find(keys_, key);
    if (key.empty() || found == keys_.end())
        FailToFind(1, tab);
    return static_cast<int>(found - keys_.begin()) + 1;
}

// The strip grows the place of a tab that is not selected by a line.
bool TabControl::Draw(int position, Surface& surface, Rect place, bool selected) const {
    bool doDefault = true;
    if (!selected)
        ++place.bottom;
    const auto item = strip_.Item(position);
    if (DrawItem)
        DrawItem(position + 1, surface, selected, item && item->hot, place, doDefault);
    return !doDefault;
}

} // namespace quillshift
