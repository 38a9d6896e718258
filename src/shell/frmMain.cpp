#include "shell/frmMain.h"

#include "controls/Dialog.h"
#include "platform/qt/Appearance.h"
#include "platform/qt/QtText.h"
#include "recoding/modDecode.h"
#include "shell/Layout.h"

#include <QApplication>
#include <QCloseEvent>
#include <QComboBox>
#include <QScopeGuard>
#include <QVBoxLayout>
#include <QWindow>

#include <chrono>
#include <cmath>
#include <utility>

namespace quillshift {
namespace {

constexpr std::chrono::milliseconds kAtRest(100);
constexpr std::chrono::milliseconds kPress(50);

} // namespace

// The list of directions as an item of the recoding toolbar.
class frmMain::DirectionsPanel final : public PanelControl {
public:
    DirectionsPanel(QComboBox& list, QtWindowMessages& windowIds, const QtTextMeasurer& texts)
        : list_(list), windowIds_(windowIds), texts_(texts) {}

    bool Visible() const override { return !list_.isHidden(); }
    void SetVisible(bool visible) override { list_.setVisible(visible); }
    WindowId Container() const override { return container_; }
    void SetContainer(WindowId control) override {
        container_ = control;
        list_.setParent(windowIds_.Widget(control));
    }
    int Height() const override {
        FollowFont();
        return list_.height();
    }
    int LeastWidth() const override {
        FollowFont();
        return TextScale() > 1 ? list_.sizeHint().width() : 0;
    }
    void Move(const Rect& area) override {
        list_.setGeometry(area.left, area.top, area.Width(), area.Height());
    }

private:
    // As low as a bar's line of text, whose height the bars take from their font. Each time that they measure
    // it may be another.
    void FollowFont() const {
        constexpr int kListHeight = 21;
        list_.setFont(texts_.FontOf({.name = u"Tahoma", .points = 8}));
        list_.resize(list_.width(), std::max(kListHeight, list_.fontMetrics().height() + 6));
    }

