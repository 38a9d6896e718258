#include "platform/qt/QtTextSurface.h"

#include "base/TextChange.h"
#include "platform/qt/LongLines.h"
#include "platform/qt/PrintLayout.h"
#include "platform/qt/QtPrinter.h"
#include "platform/qt/QtText.h"
#include "platform/qt/TextAccess.h"
#include "platform/qt/TextFill.h"
#include "platform/qt/ViewLayout.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QTextBlock>
#include <QTextDocument>
#include <QUrl>

#include <algorithm>
#include <utility>

namespace quillshift {
namespace {

constexpr std::u16string_view kBreak = u"\r\n";

// The separators of lines and paragraphs are breaks like any other here; left alone, the widget would keep
// the first of them inside a line.
QString WithPlainBreaks(std::u16string_view text) {
    QString plain = ToQString(text);
    plain.replace(QChar::LineSeparator, QChar::ParagraphSeparator);
    return plain;
}

// Keys that the widget takes for its own clipboard and undo.
bool IsEditingKey(const QKeyEvent& event) {
    constexpr QKeySequence::StandardKey kKeys[] = {
        QKeySequence::Undo,  QKeySequence::Redo,      QKeySequence::Cut,    QKeySequence::Copy,
        QKeySequence::Paste, QKeySequence::SelectAll, QKeySequence::Delete, QKeySequence::DeleteEndOfLine};
    const bool plainDelete = event.key() == Qt::Key_Delete && event.modifiers() == Qt::NoModifier;
    return !plainDelete &&
           std::any_of(std::begin(kKeys), std::end(kKeys), [&](auto key) { return event.matches(key); });
}

bool HasAltAlone(const QKeyEvent& event) {
    return (event.modifiers() & (Qt::AltModifier | Qt::ControlModifier)) == Qt::AltModifier;
}

bool IsZoomBack(const QKeyEvent& event) {
    return event.key() == Qt::Key_0 && (event.modifiers() & ~Qt::KeypadModifier) == Qt::ControlModifier;
}

// The first file among what is dragged or copied; empty if there is none.
QString FileIn(const QMimeData& data) {
    for (const QUrl& url : data.urls())
        if (url.isLocalFile())
            return url.toLocalFile();
    return {};
}

} // namespace

QtTextSurface::QtTextSurface(QWidget* parent, EditingKeys keys)
    : QTextEdit(parent),
      keys_(keys),
      layout_(new ViewLayout(document(), *viewport())),
      lines_(std::make_unique<LongLines>(*document())),
      fill_(std::make_unique<TextFill>(*document(), *lines_)) {
    const int caretWidth = cursorWidth();
    document()->setDocumentLayout(layout_);
    setCursorWidth(caretWidth); // which is the layout's
    connect(layout_, &ViewLayout::viewMoved, this, &QtTextSurface::FollowView);
    AnnounceTexts();
    setFrameShape(QFrame::NoFrame);
    setAcceptRichText(false);
    document()->setUndoRedoEnabled(HasOwnUndo());
    lines_->SetParting(!HasOwnUndo());
    moreFill_.setSingleShot(true);
    connect(&moreFill_, &QTimer::timeout, this, &QtTextSurface::FillMore);
    connect(document(), &QTextDocument::contentsChange, this,
            [this](int from, int /*removed*/, int added) { lines_->Follow(from, added); });
    connect(document(), &QTextDocument::contentsChange, this, &QtTextSurface::MirrorChange);
    connect(document(), &QTextDocument::contentsChanged, this, [this] {
        if (replacing_)
            return;
        TidyLines();
        RaiseChange();
    });
    connect(this, &QTextEdit::cursorPositionChanged, this, &QtTextSurface::NoteSelection);
    connect(this, &QTextEdit::selectionChanged, this, &QtTextSurface::NoteSelection);
}

QtTextSurface::~QtTextSurface() = default;

// --- Positions and the mirror

std::size_t QtTextSurface::SurfacePosition(int documentPosition) const {
    return lines_->TextPosition(documentPosition);
}

// What calls from outside name may lie in what is to be filled in yet. What was filled in last may become
// another line's.
int QtTextSurface::DocumentPosition(std::size_t surfacePosition) const {
    surfacePosition = std::min(surfacePosition, Length());
    if (surfacePosition + LongLines::kMost > Length() - fill_->Left())
        FillAll();
    const bool isInside = surfacePosition > 0 && IsInsideCharacter(mirror_.Part(surfacePosition - 1, 2), 1);
    return lines_->DocumentPosition(surfacePosition - (isInside ? 1 : 0));
}

// What stands before and behind a change is as it was, so its place in the old mirror follows from the new
// document: as many positions from the front and from the back, but for what is not filled in.
void QtTextSurface::MirrorChange(int from, int /*removed*/, int added) {
    if (replacing_)
        return;
    RaiseChange(); // of an earlier part of the same edit, if the widget tells it in parts
    const int last = document()->characterCount() - 1;
    from = std::min(from, last);
    const int to = std::min(from + added, last);
    const std::size_t length = lines_->Length();
    const std::size_t filled = Length() - fill_->Left();
    const std::size_t begin = std::min(SurfacePosition(from), filled);
    const std::size_t behind = std::min(length - SurfacePosition(to), filled - begin);
    TextChange change{.place = begin, .removed = filled - begin - behind, .added = 0};
    const std::u16string text = lines_->TextBetween(from, to);
    tidyFrom_ = std::min(tidyFrom_, from);
    tidyTo_ = std::max(tidyTo_, to);
    const std::size_t first = begin - (begin > 0 ? 1 : 0); // with what stands on both sides
    const std::u16string around = mirror_.Part(first, begin - first + change.removed + 1);
    const auto old = std::u16string_view(around).substr(begin - first, change.removed);
    if (old == text)
        return;
    if (composing_) {
        const std::size_t caret = SurfacePosition(textCursor().position());
        change = ChangeBetween(old, text, caret - std::min(begin, caret));
        change.place += begin;
    } else {
        change.added = text.size();
    }
    const auto came = std::u16string_view(text).substr(change.place - begin, change.added);
    const std::size_t inside = change.place - first;
    const auto [before, after] = CutHalves(around, {inside, change.removed, change.added}, came);
    went_ = around.substr(inside - before, before + change.removed + after);
    mirror_.Replace(change.place, change.removed, came);
    place_ = change.place - before;
    came_ = before + change.added + after;
    textMoved_ = true;
}

void QtTextSurface::Raise(const TextEdit& edit) {
    AnnounceEdit(*this, edit);
    if (OnChange)
        OnChange(edit);
}

void QtTextSurface::RaiseChange() {
    if (!std::exchange(textMoved_, false))
        return;
    const std::u16string went = std::exchange(went_, {});
    Raise({.place = place_, .went = went, .came = {mirror_, place_, came_}});
}

void QtTextSurface::NoteSelection() {
    if (replacing_)
        return;
    const Selection now = CurrentSelection();
    if (std::exchange(noted_, now) == now)
        return;
    AnnounceSelection(*this);
    if (OnSelChange)
        OnSelChange();
}

// --- Selection

std::size_t QtTextSurface::SelStart() const {
    return SurfacePosition(textCursor().selectionStart());
}

std::size_t QtTextSurface::SelLength() const {
    return SurfacePosition(textCursor().selectionEnd()) - SelStart();
}

void QtTextSurface::SetSelStart(std::size_t position) {
    QTextCursor cursor = textCursor();
    cursor.setPosition(DocumentPosition(position));
    setTextCursor(cursor);
}

void QtTextSurface::SetSelLength(std::size_t length) {
    QTextCursor cursor = textCursor();
    const std::size_t start = SelStart();
    cursor.setPosition(cursor.selectionStart());
    cursor.setPosition(DocumentPosition(start + std::min(length, Length() - start)), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
    OfferSelection();
}

// For the middle button, as the widget itself does with what is selected by mouse or key.
void QtTextSurface::OfferSelection() const {
    QClipboard* const clipboard = QGuiApplication::clipboard();
    if (hasFocus() && textCursor().hasSelection() && clipboard->supportsSelection())
        clipboard->setMimeData(createMimeDataFromSelection(), QClipboard::Selection);
}

std::u16string QtTextSurface::SelText() const {
    return mirror_.Part(SelStart(), SelLength());
}

void QtTextSurface::SetSelText(std::u16string_view text) {
    FillAll();
    QTextCursor cursor = textCursor();
    cursor.beginEditBlock(); // the widget's own undo would take it for typing that goes on
    lines_->Insert(cursor, WithPlainBreaks(text));
    cursor.endEditBlock();
    setTextCursor(cursor);
    ensureCursorVisible();
}

void QtTextSurface::Clear() {
    FillAll();
    QTextCursor cursor = textCursor();
    cursor.removeSelectedText();
    setTextCursor(cursor);
}

// --- Formatting

Twips QtTextSurface::SelIndent() const {
    QTextCursor cursor = textCursor();
    cursor.setPosition(cursor.selectionStart());
    return {static_cast<float>(cursor.blockFormat().leftMargin() * kTwipsPerPixel)};
}

void QtTextSurface::SetSelIndent(Twips indent) {
    FillAll();
    QTextBlockFormat format;
    format.setLeftMargin(static_cast<qreal>(indent.value) / kTwipsPerPixel);
    QTextCursor cursor = textCursor();
    lines_->SelectWholeLines(cursor);
    cursor.mergeBlockFormat(format);
}

void QtTextSurface::SetFont(const SurfaceFont& font) {
    font_ = font;
    QFont shown = document()->defaultFont();
    if (!font.name.empty())
        shown.setFamilies({ToQString(font.name)});
    if (font.points > 0)
        shown.setPointSizeF(static_cast<qreal>(font.points));
    setFont(shown);
}

// --- Printing

std::size_t QtTextSurface::PrintRange(Printer& printer, const TwipsRect& rectangle, const TwipsRect& page,
                                      std::size_t from) {
    FillAll();
    auto& pages = dynamic_cast<QtPrinter&>(printer);
    const PrintSheet sheet = printer.Sheet();
    const auto onDevice = [&](const TwipsRect& twips) {
        const qreal scale = pages.Device().logicalDpiX() / 1440.0;
        const auto px = [scale](Twips length) { return static_cast<qreal>(length.value) * scale; };
        return QRectF(px(twips.left + sheet.left), px(twips.top + sheet.top), px(twips.width),
                      px(twips.height));
    };
    if (!printLayout_)
        printLayout_ = std::make_unique<PrintLayout>(*document(), pages.Device(), pages.IsGrey());
    // What would lie where the printer can't reach is moved in instead of being lost.
    const QRectF reach = onDevice(page);
    QRectF area = onDevice(rectangle);
    area.setCoords(std::max(area.left(), reach.left()), std::max(area.top(), reach.top()),
                   std::min(area.right(), reach.right()), std::min(area.bottom(), reach.bottom()));
    pages.Painter().setClipRect(reach);
    return SurfacePosition(printLayout_->Paint(pages.Painter(), area, DocumentPosition(from)));
}

void QtTextSurface::ForgetPrintLayout() {
    printLayout_.reset();
}

// --- What the widget must leave to the program

bool QtTextSurface::LeavesToCommands(const QKeyEvent& event) const {
    return keys_ == EditingKeys::OfCommands && IsEditingKey(event);
}

bool QtTextSurface::LeavesUndo(const QKeyEvent& event) const {
    const bool isRedo = event.matches(QKeySequence::Redo);
    if (!OnUndoKey || !(isRedo || event.matches(QKeySequence::Undo)))
        return false;
    if (!isReadOnly())
        OnUndoKey(isRedo);
    return true;
}

bool QtTextSurface::event(QEvent* event) {
    // Not accepted, an offered shortcut goes to the program's commands.
    if (event->type() == QEvent::ShortcutOverride && LeavesToCommands(*static_cast<QKeyEvent*>(event))) {
        event->ignore();
        return false;
    }
    return QTextEdit::event(event);
}

void QtTextSurface::keyPressEvent(QKeyEvent* event) {
    if (OnKeyDown)
        OnKeyDown();
    // A letter with Alt is meant for a menu, also where none goes by it.
    if (LeavesToCommands(*event) || HasAltAlone(*event)) {
        event->ignore();
        return;
    }
    if (LeavesUndo(*event))
        return;
    if (IsZoomBack(*event)) {
        SetZoom(100);
        return;
    }
    if (!event->text().isEmpty() && OnKeyPress)
        OnKeyPress();
    if (event->modifiers().testFlag(Qt::ControlModifier)) // to the end, or over all
        FillAll();
    FillBeforeInput();
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isReturn && event->modifiers().testFlag(Qt::ShiftModifier)) {
        // Shift would make a break inside the paragraph, which has no form in a plain file.
        QKeyEvent plain(QEvent::KeyPress, event->key(), Qt::NoModifier, event->text());
        QTextEdit::keyPressEvent(&plain);
        return;
    }
    StepOverPart(*event);
    QTextEdit::keyPressEvent(event);
    LeavePartsEnd(*event);
}

void QtTextSurface::mousePressEvent(QMouseEvent* event) {
    FillBeforeInput();
    QTextEdit::mousePressEvent(event);
    SelectWholeLine();
    const QPoint screen = event->globalPosition().toPoint();
    if (event->button() == Qt::RightButton && OnRightMouseDown)
        OnRightMouseDown({screen.x(), screen.y()});
}

void QtTextSurface::inputMethodEvent(QInputMethodEvent* event) {
    FillBeforeInput();
    event->setCommitString(WithPlainBreaks(ViewOf(event->commitString())), event->replacementStart(),
                           event->replacementLength());
    composing_ = true; // the widget then calls the whole paragraph changed
    QTextEdit::inputMethodEvent(event);
    composing_ = false;
}

void QtTextSurface::TakeFilesDroppedOn(QWidget& window) {
    window.setAcceptDrops(true);
    window.installEventFilter(this);
}

bool QtTextSurface::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
    case QEvent::DragEnter:
    case QEvent::DragMove:
    case QEvent::Drop: {
        auto& drop = static_cast<QDropEvent&>(*event);
        drop.ignore();
        if (event->type() == QEvent::Drop)
            TakeFile(drop);
        else if (drop.mimeData()->hasUrls()) // whose they are is asked once, at the drop
            drop.accept();
        return true;
    }
    default:
        return QTextEdit::eventFilter(watched, event);
    }
}

