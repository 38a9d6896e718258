#include "shell/Commands.h"

#include "base/Texts.h"
#include "settings/Author.h"
#include "shell/Catalogue.h"

#include <array>

namespace quillshift {
namespace {

// What a command needs to be enabled.
enum class Need { Nothing, Selection, Text, Undo, Redo, Clipboard, RecodeUndo, Reopen, Save };

struct CommandRow {
    Command command;
    Need need;
    /// Gets the argument of the command, and the key of the place where it was chosen.
    void (*run)(ProgramParts& parts, int argument, std::string_view key);
};

// --- What takes more than a call

void KeepOnTop(ProgramParts& parts, int /*argument*/, std::string_view key) {
    const bool onTop = parts.bars.Button(key).Checked();
    parts.settings.Switch(Setting::TopMost, onTop);
    parts.window.SetTopMost(onTop);
}

// The layout follows behind this command, not inside it.
void ShowBar(ProgramParts& parts, int bar, std::string_view key) {
    const bool shown = parts.bars.Button(key).Checked();
    parts.settings.Switch(bar == 1 ? Setting::ToolBarStandart : Setting::ToolBarDecode, shown);
    parts.bars.Show(bar, shown);
    parts.layout.LayOutSoon();
}

void ChoosePair(ProgramParts& parts, int /*argument*/, std::string_view /*key*/) {
    if (parts.window.RichTextBox().Length() == 0)
        parts.platform.messageBox.Inform(u"Документ не содержит текста!");
    else
        parts.dialogs->Show(DialogKind::Decode);
}

void ClearText(ProgramParts& parts, int /*argument*/, std::string_view /*key*/) {
    parts.recovery.KeepReplaced();
    parts.edit.Clear();
}

void StartDecode(ProgramParts& parts, int /*argument*/, std::string_view /*key*/) {
    if (!parts.recoding.walking)
        parts.recoding.StopRequested = false;
    parts.platform.messageBox.Attempt([&] { parts.job.StartDecode(); });
}

void RunWizard(ProgramParts& parts, int /*argument*/, std::string_view /*key*/) {
    if (!parts.platform.shell.StartProcess(parts.platform.shell.ProgramFolder() + u"/Wizard.exe"))
        parts.platform.messageBox.Inform(u"Мастер перекодирования не найден в папке программы.");
}

void OpenLink(ProgramParts& parts, std::u16string_view link) {
    if (!parts.platform.shell.OpenWithDefault(link))
        parts.platform.messageBox.Inform(u"Не найдена программа, которая откроет ссылку\r\n" +
                                         std::u16string(link));
}

void WriteToAuthor(ProgramParts& parts, int /*argument*/, std::string_view /*key*/) {
    OpenLink(parts, u"mailto:" + std::u16string(kAuthorMail) + u"?subject=Morvane Quillshift 3.0.0 Preview");
}

// --- The table

using P = ProgramParts;
using Key = std::string_view;
using enum Need;
constexpr std::array kCommands{
    CommandRow{Command::None, Nothing, [](P&, int, Key) {}},
    CommandRow{Command::New, Nothing, [](P& p, int, Key) { p.documents.New(); }},
    CommandRow{Command::Open, Nothing, [](P& p, int, Key) { p.documents.Open(); }},
    CommandRow{Command::Reopen, Reopen, [](P& p, int, Key) { p.documents.ReopenDocument(); }},
    CommandRow{Command::Save, Save, [](P& p, int, Key) { p.documents.MenuSave(); }},
    CommandRow{Command::SaveOrSaveAs, Nothing, [](P& p, int, Key) { p.documents.ToolbarSave(); }},
    CommandRow{Command::SaveAs, Nothing, [](P& p, int, Key) { p.documents.SaveAs(); }},
    CommandRow{Command::Print, Text, [](P& p, int, Key) { p.print.Print(); }},
    CommandRow{Command::ImportRtf, Nothing, [](P& p, int, Key) { p.documents.ImportRtf(); }},
    CommandRow{Command::ShowProperties, Nothing,
               [](P& p, int, Key) { p.dialogs->Show(DialogKind::DocumentProperties); }},
    CommandRow{Command::Exit, Nothing, [](P& p, int, Key) { p.window.Close(); }},
    CommandRow{Command::Undo, Undo, [](P& p, int, Key) { p.edit.Undo(); }},
    CommandRow{Command::Redo, Redo, [](P& p, int, Key) { p.edit.Redo(); }},
    CommandRow{Command::Cut, Selection, [](P& p, int, Key) { p.edit.Cut(); }},
    CommandRow{Command::Copy, Selection, [](P& p, int, Key) { p.edit.Copy(); }},
    CommandRow{Command::Paste, Clipboard, [](P& p, int, Key) { p.edit.Paste(); }},
    CommandRow{Command::Delete, Selection, [](P& p, int, Key) { p.edit.Delete(); }},
    CommandRow{Command::SelectAll, Text, [](P& p, int, Key) { p.edit.SelectAll(); }},
    CommandRow{Command::Clear, Text, ClearText},
    CommandRow{Command::Find, Text, [](P& p, int, Key) { p.search.ShowFind(); }},
    CommandRow{Command::FindNext, Text, [](P& p, int, Key) { p.search.FindNext(); }},
    CommandRow{Command::Replace, Text, [](P& p, int, Key) { p.search.ShowReplace(); }},
    CommandRow{Command::GoTo, Text, [](P& p, int, Key) { p.dialogs->Show(DialogKind::GoTo); }},
    CommandRow{Command::KeepOnTop, Nothing, KeepOnTop},
    CommandRow{Command::ShowBar, Nothing, ShowBar},
    CommandRow{Command::CustomizeToolbars, Nothing,
               [](P& p, int, Key) { p.dialogs->Show(DialogKind::ToolBarCustomize); }},
    CommandRow{Command::FullScreen, Nothing, [](P& p, int, Key) { p.fullScreen.Begin(); }},
    CommandRow{Command::InsertTimeAndDate, Nothing,
               [](P& p, int, Key) { p.dialogs->Show(DialogKind::InsertTimeAndDate); }},
    CommandRow{Command::InsertTextFile, Nothing, [](P& p, int, Key) { p.documents.InsertTextFile(); }},
    CommandRow{Command::TextToCase, Text,
               [](P& p, int to, Key) { p.edit.AllTextTo(static_cast<LetterCase>(to)); }},
    CommandRow{Command::SelectionToCase, Selection,
               [](P& p, int to, Key) { p.edit.SelectionTo(static_cast<LetterCase>(to)); }},
    CommandRow{Command::Outdent, Nothing, [](P& p, int, Key) { p.edit.Outdent(); }},
    CommandRow{Command::Indent, Nothing, [](P& p, int, Key) { p.edit.Indent(); }},
    CommandRow{Command::ShowSettings, Nothing,
               [](P& p, int tab, Key) { p.dialogs->Show(DialogKind::Settings, tab); }},
    CommandRow{Command::Lock, Nothing, [](P& p, int, Key) { p.lock.Lock(); }},
    CommandRow{Command::Recode, Nothing,
               [](P& p, int direction, Key) { p.job.StartAndReport(DirectionOf(direction)); }},
    CommandRow{Command::ChoosePair, Nothing, ChoosePair},
    CommandRow{Command::ChooseDirection, Text, [](P&, int, Key) {}},
    CommandRow{Command::StartDecode, Text, StartDecode},
    CommandRow{Command::StopDecode, Text, [](P& p, int, Key) { p.job.StopRecoding(); }},
    CommandRow{Command::UndoRecoding, RecodeUndo, [](P& p, int, Key) { p.job.UndoRecoding(); }},
    CommandRow{Command::RunWizard, Nothing, RunWizard},
    CommandRow{Command::ShowLicense, Nothing, [](P& p, int, Key) { p.dialogs->Show(DialogKind::License); }},
    CommandRow{Command::WriteToAuthor, Nothing, WriteToAuthor},
    CommandRow{Command::VisitHomePage, Nothing, [](P& p, int, Key) { OpenLink(p, kHomePage); }},
    CommandRow{Command::ShowAbout, Nothing, [](P& p, int, Key) { p.dialogs->Show(DialogKind::About); }},
};

constexpr bool EachStandsAtItsConstant() {
    for (std::size_t i = 0; i < kCommands.size(); ++i)
        if (kCommands[i].command != static_cast<Command>(i))
            return false;
    return kCommands.size() == static_cast<std::size_t>(Command::Count);
}
static_assert(EachStandsAtItsConstant());

constexpr const CommandRow& RowOf(Command command) {
    return kCommands[static_cast<std::size_t>(command)];
}

bool IsMet(Need need, const CommandInputs& inputs) {
    switch (need) {
    case Nothing:
        return true;
    case Selection:
        return inputs.selection;
    case Text:
        return inputs.text;
    case Undo:
        return inputs.undoSteps > 1; // the last of them is the present state
    case Redo:
        return inputs.redoSteps > 0;
    case Clipboard:
        return inputs.clipboardText;
    case RecodeUndo:
        return inputs.recodeUndo;
    case Reopen:
        return inputs.reopen;
    case Save:
        return inputs.save;
    }
    return false;
}

} // namespace

bool IsEnabled(Command command, const CommandInputs& inputs) {
    return IsMet(RowOf(command).need, inputs);
}

Commands::Commands(ProgramParts& parts)
    : parts_(parts), timerEdit_(parts.platform.timers.Make([this] { UpdateStates(); })) {}

void Commands::Run(std::string_view key) {
    const CatalogueEntry* const entry = FindEntry(key);
    if (entry == nullptr || parts_.lock.IsLocked())
        return;
    if (entry->action.command != Command::FullScreen)
        parts_.fullScreen.End();
    RowOf(entry->action.command).run(parts_, entry->action.argument, key);
    InputsChanged();
}

void Commands::UpdatePendingStates() {
    if (!timerEdit_->IsRunning())
        return;
    timerEdit_->Stop();
    UpdateStates();
}

CommandInputs Commands::Inputs() const {
    const TextSurface& surface = parts_.window.RichTextBox();
    return {.selection = surface.SelLength() > 0,
            .text = surface.Length() > 0,
            .clipboardText = parts_.platform.clipboard.HasText(),
            .undoSteps = parts_.history.UndoSteps(),
            .redoSteps = parts_.history.RedoSteps(),
            .recodeUndo = parts_.recoding.RecodeUndoAvailable,
            .reopen = parts_.document.ReopenAvailable,
            .save = parts_.document.SaveAvailable};
}

// The list of directions is disabled itself; its place on the bar is not.
void Commands::UpdateStates() {
    const CommandInputs inputs = Inputs();
    if (inputs == shown_)
        return;
    shown_ = inputs;
    for (const CatalogueEntry& entry : Catalogue())
        if (entry.Style != ButtonStyle::Panel)
            parts_.bars.Button(entry.Key).SetEnabled(IsEnabled(entry.action.command, inputs));
    parts_.window.EnableDirections(IsEnabled(Command::ChooseDirection, inputs));
}

} // namespace quillshift
