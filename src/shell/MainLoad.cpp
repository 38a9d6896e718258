#include "shell/MainLoad.h"

#include "base/Error.h"
#include "base/Texts.h"
#include "document/Caption.h"

#include <exception>

namespace quillshift {

MainLoad::MainLoad(ProgramParts& parts, Commands& commands) : parts_(parts), commands_(commands) {}

// A load that fails on the way is reported over the window, not in its stead.
void MainLoad::ShowMainWindow() {
    parts_.toolBars.ApplyOptionsSoon();
    const bool offers = parts_.recovered.Find();
    Attempt(&MainLoad::Load);
    if (!offers)
        Attempt(&MainLoad::LoadDocument);
    LoadFont();
    parts_.layout.LayOut();
    commands_.UpdateStates();
    parts_.window.Show();
    if (offers)
        OfferRecovered();
    // Not earlier: a job of the load runs events, and would re-code again what was taken in meanwhile.
    if (parts_.settings.Is(Setting::ClipboardDetect) && !parts_.recovered.HasRestored())
        parts_.watcher.Start();
    if (failure_)
        std::rethrow_exception(failure_);
}

void MainLoad::Attempt(void (MainLoad::*step)()) {
    try {
        if (!failure_)
            (this->*step)();
    } catch (const Error&) {
        failure_ = std::current_exception();
    }
}

// Over the window, and before anything else brings a text into it. A restored text is left alone.
void MainLoad::OfferRecovered() {
    parts_.recovered.TellOfDamaged();
    if (parts_.recovered.Count() > 0)
        parts_.dialogs->Show(DialogKind::Recovery);
    parts_.recovered.Release();
    if (!parts_.recovered.HasRestored())
        Attempt(&MainLoad::LoadDocument);
}

void MainLoad::Load() {
    parts_.history.UndoCapture = true;
    parts_.document.ReopenAvailable = false;
    parts_.document.SaveAvailable = false;
    parts_.recoding.RecodeUndoAvailable = false;
    parts_.bars.Build();
    parts_.bars.ApplyStyle(parts_.settings.Text(Setting::Style));
    parts_.bars.AttachMenu();
    parts_.toolBars.Attach();
    parts_.toolBars.LoadToolBarButtons();
    parts_.sounds.PlaySoundEvent(sound_event::kFormLoad);
    parts_.recoding.Combo1 = 0;
    parts_.recoding.Combo2 = 1;
    const int direction = static_cast<int>(parts_.settings.Number(Setting::DefaultCode));
    parts_.window.SetDirection(direction >= 0 && direction < kDirections ? direction : 0);
    LoadBars();
    LoadPlace();
    ShowCaption(parts_.window, parts_.settings, u"Документ", u"Документ не сохранен");
}

// The ticks of the view menu, and what they stand for.
void MainLoad::LoadBars() {
    const auto load = [this](std::string_view key, Setting setting) {
        const bool on = parts_.settings.Is(setting);
        parts_.bars.Button(key).SetChecked(on);
        return on;
    };
    parts_.bars.Show(1, load("MENU:VIEW:TOOLBARS:TBSTANDART", Setting::ToolBarStandart));
    parts_.bars.Show(2, load("MENU:VIEW:TOOLBARS:TBDECODE", Setting::ToolBarDecode));
    parts_.window.SetTopMost(load("MENU:VIEW:ONTOP", Setting::TopMost));
}

void MainLoad::LoadPlace() {
    const Screen& screen = parts_.platform.screen;
    if (parts_.settings.Is(Setting::SaveWindowPositionAndSize)) {
        const auto stored = [this](Setting side) { return Twips{parts_.settings.Number(side)}; };
        const TwipsRect bounds{stored(Setting::MainLeft), stored(Setting::MainTop),
                               stored(Setting::MainWidth), stored(Setting::MainHeight)};
        parts_.window.SetBounds(WithinReach(bounds, screen.WorkAreas()));
    } else {
        const TwipsRect bounds = parts_.window.Bounds();
        parts_.window.SetBounds(CentredIn(screen.Primary(), bounds.width, bounds.height));
    }
    // After the rectangle, which is that of the window when it is not maximised.
    if (parts_.settings.Is(Setting::WindowState, u"0"))
        parts_.window.SetState(WindowState::Normal);
    else if (parts_.settings.Is(Setting::WindowState, u"2"))
        parts_.window.SetState(WindowState::Maximised);
}

void MainLoad::LoadDocument() {
    TextSurface& document = parts_.window.RichTextBox();
    if (parts_.start.OpenAtStart)
        parts_.documents.OpenDocument();
    if (parts_.settings.Is(Setting::StartAtStartup))
        if (const auto copied = parts_.platform.clipboard.Text()) {
            document.SetText(*copied);
            parts_.job.StartDecode();
        }
}

void MainLoad::LoadFont() {
    parts_.window.RichTextBox().SetFont(
        {parts_.settings.Text(Setting::FontName), parts_.settings.Number(Setting::FontSize)});
}

} // namespace quillshift
