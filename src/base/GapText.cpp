#include "base/GapText.h"

#include "base/Windows1251.h"

#include <algorithm>
#include <utility>

namespace quillshift {

GapText::GapText(std::u16string text, std::size_t room) : buffer_(std::move(text)), gapLength_(room) {}

void GapText::Read() const {
    if (bytes_.empty())
        return;
    buffer_ = windows1251::Decode(bytes_);
    bytes_ = {};
}

void GapText::MoveGap(std::size_t to) const {
    const auto at = [this](std::size_t place) {
        return buffer_.begin() + static_cast<std::ptrdiff_t>(place);
    };
    if (gapLength_ > 0 && to < gap_)
        std::move_backward(at(to), at(gap_), at(gap_ + gapLength_));
    else if (gapLength_ > 0 && to > gap_)
        std::move(at(gap_ + gapLength_), at(to + gapLength_), at(gap_));
    gap_ = to;
}

std::u16string_view GapText::View(std::size_t from, std::size_t length) const {
    Read();
    length = std::min(length, Length() - from);
    if (from < gap_ && gap_ < from + length)
        MoveGap(gap_ - from < length / 2 ? from : from + length);
    return std::u16string_view(buffer_).substr(from >= gap_ ? from + gapLength_ : from, length);
}

std::u16string GapText::Part(std::size_t from, std::size_t length) const {
    Read();
    length = std::min(length, Length() - from);
    const std::size_t before = from < gap_ ? std::min(length, gap_ - from) : 0;
    std::u16string part = buffer_.substr(before > 0 ? from : from + gapLength_, before > 0 ? before : length);
    return before > 0 && before < length ? part.append(buffer_, gap_ + gapLength_, length - before) : part;
}

void GapText::Replace(std::size_t from, std::size_t length, std::u16string_view by) {
    constexpr std::size_t kPart = 64; // of the text, for what comes
    constexpr std::size_t kLeast = 1 << 10;
    constexpr std::size_t kNearEnd = 1 << 16;
    Read();
    const std::size_t spare = buffer_.capacity() - buffer_.size();
    if (from > gap_ && Length() - from <= kNearEnd && by.size() <= spare) {
        buffer_.replace(from + gapLength_, length, by); // the room stays where it is
        return;
    }
    MoveGap(from);
    gapLength_ += length;
    if (gapLength_ < by.size()) {
        const std::size_t needed = by.size() - gapLength_;
        const std::size_t more = needed <= spare ? spare : needed + Length() / kPart + kLeast;
        buffer_.insert(gap_ + gapLength_, more, u'\0');
        gapLength_ += more;
    }
    by.copy(buffer_.data() + gap_, by.size());
    gap_ += by.size();
    gapLength_ -= by.size();
}

} // namespace quillshift
