#include "document/modDocument.h"

#include "base/Error.h"
#include "base/Texts.h"
#include "base/Windows1251.h"
#include "document/Caption.h"
#include "document/FileText.h"

namespace quillshift {
namespace {

constexpr std::u16string_view kFilter = u"Текстовые файлы (*.txt)|*.txt|Все файлы (*.*)|*.*|";
constexpr std::u16string_view kExtension = u"*.txt|*.*";

[[noreturn]] void Throw(const FileFailure& failure, const std::u16string& path) {
    throw Error(failure.number, u"modDocument", u"«" + path + u"»\r\n" + failure.description);
}

} // namespace

// --- The commands

BoxAnswer modDocument::AskToSave(BoxButtons buttons) {
    if (!services_.state.DocumentModified || !services_.settings.Is(Setting::SaveChange))
        return BoxAnswer::No;
    return services_.platform.messageBox.Ask(
        u"Документ был изменен. Вы хотите сохранить сделанные изменения?", buttons);
}

// Yes saves and ends the command there: the user gives it again once the text is safe.
bool modDocument::MayDropText() {
    const BoxAnswer answer = AskToSave(BoxButtons::YesNo);
    if (answer == BoxAnswer::Yes)
        ToolbarSave();
    return answer == BoxAnswer::No;
}

void modDocument::New() {
    // Loaded, not set: an unchanged document stays one.
    if (MayDropText())
        services_.document.LoadPlain(u"");
}

void modDocument::Open() {
    services_.sounds.PlaySoundEvent(sound_event::kFormLoad);
    if (MayDropText())
        OpenDocument();
}

void modDocument::MenuSave() {
    if (SaveDocument())
        services_.state.DocumentModified = false;
}

void modDocument::ToolbarSave() {
    if (services_.state.SaveAvailable ? SaveDocument() : SaveDocumentAs())
        services_.state.DocumentModified = false;
}

bool modDocument::SaveAs() {
    services_.sounds.PlaySoundEvent(sound_event::kFormLoad);
    if (!SaveDocumentAs())
        return false;
    services_.state.DocumentModified = false;
    services_.state.SaveAvailable = true;
    return true;
}

void modDocument::ImportRtf() {
    services_.sounds.PlaySoundEvent(sound_event::kFormLoad);
    if (ImportRtfFile(u"RTF файлы (*.rtf)|*.rtf", u"*.rtf", u"Импорт текста из *.rtf файла"))
        InsertImported();
}

// --- Opening

void modDocument::Report(const std::function<void()>& routine) {
    try {
        routine();
    } catch (const Error& error) {
        services_.platform.messageBox.Report(error);
    }
}

void modDocument::SetUpDialog(std::u16string_view title) {
    FileDialog& dialog = services_.platform.fileDialog;
    dialog.Filter = kFilter;
    dialog.DefaultExt = kExtension;
    dialog.DialogTitle = title;
    dialog.InitDir = services_.settings.Text(Setting::FolderDocuments);
}

void modDocument::OpenDocument() {
    Report([this] {
        SetUpDialog(u"Открытие документа");
        if (services_.platform.fileDialog.ShowOpen())
            LoadChosen();
    });
}

void modDocument::OpenFile(std::u16string_view path) {
    services_.sounds.PlaySoundEvent(sound_event::kFormLoad);
    if (!MayDropText())
        return;
    services_.platform.fileDialog.FileName = path;
    services_.platform.fileDialog.FileTitle = path.substr(path.rfind(u'/') + 1);
    Report([this] { LoadChosen(); });
}

void modDocument::LoadChosen() {
    const bool plain = LoadBoth();
    services_.state.ReopenAvailable = true;
    PointSaveAtOpenedFile(plain);
    ApplyCaptionRule();
    if (services_.settings.Is(Setting::StartAtOpen))
        services_.startDecode();
}

void modDocument::ReopenDocument() {
    if (services_.platform.fileDialog.FileName.empty())
        return;
    Report([this] {
        const bool plain = LoadBoth();
        if (!plain || services_.platform.fileDialog.FileName != services_.state.saveTarget)
            services_.state.SaveAvailable = false;
        ApplyCaptionRule();
    });
}

FileText modDocument::ReadText(const FileName& path) {
    FileText text(ReadOrThrow(path));
    if (!text.IsPlain() && text.IsBlank())
        Throw({321, u"В файле RTF нет текста"}, path);
    return text;
}

// The file is read whole before a surface is touched, so that a failure changes nothing.
bool modDocument::LoadBoth() {
    const FileText text = ReadText(services_.platform.fileDialog.FileName);
    text.LoadInto(services_.document);
    text.LoadInto(services_.backup);
    return text.IsPlain();
}

// Plain Save must never put this text into the file that was saved before it; and formatting is never
// replaced by a plain save.
void modDocument::PointSaveAtOpenedFile(bool plain) {
    if (!services_.state.SaveAvailable)
        return;
    if (!plain) {
        services_.state.SaveAvailable = false;
        return;
    }
    services_.state.saveTarget = services_.platform.fileDialog.FileName;
    services_.settings.Set(Setting::SaveFileName, services_.state.saveTarget);
}

void modDocument::ApplyCaptionRule() {
    const FileDialog& dialog = services_.platform.fileDialog;
    ShowCaption(services_.mainWindow, services_.settings, dialog.FileTitle, dialog.FileName);
}

// --- Import

bool modDocument::ImportRtfFile(std::u16string_view filter, std::u16string_view extension,
                                std::u16string_view title) {
    bool imported = false;
    Report([&] {
        FileDialog& dialog = services_.platform.fileDialog;
        SetUpDialog(title);
        dialog.Filter = filter;
        dialog.DefaultExt = extension;
        dialog.FileName.clear();
        if (!dialog.ShowOpen())
            return;
        ReadText(dialog.FileName).LoadInto(services_.import);
        services_.state.ReopenAvailable = true;
        imported = true;
        // On the present document: the imported text arrives only after it.
        if (services_.settings.Is(Setting::StartAtImport))
            services_.startDecode();
    });
    return imported;
}

void modDocument::InsertImported() {
    TextSurface& import = services_.import;
    import.SetFocus();
    import.SetSelStart(0);
    import.SetSelLength(import.Text().size());
    services_.platform.clipboard.SetText(import.SelText());

    services_.paste();
    import.SetSelStart(0);
}

// --- Saving

std::string modDocument::ReadOrThrow(const FileName& path) {
    FileContents contents = services_.platform.files.Read(path);
    if (contents.failure)
        Throw(*contents.failure, path);
    return std::move(contents.bytes);
}

void modDocument::WriteOrThrow(const FileName& path, std::u16string_view text) {
    std::string bytes = windows1251::Encode(text);
    bytes += "\r\n";
    if (const auto failure = services_.platform.files.Write(path, bytes))
        Throw(*failure, path);
}

bool modDocument::AskAboutLostCharacters() {
    const auto lost = windows1251::FindUnencodable(services_.document.Text());
    if (lost.count == 0)
        return true;
    const std::u16string text = u"Документ содержит символы, которых нет в кодировке Windows 1251 (всего: " +
                                WholeNumberText(static_cast<int>(lost.count)) + u", например «" +
                                lost.example +
                                u"»). В файле вместо каждого из них будет знак «?».\r\nСохранить документ?";
    return services_.platform.messageBox.Ask(text) == BoxAnswer::Yes;
}

// The document first, then the backup, then what both of them show for.
bool modDocument::WriteDocument() {
    if (!AskAboutLostCharacters())
        return false;
    WriteOrThrow(services_.platform.fileDialog.FileName, services_.document.Text());
    MakeBackup();
    ApplyCaptionRule();
    return true;
}

bool modDocument::SaveDocumentAs() {
    bool written = false;
    Report([&] {
        SetUpDialog(u"Сохранение документа");
        FileDialog& dialog = services_.platform.fileDialog;
        if (!dialog.ShowSave() || !WriteDocument())
            return;
        services_.state.saveTarget = dialog.FileName;
        services_.settings.Set(Setting::SaveFileName, dialog.FileName);
        written = true;
    });
    return written;
}

bool modDocument::SaveDocument() {
    bool written = false;
    Report([&] {
        const FileName stored = services_.settings.Text(Setting::SaveFileName);
        const FileName& chosen = services_.state.saveTarget;
        if (stored.empty())
            return;
        if (!chosen.empty() && stored != chosen)
            throw Error(75, u"modDocument",
                        u"Имя файла документа в настройках изменилось: «" + stored + u"» вместо «" + chosen +
                            u"». Сохраните документ командой «Сохранить как».");
        services_.platform.fileDialog.FileName = stored;
        written = WriteDocument();
    });
    return written;
}

void modDocument::MakeBackup() {
    Settings& settings = services_.settings;
    const FileDialog& dialog = services_.platform.fileDialog;
    if (!settings.Is(Setting::CreateBackup))
        return;
    FileName target;
    if (settings.Is(Setting::CreateBackupIn))
        target = dialog.FileName;
    else if (settings.Is(Setting::CreateBackupIn, u"2"))
        target = settings.Text(Setting::BackupFolder) + dialog.FileTitle;
    else
        return;
    WriteOrThrow(target + u".bak", services_.backup.Text());
    services_.backup.LoadPlain(windows1251::Decode(ReadOrThrow(dialog.FileName))); // as it was written
}

} // namespace quillshift
