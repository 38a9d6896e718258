#pragma once

#include "controls/Dialog.h"
#include "document/FullScreen.h"
#include "platform/qt/QtTextSurface.h"

class QFrame;

namespace quillshift {

class frmFScreenB;

/// The text on the whole screen.
class frmFScreen final : public Dialog {
    Q_OBJECT

public:
    frmFScreen(const DialogContext& context, FullScreen& mode);
    ~frmFScreen() override;

    void setVisible(bool visible) override;
    void reject() override {} // Escape is no way out

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    FullScreen& mode_;
    QFrame* shapeRichTextBox_;
    QtTextSurface* surface_; ///< `FSRTB`
    frmFScreenB* bar_ = nullptr;
};

} // namespace quillshift
