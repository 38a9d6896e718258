// How a surface gets another text: at once as far as anyone may look, and the rest bit by bit.

#include "base/TextChange.h"
#include "base/Texts.h"
#include "platform/qt/LongLines.h"
#include "platform/qt/QtTextSurface.h"
#include "platform/qt/TextFill.h"

#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace quillshift {
namespace {

using namespace std::chrono_literals;

// Between two events.
constexpr std::chrono::milliseconds kSlice = 8ms;

constexpr std::chrono::milliseconds kForAll = 24h;

constexpr std::size_t kRoom = 1 << 16; // for what is typed at the caret, which stands in front

} // namespace

void QtTextSurface::ReplaceAll(GapText text, const std::function<void()>& begin) {
    GapText old = std::exchange(mirror_, {});
    {
        const QScopedValueRollback replacing(replacing_, true);
        // The widget would follow its caret to the end of the new text, and lay all of it out for that.
        setTextCursor(QTextCursor());
        fill_->Stop();
        document()->setUndoRedoEnabled(false);
        lines_->SetParting(!HasOwnUndo());
        document()->clear();
        begin();
        mirror_ = std::move(text);
        if (isVisible()) // else when it is shown
            Fill(0ms);
        setTextCursor(QTextCursor(document()));
        setCurrentCharFormat({});
    }
    noted_ = {};
    FillSoon();
    if (!OnChange)
        return;
    const TextChange change = ChangeBetween(old, mirror_);
    went_ = old.Part(change.place, change.removed);
    old = {};
    place_ = change.place;
    came_ = change.added;
    textMoved_ = true;
    RaiseChange();
}

void QtTextSurface::SetText(std::u16string_view text) {
    LoadPlain(text);
    if (OnSelChange)
        OnSelChange();
}

void QtTextSurface::LoadPlain(std::u16string_view text) {
    GapText whole(WithWholeBreaks(text, kRoom), kRoom);
    const std::size_t length = whole.Length();
    ReplaceAll(std::move(whole), [&] { fill_->BeginPlain(length); });
}

// In a surface that is not seen the text may never be asked for.
void QtTextSurface::LoadBytes(const PlainBytes& bytes) {
    ReplaceAll(GapText(bytes, isVisible() ? kRoom : 0), [&] { fill_->BeginPlain(bytes.View().size()); });
}

void QtTextSurface::LoadRich(const RichText& text) {
    ReplaceAll(GapText(text.text), [&] { fill_->BeginRich(text); });
}

// --- Filling the document

void QtTextSurface::Fill(std::chrono::milliseconds time) {
    if (fill_->Left() > 0) {
        const QScopedValueRollback replacing(replacing_, true);
        QTextCursor caret = textCursor();
        const int anchor = caret.anchor();
        const int position = caret.position();
        fill_->Go(mirror_, time);
        if (std::max(textCursor().anchor(), textCursor().position()) > std::max(anchor, position)) {
            caret.setPosition(anchor); // what comes to where it stands takes it along
            caret.setPosition(position, QTextCursor::KeepAnchor);
            setTextCursor(caret);
        }
    }
    // Only now there is something to undo; turned off and on, the document forgets what there was.
    if (fill_->Left() == 0)
        document()->setUndoRedoEnabled(HasOwnUndo());
}

void QtTextSurface::FillSoon() {
    if (isVisible() && fill_->Left() > 0)
        moreFill_.start();
}

void QtTextSurface::FillMore() {
    if (!isVisible())
        return;
    Fill(kSlice);
    FillSoon();
}

void QtTextSurface::FillAll() const {
    // To whoever asks, it is as if all were there since the text is.
    if (fill_->Left() > 0)
        const_cast<QtTextSurface&>(*this).Fill(kForAll);
}

// Keys and mouse reach as far as a screen beyond what is in sight. An undo of the surface's own begins with
// the whole text.
void QtTextSurface::FillBeforeInput() {
    constexpr int kReach = 1 << 13; // characters
    if (fill_->Left() == 0)
        return;
    const QTextCursor caret = textCursor();
    const QScrollBar& bar = *verticalScrollBar();
    if (HasOwnUndo() || std::max(caret.position(), caret.anchor()) > document()->characterCount() - kReach ||
        bar.value() > bar.maximum() - 2 * viewport()->height())
        FillAll();
}

void QtTextSurface::showEvent(QShowEvent* event) {
    QTextEdit::showEvent(event);
    Fill(0ms);
    FillSoon();
}

} // namespace quillshift
