// From a command's key to its handler.

#include "base/Error.h"
#include "shell/Program.h"

#include <algorithm>
#include <array>
#include <utility>

namespace quillshift {
namespace {

// The last segments of the recoding commands, in the order of the directions' numbers.
constexpr std::array<std::string_view, kDirections> kDirectionKeys{
    "MENU:DECODE:DOS:DW", "MENU:DECODE:DOS:DK", "MENU:DECODE:DOS:DI", "MENU:DECODE:DOS:DM",
    "MENU:DECODE:WIN:WD", "MENU:DECODE:WIN:WK", "MENU:DECODE:WIN:WI", "MENU:DECODE:WIN:WM",
    "MENU:DECODE:KOI:KD", "MENU:DECODE:KOI:KW", "MENU:DECODE:KOI:KI", "MENU:DECODE:KOI:KM",
    "MENU:DECODE:ISO:ID", "MENU:DECODE:ISO:IW", "MENU:DECODE:ISO:IK", "MENU:DECODE:ISO:IM",
    "MENU:DECODE:MAC:MD", "MENU:DECODE:MAC:MW", "MENU:DECODE:MAC:MK", "MENU:DECODE:MAC:MI"};

constexpr std::u16string_view kMailLink =
    u"mailto:author@quillshift.example?subject=Morvane Quillshift 3.0.0 Preview";
constexpr std::u16string_view kHomePage = u"https://quillshift.example/";

// The commands that are still to come: their entries stand on the bars, greyed, and do nothing.
constexpr auto kToCome = std::to_array<std::string_view>({
    "MENU:FILE:PRINT",
    "MENU:FILE:PRINTSETTINGS",
    "MENU:FILE:PROPERTIES",
    "MENU:FIND:FIND",
    "MENU:FIND:FINDNEXT",
    "MENU:FIND:REPLACE",
    "MENU:FIND:GOTO",
    "MENU:VIEW:TOOLBARS:TBCUSTOMIZE",
    "MENU:VIEW:FULLSCREEN",
    "MENU:VIEW:CUSTOMIZE",
    "MENU:INSERT:TIMEANDDATE",
    "MENU:INSERT:TEXTFILE",
    "MENU:FORMAT:FONT",
    "MENU:SERVICE:SETTINGS",
    "MENU:SERVICE:LOCKED",
    "MENU:HELP:LICENSE",
    "MENU:HELP:ABOUT",
    "TOOLBAR:PRINT",
    "TOOLBAR:PRINTSETTINGS",
    "TOOLBAR:FULLSCREEN",
    "TOOLBAR:FIND",
    "TOOLBAR:REPLACE",
    "TOOLBAR:GOTO",
    "TOOLBAR:FONT",
    "TOOLBAR:TIMEANDDATE",
    "TOOLBAR:TEXTFILE",
    "TOOLBAR:SETTINGS",
    "TOOLBAR:LOCKED",
    "TOOLBAR:PROPERTIES",
    "TOOLBAR:LICENSE",
    "TOOLBAR:ABOUT",
});

} // namespace

bool Program::IsToCome(std::string_view commandKey) {
    return std::find(kToCome.begin(), kToCome.end(), commandKey) != kToCome.end();
}

void Program::GreyWhatIsToCome() {
    for (const std::string_view key : kToCome)
        main_->SetEnabled(key, false);
}

void Program::Dispatch(std::string_view commandKey) {
    for (std::size_t number = 0; number < kDirectionKeys.size(); ++number)
        if (commandKey == kDirectionKeys[number])
            RunJob([&] { job_->StartDirection(DirectionOf(static_cast<int>(number))); });

    using Handler = void (*)(Program&);
    static constexpr auto kHandlers = std::to_array<std::pair<std::string_view, Handler>>({
        {"MENU:FILE:NEW", [](Program& p) { p.modDocument_->New(); }},
        {"TOOLBAR:NEW", [](Program& p) { p.modDocument_->New(); }},
        {"MENU:FILE:OPEN", [](Program& p) { p.modDocument_->Open(); }},
        {"TOOLBAR:OPEN", [](Program& p) { p.modDocument_->Open(); }},
        {"MENU:FILE:REOPEN", [](Program& p) { p.modDocument_->ReopenDocument(); }},
        {"TOOLBAR:REOPEN", [](Program& p) { p.modDocument_->ReopenDocument(); }},
        {"MENU:FILE:SAVE", [](Program& p) { p.modDocument_->MenuSave(); }},
        {"TOOLBAR:SAVE", [](Program& p) { p.modDocument_->ToolbarSave(); }},
        {"MENU:FILE:SAVEAS", [](Program& p) { p.modDocument_->SaveAs(); }},
        {"MENU:FILE:IMPORT:RTF", [](Program& p) { p.modDocument_->ImportRtf(); }},
        {"MENU:FILE:EXIT", [](Program& p) { p.main_->Close(); }},
        {"MENU:EDIT:UNDO", [](Program& p) { p.modEdit_->Undo(); }},
        {"TOOLBAR:UNDO", [](Program& p) { p.modEdit_->Undo(); }},
        {"MENU:EDIT:REDO", [](Program& p) { p.modEdit_->Redo(); }},
        {"TOOLBAR:REDO", [](Program& p) { p.modEdit_->Redo(); }},
        {"MENU:EDIT:CUT", [](Program& p) { p.modEdit_->Cut(); }},
        {"TOOLBAR:CUT", [](Program& p) { p.modEdit_->Cut(); }},
        {"MENU:EDIT:COPY", [](Program& p) { p.modEdit_->Copy(); }},
        {"TOOLBAR:COPY", [](Program& p) { p.modEdit_->Copy(); }},
        {"MENU:EDIT:PASTE", [](Program& p) { p.modEdit_->Paste(); }},
        {"TOOLBAR:PASTE", [](Program& p) { p.modEdit_->Paste(); }},
        {"MENU:EDIT:DELETE", [](Program& p) { p.modEdit_->Delete(); }},
        {"TOOLBAR:DELETE", [](Program& p) { p.modEdit_->Delete(); }},
        {"MENU:EDIT:CLEAR", [](Program& p) { p.modEdit_->Clear(); }},
        {"TOOLBAR:CLEAR", [](Program& p) { p.modEdit_->Clear(); }},
        {"MENU:EDIT:SELECTALL", [](Program& p) { p.modEdit_->SelectAll(); }},
        {"MENU:FORMAT:ALLTEXTCASE:CASEU", [](Program& p) { p.modEdit_->AllTextTo(LetterCase::Upper); }},
        {"MENU:FORMAT:ALLTEXTCASE:CASEL", [](Program& p) { p.modEdit_->AllTextTo(LetterCase::Lower); }},
        {"MENU:FORMAT:SELTEXTCASE:CASEU", [](Program& p) { p.modEdit_->SelectionTo(LetterCase::Upper); }},
        {"MENU:FORMAT:SELTEXTCASE:CASEL", [](Program& p) { p.modEdit_->SelectionTo(LetterCase::Lower); }},
        {"MENU:FORMAT:INDENT", [](Program& p) { p.modEdit_->Indent(); }},
        {"TOOLBAR:INDENT", [](Program& p) { p.modEdit_->Indent(); }},
        {"MENU:FORMAT:OUTDENT", [](Program& p) { p.modEdit_->Outdent(); }},
        {"TOOLBAR:OUTDENT", [](Program& p) { p.modEdit_->Outdent(); }},
        {"MENU:VIEW:ONTOP", [](Program& p) { p.SetOnTop(); }},
        {"MENU:VIEW:TOOLBARS:TBSTANDART",
         [](Program& p) { p.SwitchBar(1, "MENU:VIEW:TOOLBARS:TBSTANDART", Setting::ToolBarStandart); }},
        {"MENU:VIEW:TOOLBARS:TBDECODE",
         [](Program& p) { p.SwitchBar(2, "MENU:VIEW:TOOLBARS:TBDECODE", Setting::ToolBarDecode); }},
        {"MENU:DECODE:UNDO", [](Program& p) { p.job_->UndoRecoding(); }},
        {"TOOLBAR2:UNDO", [](Program& p) { p.job_->UndoRecoding(); }},
        {"MENU:DECODE:DECODE", [](Program& p) { p.OpenDecodeDialog(); }},
        {"MENU:DECODE:WIZARD", [](Program& p) { p.RunWizard(); }},
        {"TOOLBAR:WIZARD", [](Program& p) { p.RunWizard(); }},
        {"TOOLBAR2:START",
         [](Program& p) {
             if (!p.recoding_.walking)
                 p.recoding_.StopRequested = false;
             p.RunJob([&p] { p.job_->StartDecode(); });
         }},
        {"TOOLBAR2:STOP", [](Program& p) { p.job_->StopRecoding(); }},
        {"MENU:HELP:AUTHORMAIL", [](Program& p) { p.OpenLink(kMailLink); }},
        {"MENU:HELP:VISITHOMEPAGE", [](Program& p) { p.OpenLink(kHomePage); }},
    });
    for (const auto& [key, handler] : kHandlers)
        if (key == commandKey)
            handler(*this);
    timerEdit_->StartOnce();
}

// A recoding on a road that has no report of its own.
void Program::RunJob(const std::function<void()>& road) {
    try {
        road();
    } catch (const Error& error) {
        main_->Decoding().Destroy();
        platform_.messageBox.Report(error);
    }
}

void Program::OnDirectionChange() {
    if (!settings_.Is(Setting::DecodeAtCodeChange) || main_->RichTextBox().Text().empty())
        return;
    const std::string number = std::to_string(main_->Direction());
    settings_.Set(Setting::DefaultCode, std::u16string(number.begin(), number.end()));
    RunJob([this] { job_->StartDecode(); });
}

void Program::RecodeFromDialog(Direction direction) {
    RunJob([&] { job_->StartDirection(direction); });
}

void Program::OpenDecodeDialog() {
    if (main_->RichTextBox().Text().empty())
        platform_.messageBox.Inform(u"Документ не содержит текста!");
    else
        main_->ShowDecodeDialog();
}

void Program::RunWizard() {
    if (!platform_.shell.StartProcess(platform_.shell.ProgramFolder() + u"/Wizard.exe"))
        platform_.messageBox.Inform(u"Мастер перекодирования не найден в папке программы.");
}

void Program::OpenLink(std::u16string_view link) {
    if (!platform_.shell.OpenWithDefault(link))
        platform_.messageBox.Inform(u"Не найдена программа, которая откроет ссылку\r\n" +
                                    std::u16string(link));
}

void Program::SetOnTop() {
    const bool onTop = main_->IsChecked("MENU:VIEW:ONTOP");
    settings_.Switch(Setting::TopMost, onTop);
    main_->SetTopMost(onTop);
}

// The layout follows behind this command, not inside it.
void Program::SwitchBar(int bar, std::string_view key, Setting setting) {
    barShown_[bar] = main_->IsChecked(key);
    settings_.Switch(setting, barShown_[bar]);
    main_->SetBarVisible(bar, barShown_[bar]);
    timerUpdate_->StartOnce();
}

} // namespace quillshift
