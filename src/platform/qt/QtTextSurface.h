#pragma once

#include "base/GapText.h"
#include "platform/TextSurface.h"

#include <QTextEdit>
#include <QTimer>

#include <chrono>
#include <limits>
#include <memory>

namespace quillshift {

class LongLines;
class PrintLayout;
class TextFill;
class ViewLayout;

/// Who serves the keys of clipboard, undo and select-all in a surface.
enum class EditingKeys {
    OfCommands, ///< the program's commands, to which the surface leaves them
    OfSurface,  ///< the surface itself; undo, too, unless `OnUndoKey` is set
};

/// The text surface on Qt's rich-text widget.
///
/// A mirror of the plain text is kept from the document's change notices, because the widget's own call for
/// it turns U+00A0 into a blank. The widget counts a line break as one position and the surface as two, and
/// has a long line in several paragraphs: `LongLines` turns the positions of one into those of the other.
///
/// A long text is in the mirror at once. The document gets its first lines at once and the rest between the
/// events, once it is seen; whatever may reach behind what it has waits for all of it.
class QtTextSurface final : public QTextEdit, public TextSurface {
    Q_OBJECT

public:
    explicit QtTextSurface(QWidget* parent = nullptr, EditingKeys keys = EditingKeys::OfCommands);
    ~QtTextSurface() override;
    EditingKeys Keys() const { return keys_; }
    /// Takes files dropped anywhere on a window, as those dropped on the surface itself.
    void TakeFilesDroppedOn(QWidget& window);

    std::u16string_view Text() const override { return mirror_.All(); }
    std::size_t Length() const override { return mirror_.Length(); }
    std::u16string Part(std::size_t from, std::size_t length) const override {
        return mirror_.Part(from, length);
    }
    void SetText(std::u16string_view text) override;
    void LoadPlain(std::u16string_view text) override;
    void LoadBytes(const PlainBytes& bytes) override;
    void LoadRich(const RichText& text) override;

    std::size_t SelStart() const override;
    void SetSelStart(std::size_t position) override;
    std::size_t SelLength() const override;
    void SetSelLength(std::size_t length) override;
    std::u16string SelText() const override;
    void SetSelText(std::u16string_view text) override;
    void Clear() override;

    Twips SelIndent() const override;
    void SetSelIndent(Twips indent) override;
    void SetRightMargin(Twips margin) override;

    SurfaceFont Font() const override { return font_; }
    void SetFont(const SurfaceFont& font) override;

    std::optional<std::size_t> FindIn(std::u16string_view text, std::u16string_view wanted, std::size_t start,
                                      FindOptions options) const override;
    void ReplaceEach(const std::function<const Replacement*()>& next, std::u16string_view by) override;
    std::optional<std::size_t> LineIndex(int line) const override;
    int LineCount() const override;
    Rect SelectionOnScreen() const override;

    std::size_t TopPosition() const override;
    void SetTopPosition(std::size_t position) override;
    void SetReadOnly(bool readOnly) override { setReadOnly(readOnly); }

    std::size_t PrintRange(Printer& printer, const TwipsRect& rectangle, const TwipsRect& page,
                           std::size_t from) override;
    void ForgetPrintLayout() override;

    /// How large the text is shown, in percent; what is stored, printed and told of the font stays.
    int Zoom() const;
    void SetZoom(int percent);

    void SetFocus() override;

    /// A position in the text, from one in the widget's document.
    std::size_t SurfacePosition(int documentPosition) const;
    /// The other way round; completes the document if it does not reach as far yet.
    int DocumentPosition(std::size_t surfacePosition) const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    bool canInsertFromMimeData(const QMimeData* source) const override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    struct Selection {
        std::size_t start = 0;
        std::size_t length = 0;
        bool operator==(const Selection&) const = default;
    };

    bool HasOwnUndo() const { return keys_ == EditingKeys::OfSurface && !OnUndoKey; }
    bool LeavesToCommands(const QKeyEvent& event) const;
    bool LeavesUndo(const QKeyEvent& event) const;
    Selection CurrentSelection() const { return {SelStart(), SelLength()}; }

    void ReplaceAll(GapText text, const std::function<void()>& begin);
    void Fill(std::chrono::milliseconds time);
    void FillSoon();
    void FillMore();
    void FillAll() const;
    void FillBeforeInput();
    void MirrorChange(int from, int removed, int added);
    void NoteSelection();
    void OfferSelection() const;
    bool TakeFile(QDropEvent& event);
    void Raise(const TextEdit& edit);
    void RaiseChange();
    void TidyLines();
    void StepOverPart(const QKeyEvent& event);
    void LeavePartsEnd(const QKeyEvent& event);
    void SelectWholeLine();
    void MoveText(QTextCursor& selection, QTextCursor& target);

    void ApplyRightMargin();
    bool BringIntoView(bool toEnd);
    bool PlaceBorders();
    void PlaceAllBorders();
    void FollowView(int top);
    void KeepPlace(const std::function<void()>& work);

    EditingKeys keys_;
    ViewLayout* layout_; ///< the document's
    std::unique_ptr<LongLines> lines_;
    std::unique_ptr<TextFill> fill_; ///< of the document with what the mirror has
    QTimer moreFill_;
    std::unique_ptr<PrintLayout> printLayout_; ///< of the document that is being printed
    GapText mirror_;
    SurfaceFont font_;
    Twips rightMargin_;
    int wheelled_ = 0;       // with Ctrl, in eighths of a degree: less than a step of the zoom
    Selection noted_;        // what the listeners were last told
    std::u16string went_;    // the edit that is not told yet: what went ...
    std::size_t place_ = 0;  // ... where ...
    std::size_t came_ = 0;   // ... and how much of the mirror came there
    bool textMoved_ = false; // there is such an edit
    int tidyFrom_ = std::numeric_limits<int>::max(); // where in the document lines may be too long
    int tidyTo_ = -1;
    bool composing_ = false; // an input method's event is at work
    bool following_ = false; // the view's place gets another number, and shows the same
    bool replacing_ = false; // a call here replaces much, and raises the notices itself
};

} // namespace quillshift
