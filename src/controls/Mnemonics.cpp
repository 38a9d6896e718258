#include "controls/Mnemonics.h"

#include <QAbstractButton>
#include <QKeySequence>
#include <QLabel>
#include <QSet>
#include <QStackedWidget>

namespace quillshift {
namespace {

QString CaptionOf(const QWidget& control) {
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return button->text();
    const auto* label = qobject_cast<const QLabel*>(&control);
    return label != nullptr && label->buddy() != nullptr ? label->text() : QString();
}

void SetCaption(QWidget& control, const QString& caption) {
    if (auto* button = qobject_cast<QAbstractButton*>(&control))
        button->setText(caption);
    else if (auto* label = qobject_cast<QLabel*>(&control))
        label->setText(caption);
}

/// The place of the first letter that is free, those that begin a word before all others; -1 for none.
qsizetype FreeLetter(const QString& caption, const QSet<QChar>& used) {
    for (const bool anywhere : {false, true})
        for (qsizetype i = 0; i < caption.size(); ++i) {
            const bool begins = i == 0 || !caption[i - 1].isLetterOrNumber();
            if (caption[i].isLetter() && (anywhere || begins) && !used.contains(caption[i].toLower()))
                return i;
        }
    return -1;
}

QStackedWidget* StackIn(const QWidget& control, const QWidget& dialog) {
    for (QWidget* above = control.parentWidget(); above != nullptr && above != &dialog;
         above = above->parentWidget())
        if (auto* stack = qobject_cast<QStackedWidget*>(above))
            return stack;
    return nullptr;
}

void Give(QWidget& container, QSet<QChar> used) {
    QList<QWidget*> controls;
    for (QWidget* control : container.findChildren<QWidget*>())
        if (StackIn(*control, container) == nullptr && !CaptionOf(*control).isEmpty())
            controls.append(control);
    for (const QWidget* control : controls)
        if (const QKeySequence marked = QKeySequence::mnemonic(CaptionOf(*control)); !marked.isEmpty())
            used.insert(QChar(marked[0].key()).toLower());
    for (QWidget* control : controls) {
        QString caption = CaptionOf(*control);
        const qsizetype letter = caption.contains(u'&') ? -1 : FreeLetter(caption, used);
        if (letter < 0)
            continue;
        used.insert(caption[letter].toLower());
        SetCaption(*control, caption.insert(letter, u'&'));
    }
    for (auto* stack : container.findChildren<QStackedWidget*>())
        for (int page = 0; page < stack->count(); ++page)
            Give(*stack->widget(page), used);
}

} // namespace

void GiveMnemonics(QWidget& dialog) {
    Give(dialog, {});
}

} // namespace quillshift
