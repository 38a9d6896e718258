#include "document/frmGoTo.h"

#include "platform/qt/QtText.h"

#include <QEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace quillshift {

frmGoTo::frmGoTo(const DialogContext& context, GoToLine& lines)
    : Dialog(context, QStringLiteral("Перейти...")), lines_(lines), txtGo(Add<QLineEdit>("txtGo")) {
    auto* const label = Add<QLabel>("Label1", QStringLiteral("Введите в поле ниже номер строки, на которую "
                                                             "следует перейти и нажмите 'Перейти'."));
    label->setWordWrap(true);
    txtGo->setAccessibleName(QStringLiteral("Номер строки"));
    auto* const cmdGo = AddButton("cmdGo", QStringLiteral("&Перейти"));
    auto* const all = new QVBoxLayout(this);
    all->addWidget(label);
    all->addWidget(txtGo);
    all->addWidget(cmdGo, 0, Qt::AlignRight);
    all->setSizeConstraint(QLayout::SetFixedSize);
    cmdGo->setDefault(true);
    connect(txtGo, &QLineEdit::textChanged, cmdGo,
            [cmdGo](const QString& text) { cmdGo->setEnabled(!text.isEmpty()); });
    connect(cmdGo, &QPushButton::clicked, this, &frmGoTo::Go);
}

void frmGoTo::BringUp() {
    Dialog::BringUp();
    txtGo->setFocus();
    txtGo->selectAll();
}

// The main window may have another width by now, and so another number of lines.
bool frmGoTo::event(QEvent* event) {
    if (event->type() == QEvent::WindowActivate)
        txtGo->setPlaceholderText(ToQString(lines_.Range()));
    return Dialog::event(event);
}

void frmGoTo::Go() {
    if (lines_.Go(ViewOf(txtGo->text())))
        accept();
}

} // namespace quillshift
