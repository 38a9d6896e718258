#include "platform/qt/TextAccess.h"

#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"

#include <QAbstractTextDocumentLayout>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QTextBlock>
#include <QTextBoundaryFinder>
#include <QTextDocument>
#include <QTextLayout>

#include <algorithm>
#include <utility>

namespace quillshift {
namespace {

constexpr std::u16string_view kBreak = u"\r\n";

struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;
};

// With the break behind it.
Range LineAt(std::u16string_view text, std::size_t place) {
    const std::size_t before = place < kBreak.size() ? text.npos : text.rfind(kBreak, place - kBreak.size());
    const std::size_t begin = before == text.npos ? 0 : before + kBreak.size();
    const std::size_t behind = text.find(kBreak, place - (place > begin ? 1 : 0)); // or it is within a break
    return {begin, behind == text.npos ? text.size() : behind + kBreak.size()};
}

// A letter, word or sentence. None of them goes on in another line, and few are long.
Range PieceAt(std::u16string_view text, std::size_t place, QTextBoundaryFinder::BoundaryType kind) {
    constexpr std::size_t kNear = 4000;
    const Range line = LineAt(text, place);
    const std::size_t begin = std::max(line.begin, place - std::min(place, kNear));
    const std::size_t end = std::min(line.end, place + kNear);
    const QString near = ToQString(text.substr(begin, end - begin));
    QTextBoundaryFinder finder(kind, near);
    finder.setPosition(static_cast<qsizetype>(place - begin));
    if (!finder.isAtBoundary())
        finder.toPreviousBoundary();
    const auto from = std::max<qsizetype>(finder.position(), 0);
    const qsizetype to = finder.toNextBoundary();
    return {begin + static_cast<std::size_t>(from), to < 0 ? end : begin + static_cast<std::size_t>(to)};
}

class TextInterface final : public QAccessibleWidget,
                            public QAccessibleTextInterface,
                            public QAccessibleEditableTextInterface {
public:
    explicit TextInterface(QtTextSurface& surface) : QAccessibleWidget(&surface, QAccessible::EditableText) {}

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.multiLine = true;
        state.selectableText = true;
        state.readOnly = Its().isReadOnly();
        state.editable = !state.readOnly;
        return state;
    }
    void* interface_cast(QAccessible::InterfaceType type) override {
        switch (type) {
        case QAccessible::TextInterface:
            return static_cast<QAccessibleTextInterface*>(this);
        case QAccessible::EditableTextInterface:
            return static_cast<QAccessibleEditableTextInterface*>(this);
        default:
            return QAccessibleWidget::interface_cast(type);
        }
    }

    int selectionCount() const override { return Its().SelLength() > 0 ? 1 : 0; }
    void selection(int index, int* start, int* end) const override {
        const bool any = index == 0 && selectionCount() > 0;
        *start = any ? static_cast<int>(Its().SelStart()) : 0;
        *end = any ? *start + static_cast<int>(Its().SelLength()) : 0;
    }
    void addSelection(int start, int end) override { setSelection(0, start, end); }
    void removeSelection(int /*index*/) override { setCursorPosition(cursorPosition()); }
    void setSelection(int /*index*/, int start, int end) override {
        const Range range = Between(start, end);
        Its().SetSelStart(range.begin);
        Its().SetSelLength(range.end - range.begin);
    }
    int cursorPosition() const override {
        return static_cast<int>(Its().SurfacePosition(Its().textCursor().position()));
    }
    void setCursorPosition(int place) override { Its().SetSelStart(At(place)); }

