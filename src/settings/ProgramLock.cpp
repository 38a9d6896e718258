#include "settings/ProgramLock.h"

#include "base/Windows1251.h"

#include <algorithm>

namespace quillshift {
namespace {

// How long it takes tells nothing of the letters that are right.
bool IsSame(std::string_view typed, std::string_view password) {
    volatile bool isSame = typed.size() == password.size();
    for (std::size_t i = 0; i < typed.size(); ++i)
        isSame = (typed[i] == (password.empty() ? '\0' : password[i % password.size()])) & isSame;
    return isSame;
}

} // namespace

bool ProgramLock::IsSetUp() const {
    return !services_.settings.Is(Setting::Password, u"") || !services_.settings.Is(Setting::User, u"");
}

bool ProgramLock::MaySeeLocked() {
    if (IsSetUp())
        Lock();
    return !isLocked_;
}

void ProgramLock::Lock() {
    if (isLocked_)
        return;
    if (!IsSetUp()) {
        services_.messageBox.Inform(
            u"Параметры блокировки программы не настроены! Настроить параметры блокировки \n"
            u"можно в меню ''Сервис'' -> ''Параметры программы'' на вкладке ''Блокировка''.");
        return;
    }
    password_ = windows1251::Encode(services_.settings.Text(Setting::Password));
    isLocked_ = true;
    isOpened_ = false;
    services_.changes(true);
    services_.dialogs.HideAll();
    services_.mainWindow.Hide();
    services_.shell.Conceal(true);
    services_.dialogs.Show(DialogKind::Lock);
    std::ranges::fill(password_, '\0');
    if (!isOpened_) { // whatever took the dialog away
        services_.shell.EndProcess();
        return;
    }
    isLocked_ = false;
    services_.shell.Conceal(false);
    services_.mainWindow.Show();
    services_.dialogs.BringBack();
    services_.changes(false);
}

// By the bytes of the store: a letter that it couldn't hold opens to who typed it then.
bool ProgramLock::Enter(std::u16string_view typed) {
    isOpened_ = IsSame(windows1251::Encode(typed), password_);
    if (!isOpened_)
        services_.messageBox.Inform(u"Вы ввели неверный пароль. Попробуйте еще раз.");
    return isOpened_;
}

void ProgramLock::ShowTip() {
    services_.messageBox.Inform(services_.settings.Text(Setting::Tip));
}

} // namespace quillshift
