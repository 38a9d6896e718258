#include "document/Saving.h"

#include "base/PlainBytes.h"
#include "base/Windows1251.h"

#include <functional>

namespace quillshift {
namespace {

// An RTF file has its own bytes for text here: its formatting is in no backup.
bool HasText(std::string_view bytes, std::u16string_view text) {
    return windows1251::Decode(PlainBytes(std::string(bytes)).View()) == text;
}

Expected ExpectedOf(const FileContents& found) {
    constexpr int kNotFound = 53;
    if (!found.failure)
        return {Expected::What::Bytes, found.bytes};
    return {found.failure->number == kNotFound ? Expected::What::Nothing : Expected::What::Anything, {}};
}

std::u16string Quoted(std::u16string_view path) {
    return u"«" + std::u16string(path) + u"»";
}

Error BackupError(const FileFailure& failure, std::u16string_view path) {
    return FileError({failure.number, u"Документ сохранен, но его резервную копию записать не удалось. " +
                                          failure.description},
                     path);
}

} // namespace

Error FileError(const FileFailure& failure, std::u16string_view path) {
    return {failure.number, u"modDocument", Quoted(path) + u"\r\n" + failure.description};
}

// --- What this run knows of its files

std::size_t Saving::Digest(std::string_view bytes) {
    return std::hash<std::string_view>()(bytes);
}

void Saving::DocumentChanged() {
    for (auto& [path, known] : known_)
        known.isOurs = false;
}

void Saving::DocumentLoaded(const std::u16string& path, std::uint64_t digest) {
    DocumentChanged();
    known_[path] = {static_cast<std::size_t>(digest), false};
}

std::uint64_t Saving::KnownDigest(const std::u16string& path) const {
    const auto found = known_.find(path);
    return found != known_.end() ? found->second.digest : 0;
}

bool Saving::Remembers(const std::u16string& path, std::string_view bytes) const {
    const auto found = known_.find(path);
    return found != known_.end() && found->second.digest == Digest(bytes);
}

bool Saving::Wrote(const std::u16string& path, std::string_view bytes) const {
    return Remembers(path, bytes) && known_.at(path).isOurs;
}

// --- Saving

Saving::Outcome Saving::Save(const Order& order) {
    Outcome outcome;
    bool mayAsk = order.isPlainSave;
    while (TryToSave(order, mayAsk, outcome) == Step::Again)
        mayAsk = true;
    return outcome;
}

// Every question comes before anything has changed, and the backup is on the disk before the document goes.
Saving::Step Saving::TryToSave(const Order& order, bool mayAsk, Outcome& outcome) {
    const FileContents found = files_.Read(order.path);
    if (found.isUnknown) {
        outcome.failure = FileError(*found.failure, order.path);
        return Step::Left;
    }
    if (mayAsk && !AskAboutChange(order.path, found))
        return Step::Left;
    Preparation prepared;
    if (!order.backupPath.empty())
        prepared = files_.PrepareBackup(order.backupPath, order.backupBytes, order.path);
    const bool backupHoldsIt = prepared.backup && !found.failure && HasText(found.bytes, order.backupText);
    if (!backupHoldsIt && !KeepInTrash(order.path, found, order.bytes))
        return Step::Left;
    if (prepared.backup && !files_.IsLink(order.backupPath) &&
        !KeepInTrash(order.backupPath, files_.Read(order.backupPath), order.backupBytes))
        return Step::Left;

    const Written written = files_.Replace(order.path, order.bytes, ExpectedOf(found));
    if (written.unexpected)
        return Step::Again;
    if (written.failure) {
        outcome.failure = FileError(*written.failure, order.path);
        if (written.replaced && prepared.backup)
            prepared.backup->PutInPlace(); // the old text may be nowhere else
        return Step::Left;
    }
    known_[order.path] = {Digest(order.bytes), true};
    outcome.written = true;
    outcome.mark = written.mark;
    FinishBackup(order, prepared, outcome);
    return Step::Left;
}

void Saving::FinishBackup(const Order& order, const Preparation& prepared, Outcome& outcome) {
    if (prepared.isDocument && saidToBeItsOwnBackup_ != order.path) {
        saidToBeItsOwnBackup_ = order.path;
        messageBox_.Inform(u"Резервная копия не записана: ее место " + Quoted(order.backupPath) +
                           u" занимает сам документ.");
    }
    std::optional<FileFailure> failure = prepared.failure;
    if (prepared.backup)
        failure = prepared.backup->PutInPlace();
    if (failure)
        outcome.failure = BackupError(*failure, order.backupPath);
    if (failure || !prepared.backup)
        return;
    known_[order.backupPath] = {Digest(order.backupBytes), true};
    outcome.backedUp = true;
}

bool Saving::AskAboutChange(const std::u16string& path, const FileContents& found) {
    if (!found.isFile || (!found.failure && Remembers(path, found.bytes)))
        return true;
    return messageBox_.Ask(u"Файл " + Quoted(path) +
                           u" изменила другая программа. Заменить его этим документом?") == BoxAnswer::Yes;
}

bool Saving::KeepInTrash(const std::u16string& path, const FileContents& found, std::string_view bytes) {
    if (!found.isFile && !found.isUnknown)
        return true;
    if (!found.failure && (found.bytes.empty() || found.bytes == bytes || Wrote(path, found.bytes)))
        return true;
    const auto failure = found.failure ? found.failure : files_.CopyToTrash(path, found.bytes);
    return !failure ||
           messageBox_.Ask(u"Прежнее содержимое файла " + Quoted(path) + u" не удалось положить в корзину: " +
                           failure->description + u".\r\nЗаменить файл безвозвратно?") == BoxAnswer::Yes;
}

} // namespace quillshift
