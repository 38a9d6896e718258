#include "document/ReopenOffer.h"

#include "base/Windows1251.h"

#include <functional>

namespace quillshift {
namespace {

std::size_t Digest(std::u16string_view text) {
    return std::hash<std::u16string_view>()(text);
}

} // namespace

KnownFile::KnownFile(std::u16string_view thePath, const FileMark& theMark, const PlainBytes& text)
    : path(thePath), mark(theMark), text_(text) {}

KnownFile::KnownFile(std::u16string_view thePath, const FileMark& theMark, std::u16string_view text)
    : path(thePath), mark(theMark), text_(Digest(text)) {}

bool KnownFile::HasText(std::u16string_view text) const {
    if (const auto* digest = std::get_if<std::size_t>(&text_))
        return *digest == Digest(text);
    return windows1251::Decode(std::get<PlainBytes>(text_).View()) == text;
}

void ReopenOffer::Look() {
    if (!services_.state.file || !underWay_.insert(services_.state.file->path).second)
        return;
    services_.background.Run([this, &files = services_.files, known = *services_.state.file] {
        return [this, known, found = files.MarkOf(known.path)] {
            underWay_.erase(known.path);
            Compare(known, found);
        };
    });
}

// The document may have been saved, or have become another one, since the look was begun.
void ReopenOffer::Compare(const KnownFile& known, const std::optional<FileMark>& found) {
    if (!found || found == known.mark || found == offered_ || !HasTextOf(known) || !services_.mayInterrupt())
        return;
    offered_ = found;
    const BoxAnswer answer = services_.messageBox.Ask(u"Файл «" + known.path +
                                                      u"» изменила другая программа. Открыть его заново?");
    if (answer == BoxAnswer::Yes && HasTextOf(known)) // nothing was taken in behind the question
        services_.reopen();
}

bool ReopenOffer::HasTextOf(const KnownFile& known) const {
    return services_.state.file == known && known.HasText(services_.document.Text());
}

} // namespace quillshift