bool QtTextSurface::TakeFile(QDropEvent& event) {
    const QString path = FileIn(*event.mimeData());
    if (path.isEmpty())
        return false;
    event.setDropAction(Qt::CopyAction); // a file that is to be moved would be deleted by its giver
    event.accept();
    QMetaObject::invokeMethod(
        this,
        [this, path] {
            if (OnFileDrop)
                OnFileDrop(ViewOf(path));
        },
        Qt::QueuedConnection);
    return true;
}

void QtTextSurface::dropEvent(QDropEvent* event) {
    QDragLeaveEvent over; // the widget's part of a drop: it no longer shows where the text would go
    if (TakeFile(*event)) {
        dragLeaveEvent(&over);
        return;
    }
    if (event->source() != viewport() || event->dropAction() != Qt::MoveAction) {
        QTextEdit::dropEvent(event);
        return;
    }
    dragLeaveEvent(&over);
    event->accept();
    FillAll();
    QTextCursor selection = textCursor();
    QTextCursor target = cursorForPosition(event->position().toPoint());
    if (target.position() >= selection.selectionStart() && target.position() <= selection.selectionEnd())
        return;
    MoveText(selection, target);
    setTextCursor(target);
}

void QtTextSurface::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
}

// For dragging and the primary selection: the text as it is, not as the widget would tell it.
QMimeData* QtTextSurface::createMimeDataFromSelection() const {
    auto* copy = new QMimeData;
    copy->setText(WithLineFeeds(SelText()));
    return copy;
}

// By its forms alone: the text may be another program's, and a drag asks at each move.
bool QtTextSurface::canInsertFromMimeData(const QMimeData* source) const {
    return source->hasText();
}

void QtTextSurface::insertFromMimeData(const QMimeData* source) {
    SetSelText(FromQString(source->text()));
}

} // namespace quillshift
