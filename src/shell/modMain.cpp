// The way in and the way out of the program.

#include "base/Error.h"
#include "shell/Program.h"

namespace quillshift {
namespace {

constexpr std::u16string_view kFirstRunNotice =
    u"Эта версия программы не является финальной, не содержит всех изменений, которые появятся в финальной \n"
    u"версии и даже не находится в стадии тестирования!\n"
    u"Эта версия прежде всего предназначена для ''предварительного просмотра'', т.е. ознакомления "
    u"пользователя \n"
    u"с некоторыми изменениями и функциями, которые появятся в финальной версии программы.\n"
    u"Все комментарии и пожелания просьба отправлять автору: author@quillshift.example";

constexpr int kNothingWrong = 0;
constexpr int kUnloadedItself = 364; // a window that closed while it was being opened

} // namespace

void Program::Main() {
    try {
        ShowFirstRunNotice();
        if (RefusesSecondCopy()) {
            platform_.shell.EndProcess();
            return;
        }
        const bool splash = settings_.ReadDword(Hive::CurrentUser, settings_path::kDialogs, "Splash") == 1;
        if (!splash || !ShowStartDialog(StartDialog::Splash))
            ShowFirstWindow();
    } catch (const Error& error) {
        if (error.Number() > kNothingWrong && error.Number() != kUnloadedItself)
            platform_.messageBox.Report(error);
    }
}

void Program::ShowFirstRunNotice() {
    if (!settings_.PreferenceIs("FirstRun", u"1"))
        return;
    platform_.messageBox.Inform(kFirstRunNotice, BoxIcon::None);
    settings_.SetPreference("FirstRun", u"0");
}

bool Program::RefusesSecondCopy() {
    if (!settings_.PreferenceIs("ManyCopies", u"0") || !platform_.shell.AnotherCopyRuns())
        return false;
    platform_.messageBox.Inform(
        u"Программа уже запущена! Чтобы запустить программу несколько раз, включите опцию <Разрешить запуск "
        u"нескольких копий программы> в диалоговом окне Параметры программы.");
    return true;
}

void Program::ShowFirstWindow() {
    const auto wanted = [this](std::string_view name) {
        return settings_.ReadDword(Hive::CurrentUser, settings_path::kDialogs, name) == 1;
    };
    if (wanted("Welcome") && ShowStartDialog(StartDialog::Welcome))
        return;
    if (wanted("WorkBegin") && ShowStartDialog(StartDialog::WorkBegin))
        return;
    ShowMainWindow();
}

// The one place where the start chain passes over the dialogs it does not have.
bool Program::ShowStartDialog(StartDialog /*dialog*/) {
    return false;
}

// --- Closing

bool Program::OnClose() {
    if (recoding_.walking) {
        // The job is on the stack below; it has to be off before the window goes.
        closeAfterJob_ = true;
        job_->StopRecoding();
        return false;
    }
    const BoxAnswer answer = modDocument_->AskToSave(BoxButtons::YesNoCancel);
    if (answer == BoxAnswer::Cancel)
        return false;
    if (answer == BoxAnswer::Yes)
        modDocument_->SaveAs();
    if (settings_.PreferenceIs("ClearClipboard", u"1"))
        platform_.clipboard.Clear();
    StorePlace();
    settings_.WriteString(Hive::CurrentUser, settings_path::kClipboard, "ClipboardText", u"");
    if (!AskToLeave())
        return false;
    platform_.shell.EndProcess();
    return true;
}

void Program::StorePlace() {
    if (settings_.PreferenceIs("SaveWindowPositionAndSize", u"1")) {
        const TwipsRect bounds = main_->RestoredBounds();
        settings_.SetPreference("MainLeft", DecimalText(bounds.left.value));
        settings_.SetPreference("MainTop", DecimalText(bounds.top.value));
        settings_.SetPreference("MainHeight", DecimalText(bounds.height.value));
        settings_.SetPreference("MainWidth", DecimalText(bounds.width.value));
    }
    const WindowState state = main_->State();
    if (state != WindowState::Minimised)
        settings_.SetPreference("WindowState", state == WindowState::Maximised ? u"2" : u"0");
}

bool Program::AskToLeave() {
    if (!settings_.PreferenceIs("MessageOnExit", u"1"))
        return true;
    if (platform_.messageBox.Ask(u"Вы действительно хотите завершить работу с программой?") != BoxAnswer::Yes)
        return false;
    sounds_.Play(sound_event::kFormUnload);
    return true;
}

} // namespace quillshift
