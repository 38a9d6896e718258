#include "base/GapText.h"

#include "base/Windows1251.h"

#include <algorithm>
#include <tuple>
#include <utility>

namespace quillshift {
namespace {

constexpr std::size_t kSlack = 64; // a part of what is long, for what comes

} // namespace

GapText::GapText(std::u16string text, std::size_t room) : buffer_(std::move(text)), gapLength_(room) {}

GapText::GapText(PlainBytes bytes, std::size_t room)
    : bytes_(std::move(bytes)), buffer_(room, u'\0'), gapLength_(room) {}

void GapText::MakeUpTo(std::size_t end) const {
    const std::string_view unread = Unread();
    if (unread.empty() || (read_ > 0 && end <= MadeLength()))
        return;
    if (read_ == 0) {
        const std::size_t slack = gapLength_ > 0 ? unread.size() / kSlack : 0;
        buffer_.reserve(buffer_.size() + unread.size() + slack);
    }
    const std::size_t count = std::min(end - std::min(end, MadeLength()), unread.size());
    windows1251::DecodeBehind(buffer_, unread.substr(0, count));
    read_ += count;
    if (count == unread.size()) {
        bytes_ = {};
        read_ = 0;
    }
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
    length = std::min(length, Length() - from);
    MakeUpTo(from + length);
    if (from < gap_ && gap_ < from + length)
        MoveGap(gap_ - from < length / 2 ? from : from + length);
    return std::u16string_view(buffer_).substr(from >= gap_ ? from + gapLength_ : from, length);
}

std::u16string GapText::Part(std::size_t from, std::size_t length) const {
    const std::size_t end = from + std::min(length, Length() - from);
    const std::size_t made = MadeLength();
    std::u16string part;
    part.reserve(end - from);
    for (const auto& [begin, behind, moved] : {std::tuple(from, std::min(end, gap_), std::size_t(0)),
                                               {std::max(from, gap_), std::min(end, made), gapLength_}})
        if (begin < behind)
            part.append(buffer_, begin + moved, behind - begin);
    if (end > made)
        windows1251::DecodeBehind(part,
                                  Unread().substr(std::max(from, made) - made, end - std::max(from, made)));
    return part;
}

// What nobody has asked for yet.
std::size_t GapText::Reserve() const {
    const std::size_t kept = buffer_.size() + Unread().size();
    return buffer_.capacity() - std::min(kept, buffer_.capacity());
}

void GapText::Replace(std::size_t from, std::size_t length, std::u16string_view by) {
    constexpr std::size_t kLeast = 1 << 10;
    constexpr std::size_t kNearEnd = 1 << 16;
    MakeUpTo(from + length);
    const std::size_t spare = Reserve();
    if (from > gap_ && Length() - from <= kNearEnd && by.size() <= spare) {
        buffer_.replace(from + gapLength_, length, by); // the room stays where it is
        return;
    }
    MoveGap(from);
    gapLength_ += length;
    if (gapLength_ < by.size()) {
        const std::size_t needed = by.size() - gapLength_;
        const std::size_t more = needed <= spare ? spare : needed + Length() / kSlack + kLeast;
        buffer_.insert(gap_ + gapLength_, more, u'\0');
        gapLength_ += more;
    }
    by.copy(buffer_.data() + gap_, by.size());
    gap_ += by.size();
    gapLength_ -= by.size();
}

} // namespace quillshift
