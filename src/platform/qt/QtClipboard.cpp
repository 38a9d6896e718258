#include "platform/qt/QtClipboard.h"

#include "base/Windows1251.h"
#include "platform/qt/QtText.h"
#include "platform/qt/QtTextSurface.h"
#include "platform/qt/X11Requests.h"
#include "platform/qt/X11SelectionReader.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QEventLoop>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QSocketNotifier>
#include <QTextEdit>
#include <QUrl>

#include <algorithm>

namespace quillshift {
namespace {

constexpr auto kPatience = std::chrono::milliseconds(500);
constexpr auto kLongestHandOver = std::chrono::seconds(2);
constexpr const char* kPlainText = "text/plain";
constexpr const char* kUris = "text/uri-list";
constexpr const char* kRepaired = X11SelectionReader::kRepairedTarget;

bool TakesText(QObject* object) {
    return qobject_cast<QLineEdit*>(object) != nullptr ||
           (object->parent() != nullptr && qobject_cast<QTextEdit*>(object->parent()) != nullptr);
}

std::u16string TextOf(const X11Question::Answer& answer) {
    // Old programs mean one byte a letter, as the files do that they write.
    return answer.utf8 ? FromQString(QString::fromUtf8(answer.bytes)) : windows1251::Decode(answer.bytes);
}

std::unique_ptr<QMimeData> DataOf(std::u16string_view text) {
    auto data = std::make_unique<QMimeData>();
    data->setText(WithLineFeeds(text));
    return data;
}

} // namespace

QtClipboard::QtClipboard() {
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &QtClipboard::NoteOwn);
    const auto* const x11 = qApp->nativeInterface<QNativeInterface::QX11Application>();
    if (x11 != nullptr &&
        x11->connection() != nullptr) // without a screen the toolkit has the one, not the other
        reader_ = std::make_unique<X11SelectionReader>(x11->display(), x11->connection());
    if (!reader_ || !reader_->IsOpen()) {
        reader_.reset();
        NoteOwn();
        return;
    }
    reader_->OnChange = [this] {
        if (reader_->AwaitsMark())
            markLimit_.start(kPatience);
        Tell();
    };
    markLimit_.setSingleShot(true);
    markLimit_.callOnTimeout([this] { reader_->ForgetMark(); });
    requests_ = std::make_unique<X11Requests>(x11->connection());
    auto* const arrival = new QSocketNotifier(reader_->Descriptor(), QSocketNotifier::Read, this);
    connect(arrival, &QSocketNotifier::activated, this, &QtClipboard::ReadOn);
    readOn_.setSingleShot(true);
    readOn_.callOnTimeout(this, &QtClipboard::ReadOn);
    qApp->installEventFilter(this);
    ReadOn();
}

QtClipboard::~QtClipboard() = default;

// What X11 has not in store for this program is asked of others, and that is the reader's work. Whether it
// has is seen by the kind of the data alone: the toolkit can call a clipboard its own that has just gone to
// another program.
void QtClipboard::NoteOwn() {
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    if (data != nullptr && !(reader_ && data->inherits("QInternalMimeData")))
        own_ = {.text = FromQString(data->text()),
                .whole = true,
                .repaired = data->hasFormat(QString::fromLatin1(kRepaired))};
    if (!reader_)
        Tell();
}

void QtClipboard::Tell() {
    if (OnChange)
        OnChange();
}

// The program's own text needs no reading, and reading it would be to wait for itself. The toolkit's word is
// not enough: it goes on calling a clipboard its own that another program has emptied.
bool QtClipboard::IsRead() const {
    return reader_ && !(reader_->IsOwn() && QGuiApplication::clipboard()->ownsClipboard());
}

// In short turns, with the events of others between them.
void QtClipboard::ReadOn() {
    if (reader_->Advance())
        readOn_.start(0);
}

// --- Waiting

void QtClipboard::WaitWhile(const std::function<bool()>& isOpen,
                            const std::function<Clock::time_point()>& end) {
    if (waits_)
        return;
    const QScopedValueRollback waiting(waits_, true);
    for (ReadOn(); isOpen() && Clock::now() < end();) {
        QTimer::singleShot(std::chrono::ceil<std::chrono::milliseconds>(end() - Clock::now()), this, [] {});
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
    }
}

std::optional<std::u16string> QtClipboard::Wanted(std::optional<CopiedText> text) const {
    if (text && text->whole)
        return std::move(text->text);
    if (OnNoAnswer)
        OnNoAnswer();
    return std::nullopt;
}

std::optional<std::u16string> QtClipboard::Text() {
    if (reader_) {
        reader_->Sync();
        WaitWhile([this] { return IsRead() && reader_->AskedAt(); },
                  [this] { return reader_->AskedAt().value_or(Clock::now()) + kPatience; });
    }
    return Wanted(TextAtHand());
}

std::optional<CopiedText> QtClipboard::Arrived() {
    return IsRead() && reader_->AwaitsMark() ? std::nullopt : TextAtHand();
}

// A text is pasted whether or not it is marked.
std::optional<CopiedText> QtClipboard::TextAtHand() const {
    if (!IsRead())
        return own_;
    if (reader_->AskedAt())
        return std::nullopt;
    return CopiedText{TextOf(reader_->Last()), reader_->Last().whole, reader_->IsLastRepaired()};
}

bool QtClipboard::HasText() const {
    return IsRead() ? reader_->AskedAt() || !reader_->Last().bytes.empty() : !own_.text.empty();
}

// --- Its own text

