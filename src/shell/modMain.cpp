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
        const bool splash = settings_.Is(Setting::Splash);
        if (!splash || !ShowStartDialog(StartDialog::Splash))
            ShowFirstWindow();
    } catch (const Error& error) {
        if (error.Number() > kNothingWrong && error.Number() != kUnloadedItself)
            platform_.messageBox.Report(error);
    }
}

void Program::ShowFirstRunNotice() {
    if (!settings_.Is(Setting::FirstRun))
        return;
    platform_.messageBox.Inform(kFirstRunNotice, BoxIcon::None);
    settings_.Set(Setting::FirstRun, u"0");
}

bool Program::RefusesSecondCopy() {
    if (!settings_.Is(Setting::ManyCopies, u"0") || !platform_.shell.AnotherCopyRuns())
        return false;
    platform_.messageBox.Inform(
        u"Программа уже запущена! Чтобы запустить программу несколько раз, включите опцию <Разрешить запуск "
        u"нескольких копий программы> в диалоговом окне Параметры программы.");
    return true;
}

void Program::ShowFirstWindow() {
    if (settings_.Is(Setting::Welcome) && ShowStartDialog(StartDialog::Welcome))
        return;
    if (settings_.Is(Setting::WorkBegin) && ShowStartDialog(StartDialog::WorkBegin))
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
    if (settings_.Is(Setting::ClearClipboard))
        platform_.clipboard.Clear();
    StorePlace();
    settings_.Set(Setting::ClipboardText, u"");
    if (!AskToLeave())
        return false;
    platform_.shell.EndProcess();
    return true;
}

void Program::StorePlace() {
    if (settings_.Is(Setting::SaveWindowPositionAndSize)) {
        const TwipsRect bounds = main_->RestoredBounds();
        settings_.Set(Setting::MainLeft, DecimalText(bounds.left.value));
        settings_.Set(Setting::MainTop, DecimalText(bounds.top.value));
        settings_.Set(Setting::MainHeight, DecimalText(bounds.height.value));
        settings_.Set(Setting::MainWidth, DecimalText(bounds.width.value));
    }
    const WindowState state = main_->State();
    if (state != WindowState::Minimised)
        settings_.Set(Setting::WindowState, state == WindowState::Maximised ? u"2" : u"0");
}

bool Program::AskToLeave() {
    if (!settings_.Is(Setting::MessageOnExit))
        return true;
    if (platform_.messageBox.Ask(u"Вы действительно хотите завершить работу с программой?") != BoxAnswer::Yes)
        return false;
    sounds_.PlaySoundEvent(sound_event::kFormUnload);
    platform_.sound.WaitForEnd(); // the end would cut it
    return true;
}

} // namespace quillshift
