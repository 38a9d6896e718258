#include "settings/frmSplash.h"

#include "controls/Picture.h"

#include <QCloseEvent>
#include <QScreen>
#include <QVBoxLayout>

namespace quillshift {

frmSplash::frmSplash(const DialogContext& context)
    : Dialog(context, QStringLiteral("Morvane Quillshift 3.0"), DialogSounds::None) {
    setWindowFlags(Qt::SplashScreen | Qt::FramelessWindowHint | (windowFlags() & Qt::WindowStaysOnTopHint));
    setAttribute(Qt::WA_ShowWithoutActivating);
    const FileContents file =
        context.platform.files.Read(context.platform.shell.ProgramFolder() + u"/Splash.spl");
    auto* picture = Add<Picture>("Splash", file.bytes);
    hasPicture_ = !picture->IsEmpty();
    const QSize room = screen()->availableSize();
    if (picture->width() > room.width() || picture->height() > room.height())
        picture->setFixedSize(picture->size().scaled(room, Qt::KeepAspectRatio));
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(picture);
    all->setSizeConstraint(QLayout::SetFixedSize);
    adjustSize();
    move(screen()->availableGeometry().center() - rect().center()); // it has no frame to reckon with
}

void frmSplash::setVisible(bool visible) {
    Dialog::setVisible(visible && hasPicture_);
}

void frmSplash::mousePressEvent(QMouseEvent* /*event*/) {
    Context().sounds.PlaySoundEvent(sound_event::kButtonMouseClick);
}

void frmSplash::closeEvent(QCloseEvent* event) {
    event->ignore();
}

} // namespace quillshift
