#include "document/modDocument.h"

#include "base/Error.h"
#include "base/Texts.h"
#include "base/Windows1251.h"
#include "document/Caption.h"
#include "document/FileText.h"

#include <utility>

namespace quillshift {
namespace {

constexpr std::u16string_view kFilter = u"Текстовые файлы (*.txt)|*.txt|Все файлы (*.*)|*.*|";
constexpr std::u16string_view kExtension = u"*.txt|*.*";

std::u16string_view NameIn(std::u16string_view path) {
    return path.substr(path.rfind(u'/') + 1);
}

} // namespace

// --- The commands

BoxAnswer modDocument::AskToSave(BoxButtons buttons) {
    saidNo_ = false;
    if (!services_.state.DocumentModified || !services_.settings.Is(Setting::SaveChange))
        return BoxAnswer::No;
    const BoxAnswer answer = services_.platform.messageBox.Ask(
        u"Документ был изменен. Вы хотите сохранить сделанные изменения?", buttons);
    saidNo_ = answer == BoxAnswer::No;
    return answer;
}

// Yes saves and ends the command there: the user gives it again once the text is safe.
bool modDocument::MayDropText() {
    const BoxAnswer answer = AskToSave(BoxButtons::YesNo);
    if (answer == BoxAnswer::Yes)
        ToolbarSave();
    return answer == BoxAnswer::No;
}

void modDocument::New() {
    if (!MayDropText())
        return;
    BeforeReplacing();
    services_.document.LoadPlain(u""); // loaded, not set: an unchanged document stays one
    saving_.DocumentChanged();
    services_.state.file.reset();
    services_.recovery.Settled();
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
    services_.platform.messageBox.Attempt(routine);
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
    NameFile(FileName(path));
    Report([this] { LoadChosen(); });
}

void modDocument::NameFile(const FileName& path) {
    services_.platform.fileDialog.FileName = path;
    services_.platform.fileDialog.FileTitle = NameIn(path);
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
    saidNo_ = false;
    Report([this] {
        const bool plain = LoadBoth();
        if (!plain || services_.platform.fileDialog.FileName != services_.state.saveTarget)
            services_.state.SaveAvailable = false;
        ApplyCaptionRule();
    });
}

void modDocument::ReopenOwnFile() {
    NameFile(services_.state.file->path);
    ReopenDocument();
}

FileContents modDocument::ReadOrThrow(const FileName& path) {
    FileContents contents = services_.platform.files.Read(path);
    if (contents.failure)
        throw FileError(*contents.failure, path);
    return contents;
}

FileText modDocument::TextOf(std::string bytes, const FileName& path) {
    FileText text(std::move(bytes));
    if (text.IsBlankRich())
        throw FileError({321, u"В файле RTF нет текста"}, path);
    return text;
}

// The file is read whole before a surface is touched, so that a failure changes nothing.
bool modDocument::LoadBoth() {
    const FileName path = services_.platform.fileDialog.FileName;
    FileContents contents = ReadOrThrow(path);
    const std::size_t digest = Saving::Digest(contents.bytes);
    const FileText text = TextOf(std::move(contents.bytes), path);
    BeforeReplacing();
    text.LoadInto(services_.document);
    text.LoadInto(services_.backup);
    saving_.DocumentLoaded(path, digest);
    const PlainBytes* const plain = text.Plain();
    if (plain != nullptr)
        services_.state.file.emplace(path, contents.mark, *plain);
    else
        services_.state.file.emplace(path, contents.mark, services_.document.Text());
    NoteFile(path, plain == nullptr);
    services_.recovery.Settled();
    return plain != nullptr;
}

// What nobody has agreed to lose is kept.
void modDocument::BeforeReplacing() {
    if (!saidNo_)
        services_.recovery.KeepReplaced();
}

void modDocument::NoteFile(const FileName& path, bool isRich) {
    services_.state.path = path;
    services_.state.isRich = isRich;
    services_.state.knownDigest = saving_.KnownDigest(path);
}

void modDocument::Restore(const RecoveredText& left) {
    const RecoveryPlace& place = left.place;
    services_.document.LoadPlain(left.text);
    services_.document.SetSelStart(place.caret);
    services_.state.DocumentModified = true;
    services_.state.ReopenAvailable = place.reopenAvailable;
    services_.state.SaveAvailable = place.saveAvailable;
    services_.state.saveTarget = place.saveTarget;
    if (place.path.empty())
        return;
    NameFile(place.path);
    const FileContents contents = services_.platform.files.Read(place.path);
    if (!contents.failure)
        FileText(contents.bytes).LoadInto(services_.backup);
    saving_.DocumentLoaded(place.path, place.knownDigest);
    NoteFile(place.path, place.isRich);
    ApplyCaptionRule();
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
        TextOf(ReadOrThrow(dialog.FileName).bytes, dialog.FileName).LoadInto(services_.import);
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
    import.SetSelLength(import.Length());
    services_.copy(import.SelText());

    services_.paste();
    import.SetSelStart(0);
}

// --- Inserting

// The first folder stays as the last use of the dialog left it.
void modDocument::InsertTextFile() {
    services_.sounds.PlaySoundEvent(sound_event::kFormLoad);
    Report([this] {
        FileDialog& dialog = services_.platform.fileDialog;
        dialog.DialogTitle = u"Выберите файл для вставки...";
        dialog.Filter = u"Текстовые файлы (*.txt)|*.txt";
        dialog.DefaultExt = u"*.txt";
        if (!dialog.ShowOpen())
            return;
        TextSurface& inserted = services_.inserted;
        FileText(ReadOrThrow(dialog.FileName).bytes).LoadInto(inserted);
        inserted.SetSelStart(0);
        inserted.SetSelLength(inserted.Length());
        const std::u16string text = inserted.SelText();
        if (text.empty())
            return;
        services_.copy(text);
        inserted.Clear();
        services_.document.SetSelText(text);
    });
}

// --- Saving

bool modDocument::AskAboutLostCharacters(std::u16string_view text) {
    const auto lost = windows1251::FindUnencodable(text);
    if (lost.count == 0)
        return true;
    const std::u16string question =
        u"Документ содержит символы, которых нет в кодировке Windows 1251 (всего: " +
        WholeNumberText(static_cast<int>(lost.count)) + u", например «" + lost.example +
        u"»). В файле вместо каждого из них будет знак «?».\r\nСохранить документ?";
    return services_.platform.messageBox.Ask(question) == BoxAnswer::Yes;
}

// What is written is the text as it was before the first question.
bool modDocument::WriteDocument(const FileName& path, bool isPlainSave) {
    const auto bytesOf = [](std::u16string_view text) { return windows1251::Encode(text) + "\r\n"; };
    const std::u16string text(services_.document.Text());
    const std::u16string backup(services_.backup.Text());
    const Saving::Order order{path, bytesOf(text), BackupPath(path), backup, bytesOf(backup), isPlainSave};
    if (!AskAboutLostCharacters(text))
        return false;
    const Saving::Outcome outcome = saving_.Save(order);
    if (outcome.backedUp)
        services_.backup.LoadBytes(PlainBytes(order.bytes)); // as it was written
    if (outcome.written)
        services_.state.file.reset();
    if (outcome.mark && windows1251::Decode(order.bytes) == text + u"\r\n") // no letter was lost
        services_.state.file.emplace(path, *outcome.mark, text);
    if (outcome.failure)
        throw Error(*outcome.failure);
    if (!outcome.written)
        return false;
    NameFile(path);
    NoteFile(path, false);
    if (services_.document.Text() == text) // nothing was taken in behind a question
        services_.recovery.Settled();
    ApplyCaptionRule();
    return true;
}

bool modDocument::SaveDocumentAs() {
    bool written = false;
    Report([&] {
        SetUpDialog(u"Сохранение документа");
        FileDialog& dialog = services_.platform.fileDialog;
        if (!dialog.ShowSave())
            return;
        const FileName path = dialog.FileName;
        written = WriteDocument(path, false);
        if (!written)
            return;
        services_.state.saveTarget = path;
        services_.settings.Set(Setting::SaveFileName, path);
    });
    return written;
}

bool modDocument::SaveDocument() {
    bool written = false;
    Report([&] {
        const FileName path = services_.state.saveTarget;
        written = !path.empty() && WriteDocument(path, true);
    });
    return written;
}

modDocument::FileName modDocument::BackupPath(const FileName& path) const {
    Settings& settings = services_.settings;
    if (!settings.Is(Setting::CreateBackup))
        return {};
    if (settings.Is(Setting::CreateBackupIn))
        return path + u".bak";
    if (settings.Is(Setting::CreateBackupIn, u"2"))
        return settings.Text(Setting::BackupFolder) + FileName(NameIn(path)) + u".bak";
    return {};
}

} // namespace quillshift
