#pragma once

#include "base/GapText.h"
#include "base/Geometry.h"
#include "base/RichText.h"
#include "base/Twips.h"
#include "base/Windows1251.h"

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quillshift {

class Printer;

/// The default font of a surface.
struct SurfaceFont {
    std::u16string name;
    float points = 0;

    bool operator==(const SurfaceFont&) const = default;
};

enum class FindOptions : unsigned { None = 0, WholeWord = 2, MatchCase = 4 };
constexpr FindOptions operator|(FindOptions a, FindOptions b) {
    return static_cast<FindOptions>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}
constexpr bool Has(FindOptions options, FindOptions one) {
    return (static_cast<unsigned>(options) & static_cast<unsigned>(one)) != 0;
}

/// One of a row of replacements: `went` stands at `place` once those before it are done.
struct Replacement {
    std::size_t place = 0;
    std::u16string went;

    bool operator==(const Replacement&) const = default;
};

/// One edit of a text: `went` stood at `place`, and `came` stands there now.
struct TextEdit {
    std::size_t place = 0;
    std::u16string_view went;
    TextPiece came;
};

/// A rich-text editing control, and the only door to the text in it.
///
/// Positions are indexes of 16-bit units from 0. A line break counts as CR LF, two positions; a lone CR or LF
/// given to the surface is a line break as well. A position between the two, or between the halves of a
/// surrogate pair, is taken as the one before them, a position behind the end as the end.
class TextSurface {
public:
    virtual ~TextSurface() = default;

    /// The whole plain text. The view is kept up to date by the surface and holds until the next change.
    virtual std::u16string_view Text() const = 0;
    /// The length of `Text`, which costs nothing right after an edit, too.
    virtual std::size_t Length() const { return Text().size(); }
    /// A piece of `Text`, as far as there is one; a long text isn't moved about for it.
    virtual std::u16string Part(std::size_t from, std::size_t length) const {
        return std::u16string(Text().substr(from, length));
    }
    /// Replaces everything, drops all formatting and puts the caret at 0. Raises `Change` and `SelChange`,
    /// also for an equal text.
    virtual void SetText(std::u16string_view text) = 0;

    /// Replace the contents with those of a file, caret at 0. Raise `Change`, but not `SelChange`: a document
    /// that was just loaded does not count as changed.
    virtual void LoadPlain(std::u16string_view text) = 0;
    /// As `LoadPlain`, of a text in the fixed reading of files.
    virtual void LoadBytes(const PlainBytes& bytes) { LoadPlain(windows1251::Decode(bytes.View())); }
    virtual void LoadRich(const RichText& text) = 0;

    virtual std::size_t SelStart() const = 0;
    /// Puts the caret there; nothing is selected afterwards.
    virtual void SetSelStart(std::size_t position) = 0;
    virtual std::size_t SelLength() const = 0;
    virtual void SetSelLength(std::size_t length) = 0;
    virtual std::u16string SelText() const = 0;
    /// Replaces the selection, leaves the rest and its formatting alone and puts the caret behind the new
    /// text.
    virtual void SetSelText(std::u16string_view text) = 0;
    /// Deletes the selection; nothing happens without one.
    virtual void Clear() = 0;

    /// Left indent of the paragraphs of the selection; of the first of them when asked.
    virtual Twips SelIndent() const = 0;
    virtual void SetSelIndent(Twips indent) = 0;
    /// Position at which lines wrap; 0: at the surface's right edge.
    virtual void SetRightMargin(Twips margin) = 0;

    virtual SurfaceFont Font() const = 0;
    virtual void SetFont(const SurfaceFont& font) = 0;

    /// Position of the first match in `text` that begins at `start` or behind. `wanted` has whole line
    /// breaks; an empty one is found nowhere. Case and words go by Unicode: letters, digits, the marks on
    /// them and the underscore belong to a word.
    virtual std::optional<std::size_t> FindIn(std::u16string_view text, std::u16string_view wanted,
                                              std::size_t start, FindOptions options) const = 0;
    /// Searches the whole text like that, selects the match and gives its position.
    std::optional<std::size_t> Find(std::u16string_view wanted, std::size_t start, FindOptions options) {
        const auto place = FindIn(Text(), wanted, start, options);
        if (place) {
            SetSelStart(*place);
            SetSelLength(wanted.size());
        }
        return place;
    }
    /// Replaces by `by` what `next` names, one after another, until it names nothing. The text is laid out
    /// and shown once, at the end; then each is told as a `Change` of its own, and one `SelChange`: the caret
    /// stands behind the last of them. `Text` is that of before while `next` is asked.
    virtual void ReplaceEach(const std::function<const Replacement*()>& next, std::u16string_view by) = 0;
    /// Position of the first character of a line as it is laid out, the first line being 0. -1 asks for the
    /// line of the caret; a line behind the last has none.
    virtual std::optional<std::size_t> LineIndex(int line) const = 0;
    virtual int LineCount() const = 0;
    /// Where the selection, or the caret, is seen on the screen; empty while it is out of sight.
    virtual Rect SelectionOnScreen() const = 0;

    /// Position of the first character in sight; what shows above all lines when it is set, as far as the
    /// text behind it reaches.
    virtual std::size_t TopPosition() const = 0;
    virtual void SetTopPosition(std::size_t position) = 0;

    /// Whether the user may edit the text; calls always do.
    virtual void SetReadOnly(bool readOnly) = 0;

    /// Paints the text on the printer's present page, formatted as on the screen: from a position on, into
    /// the rectangle, clipped to the page; at least one line. Both are measured from the printable area.
    /// Answers the position of the first character that did not fit, or that of the end.
    virtual std::size_t PrintRange(Printer& printer, const TwipsRect& rectangle, const TwipsRect& page,
                                   std::size_t from) = 0;
    /// Forgets what is kept from one page to the next.
    virtual void ForgetPrintLayout() = 0;

    /// Gives the surface the keyboard, also from another window of the program.
    virtual void SetFocus() = 0;

    // Notifications, raised inside the operation that causes them.
    /// The text was edited; all that one key, call or drop does is one edit. Where everything was replaced,
    /// it is what differs. What it views holds until the call returns.
    std::function<void(const TextEdit& edit)> OnChange;
    std::function<void()> OnSelChange; ///< caret or selection have changed
    std::function<void()> OnKeyDown;   ///< a key went down, also by auto-repeat
    /// A key for undo, or redo, went down in a surface that serves such keys itself. Who has set this before
    /// a text comes keeps what is to undo; else the surface does.
    std::function<void(bool isRedo)> OnUndoKey;
    std::function<void()> OnKeyPress;                   ///< a key gave a character
    std::function<void(Point screen)> OnRightMouseDown; ///< the right button went down there
    /// A file was dropped, the first of them if there were several. Raised only once the drop is over, so
    /// that the program it came from waits for no answer given here.
    std::function<void(std::u16string_view path)> OnFileDrop;
};

} // namespace quillshift
