#pragma once

#include "base/PlainBytes.h"

#include <concepts>
#include <cstddef>
#include <string>
#include <string_view>

namespace quillshift {

/// A long text that is edited at one place after another. The room for what comes lies where the last edit
/// was, so that an edit costs as much as it is far from the one before, and not as much as stands behind it.
class GapText {
public:
    GapText() = default;
    /// The first units of the string are room for what comes; what it has in reserve is kept, too.
    explicit GapText(std::u16string text, std::size_t room = 0);
    /// The text of these bytes in the fixed reading. It is made of them from the front as far as anyone looks
    /// or edits; the bytes are kept until all of it is.
    explicit GapText(PlainBytes bytes, std::size_t room = 0);

    std::size_t Length() const { return MadeLength() + Unread().size(); }
    /// All of it. The view holds until the next change or look. The room goes to an end of it for that, and
    /// what stands between them is moved.
    std::u16string_view All() const { return View(0, Length()); }
    /// A piece, likewise; nothing is moved unless the last edit was within it.
    std::u16string_view View(std::size_t from, std::size_t length) const;
    std::u16string Part(std::size_t from, std::size_t length) const;
    void Replace(std::size_t from, std::size_t length, std::u16string_view by);

private:
    std::string_view Unread() const { return bytes_.View().substr(read_); }
    std::size_t MadeLength() const { return buffer_.size() - gapLength_; }
    std::size_t Reserve() const;
    void MakeUpTo(std::size_t end) const;
    void MoveGap(std::size_t to) const;

    mutable PlainBytes bytes_;      // their end is that of the text ...
    mutable std::size_t read_ = 0;  // ... from here on, where the buffer ends
    mutable std::u16string buffer_; // the order in which it is kept does not show
    mutable std::size_t gap_ = 0;
    std::size_t gapLength_ = 0;
};

/// A piece of a text that is made when someone looks at it. Holds as long as the text stays as it is.
class TextPiece {
public:
    TextPiece() = default;
    template <std::convertible_to<std::u16string_view> Text>
    TextPiece(const Text& text) : text_(text), length_(text_.size()) {}
    TextPiece(const GapText& whole, std::size_t from, std::size_t length)
        : whole_(&whole), from_(from), length_(length) {}

    std::size_t size() const { return length_; }
    bool empty() const { return length_ == 0; }
    operator std::u16string_view() const { return whole_ != nullptr ? whole_->View(from_, length_) : text_; }

    bool operator==(std::u16string_view other) const {
        return length_ == other.size() && std::u16string_view(*this) == other;
    }

private:
    std::u16string_view text_;
    const GapText* whole_ = nullptr;
    std::size_t from_ = 0;
    std::size_t length_ = 0;
};

} // namespace quillshift
