#include "platform/qt/QtClipboard.h"

#include "base/Windows1251.h"
#include "platform/qt/QtText.h"
#include "platform/qt/X11SelectionReader.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSocketNotifier>

namespace quillshift {

QtClipboard::QtClipboard() {
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 != nullptr)
        reader_ = std::make_unique<X11SelectionReader>(x11->display(), x11->connection());
    if (!reader_ || !reader_->IsOpen()) {
        reader_.reset();
        connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &QtClipboard::Tell);
        NoteUnread();
        return;
    }
    reader_->OnChange = [this] { Tell(); };
    auto* const arrival = new QSocketNotifier(reader_->Descriptor(), QSocketNotifier::Read, this);
    connect(arrival, &QSocketNotifier::activated, this, [this] { reader_->Advance(); });
}

QtClipboard::~QtClipboard() = default;

// Asked for at every key, and a text is copied to be looked at.
void QtClipboard::NoteUnread() {
    hasUnreadText_ = !IsRead() && !QGuiApplication::clipboard()->text().isEmpty();
}

void QtClipboard::Tell() {
    NoteUnread();
    if (OnChange)
        OnChange();
}

// The program's own text needs no reading, and reading it would be to wait for itself. The toolkit's word is
// not enough: it goes on calling a clipboard its own that another program has emptied.
bool QtClipboard::IsRead() const {
    return reader_ && !(reader_->IsOwn() && QGuiApplication::clipboard()->ownsClipboard());
}

std::optional<std::u16string> QtClipboard::Text() {
    if (reader_ && !reader_->WaitForAnswer())
        return std::nullopt;
    if (!IsRead())
        return FromQString(QGuiApplication::clipboard()->text());
    const X11SelectionReader::Answer& answer = reader_->Last();
    // Old programs mean one byte a letter, as the files do that they write.
    return answer.utf8 ? FromQString(QString::fromUtf8(answer.bytes)) : windows1251::Decode(answer.bytes);
}

bool QtClipboard::HasText() const {
    return IsRead() ? !reader_->Last().bytes.empty() : hasUnreadText_;
}

void QtClipboard::SetText(std::u16string_view text) {
    QGuiApplication::clipboard()->setText(WithLineFeeds(text));
    if (reader_)
        reader_->Sync();
}

void QtClipboard::Clear() {
    QGuiApplication::clipboard()->clear();
    if (reader_)
        reader_->Sync();
}

} // namespace quillshift
