#pragma once

#include <QTextBlock>
#include <QTextBlockUserData>

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QTextCursor;
class QTextDocument;

namespace quillshift {

/// Whether a paragraph goes on with the line of the one before.
bool ContinuesLine(const QTextBlock& block);

/// The first and the last paragraph of the line to which one belongs.
QTextBlock FirstOfLine(QTextBlock block);
QTextBlock LastOfLine(QTextBlock block);

/// The last place at or before `most` where a line may be parted: behind a blank if one is near, never
/// within what is one character to a reader. More than 0; `most` is less than the line's length.
std::size_t PlaceToPart(std::u16string_view line, std::size_t most);

/// The text of a document as lines that are parted by CR LF, and what stands where in it.
///
/// The toolkit lays out a paragraph as a whole, so a line that is too long for that is several paragraphs
/// here, each of which but the first continues the line. A place where two of them meet is one place in the
/// text and two in the document. All that is asked by positions goes through here.
class LongLines {
public:
    /// In 16-bit units: a line of no more is one paragraph.
    static constexpr std::size_t kMost = 32'000;

    explicit LongLines(QTextDocument& document);

    /// Whether lines are parted from now on. The toolkit's own undo would not bring the parts back.
    void SetParting(bool parting) { parting_ = parting; }
    bool IsParting() const { return parting_; }
    /// To be called with each change of the document, before anything else is asked.
    void Follow(int from, int added);
    /// Parts what has become too long about there, and joins what is short. The text stays as it is, and so
    /// do the cursors' places in it.
    void Tidy(int from, int to);
    /// Lets the part that ends there, and goes on in another one, end at another place of the line.
    void MoveBorder(int from, int to);
    /// Makes each line of what the cursor has selected one paragraph, until the next `Tidy` there.
    void JoinSelected(const QTextCursor& cursor);
    /// Puts a text in the place of what the cursor has selected.
    void Insert(QTextCursor& cursor, const QString& text);
    /// Goes on with the last line in a paragraph of its own.
    void Continue(QTextCursor& cursor);

    std::size_t Length() const;
    std::size_t TextPosition(int documentPosition) const;
    /// The later one, where there are two.
    int DocumentPosition(std::size_t textPosition) const;
    std::u16string TextBetween(int from, int to) const;
    /// Extends what a cursor has selected to whole lines.
    void SelectWholeLines(QTextCursor& cursor) const;

private:
    struct Continues;

    int PartsUpTo(int block) const;
    void Mark(QTextBlock block, bool continues);
    bool IsTidy(QTextBlock block, int behind) const;
    void Part(const QTextBlock& block);
    void Join(const QTextBlock& block);

    QTextDocument& document_;
    bool parting_ = true;
    int blocks_;                                            ///< of the document at the last notice
    std::shared_ptr<int> marks_ = std::make_shared<int>(0); ///< how many are on its paragraphs
    std::vector<int> parts_; ///< the numbers of those that continue a line, in order
};

} // namespace quillshift
