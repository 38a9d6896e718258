#include "shell/frmMain.h"

#include "platform/qt/QtText.h"
#include "recoding/frmDecode.h"
#include "shell/CommandBars.h"
#include "shell/Layout.h"
#include "shell/Program.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QVBoxLayout>

namespace quillshift {

frmMain::frmMain(Program& program, MessageBox& messageBox)
    : program_(program),
      decoding_(program.Settings(), program.Sounds(), messageBox, this),
      cmbDecode_(new QComboBox(this)),
      picEditor_(new QWidget(this)),
      shapeRichTextBox_(new QFrame(picEditor_)),
      richTextBox_(new QtTextSurface(picEditor_)) {
    setWindowTitle(QStringLiteral("Morvane Quillshift 3.0"));
    resize(ToPixels(kDesignWidth), ToPixels(kDesignHeight));
    setMinimumSize(ToPixels(kLeastWidth), ToPixels(kLeastHeight));
    shapeRichTextBox_->setFrameShape(QFrame::Box);
    shapeRichTextBox_->move(ToPixels(60_twips), ToPixels(60_twips));
    richTextBox_->move(ToPixels(90_twips), ToPixels(90_twips));
    richTextBox_->setFocus();
    for (int number = 0; number < kDirections; ++number)
        cmbDecode_->addItem(ToQString(DirectionName(DirectionOf(number))));
    decoding_.StopRecoding = [this] { program_.Job().StopRecoding(); };
}

frmMain::~frmMain() = default;

QFrame* frmMain::Line() {
    auto* line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    line->setFixedHeight(ToPixels(30_twips));
    return line;
}

void frmMain::BuildBars() {
    bars_ = new CommandBars(
        cmbDecode_, [this](std::string_view key) { program_.Dispatch(key); }, this);
    auto* stack = new QVBoxLayout(this);
    stack->setContentsMargins(0, 0, 0, 0);
    stack->setSpacing(0);
    for (int bar = 0; bar < 3; ++bar) {
        stack->addWidget(bars_->Bar(bar));
        stack->addWidget(lines_[bar] = Line());
    }
    bars_->Bar(0)->setFixedHeight(ToPixels(kMenuRowHeight));
    stack->addWidget(picEditor_);
    stack->addStretch();
    connect(cmbDecode_, &QComboBox::currentIndexChanged, this, [this] { program_.OnDirectionChange(); });
}

void frmMain::SetBarVisible(int bar, bool visible) {
    bars_->Bar(bar)->setVisible(visible);
    lines_[bar]->setVisible(visible);
}

void frmMain::SetBarHeight(int bar, Twips height) {
    bars_->Bar(bar)->setFixedHeight(ToPixels(height));
}

void frmMain::SetChecked(std::string_view key, bool checked) {
    bars_->SetChecked(key, checked);
}

void frmMain::SetEnabled(std::string_view key, bool enabled) {
    bars_->SetEnabled(key, enabled);
}

bool frmMain::IsChecked(std::string_view key) const {
    return bars_->IsChecked(key);
}

int frmMain::Direction() const {
    return cmbDecode_->currentIndex();
}

void frmMain::SetDirection(int number) {
    cmbDecode_->setCurrentIndex(number);
}

void frmMain::LayOut(const EditorLayout& layout) {
    picEditor_->setFixedHeight(ToPixels(layout.picEditorHeight));
    shapeRichTextBox_->resize(ToPixels(layout.shapeWidth), ToPixels(layout.shapeHeight));
    richTextBox_->resize(ToPixels(layout.surfaceWidth), ToPixels(layout.surfaceHeight));
}

void frmMain::ShowDecodeDialog() {
    frmDecode dialog(program_.Settings(), program_.Sounds(), this,
                     [this](quillshift::Direction direction) { program_.RecodeFromDialog(direction); });
    dialog.exec();
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

TwipsRect frmMain::RestoredBounds() const {
    if (State() == WindowState::Normal)
        return Bounds();
    // The place is that of the client area there; the window manager's frame goes off it.
    const QRect client = normalGeometry();
    const QPoint frame = geometry().topLeft() - pos();
    return {FromPixels(client.x() - frame.x()), FromPixels(client.y() - frame.y()),
            FromPixels(client.width()) + kFrameWidth, FromPixels(client.height()) + kFrameHeight};
}

void frmMain::SetBounds(const TwipsRect& bounds) {
    move(ToPixels(bounds.left), ToPixels(bounds.top));
    resize(ToPixels(bounds.width - kFrameWidth), ToPixels(bounds.height - kFrameHeight));
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    program_.OnResize();
}

void frmMain::closeEvent(QCloseEvent* event) {
    event->setAccepted(program_.OnClose());
}

} // namespace quillshift
