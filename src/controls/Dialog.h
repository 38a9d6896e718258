#pragma once

#include "settings/Settings.h"
#include "settings/SoundEvents.h"

#include <QDialog>
#include <QPushButton>

namespace quillshift {

/// What every dialog does the same way: it takes its place above other windows as `TopMost` says and plays
/// the load sound before it fills its fields, and plays the unload sound when it closes.
class Dialog : public QDialog {
    Q_OBJECT

public:
    Dialog(Settings& settings, SoundEvents& sounds, QWidget* parent);
    ~Dialog() override;

private:
    SoundEvents& sounds_;
};

/// A button of a dialog: plays its sound on each press, by whatever mouse button, and on each move over it.
class DialogButton final : public QPushButton {
    Q_OBJECT

public:
    DialogButton(const QString& text, SoundEvents& sounds, QWidget* parent = nullptr);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

private:
    SoundEvents& sounds_;
};

/// Places a window above all others or takes that place away, without hiding it in between.
void SetWindowTopMost(QWidget& window, bool topMost);

} // namespace quillshift
