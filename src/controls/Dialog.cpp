#include "controls/Dialog.h"

#include "controls/FieldNames.h"
#include "controls/Mnemonics.h"
#include "platform/qt/Appearance.h"

#include <QKeyEvent>
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
    if (event->type() == QEvent::Show) {
        NameFieldsByLabels(*this);
        GiveMnemonics(*this);
    }
    return QDialog::event(event);
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