    int characterCount() const override { return static_cast<int>(Its().Length()); }
    QString text(int start, int end) const override { return Text(Between(start, end)); }
    QString textAtOffset(int offset, QAccessible::TextBoundaryType kind, int* start,
                         int* end) const override {
        return Tell(RangeAt(At(offset), kind), start, end);
    }
    QString textBeforeOffset(int offset, QAccessible::TextBoundaryType kind, int* start,
                             int* end) const override {
        const std::size_t begin = RangeAt(At(offset), kind).begin;
        return Tell(begin > 0 ? RangeAt(begin - 1, kind) : Range(), start, end);
    }
    QString textAfterOffset(int offset, QAccessible::TextBoundaryType kind, int* start,
                            int* end) const override {
        const std::size_t behind = RangeAt(At(offset), kind).end;
        return Tell(behind < Its().Length() ? RangeAt(behind, kind) : Range{behind, behind}, start, end);
    }

    QRect characterRect(int offset) const override;
    int offsetAtPoint(const QPoint& point) const override;
    void scrollToSubstring(int start, int /*end*/) override { Its().SetTopPosition(At(start)); }
    QString attributes(int offset, int* start, int* end) const override;

    void insertText(int offset, const QString& text) override { replaceText(offset, offset, text); }
    void deleteText(int start, int end) override { replaceText(start, end, {}); }
    void replaceText(int start, int end, const QString& text) override {
        if (Its().isReadOnly())
            return;
        setSelection(0, start, end);
        Its().SetSelText(ViewOf(text));
    }

private:
    QtTextSurface& Its() const { return *static_cast<QtTextSurface*>(widget()); }
    std::size_t At(int place) const {
        return static_cast<std::size_t>(std::clamp(place, 0, characterCount()));
    }
    // An end of -1 is that of the text.
    Range Between(int start, int end) const {
        const std::size_t from = At(start);
        const std::size_t to = end == -1 ? Its().Length() : At(end);
        return {std::min(from, to), std::max(from, to)};
    }
    QString Text(const Range& range) const {
        return ToQString(Its().Text().substr(range.begin, range.end - range.begin));
    }
    QString Tell(const Range& range, int* start, int* end) const {
        *start = static_cast<int>(range.begin);
        *end = static_cast<int>(range.end);
        return Text(range);
    }
    Range RowAt(std::size_t place) const;
    Range RangeAt(std::size_t place, QAccessible::TextBoundaryType kind) const;
};

Range TextInterface::RangeAt(std::size_t place, QAccessible::TextBoundaryType kind) const {
    const std::u16string_view text = Its().Text();
    switch (kind) {
    case QAccessible::CharBoundary:
        return PieceAt(text, place, QTextBoundaryFinder::Grapheme);
    case QAccessible::WordBoundary:
        return PieceAt(text, place, QTextBoundaryFinder::Word);
    case QAccessible::SentenceBoundary:
        return PieceAt(text, place, QTextBoundaryFinder::Sentence);
    case QAccessible::LineBoundary:
        return RowAt(place);
    case QAccessible::ParagraphBoundary:
        return LineAt(text, place);
    default:
        return {0, text.size()};
    }
}

// A row as it is seen, which the layout alone knows.
Range TextInterface::RowAt(std::size_t place) const {
    const QTextDocument& document = *Its().document();
    const int position = Its().DocumentPosition(place);
    const QTextBlock block = document.findBlock(position);
    document.documentLayout()->blockBoundingRect(block); // makes its lines
    const QTextLine line = block.layout()->lineForTextPosition(position - block.position());
    const int begin = block.position() + line.textStart();
    const int end = begin + line.textLength();
    const bool isLast = end == block.position() + block.length() - 1 && block.next().isValid();
    return {Its().SurfacePosition(begin), Its().SurfacePosition(end + (isLast ? 1 : 0))};
}

QRect TextInterface::characterRect(int offset) const {
    QTextCursor cursor = Its().textCursor();
    cursor.setPosition(Its().DocumentPosition(At(offset)));
    const QRect begin = Its().cursorRect(cursor);
    cursor.movePosition(QTextCursor::NextCharacter);
    const QRect end = Its().cursorRect(cursor);
    QRect place = begin;
    if (end.top() == begin.top())
        place = QRect(QPoint(std::min(begin.left(), end.left()), begin.top()),
                      QSize(std::abs(end.left() - begin.left()), begin.height()));
    return place.translated(Its().viewport()->mapToGlobal(QPoint()));
}

