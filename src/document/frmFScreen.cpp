#include "document/frmFScreen.h"

#include "document/frmFScreenB.h"

#include <QEvent>
#include <QFrame>
#include <QScreen>

namespace quillshift {

frmFScreen::frmFScreen(const DialogContext& context, FullScreen& mode)
    : Dialog(context, QStringLiteral("Morvane Quillshift 3.0")),
      mode_(mode),
      shapeRichTextBox_(Add<QFrame>("ShapeRichTextBox", this)),
      surface_(Add<QtTextSurface>("FSRTB", this, EditingKeys::OfSurface)) {
    setWindowFlag(Qt::FramelessWindowHint);
    setWindowState(Qt::WindowMaximized); // some window managers would keep a full screen above its bar
    if (context.owner != nullptr) {
        setGeometry(context.owner->screen()->geometry()); // the monitor that is filled
        context.owner->installEventFilter(this);
    }
    shapeRichTextBox_->setFrameShape(QFrame::Box);
    surface_->SetFont({u"Tahoma", 8.25F});
    surface_->setFocus();
    DialogContext above = context;
    above.owner = this;
    bar_ = new frmFScreenB(above, mode);
    mode_.Attach(*surface_);
}

frmFScreen::~frmFScreen() {
    mode_.Detach(*surface_);
}

// The keyboard that the main window gets, from a list of windows, is meant for the text.
bool frmFScreen::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::WindowActivate && isVisible())
        activateWindow();
    return Dialog::eventFilter(watched, event);
}

// The small window comes after this one, which would come up over it otherwise.
void frmFScreen::setVisible(bool visible) {
    if (!visible && isVisible()) {
        bar_->StorePlace();
        bar_->hide();
    }
    Dialog::setVisible(visible);
    bar_->setVisible(visible);
}

void frmFScreen::resizeEvent(QResizeEvent* event) {
    Dialog::resizeEvent(event);
    const Twips width = FromPixels(this->width());
    const Twips height = FromPixels(this->height());
    const auto place = [](QWidget& control, Twips corner, Twips controlWidth, Twips controlHeight) {
        control.setGeometry(ToPixels(corner), ToPixels(corner), ToPixels(controlWidth),
                            ToPixels(controlHeight));
    };
    place(*shapeRichTextBox_, 120_twips, width - 290_twips, height - 290_twips);
    const Twips line = width - 330_twips;
    place(*surface_, 150_twips, line, height - 330_twips);
    surface_->SetRightMargin(line - 400_twips);
}

void frmFScreen::closeEvent(QCloseEvent* /*event*/) {
    mode_.End();
}

} // namespace quillshift
