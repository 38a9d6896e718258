// How a control lays its bar out and paints it.

#include "commandbar/MenuLayout.h"
#include "commandbar/PanelControl.h"
#include "commandbar/ToolbarLayout.h"
#include "commandbar/qsCommandBar.h"

#include <algorithm>

namespace quillshift {

void qsCommandBar::Layout() {
    const std::vector<cDisplayButtonInfo> before = std::exchange(items_, {});
    const std::vector<cButtonInt*> buttonsBefore = buttons_;
    CollectButtons();
    if (ShownBar() == nullptr) {
        Repaint();
        return;
    }
    const cMeasureButtonParams params = MeasureParams();
    const ItemMeasure measure = [&](const ButtonRecord& record) {
        if (hiddenOf_ != 0)
            return MeasureItem(record, params, window_.Texts());
        MeasureCache& cache = static_cast<const cButtonInt&>(record).Measured;
        if (const Size* known = cache.Find(params))
            return *known;
        const Size size = MeasureItem(record, params, window_.Texts());
        cache.Add(params, size);
        return size;
    };
    if (IsMenu(params.Mode)) {
        LayOutRows(params, measure);
    } else {
        stripLayout_.items = FormerItems(before, buttonsBefore);
        LayOutStrip(params, measure);
    }
    if (bars_.Menu().MenuMode)
        KeepStates(FormerItems(before, buttonsBefore));
    else
        ShowToolTip(std::nullopt);
    PlacePanels();
    Repaint();
}

void qsCommandBar::CollectButtons() {
    buttons_.clear();
    records_.clear();
    if (const cCommandBarInt* const bar = ShownBar())
        for (const auto& [key, button] : bar->Buttons) {
            buttons_.push_back(button);
            records_.push_back(button);
        }
    if (const qsCommandBar* const strip = bars_.Find(hiddenOf_))
        CollectHiddenRows(*strip);
}

// The rows are copies: a strip's buttons may be pictures that only their tips explain.
void qsCommandBar::CollectHiddenRows(const qsCommandBar& strip) {
    rows_.assign(buttons_.size(), {});
    ButtonRecord* separator = nullptr; // shows between two rows only
    bool any = false;
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        ButtonRecord& row = rows_[i] = *buttons_[i];
        records_[i] = &row;
        row.Visible = row.Visible && strip.items_[i].Hidden && row.Style != ButtonStyle::Panel;
        if (row.Caption.empty())
            row.Caption = std::exchange(row.ToolTip, {});
        if (row.Style == ButtonStyle::Separator) {
            row.Visible = false;
            separator = any ? &row : nullptr;
        } else if (row.Visible) {
            if (separator != nullptr)
                separator->Visible = true;
            separator = nullptr;
            any = true;
        }
    }
}

// The items before the layout, in the order of the buttons now.
std::vector<cDisplayButtonInfo> qsCommandBar::FormerItems(std::span<const cDisplayButtonInfo> before,
                                                          std::span<cButtonInt* const> buttons) const {
    std::vector<cDisplayButtonInfo> former(buttons_.size());
    for (std::size_t i = 0; i < before.size() && i < buttons.size(); ++i)
        if (const auto found = std::ranges::find(buttons_, buttons[i]); found != buttons_.end())
            former[static_cast<std::size_t>(found - buttons_.begin())] = before[i];
    return former;
}

// While there is a menu the keys go on from where they were.
void qsCommandBar::KeepStates(std::span<const cDisplayButtonInfo> former) {
    for (std::size_t i = 0; i < items_.size(); ++i) {
        items_[i].MouseOver = former[i].MouseOver;
        items_[i].ShowingMenu = former[i].ShowingMenu;
        items_[i].MenuWindow = former[i].MenuWindow;
    }
}

cMeasureButtonParams qsCommandBar::MeasureParams() const {
    const Size client = window_.ClientSize();
    const Size icon = IconSizeOf(Icons());
    return {.Window = Window(),
            .Font = font_,
            .IconWidth = icon.width,
            .IconHeight = icon.height,
            .Height = IsMenu(Mode()) ? 0 : client.height,
            .RightToLeft = window_.RightToLeft(),
            .Mode = Mode(),
            .Orientation = orientation_,
            .ButtonTextPosition = textPosition_,
            .Width = client.width};
}

