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
    strip_.Notices = Notices();
    Create();
    strip_.SetFont(font_);
}

void TabControl::Create() {
    shown_ = Styles;
    strip_.Create(shown_);
}

TabControl::~TabControl() {
    strip_.Notices = {};
}

TabNotices TabControl::Notices() {
    return {.changing = [this] { return MayLeave(); },
            .changed = [this] { Click(); },
            .rightClick =
                [this] {
                    if (TabRightClick)
                        TabRightClick();
                },
            .draw = [this](int position, Surface& surface, const Rect& place,
                           bool selected) { Draw(position, surface, place, selected); },
            .measure = [this](int position, Size own) -> std::optional<Size> {
                bool doDefault = true;
                if (MeasureItem)
                    MeasureItem(position + 1, own, doDefault);
                return doDefault ? std::nullopt : std::optional(own);
            },
            .painted = {},
            .erasePage = {}};
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

// --- Pictures

void TabControl::SetImageList(const ImageListHandle& list) {
    const ImageListHandle none;
    const bool isNone = !list.owner_before(none) && !none.owner_before(list);
    if (list.expired() && !isNone)
        FailWithoutImages();
    images_.InitialiseFromVariant(list);
    HandImages();
}

void TabControl::SetImageList(const ImageControl& control) {
    try {
        cAlphaDIBSection scratch;
        scratch.Create(control.ImageWidth(), control.ImageHeight());
        control.DrawListImage(0, scratch);
    } catch (const Error&) {
        FailWithoutImages();
    }
    images_.InitialiseFromVariant(control);
    HandImages();
}

void TabControl::FailWithoutImages() {
    images_.InitialiseFromVariant(ImageListHandle());
    HandImages();
    Fail(4, u"Invalid Image List.");
}

void TabControl::HandImages() {
    if (images_.IconWidth() == 0)
        strip_.SetImages({});
    else
        strip_.SetImages({.size = images_.IconSize(), .draw = [this](int image, Surface& surface, Point at) {
                              images_.Draw(surface, image, IconMode::Source, at.x, at.y);
                          }});
}

// --- Tabs

void TabControl::AddTab(std::u16string_view text, int image, const TabRef& before, std::u16string_view key,
                        std::int32_t itemData) {
    const std::optional<int> number = NumberOf(before);
    if (number == 0)
        FailToFind(1, before); // no tab to stand before
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
    Create();
    strip_.SetFlatSeparators(flatSeparators_);
    for (const TabItem& item : items)
        strip_.Insert(strip_.Count(), item);
    strip_.SetFont(font_);
    HandImages();
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

// --- Drawing

// The place of a tab that is not selected ends a line lower.
void TabControl::Draw(int position, Surface& surface, Rect place, bool selected) {
    const auto item = strip_.Item(position);
    if (!item)
        return;
    if (!selected)
        ++place.bottom;
    bool doDefault = true;
    if (DrawItem)
        DrawItem(position + 1, surface, selected, item->hot, place, doDefault);
    if (doDefault)
        DrawByDefault(*item, surface, place, selected);
}

void TabControl::DrawByDefault(const TabItem& item, Surface& surface, const Rect& place, bool selected) {
    const Colour face = strip_.ColourOf(SystemColour::ButtonFace);
    const bool isShaded = cool_ == CoolTabs::Shaded && !selected;
    surface.FillRect(place, isShaded ? strip_.ColourOf(SystemColour::ButtonShadow) : face);
    Rect text = place;
    if (const Size size = images_.IconSize(); item.image >= 0 && size.width > 0) {
        const Point at{place.left + (selected ? 6 : 2), place.top + (place.Height() - size.height) / 2};
        images_.Draw(surface, item.image, IconMode::Source, at.x, at.y);
        text.left = at.x + size.width + 1;
    }
    surface.DrawText(text, item.text, font_, isShaded ? face : strip_.ColourOf(SystemColour::WindowText),
                     {.align = TextLayout::Align::Centre});
}

void TabControl::SetCool(CoolTabs look) {
    cool_ = look;
    strip_.Notices.painted = {};
    strip_.Notices.erasePage = {};
    if (cool_ != CoolTabs::Plain)
        strip_.Notices.painted = [this](Surface& surface) { DrawRaised(surface); };
    if (cool_ == CoolTabs::Shaded)
        strip_.Notices.erasePage = [this](Surface& surface, const Rect& page) {
            surface.FillRect(page, strip_.ColourOf(SystemColour::ButtonFace));
        };
    strip_.Repaint();
}

// Light falls from the upper left; the outer corners are taken off.
void TabControl::DrawRaised(Surface& surface) const {
    if (IsAtSide(shown_.align))
        return;
    const Colour face = strip_.ColourOf(SystemColour::ButtonFace);
    const Colour light = strip_.ColourOf(SystemColour::Highlight3D);
    const Colour shadow = strip_.ColourOf(SystemColour::ButtonShadow);
    const bool isBottom = shown_.align == TabAlign::Bottom;
    for (int position = 0; position < strip_.Count(); ++position) {
        const Rect tab = strip_.ItemPlace(position);
        const int left = tab.left, right = tab.right - 1;
        const int outer = isBottom ? tab.bottom - 1 : tab.top;
        const int inner = isBottom ? tab.top : tab.bottom - 1;
        const int rounded = isBottom ? outer - 2 : outer + 2;
        const int corner = isBottom ? outer - 1 : outer + 1;
        surface.DrawLine({left, inner}, {left, rounded}, light);
        surface.DrawLine({left + 2, outer}, {right - 2, outer}, isBottom ? shadow : light);
        surface.DrawLine({right, rounded}, {right, inner}, shadow);
        for (const int x : {left, right}) {
            const int inward = x == left ? x + 1 : x - 1;
            surface.DrawLine({x, outer}, {inward, outer}, face);
            surface.DrawLine({x, corner}, {x, corner}, face);
            surface.DrawLine({inward, corner}, {inward, corner}, x == left ? light : shadow);
        }
    }
}

} // namespace quillshift