void QtClipboard::SetText(std::u16string_view text) {
    SetOwn(DataOf(text));
}

void QtClipboard::SetRepaired(std::u16string_view text) {
    auto data = DataOf(text);
    data->setData(QString::fromLatin1(kRepaired), "1");
    SetOwn(std::move(data));
}

void QtClipboard::SetOwn(std::unique_ptr<QMimeData> data) {
    QGuiApplication::clipboard()->setMimeData(data.release());
    if (!reader_)
        return;
    reader_->Sync();
    ReadOn();
}

void QtClipboard::Clear() {
    QGuiApplication::clipboard()->clear();
    if (reader_)
        ReadOn();
}

void QtClipboard::HandOver() {
    if (!reader_ || IsRead() || own_.text.empty())
        return;
    const auto longest = Clock::now() + kLongestHandOver;
    const auto start = Clock::now();
    const X11Question& question = reader_->Ask("CLIPBOARD_MANAGER", {"SAVE_TARGETS"}, 0);
    WaitWhile([&] { return !question.IsAnswered(); },
              [&] { return std::min(longest, std::max(start, requests_->LastAsked()) + kPatience); });
}

// --- What the toolkit would wait for

// Null when nothing came; then that has been told.
std::unique_ptr<QMimeData> QtClipboard::Fetch(const char* selection, Form form, std::uint32_t time,
                                              Clock::time_point end) {
    if (waits_) // for another one, while something is dropped
        return nullptr;
    const bool uris = form == Form::Uris;
    X11Question& question = reader_->Ask(
        selection, uris ? std::vector<std::string>{kUris} : X11SelectionReader::TextForms(), time);
    WaitWhile([&] { return !question.IsAnswered(); }, [&] { return end; });
    std::optional<CopiedText> text;
    if (question.IsAnswered()) {
        const X11Question::Answer answer = question.TakeAnswer();
        text = CopiedText{TextOf(answer), answer.whole};
    }
    reader_->ForgetAsked();
    const auto wanted = Wanted(std::move(text));
    if (!wanted)
        return nullptr;
    auto data = std::make_unique<QMimeData>();
    if (uris)
        data->setData(QString::fromLatin1(kUris), ToQString(*wanted).toUtf8());
    else
        data->setText(ToQString(*wanted));
    return data;
}

bool QtClipboard::eventFilter(QObject* watched, QEvent* event) {
    if (passesOn_ || !watched->isWidgetType())
        return false;
    if (event->type() == QEvent::Drop)
        return TakeDrop(watched, event);
    if (event->type() == QEvent::MouseButtonRelease)
        return TakesText(watched) && TakeMiddleButton(watched, event);
    return event->type() == QEvent::KeyPress && TakePasteKey(watched, event);
}

bool QtClipboard::TakeDrop(QObject* target, QEvent* event) {
    auto& drop = static_cast<QDropEvent&>(*event);
    const QMimeData& offered = *drop.mimeData();
    const bool hasText = offered.hasFormat(QString::fromLatin1(kPlainText));
    if (drop.source() != nullptr || !(offered.hasUrls() || hasText))
        return false;
    const auto end = Clock::now() + kPatience;
    const auto fetch = [&](Form form) { return Fetch("XdndSelection", form, requests_->DropTime(), end); };
    auto data = fetch(offered.hasUrls() ? Form::Uris : Form::Text);
    if (data && data->hasUrls() && hasText && std::ranges::none_of(data->urls(), &QUrl::isLocalFile))
        data = fetch(Form::Text); // of a link that is no file the text counts
    drop.ignore();
    if (!data)
        return true;
    const QScopedValueRollback passing(passesOn_, true);
    QDropEvent ours(drop.position(), drop.possibleActions(), data.get(), drop.buttons(), drop.modifiers());
    ours.setDropAction(drop.dropAction());
    QCoreApplication::sendEvent(target, &ours);
    drop.setDropAction(ours.dropAction());
    drop.setAccepted(ours.isAccepted());
    return true;
}

// It pastes what is selected in another program, as if it were dropped there.
bool QtClipboard::TakeMiddleButton(QObject* target, QEvent* event) {
    const auto& click = static_cast<const QMouseEvent&>(*event);
    if (click.button() != Qt::MiddleButton || QGuiApplication::clipboard()->ownsSelection())
        return false;
    const QPointF place = click.position();
    const QPointer<QObject> stillThere = target;
    const auto data = Fetch("PRIMARY", Form::Text, 0, Clock::now() + kPatience);
    if (!data || data->text().isEmpty() || !stillThere)
        return true;
    const QScopedValueRollback passing(passesOn_, true);
    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, data.get(), Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    QDropEvent drop(place, Qt::CopyAction, data.get(), Qt::NoButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &drop);
    return true;
}

bool QtClipboard::TakePasteKey(QObject* target, QEvent* event) {
    auto* const line = qobject_cast<QLineEdit*>(target);
    auto* const surface = qobject_cast<QtTextSurface*>(target);
    const bool takesText =
        (line != nullptr && !line->isReadOnly()) ||
        (surface != nullptr && !surface->isReadOnly() && surface->Keys() == EditingKeys::OfSurface);
    if (!takesText || !static_cast<QKeyEvent*>(event)->matches(QKeySequence::Paste))
        return false;
    const QPointer<QObject> stillThere = target;
    const auto text = Text();
    if (!text || !stillThere)
        return true;
    if (line != nullptr)
        line->insert(ToQString(*text));
    else
        surface->SetSelText(*text);
    return true;
}

} // namespace quillshift
