#include "controls/Dialog.h"

#include "controls/FieldNames.h"
#include "controls/FittingArea.h"
#include "controls/Mnemonics.h"
#include "platform/qt/Appearance.h"

#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>
#include <QWindow>

namespace quillshift {

Dialog::Dialog(const DialogContext& context, const QString& title, DialogSounds sounds)
    : QDialog(context.owner), context_(context), sounds_(sounds) {
    setWindowTitle(title);
    setFont(DialogFont());
    SetWindowTopMost(*this, context_.settings.Is(Setting::TopMost));
    Play(sound_event::kFormLoad);
}

Dialog::~Dialog() {
    Play(sound_event::kFormUnload);
}

void Dialog::Play(const SoundEvent& event) {
    if (sounds_ == DialogSounds::LoadAndUnload)
        context_.sounds.PlaySoundEvent(event);
}

void Dialog::BringUp() {
    setWindowState(windowState() & ~Qt::WindowMinimized);
    raise();
    activateWindow();
}

bool Dialog::event(QEvent* event) {
    const bool shows = event->type() == QEvent::Show;
    if (shows) {
        NameFieldsByLabels(*this);
        GiveMnemonics(*this);
    }
    if (layout() != nullptr && !isMaximized()) {
        if (shows)
            resize(size().boundedTo(RoomOnScreen(*this)));
        if (shows || (event->type() == QEvent::LayoutRequest && isVisible()))
            FitTheScreen();
    }
    if (event->type() == QEvent::WindowActivate && y() < screen()->availableGeometry().top())
        move(x(), screen()->availableGeometry().top()); // a high one is placed as if it had no title
    return QDialog::event(event);
}

// All that is in it becomes the contents of one part that scrolls, with its layout.
void Dialog::FitTheScreen() {
    const QSize room = RoomOnScreen(*this);
    const QSize least = minimumSize().expandedTo(layout()->totalMinimumSize());
    if (least.boundedTo(room) == least)
        return;
    QWidget* const focus = focusWidget();
    auto* const all = new QWidget(this);
    all->setLayout(layout());
    auto* const area = new FittingArea(all);
    setMinimumSize(0, 0);
    setMaximumSize(QWIDGETSIZE_MAX, QWIDGETSIZE_MAX);
    auto* const only = new QVBoxLayout(this);
    only->setContentsMargins({});
    only->addWidget(area);
    resize(size().expandedTo(area->sizeHint()).boundedTo(room));
    if (focus != nullptr)
        focus->setFocus();
}

void Dialog::keyPressEvent(QKeyEvent* event) {
    if (!stays_ || event->key() != Qt::Key_Escape)
        QDialog::keyPressEvent(event);
}

DialogButton::DialogButton(const QString& text, SoundEvents& sounds, QWidget* parent)
    : QPushButton(text, parent), sounds_(sounds) {
    setMouseTracking(true);
}

void DialogButton::mousePressEvent(QMouseEvent* event) {
    sounds_.PlaySoundEvent(sound_event::kButtonMouseClick);
    QPushButton::mousePressEvent(event);
}

void DialogButton::mouseMoveEvent(QMouseEvent* event) {
    sounds_.PlaySoundEvent(sound_event::kButtonMouseMove);
    QPushButton::mouseMoveEvent(event);
}

void SetWindowTopMost(QWidget& window, bool topMost) {
    const Qt::WindowFlags flags = window.windowFlags().setFlag(Qt::WindowStaysOnTopHint, topMost);
    window.overrideWindowFlags(flags);
    if (QWindow* handle = window.windowHandle())
        handle->setFlag(Qt::WindowStaysOnTopHint, topMost);
}

} // namespace quillshift