    QComboBox& list_;
    QtWindowMessages& windowIds_;
    const QtTextMeasurer& texts_;
    WindowId container_ = 0;
};

frmMain::frmMain(QtWindowMessages& windowIds, const QtTextMeasurer& texts)
    : windowIds_(windowIds),
      texts_(texts),
      cmbDecode_(new QComboBox(this)),
      directionsPanel_(std::make_unique<DirectionsPanel>(*cmbDecode_, windowIds, texts)),
      cmdBar_{new QtBarWindow(windowIds, texts, this), new QtBarWindow(windowIds, texts, this),
              new QtBarWindow(windowIds, texts, this)},
      picEditor_(new QWidget(this)),
      shapeRichTextBox_(new QFrame(picEditor_)),
      richTextBox_(new QtTextSurface(picEditor_)) {
    setWindowTitle(QStringLiteral("Morvane Quillshift 3.0"));
    resize(ToPixels(kDesignWidth), ToPixels(kDesignHeight));
    setMinimumSize(ToPixels(kLeastWidth), ToPixels(kLeastHeight));
    shapeRichTextBox_->setFrameShape(QFrame::Box);
    // A frame as bright as the text of a dark desktop would outshine it.
    if (palette().color(QPalette::WindowText).lightness() > palette().color(QPalette::Window).lightness())
        shapeRichTextBox_->setForegroundRole(QPalette::Mid);
    shapeRichTextBox_->move(ToPixels(60_twips), ToPixels(60_twips));
    richTextBox_->move(ToPixels(90_twips), ToPixels(90_twips));
    richTextBox_->setAccessibleName(QStringLiteral("Текст"));
    // What a list has as its name is the row that is chosen.
    cmbDecode_->setAccessibleDescription(QStringLiteral("Направление перекодировки"));
    const char16_t* const barNames[] = {u"Меню", u"Стандартная", u"Перекодирование"};
    for (std::size_t i = 0; i < std::size(barNames); ++i)
        cmdBar_[i]->setAccessibleName(QString::fromUtf16(barNames[i]));
    richTextBox_->setFocus();
    richTextBox_->TakeFilesDroppedOn(*this);
    for (int number = 0; number < kDirections; ++number)
        cmbDecode_->addItem(ToQString(DirectionName(DirectionOf(number))));
    connect(cmbDecode_, &QComboBox::currentIndexChanged, this, [this] {
        if (OnDirectionChange)
            OnDirectionChange();
    });
    // The keyboard goes back to the text once a direction is chosen.
    connect(cmbDecode_, &QComboBox::activated, this, [this] { richTextBox_->setFocus(); });
    StackBars();
    placed_.setSingleShot(true);
    placed_.setInterval(kAtRest);
    connect(&placed_, &QTimer::timeout, this, [this] {
        if (IsNormal())
            restored_ = Bounds();
    });
    activated_.setSingleShot(true);
    activated_.setInterval(kPress);
    connect(&activated_, &QTimer::timeout, this, &frmMain::TellActivation);
    // Also from the full screen or a dialog; and not while this window is being destroyed.
    connect(qApp, &QGuiApplication::focusWindowChanged, &placed_, [this] {
        if (OnDeactivate)
            OnDeactivate();
    });
}

frmMain::~frmMain() = default;

void frmMain::StackBars() {
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    for (std::size_t bar = 0; bar < cmdBar_.size(); ++bar) {
        auto* line = new QFrame;
        line->setFrameShape(QFrame::HLine);
        line->setFrameShadow(QFrame::Sunken);
        line->setFixedHeight(ToPixels(30_twips));
        stack->addWidget(cmdBar_[bar]);
        stack->addWidget(lines_[bar] = line);
    }
    stack->addWidget(picEditor_);
    stack->addStretch();
}

void frmMain::SetBarVisible(int bar, bool visible) {
    cmdBar_[static_cast<std::size_t>(bar)]->setVisible(visible);
    lines_[bar]->setVisible(visible);
}

int frmMain::Density() const {
    return static_cast<int>(std::ceil(devicePixelRatioF()));
}

PanelControl& frmMain::CmbDecode() {
    return *directionsPanel_;
}

int frmMain::Direction() const {
    return cmbDecode_->currentIndex();
}

void frmMain::SetDirection(int number) {
    cmbDecode_->setCurrentIndex(number);
}

void frmMain::EnableDirections(bool enabled) {
    cmbDecode_->setEnabled(enabled);
}

void frmMain::LayOut(const EditorLayout& layout) {
    picEditor_->setFixedHeight(ToPixels(layout.picEditorHeight));
    shapeRichTextBox_->resize(ToPixels(layout.shapeWidth), ToPixels(layout.shapeHeight));
    richTextBox_->resize(ToPixels(layout.surfaceWidth), ToPixels(layout.surfaceHeight));
}

void frmMain::Show() {
    if (hiddenAt_)
        move(*std::exchange(hiddenAt_, std::nullopt));
    show();
    windowHandle()->setTitle(windowTitle());
    raise();
    activateWindow();
}

// A hidden window's title, with the document's name, is still there for others to read.
void frmMain::Hide() {
    hiddenAt_ = pos();
    hide();
    windowHandle()->setTitle(QStringLiteral("Morvane Quillshift 3.0"));
}

void frmMain::SetTitle(std::u16string_view title) {
    setWindowTitle(ToQString(title));
}

void frmMain::SetTopMost(bool topMost) {
    SetWindowTopMost(*this, topMost);
}

void frmMain::SetPointer(Pointer pointer) {
    if (pointer == Pointer::Wait)
        setCursor(Qt::WaitCursor);
    else
        unsetCursor();
}

WindowState frmMain::State() const {
    if (isMinimized())
        return WindowState::Minimised;
    return isMaximized() ? WindowState::Maximised : WindowState::Normal;
}

void frmMain::SetState(WindowState state) {
    Qt::WindowStates states = windowState();
    states.setFlag(Qt::WindowMaximized, state == WindowState::Maximised);
    states.setFlag(Qt::WindowMinimized, state == WindowState::Minimised);
    setWindowState(states);
}

TwipsRect frmMain::Bounds() const {
    return {FromPixels(x()), FromPixels(y()), FromPixels(width()) + kFrameWidth,
            FromPixels(height()) + kFrameHeight};
}

// The window system tells of a new size before or behind the state that it comes from, and what it calls the
// normal place may or may not have the frame in it. So the place is noted here, when a change has come to
// rest.
TwipsRect frmMain::RestoredBounds() const {
    return IsNormal() ? Bounds() : restored_;
}

bool frmMain::IsNormal() const {
    return !isMinimized() && !isMaximized() && !isFullScreen();
}

void frmMain::SetBounds(const TwipsRect& bounds) {
    move(ToPixels(bounds.left), ToPixels(bounds.top));
    resize(ToPixels(bounds.width - kFrameWidth), ToPixels(bounds.height - kFrameHeight));
    restored_ = Bounds();
}

void frmMain::moveEvent(QMoveEvent* event) {
    QWidget::moveEvent(event);
    placed_.start();
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    placed_.start();
    if (OnResize)
        OnResize();
}

void frmMain::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange)
        return;
    if (isActiveWindow())
        activated_.start();
    else
        activated_.stop();
}

// A click on the window gives it the keyboard before its press arrives, which may begin a drag.
void frmMain::TellActivation() {
    if (QGuiApplication::mouseButtons() != Qt::NoButton)
        activated_.start();
    else if (OnActivate)
        OnActivate();
}

bool frmMain::IsFree() const {
    return isActiveWindow() && QApplication::activeModalWidget() == nullptr &&
           QApplication::activePopupWidget() == nullptr;
}

// The toolkit takes a window that is asked to close once more, within its closing, as closed. So it never
// closes this one: the program ends, or the window stays.
void frmMain::closeEvent(QCloseEvent* event) {
    event->ignore();
    QMetaObject::invokeMethod(this, &frmMain::Close, Qt::QueuedConnection);
}

void frmMain::Close() {
    if (std::exchange(isClosing_, true))
        return;
    const auto done = qScopeGuard([this] { isClosing_ = false; });
    if (OnClose)
        OnClose();
}

} // namespace quillshift
