#include "platform/qt/DialogOwner.h"

#include <QApplication>
#include <QWidget>

namespace quillshift {

// A window that was just hidden may still count as the active one, and a dialog
// of a hidden window gets no keyboard.
QWidget* DialogOwner() {
    QWidget* owner = QApplication::activeWindow();
    while (owner != nullptr && !owner->isVisible())
        owner = owner->parentWidget();
    return owner;
}

} // namespace quillshift