int TextInterface::offsetAtPoint(const QPoint& point) const {
    const QPoint inside = Its().viewport()->mapFromGlobal(point);
    return Its().viewport()->rect().contains(inside)
               ? static_cast<int>(Its().SurfacePosition(Its().cursorForPosition(inside).position()))
               : -1;
}

QString TextInterface::attributes(int offset, int* start, int* end) const {
    const int position = Its().DocumentPosition(At(offset));
    const QTextBlock block = Its().document()->findBlock(position);
    *start = *end = offset;
    for (auto part = block.begin(); !part.atEnd(); ++part) {
        const QTextFragment fragment = part.fragment();
        if (!fragment.contains(position))
            continue;
        *start = static_cast<int>(Its().SurfacePosition(fragment.position()));
        *end = *start + fragment.length();
        const QTextCharFormat format = fragment.charFormat();
        const QFont font = format.font().resolve(Its().document()->defaultFont());
        return QStringLiteral("font-family:%1;font-size:%2pt;font-weight:%3;font-style:%4;"
                              "text-underline-style:%5;")
            .arg(font.family())
            .arg(font.pointSizeF())
            .arg(font.bold() ? QStringLiteral("bold") : QStringLiteral("normal"),
                 font.italic() ? QStringLiteral("italic") : QStringLiteral("normal"),
                 font.underline() ? QStringLiteral("solid") : QStringLiteral("none"));
    }
    return {};
}

QAccessibleInterface* Make(const QString& /*className*/, QObject* object) {
    auto* const surface = qobject_cast<QtTextSurface*>(object);
    return surface != nullptr ? new TextInterface(*surface) : nullptr;
}

// --- What is told

struct OwnNotice {
    virtual ~OwnNotice() = default;
};

template <typename Event>
struct Own final : Event, OwnNotice {
    using Event::Event;
};

template <typename Event>
void Announce(Event&& event) {
    QAccessible::updateAccessibility(&event);
}

bool IsHeard(const QtTextSurface& surface) {
    return QAccessible::isActive() && surface.isVisible();
}

} // namespace

void AnnounceTexts() {
    QAccessible::installFactory(Make); // a second time does nothing
}

void AnnounceEdit(QtTextSurface& surface, const TextEdit& edit) {
    if (!IsHeard(surface))
        return;
    const int place = static_cast<int>(edit.place);
    if (edit.went.size() + edit.came.size() > kMostTold)
        Announce(Own<QAccessibleEvent>(&surface, QAccessible::VisibleDataChanged));
    else if (edit.went.empty())
        Announce(Own<QAccessibleTextInsertEvent>(&surface, place, ToQString(edit.came)));
    else if (edit.came.empty())
        Announce(Own<QAccessibleTextRemoveEvent>(&surface, place, ToQString(edit.went)));
    else
        Announce(
            Own<QAccessibleTextUpdateEvent>(&surface, place, ToQString(edit.went), ToQString(edit.came)));
}

void AnnounceSelection(QtTextSurface& surface) {
    if (!IsHeard(surface))
        return;
    const int start = static_cast<int>(surface.SelStart());
    const int end = start + static_cast<int>(surface.SelLength());
    const int caret = static_cast<int>(surface.SurfacePosition(surface.textCursor().position()));
    Own<QAccessibleTextSelectionEvent> selection(&surface, start, end);
    selection.setCursorPosition(caret);
    Announce(std::move(selection));
    Announce(Own<QAccessibleTextCursorEvent>(&surface, caret));
}

bool IsToldOfDocument(const QAccessibleEvent& event) {
    const bool isOfText = dynamic_cast<const QAccessibleTextCursorEvent*>(&event) != nullptr;
    return isOfText && qobject_cast<QtTextSurface*>(event.object()) != nullptr &&
           dynamic_cast<const OwnNotice*>(&event) == nullptr;
}

} // namespace quillshift
