#include "settings/frmLockProgram.h"

#include "platform/qt/CapsLock.h"
#include "platform/qt/QtText.h"

#include <QCloseEvent>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QVBoxLayout>

namespace quillshift {
namespace {

// Undo would bring back what was typed before.
void KeepNoUndo(QLineEdit& field) {
    QObject::connect(&field, &QLineEdit::textEdited, &field, [&field](const QString& text) {
        const int caret = field.cursorPosition();
        field.setText(text);
        field.setCursorPosition(caret);
    });
}

} // namespace

// No window owns it: one that belongs to a hidden one is in no list of windows.
frmLockProgram::frmLockProgram(const DialogContext& context, ProgramLock& lock)
    : Dialog(context, QStringLiteral("Morvane Quillshift 3.0")),
      lock_(lock),
      txtUser_(Add<QLineEdit>("txtUser", ToQString(context.settings.Text(Setting::User)))),
      txtPassword_(Add<QLineEdit>("txtPassword")),
      lblCapsLock_(Add<QLabel>("lblCapsLock")) {
    setWindowFlags(Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                   Qt::WindowMinimizeButtonHint | (windowFlags() & Qt::WindowStaysOnTopHint));
    auto* notice = new QLabel(QStringLiteral(
        "Программа заблокирована! Чтобы разблокировать программу введите имя и пароль в соответствующие поля "
        "выше и нажмите 'Войти'.\nВы можете настроить имя и пароль в параметрах программы."));
    notice->setWordWrap(true);
    notice->setMinimumWidth(360);
    auto* cmdEnter = AddButton("cmdEnter", QStringLiteral("Войти"));
    cmdEnter->setDefault(true);
    connect(cmdEnter, &QPushButton::clicked, this, &frmLockProgram::Enter);

    auto* all = new QVBoxLayout(this);
    all->addWidget(Identification());
    all->addWidget(notice);
    all->addWidget(cmdEnter, 0, Qt::AlignRight);
    all->setSizeConstraint(QLayout::SetFixedSize);
    txtPassword_->setFocus();
    ShowCapsLock();
}

QWidget* frmLockProgram::Identification() {
    if (Context().settings.Is(Setting::DoNotShowPassword)) {
        txtPassword_->setEchoMode(QLineEdit::Password);
        txtPassword_->setStyleSheet(QStringLiteral("lineedit-password-character: 42")); // "*"
    }
    KeepNoUndo(*txtPassword_);
    auto* frame = new QGroupBox(QStringLiteral("Идентификация:"));
    auto* rows = new QFormLayout(frame);
    rows->addRow(QStringLiteral("&Имя пользователя:"), txtUser_);
    rows->addRow(QStringLiteral("&Пароль:"), txtPassword_);
    rows->addRow(QString(), lblCapsLock_);
    rows->addRow(QString(), Tip());
    return frame;
}

QWidget* frmLockProgram::Tip() {
    auto* imgShowPasswordTip = Add<QLabel>("imgShowPasswordTip");
    imgShowPasswordTip->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxQuestion).pixmap(16));
    auto* lblShowPasswordTip =
        Add<QLabel>("lblShowPasswordTip", QStringLiteral("<a href=\"tip\">подсказка</a>"));
    lblShowPasswordTip->setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
    connect(lblShowPasswordTip, &QLabel::linkActivated, this, [this] { lock_.ShowTip(); });
    auto* tip = new QWidget;
    auto* row = new QHBoxLayout(tip);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(imgShowPasswordTip);
    row->addWidget(lblShowPasswordTip, 1);
    tip->setEnabled(!Context().settings.Text(Setting::Tip).empty());
    return tip;
}

void frmLockProgram::Enter() {
    if (lock_.Enter(FromQString(txtPassword_->text()))) {
        accept();
        return;
    }
    txtPassword_->setText({}); // clearing could be undone
    txtPassword_->setFocus();
}

void frmLockProgram::ShowCapsLock() {
    lblCapsLock_->setText(IsCapsLockOn() ? QStringLiteral("Включён режим Caps Lock.") : QString());
}

void frmLockProgram::closeEvent(QCloseEvent* event) {
    event->ignore();
}

void frmLockProgram::changeEvent(QEvent* event) {
    Dialog::changeEvent(event);
    if (event->type() == QEvent::ActivationChange)
        ShowCapsLock();
}

void frmLockProgram::keyPressEvent(QKeyEvent* event) {
    ShowCapsLock();
    Dialog::keyPressEvent(event);
}

void frmLockProgram::keyReleaseEvent(QKeyEvent* event) {
    ShowCapsLock();
    Dialog::keyReleaseEvent(event);
}

} // namespace quillshift
