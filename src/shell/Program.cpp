// The main window's load, its layout and its live states.

#include "shell/Program.h"

#include "base/Error.h"
#include "base/Texts.h"
#include "shell/Catalogue.h"
#include "shell/CommandStates.h"
#include "shell/Layout.h"

#include <exception>
#include <utility>

namespace quillshift {

Program::Program(Platform& platform, std::function<std::unique_ptr<MainView>()> mainView)
    : platform_(platform),
      makeMainView_(std::move(mainView)),
      settings_(platform.settings),
      sounds_(settings_, platform.sound) {}

void Program::ShowMainWindow() {
    main_ = makeMainView_();
    job_ = std::make_unique<RecodingJob>(
        RecodingJob::Services{recoding_, settings_, platform_.messageBox, main_->RichTextBox(), *main_,
                              main_->Decoding(), platform_.fileDialog.FileName});
    modDocument_ = std::make_unique<modDocument>(modDocument::Services{
        document_, settings_, platform_, main_->RichTextBox(), main_->RichTextBoxBackup(),
        main_->RichTextBoxImport(), *main_, [this] { job_->StartDecode(); }, [this] { modEdit_->Paste(); }});
    modEdit_ = std::make_unique<modEdit>(modEdit::Services{main_->RichTextBox(), platform_.clipboard,
                                                           platform_.messageBox, document_, history_});
    timerUpdate_ = platform_.timers.Make([this] { OnResize(); });
    timerCommandBars_ = platform_.timers.Make([this] { ApplyBarOptions(); });
    timerCommandBars_->StartOnce();
    timerEdit_ = platform_.timers.Make([this] { UpdateStates(); });
    timerClose_ = platform_.timers.Make([this] { main_->Close(); });
    watcher_ = std::make_unique<ClipboardWatcher>(
        ClipboardWatcher::Services{platform_.clipboard, settings_, recoding_, main_->RichTextBox(),
                                   platform_.timers, [this] { document_.DocumentModified = true; }});
    platform_.clipboard.OnChange = [this] { OnClipboardChange(); };
    job_->OnEnded = [this] {
        timerEdit_->StartOnce();
        if (std::exchange(closeAfterJob_, false))
            timerClose_->StartOnce();
    };
    // A load that fails on the way is reported over the window, not in its stead.
    timerEdit_->StartOnce();
    std::exception_ptr failure;
    try {
        LoadMainWindow();
    } catch (const Error&) {
        failure = std::current_exception();
    }
    main_->Show();
    // Not earlier: a job of the load runs events, and would re-code again what was taken in meanwhile.
    if (settings_.PreferenceIs("ClipboardDetect", u"1"))
        watcher_->Start();
    if (failure)
        std::rethrow_exception(failure);
}

void Program::LoadMainWindow() {
    history_.UndoCapture = true;
    document_.ReopenAvailable = false;
    document_.SaveAvailable = false;
    recoding_.RecodeUndoAvailable = false;
    ConnectSurface();
    main_->BuildBars();
    GreyWhatIsToCome();
    main_->SetBarStyle(settings_.Preference("Style"));
    main_->AttachMenu();
    LoadToolBars();
    sounds_.Play(sound_event::kFormLoad);
    recoding_.Combo1 = 0;
    recoding_.Combo2 = 1;
    const int direction = static_cast<int>(NumberIn(settings_.Preference("DefaultCode")));
    main_->SetDirection(direction >= 0 && direction < kDirections ? direction : 0);
    barShown_[1] = settings_.PreferenceIs("ToolBarStandart", u"1");
    barShown_[2] = settings_.PreferenceIs("ToolBarDecode", u"1");
    main_->SetChecked("MENU:VIEW:TOOLBARS:TBSTANDART", barShown_[1]);
    main_->SetBarVisible(1, barShown_[1]);
    main_->SetChecked("MENU:VIEW:TOOLBARS:TBDECODE", barShown_[2]);
    main_->SetBarVisible(2, barShown_[2]);
    const bool topMost = settings_.PreferenceIs("TopMost", u"1");
    main_->SetChecked("MENU:VIEW:ONTOP", topMost);
    main_->SetTopMost(topMost);
    LoadPlace();
    LoadTitle();
    if (OpenAtStart)
        modDocument_->OpenDocument();
    if (settings_.PreferenceIs("StartAtStartup", u"1")) {
        main_->RichTextBox().SetText(platform_.clipboard.Text().value_or(u""));
        job_->StartDecode();
    }
    main_->RichTextBox().SetFont(
        {settings_.Preference("FontName"), NumberIn(settings_.Preference("FontSize"))});
    OnResize();
    UpdateStates();
}

void Program::LoadToolBars() {
    AttachToolBars();
    LoadItems("TOOLBAR", settings_path::kToolBarsStandart);
    LoadItems("TOOLBAR2", settings_path::kToolBarsDecode);
}

void Program::AttachToolBars() {
    for (const int bar : {1, 2})
        main_->AttachToolBar(bar, ToolBarOption("UseLargeIcons") == u"1" ? ToolBarIcons::Large
                                                                         : ToolBarIcons::Small);
}

std::optional<std::u16string> Program::ToolBarOption(std::string_view name) {
    return settings_.ReadString(Hive::CurrentUser, settings_path::kToolBars, name);
}

// Tips that were taken away come back only at the next start.
void Program::ApplyBarOptions() {
    if (ToolBarOption("ShowToolTips") == u"0")
        for (const CatalogueEntry& entry : Catalogue())
            if (ParentKey(entry.Key) == "TOOLBAR" || ParentKey(entry.Key) == "TOOLBAR2")
                main_->SetToolTip(entry.Key, u"");
    main_->SetHideInfrequentlyUsed(ToolBarOption("HideInfrequently") != u"1");
    AttachToolBars();
}

// The store has a number for each item of a toolbar, in order: "00" and up.
void Program::LoadItems(std::string_view root, std::string_view path) {
    int item = 0;
    for (const CatalogueEntry& entry : Catalogue()) {
        if (ParentKey(entry.Key) != root)
            continue;
        const std::string digits = std::to_string(item++);
        const std::string name = digits.size() < 2 ? "0" + digits : digits;
        main_->SetItemVisible(entry.Key, settings_.ReadDword(Hive::CurrentUser, path, name) != 0);
    }
}

void Program::LoadPlace() {
    if (settings_.PreferenceIs("SaveWindowPositionAndSize", u"1")) {
        const auto stored = [this](std::string_view name) {
            return Twips{NumberIn(settings_.Preference(name))};
        };
        const TwipsRect bounds{stored("MainLeft"), stored("MainTop"), stored("MainWidth"),
                               stored("MainHeight")};
        main_->SetBounds(WithinReach(bounds, platform_.screen.WorkAreas()));
    } else {
        const TwipsRect screen = platform_.screen.Primary();
        TwipsRect bounds = main_->Bounds();
        bounds.left = screen.left + screen.width / 2 - bounds.width / 2;
        bounds.top = screen.top + screen.height / 2 - bounds.height / 2;
        main_->SetBounds(bounds);
    }
    // After the rectangle, which is that of the window when it is not maximised.
    if (settings_.PreferenceIs("WindowState", u"0"))
        main_->SetState(WindowState::Normal);
    else if (settings_.PreferenceIs("WindowState", u"2"))
        main_->SetState(WindowState::Maximised);
}

void Program::LoadTitle() {
    const std::u16string shown = settings_.Preference("ShowInCaption");
    if (shown == u"1")
        main_->SetTitle(u"Morvane Quillshift 3.0 Preview - [Документ]");
    else if (shown == u"2")
        main_->SetTitle(u"Morvane Quillshift 3.0 Preview - [Документ не сохранен]");
    else if (shown == u"3")
        main_->SetTitle(kProgramTitle);
}

void Program::ConnectSurface() {
    TextSurface& surface = main_->RichTextBox();
    surface.OnChange = [this, &surface] {
        history_.Record(surface);
        timerEdit_->StartOnce();
    };
    surface.OnSelChange = [this] {
        document_.DocumentModified = true;
        timerEdit_->StartOnce();
    };
    surface.OnKeyPress = [this] {
        document_.DocumentModified = true;
        EnableTextCommands();
        timerEdit_->StartOnce();
    };
    surface.OnRightMouseDown = [this](Point screen) { main_->ShowEditMenu(screen); };
    surface.OnKeyDown = [this] { sounds_.Play(sound_event::kKeyDown); };
}

void Program::OnResize() {
    if (!main_ || main_->State() == WindowState::Minimised)
        return;
    const TwipsRect bounds = main_->Bounds();
    const auto large = ToolBarOption("UseLargeIcons");
    const int bars = (barShown_[1] ? 1 : 0) + (barShown_[2] ? 1 : 0);
    const Twips moreRows = main_->MenuHeight() - kMenuRowHeight;
    if (const auto layout = LayOutEditor(bounds.height - moreRows, bounds.width, large.value_or(u""), bars))
        main_->LayOut(*layout);
}

void Program::UpdatePendingStates() {
    if (!timerEdit_->IsRunning())
        return;
    timerEdit_->Stop();
    UpdateStates();
}

void Program::UpdateStates() {
    const TextSurface& surface = main_->RichTextBox();
    const CommandInputs inputs{.selection = surface.SelLength() > 0,
                               .text = !surface.Text().empty(),
                               .clipboardText = platform_.clipboard.HasText(),
                               .undoSteps = history_.UndoSteps(),
                               .redoSteps = history_.RedoSteps(),
                               .recodeUndo = recoding_.RecodeUndoAvailable,
                               .reopen = document_.ReopenAvailable,
                               .save = document_.SaveAvailable};
    ForEachCommandState(inputs, [this](std::string_view key, bool enabled) {
        if (!IsToCome(key))
            main_->SetEnabled(key, enabled);
    });
}

// Ahead of the update that follows the key.
void Program::EnableTextCommands() {
    for (const std::string_view key :
         {"MENU:FIND:FIND", "MENU:FIND:REPLACE", "MENU:FIND:GOTO", "MENU:FILE:PRINT", "MENU:FIND:FINDNEXT"})
        if (!IsToCome(key))
            main_->SetEnabled(key, key != "MENU:FIND:FINDNEXT");
}

void Program::OnClipboardChange() {
    timerEdit_->StartOnce();
    watcher_->OnClipboardChange();
}

} // namespace quillshift
