#include "platform/qt/QtMessageBox.h"

#include "platform/qt/Appearance.h"
#include "platform/qt/DialogOwner.h"
#include "platform/qt/QtText.h"

#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace quillshift {
namespace {

QMessageBox::Icon IconOf(BoxIcon icon) {
    switch (icon) {
    case BoxIcon::None:
        break;
    case BoxIcon::Information:
        return QMessageBox::Information;
    case BoxIcon::Exclamation:
        return QMessageBox::Warning;
    case BoxIcon::Question:
        return QMessageBox::Question;
    case BoxIcon::Critical:
        return QMessageBox::Critical;
    }
    return QMessageBox::NoIcon;
}

// The lines of a text with breaks of its own are as long as they were written, where the screen has the room;
// the toolkit would break them again.
void KeepLines(QMessageBox& box) {
    auto* const label = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
    if (label == nullptr || !box.text().contains(u'\n'))
        return;
    label->ensurePolished();
    const QRect lines = label->fontMetrics().boundingRect({}, Qt::AlignLeft, label->text());
    label->setMinimumWidth(std::min(lines.width() + 1, box.screen()->availableSize().width() / 2));
}

} // namespace

BoxAnswer QtMessageBox::Show(BoxIcon icon, BoxButtons buttons, std::u16string_view text) {
    QMessageBox box(DialogOwner());
    box.setFont(DialogFont());
    box.setWindowTitle(ToQString(kProgramTitle));
    box.setTextFormat(Qt::PlainText); // the texts hold "<" and ">"
    box.setText(ToQString(text));
    box.setIcon(IconOf(icon));
    KeepLines(box);
    if (buttons == BoxButtons::Ok) {
        box.addButton(QStringLiteral("ОК"), QMessageBox::AcceptRole);
        box.exec();
        return BoxAnswer::Ok;
    }
    QPushButton* yes = box.addButton(QStringLiteral("&Да"), QMessageBox::YesRole);
    QPushButton* no = box.addButton(QStringLiteral("&Нет"), QMessageBox::NoRole);
    // Escape goes to the cancel button. Where it has no place it is hidden, so that a box that was only
    // closed is told from one that was answered No.
    QPushButton* cancel = box.addButton(QStringLiteral("Отмена"), QMessageBox::RejectRole);
    cancel->setVisible(buttons == BoxButtons::YesNoCancel);
    box.setDefaultButton(yes);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == yes)
        return BoxAnswer::Yes;
    return box.clickedButton() == no ? BoxAnswer::No : BoxAnswer::Cancel;
}

} // namespace quillshift
