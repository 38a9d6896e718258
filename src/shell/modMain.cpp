#include "shell/modMain.h"

#include "base/Error.h"
#include "settings/Author.h"

#include <utility>

namespace quillshift {
namespace {

constexpr std::u16string_view kFirstRunNotice =
    u"Эта версия программы не является финальной, не содержит всех изменений, которые появятся в финальной \n"
    u"версии и даже не находится в стадии тестирования!\n"
    u"Эта версия прежде всего предназначена для ''предварительного просмотра'', т.е. ознакомления "
    u"пользователя \n"
    u"с некоторыми изменениями и функциями, которые появятся в финальной версии программы.\n"
    u"Все комментарии и пожелания просьба отправлять автору: ";

constexpr int kNothingWrong = 0;
constexpr int kUnloadedItself = 364; // a window that closed while it was being opened

} // namespace

modMain::modMain(ProgramParts& parts, MainLoad& load)
    : parts_(parts), load_(load), timerClose_(parts.platform.timers.Make([this] { parts_.window.Close(); })) {
    parts_.start.ShowMainWindow = [this] { ReportFailureOf([this] { load_.ShowMainWindow(); }); };
}

void modMain::Main() {
    ReportFailureOf([this] {
        ShowFirstRunNotice();
        if (RefusesSecondCopy())
            parts_.platform.shell.EndProcess();
        else
            parts_.start.Begin();
    });
}

void modMain::ReportFailureOf(const std::function<void()>& routine) {
    try {
        routine();
    } catch (const Error& error) {
        if (error.Number() > kNothingWrong && error.Number() != kUnloadedItself)
            parts_.platform.messageBox.Report(error);
    }
}

void modMain::ShowFirstRunNotice() {
    if (!parts_.settings.Is(Setting::FirstRun))
        return;
    parts_.platform.messageBox.Inform(std::u16string(kFirstRunNotice) + std::u16string(kAuthorMail),
                                      BoxIcon::None);
    parts_.settings.Switch(Setting::FirstRun, false);
}

bool modMain::RefusesSecondCopy() {
    if (!parts_.settings.Is(Setting::ManyCopies, u"0") || !parts_.platform.shell.AnotherCopyRuns())
        return false;
    parts_.platform.messageBox.Inform(
        u"Программа уже запущена! Чтобы запустить программу несколько раз, включите опцию <Разрешить запуск "
        u"нескольких копий программы> в диалоговом окне Параметры программы.");
    return true;
}

// --- Closing

bool modMain::Close() {
    if (parts_.lock.IsLocked())
        return false;
    parts_.fullScreen.End();
    if (parts_.recoding.walking) {
        // The job is on the stack below; it has to be off before the window goes.
        closeAfterJob_ = true;
        parts_.job.StopRecoding();
        return false;
    }
    const BoxAnswer answer = parts_.documents.AskToSave(BoxButtons::YesNoCancel);
    if (answer == BoxAnswer::Cancel)
        return false;
    if (answer == BoxAnswer::Yes && !parts_.documents.SaveAs())
        return false; // the text is nowhere but in the window
    if (parts_.settings.Is(Setting::ClearClipboard))
        parts_.platform.clipboard.Clear();
    StorePlace();
    parts_.settings.Set(Setting::ClipboardText, u"");
    if (!AskToLeave())
        return false;
    parts_.platform.clipboard.OnChange = nullptr; // the memory of the clipboard stays empty
    parts_.platform.clipboard.HandOver();
    parts_.recovery.End();
    parts_.platform.shell.EndProcess();
    return true;
}

void modMain::OnJobEnded() {
    if (std::exchange(closeAfterJob_, false))
        timerClose_->StartOnce();
}

void modMain::StorePlace() {
    if (parts_.settings.Is(Setting::SaveWindowPositionAndSize)) {
        const TwipsRect bounds = parts_.window.RestoredBounds();
        parts_.settings.Set(Setting::MainLeft, DecimalText(bounds.left.value));
        parts_.settings.Set(Setting::MainTop, DecimalText(bounds.top.value));
        parts_.settings.Set(Setting::MainHeight, DecimalText(bounds.height.value));
        parts_.settings.Set(Setting::MainWidth, DecimalText(bounds.width.value));
    }
    const WindowState state = parts_.window.State();
    if (state != WindowState::Minimised)
        parts_.settings.Set(Setting::WindowState, state == WindowState::Maximised ? u"2" : u"0");
}

bool modMain::AskToLeave() {
    if (!parts_.settings.Is(Setting::MessageOnExit))
        return true;
    if (parts_.platform.messageBox.Ask(u"Вы действительно хотите завершить работу с программой?") !=
        BoxAnswer::Yes)
        return false;
    parts_.sounds.PlaySoundEvent(sound_event::kFormUnload);
    parts_.platform.sound.WaitForEnd(); // the end would cut it
    return true;
}

} // namespace quillshift