void qsCommandBar::LayOutRows(const cMeasureButtonParams& params, const ItemMeasure& measure) {
    const bool leavesOut = bars_.HideInfrequentlyUsed && !bars_.Menu().MenuExpanded;
    MenuLayout layout =
        LayOutMenu(records_, params, leavesOut ? Infrequent::LeftOut : Infrequent::Shown, measure);
    items_ = std::move(layout.items);
    menuSize_ = layout.size;
    // An open menu keeps its place and takes its new size.
    const Rect now = RectAt(place_.rect.left, place_.rect.top, menuSize_.width, menuSize_.height);
    if (bars_.Menu().popups.Find(Window()) != nullptr && now != place_.rect) {
        place_.rect = now;
        ShowAt(place_);
    }
}

// A strip that was told its depth is deeper where a line of its text, larger than usual, needs that. One
// hidden group comes back a time.
void qsCommandBar::LayOutStrip(const cMeasureButtonParams& params, const ItemMeasure& measure) {
    const int line = window_.Texts().TextExtent(u"Xy", params.Font).height + 2 * ButtonRecord().ItemMargin;
    const int depth = height_ == 0 ? 0 : std::max(height_, line);
    do {
        stripLayout_ = LayOutToolbar(records_, params, stripLayout_, measure, depth);
    } while (stripLayout_.cameBack);
    items_ = stripLayout_.items;
    if (!stripLayout_.more.IsEmpty()) {
        more_.ShowDropDownInToolbar = true;
        more_.Bar = bars_.Model().FindBar(shownKey_);
        buttons_.push_back(&more_);
        records_.push_back(&more_);
        const Rect& at = stripLayout_.more;
        items_.push_back({.Left = at.left, .Top = at.top, .Right = at.right, .Bottom = at.bottom});
    }
    window_.SetDepth(stripLayout_.depth, IsUpright(orientation_));
}

void qsCommandBar::PlacePanels() {
    if (isPopup_)
        return;
    for (std::size_t i = 0; i < items_.size(); ++i) {
        PanelControl* const panel = buttons_[i]->Panel;
        if (panel == nullptr)
            continue;
        const bool shown =
            !IsUpright(orientation_) && buttons_[i]->Visible && !items_[i].Hidden && IsPlaced(items_[i]);
        if (shown)
            panel->Move(PanelControlArea(items_[i], panel->Height()));
        if (panel->Visible() != shown)
            panel->SetVisible(shown);
    }
}

BarView qsCommandBar::View() const {
    const bool across =
        place_.direction == PopupDirection::Below || place_.direction == PopupDirection::Above;
    const int origin = across ? place_.rect.left : place_.rect.top;
    return {.window = Window(),
            .mode = Mode(),
            .orientation = orientation_,
            .textPosition = textPosition_,
            .rightToLeft = window_.RightToLeft(),
            .keyboardMode = bars_.Menu().KeyboardMode,
            .client = window_.ClientSize(),
            .parentClient = window_.ParentClient(),
            .background = background_.hDib(),
            .gap = {place_.direction, place_.anchorPosition - origin, place_.anchorSize},
            .font = font_,
            .icons = Icons(),
            .buttons = records_,
            .items = items_};
}

void qsCommandBar::OnPaint(Surface& surface, const Rect& part) {
    const BarPainter painter(bars_.Colours());
    const BarView view = View();
    for (std::size_t i = 0; i < items_.size(); ++i)
        if (IsPlaced(items_[i]) && AreaOf(items_[i]) == part) {
            painter.PaintItem(surface, view, i);
            return;
        }
    painter.PaintBar(surface, view);
}

void qsCommandBar::Repaint() {
    const Size client = window_.ClientSize();
    window_.Repaint({0, 0, client.width, client.height});
}

void qsCommandBar::RepaintItem(std::size_t index) {
    if (IsPlaced(items_[index]))
        window_.Repaint(AreaOf(items_[index]));
}

} // namespace quillshift
