#include "platform/qt/QtTabStrip.h"

#include "platform/qt/Appearance.h"
#include "platform/qt/QtBarSystem.h"
#include "platform/qt/QtSurface.h"
#include "platform/qt/QtTabRow.h"
#include "platform/qt/QtText.h"

#include <QLayout>
#include <QPainter>
#include <QPixmap>
#include <QSignalBlocker>
#include <QStyleOptionTabWidgetFrame>

#include <algorithm>

namespace quillshift {
namespace {

constexpr int kPageMargin = 3;
// Where the density is no whole number a window gets less than it asked for, and its tabs would scroll.
constexpr QSize kSpare(4, 0);

QTabBar::Shape ShapeOf(TabAlign align) {
    switch (align) {
    case TabAlign::Top:
        break;
    case TabAlign::Left:
        return QTabBar::RoundedWest;
    case TabAlign::Bottom:
        return QTabBar::RoundedSouth;
    case TabAlign::Right:
        return QTabBar::RoundedEast;
    }
    return QTabBar::RoundedNorth;
}

Rect RectOf(const QRect& area) {
    return RectAt(area.x(), area.y(), area.width(), area.height());
}

} // namespace

QtTabStrip::QtTabStrip(QWidget* parent) : QWidget(parent) {
    QtTabStrip::Create({});
}

QtTabStrip::~QtTabStrip() = default;

void QtTabStrip::Create(const TabStyles& styles) {
    styles_ = styles;
    images_ = {};
    items_.clear();
    selection_ = -1;
    flatSeparators_ = false;
    Refill();
    Repaint();
}

// --- Looks

void QtTabStrip::SetFlatSeparators(bool on) {
    flatSeparators_ = on;
    Repaint();
}

void QtTabStrip::SetFont(const FontSpec& font) {
    font_ = QtTextMeasurer().FontOf(font);
    font_.setPointSizeF(static_cast<double>(font.points) * TextScale()); // as the dialogs' own
    Refill();
}

void QtTabStrip::SetPadding(int x, int y) {
    padding_ = {x, y};
    Refill();
}

void QtTabStrip::SetImages(const TabImages& images) {
    images_ = images;
    Refill();
}

void QtTabStrip::Repaint() {
    update();
    for (QtTabRow* row : rows_)
        row->update();
}

Colour QtTabStrip::ColourOf(SystemColour name) const {
    return QtSystemColours().Of(name);
}

QIcon QtTabStrip::IconOf(const TabItem& item) const {
    if (item.image < 0 || !images_.draw)
        return {};
    const QSize size(images_.size.width, images_.size.height);
    QPixmap pixels(size * devicePixelRatioF());
    pixels.setDevicePixelRatio(devicePixelRatioF());
    pixels.fill(Qt::transparent);
    QPainter painter(&pixels);
    const QtTextMeasurer texts;
    QtSurface surface(painter, texts);
    images_.draw(item.image, surface, {0, 0});
    painter.end();
    return {pixels};
}

// --- Tabs

int QtTabStrip::Insert(int position, const TabItem& item) {
    if (position < 0 || position > Count())
        return -1;
    items_.insert(items_.begin() + position, item);
    if (selection_ >= position)
        ++selection_;
    Refill();
    return position;
}

bool QtTabStrip::Remove(int position) {
    if (position < 0 || position >= Count())
        return false;
    items_.erase(items_.begin() + position);
    if (selection_ == position)
        selection_ = -1;
    else if (selection_ > position)
        --selection_;
    Refill();
    return true;
}

void QtTabStrip::RemoveAll() {
    items_.clear();
    selection_ = -1;
    Refill();
}

std::optional<TabItem> QtTabStrip::Item(int position) const {
    return position < 0 || position >= Count() ? std::nullopt
                                               : std::optional(items_[static_cast<std::size_t>(position)]);
}

bool QtTabStrip::SetItem(int position, const TabItem& item) {
    if (position < 0 || position >= Count())
        return false;
    items_[static_cast<std::size_t>(position)] = item;
    Refill();
    return true;
}

Rect QtTabStrip::ItemPlace(int position) const {
    const QtTabRow& row = RowOf(position);
    return RectOf(row.tabRect(position - row.First()).translated(row.pos()));
}

int QtTabStrip::Select(int position) {
    const int before = selection_;
    if (position >= 0 && position < Count()) {
        selection_ = position;
        RowOf(position).setCurrentIndex(position - RowOf(position).First());
        PlaceRows();
        Repaint();
    }
    return before;
}

void QtTabStrip::SelectByHand(int position) {
    if (position < 0 || position >= Count() || position == selection_ ||
        (Notices.changing && !Notices.changing()))
        return;
    Select(position);
    if (Notices.changed)
        Notices.changed();
}

// --- Places

QtTabRow& QtTabStrip::RowOf(int position) const {
    const auto behind = std::ranges::find_if(rows_.begin() + 1, rows_.end(),
                                             [&](const QtTabRow* row) { return row->First() > position; });
    return **(behind - 1);
}

/// How much of the strip's edge the tabs of a row take away from the page.
int QtTabStrip::Lay(const QtTabRow& row) const {
    const QSize hint = row.sizeHint();
    return row.count() == 0 ? 0 : IsAtSide(styles_.align) ? hint.width() : hint.height();
}

void QtTabStrip::Refill() {
    std::vector<int> firsts{0};
    for (const QtTabRow* row : rows_)
        if (row->First() > 0 && row->First() < Count())
            firsts.push_back(row->First());
    Fill(firsts);
    Arrange();
}

// Makes a row from each of the positions on. One that goes may be the one whose event is being worked on.
void QtTabStrip::Fill(const std::vector<int>& firsts) {
    const bool hadFocus = std::ranges::any_of(rows_, &QWidget::hasFocus);
    while (rows_.size() > firsts.size()) {
        rows_.back()->hide();
        rows_.back()->deleteLater();
        rows_.pop_back();
    }
    while (rows_.size() < firsts.size()) {
        rows_.push_back(new QtTabRow(*this));
        rows_.back()->show();
    }
    for (std::size_t i = 0; i < firsts.size(); ++i)
        FillRow(*rows_[i], firsts[i], i + 1 < firsts.size() ? firsts[i + 1] : Count());
    if (hadFocus)
        RowOf(selection_).setFocus();
}

void QtTabStrip::FillRow(QtTabRow& row, int first, int end) {
    const QSignalBlocker unasked(row);
    while (row.count() > 0)
        row.removeTab(row.count() - 1);
    row.setShape(ShapeOf(styles_.align));
    row.setFont(font_);
    row.setIconSize(images_.draw ? QSize(images_.size.width, images_.size.height) : QSize());
    row.SetFirst(first);
    for (int position = first; position < end; ++position) {
        const TabItem& item = items_[static_cast<std::size_t>(position)];
        row.addTab(IconOf(item), ToQString(item.text));
    }
    row.setCurrentIndex(selection_ - first);
}

// Where each row begins that has room for its tabs.
std::vector<int> QtTabStrip::Firsts() const {
    std::vector<int> firsts{0};
    const int room = IsAtSide(styles_.align) ? height() : width();
    int taken = 0;
    for (int position = 0; position < Count() && styles_.multiLine; ++position) {
        const QtTabRow& row = RowOf(position);
        const QSize size = row.SizeOf(position - row.First());
        const int needed = IsAtSide(styles_.align) ? size.height() : size.width();
        if (position > firsts.back() && taken + needed > room) {
            firsts.push_back(position);
            taken = 0;
        }
        taken += needed;
    }
    return firsts;
}

void QtTabStrip::Arrange() {
    const std::vector<int> firsts = Firsts();
    if (!std::ranges::equal(firsts, rows_, {}, {}, &QtTabRow::First))
        Fill(firsts);
    PlaceRows();
}

// From the page outwards, the row of the selected tab first; that row alone is reached by keyboard.
void QtTabStrip::PlaceRows() {
    QtTabRow& chosen = RowOf(selection_);
    const bool hadFocus = std::ranges::any_of(rows_, &QWidget::hasFocus);
    setFocusProxy(&chosen);
    std::vector<QtTabRow*> outwards = rows_;
    std::ranges::reverse(outwards);
    std::stable_partition(outwards.begin(), outwards.end(),
                          [&](const QtTabRow* row) { return row == &chosen; });
    int depth = 0;
    for (const QtTabRow* row : rows_)
        depth += Lay(*row);
    int outer = depth;
    for (QtTabRow* row : outwards) {
        row->setFocusPolicy(row == &chosen ? Qt::StrongFocus : Qt::NoFocus);
        const int lay = Lay(*row);
        outer -= lay;
        switch (styles_.align) {
        case TabAlign::Top:
            row->setGeometry(0, outer, width(), lay);
            break;
        case TabAlign::Left:
            row->setGeometry(outer, 0, lay, height());
            break;
        case TabAlign::Bottom:
            row->setGeometry(0, height() - outer - lay, width(), lay);
            break;
        case TabAlign::Right:
            row->setGeometry(width() - outer - lay, 0, lay, height());
            break;
        }
    }
    if (hadFocus)
        chosen.setFocus();
    QMargins margins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
    margins +=
        QMargins(styles_.align == TabAlign::Left ? depth : 0, styles_.align == TabAlign::Top ? depth : 0,
                 styles_.align == TabAlign::Right ? depth : 0, styles_.align == TabAlign::Bottom ? depth : 0);
    setContentsMargins(margins);
    updateGeometry();
}

Rect QtTabStrip::PageArea() const {
    return RectOf(contentsRect().translated(pos()));
}

QSize QtTabStrip::sizeHint() const {
    const QMargins margins = contentsMargins();
    const QSize page = layout() != nullptr
                           ? layout()->totalSizeHint()
                           : QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
    return styles_.multiLine ? page : page.expandedTo(rows_.front()->sizeHint() + kSpare);
}

void QtTabStrip::resizeEvent(QResizeEvent* /*event*/) {
    Arrange();
}

// The rows overlap the frame of the page area as the style has it. Buttons stand over a page without one.
void QtTabStrip::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect page = contentsRect().adjusted(-kPageMargin, -kPageMargin, kPageMargin, kPageMargin);
    if (!styles_.buttons) {
        QStyleOptionTabWidgetFrame frame;
        frame.initFrom(this);
        frame.shape = rows_.front()->shape();
        frame.tabBarSize = rows_.front()->size();
        frame.rect = page;
        style()->drawPrimitive(QStyle::PE_FrameTabWidget, &frame, &painter, this);
    }
    if (Notices.erasePage) {
        const QtTextMeasurer texts;
        QtSurface surface(painter, texts);
        Notices.erasePage(surface, RectOf(page.adjusted(1, 1, -1, -1)));
    }
}

} // namespace quillshift
