#pragma once

#include "controls/Dialog.h"

namespace quillshift {

/// The picture at the start: the file Splash.spl of the program's folder, made smaller where the screen has
/// no room for it. Where that is missing or no picture, nothing shows.
class frmSplash final : public Dialog {
    Q_OBJECT

public:
    explicit frmSplash(const DialogContext& context);

    void setVisible(bool visible) override;
    /// Neither a key nor the window manager ends it early.
    void reject() override {}

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    bool hasPicture_ = false;
};

} // namespace quillshift
