#pragma once

#include "commandbar/icons/cCommandBarImageList.h"
#include "platform/TabStrip.h"

#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace quillshift {

/// A tab by its number, from 1, or by its key. A key that is the text of a number counts as that number.
using TabRef = std::variant<int, std::u16string>;

/// Lines that make tabs look raised. `Shaded` darkens the ground of a drawn tab that isn't selected, too, and
/// fills the page area with the colour of buttons.
enum class CoolTabs { Plain, Raised, Shaded };

/// A row of tabs above a page area. It draws no pages: the dialog that holds it shows its panels on
/// `TabClick`. Tabs count from 1. A tab that doesn't exist throws Error -2147221504 + 1048 + n, source
/// "quillshift.cTabCtrl".
class TabControl {
public:
    /// The strip outlives the control.
    explicit TabControl(TabStrip& strip);
    ~TabControl();
    TabControl(const TabControl&) = delete;
    TabControl& operator=(const TabControl&) = delete;

    /// Styles for the next `Rebuild`, with which the strip takes them.
    TabStyles Styles;
    bool RightJustify = false; ///< kept, and of no effect
    bool FlatSeparators() const { return flatSeparators_; }
    void SetFlatSeparators(bool on);
    CoolTabs Cool() const { return cool_; }
    /// Seen at once.
    void SetCool(CoolTabs look);
    const FontSpec& Font() const { return font_; }
    void SetFont(const FontSpec& font);
    void SetPadding(int x, int y) { strip_.SetPadding(x, y & 0x7FFF); }
    /// The pictures of the tabs, counted from 0: a list by its handle, an empty one for none, or what paints
    /// its pictures itself. Throws error 4, and leaves no pictures, for a list that is gone and for a control
    /// whose first picture fails.
    void SetImageList(const ImageListHandle& list);
    void SetImageList(const ImageControl& control);

    /// Adds a tab before another one, or at the end by a number of -1 or less. An empty key is none.
    void AddTab(std::u16string_view text, int image = -1, const TabRef& before = -1,
                std::u16string_view key = {}, std::int32_t itemData = 0);
    /// The tab at its place, or else the last one, is selected where the selected one goes.
    void RemoveTab(const TabRef& tab);
    void RemoveAllTabs();
    /// 0 for none.
    int SelectedTab() const { return strip_.Selection() + 1; }
    /// Raises `BeforeClick`, which may refuse, and `TabClick` unless the first tab was selected before:
    /// whoever calls shows the page itself. A number of 0 or less does nothing.
    void SelectTab(const TabRef& tab, bool noEvents = false);
    /// Makes the strip anew with the present styles; keys, tabs and selection stay.
    void Rebuild();

    /// The page area in the dialog's logical units.
    int ClientLeft() const { return strip_.PageArea().left; }
    int ClientTop() const { return strip_.PageArea().top; }
    int ClientWidth() const { return strip_.PageArea().Width(); }
    int ClientHeight() const { return strip_.PageArea().Height(); }

    std::u16string TabText(const TabRef& tab) const;
    int TabImage(const TabRef& tab) const;
    void SetTabImage(const TabRef& tab, int image);
    std::int32_t TabItemData(const TabRef& tab) const;
    void SetTabItemData(const TabRef& tab, std::int32_t data);
    bool TabHot(const TabRef& tab) const;
    const std::u16string& TabKey(int tab) const;
    int IndexForTab(const TabRef& tab) const;
    int TabCount() const { return strip_.Count(); }

    /// Gets the present tab, and may refuse that it is left.
    std::function<void(int tab, bool& cancel)> BeforeClick;
    /// Draws a tab of the style `ownerDraw`. With `doDefault` left as it is the control draws it, at the
    /// place as it is told then.
    std::function<void(int tab, Surface& surface, bool selected, bool hot, Rect& place, bool& doDefault)>
        DrawItem;
    /// Changes the size of such a tab where `doDefault` is taken back.
    std::function<void(int tab, Size& size, bool& doDefault)> MeasureItem;
    std::function<void(int tab)> TabClick;
    std::function<void()> TabRightClick;

private:
    TabNotices Notices();
    void Create();
    bool MayLeave() const;
    void Click() const;
    void Draw(int position, Surface& surface, Rect place, bool selected);
    void DrawByDefault(const TabItem& item, Surface& surface, const Rect& place, bool selected);
    void DrawRaised(Surface& surface) const;
    void HandImages();
    void FailWithoutImages();
    TabItem ItemOf(const TabRef& tab, int failure, std::u16string_view words) const;

    TabStrip& strip_;
    std::vector<std::u16string> keys_;
    cCommandBarImageList images_;
    TabStyles shown_; ///< those that the strip has
    bool flatSeparators_ = false;
    CoolTabs cool_ = CoolTabs::Plain;
    FontSpec font_{.name = u"MS Sans Serif", .points = 8};
};

} // namespace quillshift
