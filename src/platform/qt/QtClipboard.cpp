#include "platform/qt/QtClipboard.h"

#include "base/Windows1251.h"
#include "platform/qt/QtText.h"
#include "platform/qt/X11SelectionReader.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QSocketNotifier>

namespace quillshift {

QtClipboard::QtClipboard() {
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &QtClipboard::OnDataChanged);
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 == nullptr)
        return;
    auto reader = std::make_unique<X11SelectionReader>(x11->display());
    if (!reader->IsOpen())
        return;
    reader_ = std::move(reader);
    reader_->OnAnswer = [this] { Tell(); };
    auto* const arrival = new QSocketNotifier(reader_->Descriptor(), QSocketNotifier::Read, this);
    connect(arrival, &QSocketNotifier::activated, this, [this] { reader_->Advance(); });
    reader_->Ask();
}

QtClipboard::~QtClipboard() = default;

// The program's own text needs no reading, and reading it would be to wait for itself.
bool QtClipboard::IsRead() const {
    return reader_ && !QGuiApplication::clipboard()->ownsClipboard();
}

void QtClipboard::OnDataChanged() {
    if (IsRead()) {
        reader_->Ask();
        return;
    }
    if (reader_)
        reader_->Forget();
    Tell();
}

void QtClipboard::Tell() {
    if (OnChange)
        OnChange();
}

std::optional<std::u16string> QtClipboard::Text() {
    if (!IsRead())
        return FromQString(QGuiApplication::clipboard()->text());
    if (!reader_->WaitForAnswer())
        return std::nullopt;
    const X11SelectionReader::Answer& answer = reader_->Last();
    // Old programs mean one byte a letter, as the files do that they write.
    return answer.utf8 ? FromQString(QString::fromUtf8(answer.bytes)) : windows1251::Decode(answer.bytes);
}

bool QtClipboard::HasText() const {
    return IsRead() ? !reader_->Last().bytes.empty() : !QGuiApplication::clipboard()->text().isEmpty();
}

void QtClipboard::SetText(std::u16string_view text) {
    QGuiApplication::clipboard()->setText(ToQString(text));
}

void QtClipboard::Clear() {
    QGuiApplication::clipboard()->clear();
    if (reader_)
        reader_->Forget();
}

} // namespace quillshift
