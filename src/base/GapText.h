#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace quillshift {

/// A long text that is edited at one place after another. The room for what comes lies where the last edit
/// was, so that an edit costs as much as it is far from the one before, and not as much as stands behind it.
class GapText {
public:
    GapText() = default;
    /// The first units of the string are room for what comes; what it has in reserve is kept, too.
    explicit GapText(std::u16string text, std::size_t room = 0);
    /// The text of these bytes in the fixed reading; they are what is kept until it is asked for.
    explicit GapText(std::string bytes) : bytes_(std::move(bytes)) {}

    std::size_t Length() const { return buffer_.size() - gapLength_ + bytes_.size(); }
    /// All of it. The view holds until the next change. The room goes to an end of it for that, and what
    /// stands between them is moved.
    std::u16string_view All() const { return View(0, Length()); }
    /// A piece, likewise; nothing is moved unless the last edit was within it.
    std::u16string_view View(std::size_t from, std::size_t length) const;
    std::u16string Part(std::size_t from, std::size_t length) const;
    void Replace(std::size_t from, std::size_t length, std::u16string_view by);

private:
    void Read() const;
    void MoveGap(std::size_t to) const;

    mutable std::string bytes_;     // not read yet; then there is nothing else
    mutable std::u16string buffer_; // the order in which it is kept does not show
    mutable std::size_t gap_ = 0;
    std::size_t gapLength_ = 0;
};

} // namespace quillshift
