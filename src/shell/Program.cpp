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
        document_, settings_, sounds_, platform_, main_->RichTextBox(), main_->RichTextBoxBackup(),
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
    if (settings_.Is(Setting::ClipboardDetect))
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
    main_->SetBarStyle(settings_.Text(Setting::Style));
    main_->AttachMenu();
    LoadToolBars();
    sounds_.PlaySoundEvent(sound_event::kFormLoad);
    recoding_.Combo1 = 0;
    recoding_.Combo2 = 1;
    const int direction = static_cast<int>(settings_.Number(Setting::DefaultCode));
    main_->SetDirection(direction >= 0 && direction < kDirections ? direction : 0);
    barShown_[1] = settings_.Is(Setting::ToolBarStandart);
    barShown_[2] = settings_.Is(Setting::ToolBarDecode);
    main_->SetChecked("MENU:VIEW:TOOLBARS:TBSTANDART", barShown_[1]);
    main_->SetBarVisible(1, barShown_[1]);
    main_->SetChecked("MENU:VIEW:TOOLBARS:TBDECODE", barShown_[2]);
    main_->SetBarVisible(2, barShown_[2]);
    const bool topMost = settings_.Is(Setting::TopMost);
    main_->SetChecked("MENU:VIEW:ONTOP", topMost);
    main_->SetTopMost(topMost);
    LoadPlace();
    LoadTitle();
    if (OpenAtStart)
        modDocument_->OpenDocument();
    if (settings_.Is(Setting::StartAtStartup)) {
        main_->RichTextBox().SetText(platform_.clipboard.Text().value_or(u""));
        job_->StartDecode();
    }
    main_->RichTextBox().SetFont({settings_.Text(Setting::FontName), settings_.Number(Setting::FontSize)});
    OnResize();
    UpdateStates();
}

void Program::LoadToolBars() {
    AttachToolBars();
    LoadItems("TOOLBAR", ItemBar::Standart);
    LoadItems("TOOLBAR2", ItemBar::Decode);
}

void Program::AttachToolBars() {
    for (const int bar : {1, 2})
        main_->AttachToolBar(bar, settings_.Is(Setting::UseLargeIcons) ? ToolBarIcons::Large
                                                                       : ToolBarIcons::Small);
}

// Tips that were taken away come back only at the next start.
void Program::ApplyBarOptions() {
    if (settings_.Is(Setting::ShowToolTips, u"0"))
        for (const CatalogueEntry& entry : Catalogue())
            if (ParentKey(entry.Key) == "TOOLBAR" || ParentKey(entry.Key) == "TOOLBAR2")
                main_->SetToolTip(entry.Key, u"");
    main_->SetHideInfrequentlyUsed(!settings_.Is(Setting::HideInfrequently));
    AttachToolBars();
}

void Program::LoadItems(std::string_view root, ItemBar bar) {
    int item = 0;
    for (const CatalogueEntry& entry : Catalogue()) {
        if (ParentKey(entry.Key) != root)
            continue;
        main_->SetItemVisible(entry.Key, settings_.IsItemShown(bar, item++));
    }
}

void Program::LoadPlace() {
    if (settings_.Is(Setting::SaveWindowPositionAndSize)) {
        const auto stored = [this](Setting name) { return Twips{settings_.Number(name)}; };
        const TwipsRect bounds{stored(Setting::MainLeft), stored(Setting::MainTop),
                               stored(Setting::MainWidth), stored(Setting::MainHeight)};
        main_->SetBounds(WithinReach(bounds, platform_.screen.WorkAreas()));
    } else {
        const TwipsRect screen = platform_.screen.Primary();
        TwipsRect bounds = main_->Bounds();
        bounds.left = screen.left + screen.width / 2 - bounds.width / 2;
        bounds.top = screen.top + screen.height / 2 - bounds.height / 2;
        main_->SetBounds(bounds);
    }
    // After the rectangle, which is that of the window when it is not maximised.
    if (settings_.Is(Setting::WindowState, u"0"))
        main_->SetState(WindowState::Normal);
    else if (settings_.Is(Setting::WindowState, u"2"))
        main_->SetState(WindowState::Maximised);
}

void Program::LoadTitle() {
    const std::u16string shown = settings_.Text(Setting::ShowInCaption);
    if (shown == u"1")
        main_->SetTitle(u"Morvane Quillshift 3.0 Preview - [Документ]");
    else if (shown == u"2")
        main_->SetTitle(u"Morvane Quillshift 3.0 Preview - [Документ не сохранен]");
    else if (shown == u"3")
        main_->SetTitle(kProgramTitle);
}

void Program::ConnectSurface() {
    TextSurface& surface = main_->RichTextBox();
    surface.OnChange = [this](const TextEdit& edit) {
        history_.Record(edit);
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
    surface.OnFileDrop = [this](std::u16string_view path) { modDocument_->OpenFile(path); };
    surface.OnKeyDown = [this] { sounds_.PlaySoundEvent(sound_event::kKeyDown); };
}

void Program::OnResize() {
    if (!main_ || main_->State() == WindowState::Minimised)
        return;
    const TwipsRect bounds = main_->Bounds();
    const int bars = (barShown_[1] ? 1 : 0) + (barShown_[2] ? 1 : 0);
    const Twips moreRows = main_->MenuHeight() - kMenuRowHeight;
    if (const auto layout = LayOutEditor(bounds.height - moreRows, bounds.width,
                                         settings_.Text(Setting::UseLargeIcons), bars))
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
