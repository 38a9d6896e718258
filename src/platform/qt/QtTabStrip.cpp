#include "platform/qt/QtTabStrip.h"

#include "platform/qt/QtSurface.h"
#include "platform/qt/QtText.h"

#include <QFocusEvent>
#include <QKeyEvent>
#include <QLayout>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOptionTab>
#include <QStyleOptionTabWidgetFrame>
#include <QWheelEvent>

#include <algorithm>
#include <utility>

namespace quillshift {
namespace {

constexpr int kPageMargin = 3;

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

bool IsAtSide(TabAlign align) {
    return align == TabAlign::Left || align == TabAlign::Right;
}

Rect RectOf(const QRect& area) {
    return RectAt(area.x(), area.y(), area.width(), area.height());
}

} // namespace

/// Hands all that a person does on to the strip, which decides.
class QtTabStrip::Bar final : public QTabBar {
public:
    explicit Bar(QtTabStrip& strip) : QTabBar(&strip), strip_(strip) {
        setFocusPolicy(Qt::StrongFocus);
        setDrawBase(false);
        setExpanding(false);
        setUsesScrollButtons(true);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override {
        setFocus(Qt::MouseFocusReason);
        if (event->button() == Qt::LeftButton && tabAt(event->pos()) >= 0)
            strip_.SelectByHand(tabAt(event->pos()));
        else if (event->button() == Qt::RightButton && strip_.OnRightClick)
            strip_.OnRightClick();
    }
    void mouseReleaseEvent(QMouseEvent* /*event*/) override {}
    void mouseMoveEvent(QMouseEvent* /*event*/) override {}
    void wheelEvent(QWheelEvent* event) override {
        const QPoint turn = event->angleDelta();
        const int way = turn.y() != 0 ? turn.y() : turn.x();
        if (way != 0)
            strip_.SelectByHand(currentIndex() + (way < 0 ? 1 : -1));
    }
    /// Enter, the arrows and their neighbours end here; every other key is the dialog's.
    void keyPressEvent(QKeyEvent* event) override {
        switch (event->key()) {
        case Qt::Key_Left:
        case Qt::Key_Up:
            return strip_.SelectByHand(strip_.selection_ - 1);
        case Qt::Key_Right:
        case Qt::Key_Down:
            return strip_.SelectByHand(strip_.selection_ + 1);
        case Qt::Key_Home:
            return strip_.SelectByHand(0);
        case Qt::Key_End:
            return strip_.SelectByHand(strip_.Count() - 1);
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return;
        default:
            event->ignore();
        }
    }
    void initStyleOption(QStyleOptionTab* option, int index) const override {
        QTabBar::initStyleOption(option, index);
        option->state.setFlag(QStyle::State_Selected, index == strip_.selection_);
        option->state.setFlag(QStyle::State_HasFocus, hasFocus() && index == strip_.selection_);
        if (!strip_.styles_.hotTrack)
            option->state.setFlag(QStyle::State_MouseOver, false);
    }
    QSize tabSizeHint(int index) const override {
        const QSize size = QTabBar::tabSizeHint(index) + strip_.padding_ * 2;
        if (!strip_.styles_.ownerDraw || !strip_.OnMeasure)
            return size;
        const auto told = strip_.OnMeasure(index, {size.width(), size.height()});
        return told ? QSize(told->width, told->height) : size;
    }
    void paintEvent(QPaintEvent* event) override {
        QTabBar::paintEvent(event);
        if (!strip_.styles_.ownerDraw || !strip_.OnDraw)
            return;
        QPainter painter(this);
        QtTextMeasurer texts;
        QtSurface surface(painter, texts);
        for (int i = 0; i < count(); ++i)
            strip_.OnDraw(i, surface, RectOf(tabRect(i)), i == strip_.selection_);
    }

private:
    QtTabStrip& strip_;
};

QtTabStrip::QtTabStrip(QWidget* parent) : QWidget(parent) {
    QtTabStrip::Create({});
}

QtTabStrip::~QtTabStrip() = default;

void QtTabStrip::Create(const TabStyles& styles) {
    styles_ = styles;
    items_.clear();
    selection_ = -1;
    const QString name = bar_ != nullptr ? bar_->accessibleName() : QString();
    delete std::exchange(bar_, nullptr);
    bar_ = new Bar(*this);
    bar_->setAccessibleName(name);
    bar_->setShape(ShapeOf(styles.align));
    setFocusProxy(bar_);
    bar_->show();
    PlaceBar();
}

void QtTabStrip::SetFlatSeparators(bool /*on*/) {
    bar_->update(); // the toolkit's bar has no buttons to separate
}

void QtTabStrip::SetFont(const FontSpec& font) {
    QFont used(ToQString(font.name));
    used.setPointSizeF(static_cast<double>(font.points));
    used.setBold(font.bold);
    bar_->setFont(used);
    PlaceBar();
}

void QtTabStrip::SetPadding(int x, int y) {
    padding_ = {x, y};
    bar_->setIconSize(bar_->iconSize()); // lays the tabs out anew
    PlaceBar();
}

int QtTabStrip::Insert(int position, const TabItem& item) {
    if (position < 0 || position > Count())
        return -1;
    items_.insert(items_.begin() + position, item);
    if (selection_ >= position)
        ++selection_;
    bar_->insertTab(position, ToQString(item.text));
    bar_->setCurrentIndex(selection_);
    PlaceBar();
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
    bar_->removeTab(position);
    bar_->setCurrentIndex(selection_);
    PlaceBar();
    return true;
}

void QtTabStrip::RemoveAll() {
    while (Remove(Count() - 1)) {
    }
}

std::optional<TabItem> QtTabStrip::Item(int position) const {
    return position < 0 || position >= Count() ? std::nullopt
                                               : std::optional(items_[static_cast<std::size_t>(position)]);
}

bool QtTabStrip::SetItem(int position, const TabItem& item) {
    if (position < 0 || position >= Count())
        return false;
    items_[static_cast<std::size_t>(position)] = item;
    bar_->setTabText(position, ToQString(item.text));
    return true;
}

int QtTabStrip::Select(int position) {
    const int before = selection_;
    if (position >= 0 && position < Count()) {
        selection_ = position;
        bar_->setCurrentIndex(position);
        bar_->update();
    }
    return before;
}

void QtTabStrip::SelectByHand(int position) {
    if (position < 0 || position >= Count() || position == selection_ || (OnChanging && !OnChanging()))
        return;
    Select(position);
    if (OnChanged)
        OnChanged();
}

Rect QtTabStrip::Place() const {
    return RectOf(geometry());
}

Rect QtTabStrip::PageArea() const {
    return RectOf(contentsRect().translated(pos()));
}

QSize QtTabStrip::sizeHint() const {
    const QMargins margins = contentsMargins();
    const QSize page = layout() != nullptr
                           ? layout()->sizeHint()
                           : QSize(margins.left() + margins.right(), margins.top() + margins.bottom());
    return page.expandedTo(bar_->sizeHint());
}

// The bar stands at its edge and overlaps the frame of the page area as the style has it.
void QtTabStrip::PlaceBar() {
    const QSize hint = bar_->sizeHint();
    const int depth = Count() == 0 ? 0 : IsAtSide(styles_.align) ? hint.width() : hint.height();
    QRect place(QPoint(), IsAtSide(styles_.align) ? QSize(depth, height()) : QSize(width(), depth));
    QMargins margins(kPageMargin, kPageMargin, kPageMargin, kPageMargin);
    switch (styles_.align) {
    case TabAlign::Top:
        margins += QMargins(0, depth, 0, 0);
        break;
    case TabAlign::Left:
        margins += QMargins(depth, 0, 0, 0);
        break;
    case TabAlign::Bottom:
        margins += QMargins(0, 0, 0, depth);
        place.moveBottom(height() - 1);
        break;
    case TabAlign::Right:
        margins += QMargins(0, 0, depth, 0);
        place.moveRight(width() - 1);
        break;
    }
    setContentsMargins(margins);
    bar_->setGeometry(place);
    updateGeometry();
}

void QtTabStrip::resizeEvent(QResizeEvent* /*event*/) {
    PlaceBar();
}

void QtTabStrip::paintEvent(QPaintEvent* /*event*/) {
    QStyleOptionTabWidgetFrame frame;
    frame.initFrom(this);
    frame.shape = bar_->shape();
    frame.tabBarSize = bar_->size();
    frame.rect = contentsRect().adjusted(-kPageMargin, -kPageMargin, kPageMargin, kPageMargin);
    QPainter painter(this);
    style()->drawPrimitive(QStyle::PE_FrameTabWidget, &frame, &painter, this);
}

} // namespace quillshift
