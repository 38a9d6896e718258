#include "platform/qt/DialogOwner.h"

#include <QApplication>
#include <QFileDialog>
#include <QLabel>
#include <QWidget>

#include <utility>

namespace quillshift {

// A window that was just hidden may still count as the active one, and a dialog
// of a hidden window gets no keyboard.
QWidget* DialogOwner() {
    QWidget* owner = QApplication::activeWindow();
    while (owner != nullptr && !owner->isVisible())
        owner = owner->parentWidget();
    return owner;
}

void NameFields(const QFileDialog& dialog) {
    const std::pair<const char*, const char*> pairs[] = {{"lookInLabel", "lookInCombo"},
                                                         {"fileTypeLabel", "fileTypeCombo"}};
    for (const auto& [label, field] : pairs)
        if (auto* const text = dialog.findChild<QLabel*>(QLatin1String(label)))
            text->setBuddy(dialog.findChild<QWidget*>(QLatin1String(field)));
}

} // namespace quillshift
