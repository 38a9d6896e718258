#include "document/TextCopy.h"

#include <utility>

namespace quillshift {

void TextCopy::Append(std::u16string piece) {
    length_ += piece.size();
    pieces_.push_back(std::move(piece));
}

// Where an edit reaches beyond a piece all behind its place is copied anew: it is rare.
void TextCopy::Follow(const TextEdit& edit) {
    std::size_t begin = 0;
    for (auto piece = pieces_.begin(); piece != pieces_.end(); begin += piece->size(), ++piece) {
        const std::size_t at = edit.place - begin;
        if (at > piece->size())
            continue;
        if (at + edit.went.size() <= piece->size()) {
            piece->replace(at, edit.went.size(), edit.came);
            length_ = length_ - edit.went.size() + edit.came.size();
        } else {
            piece->resize(at);
            pieces_.erase(piece + 1, pieces_.end());
            length_ = edit.place;
        }
        return;
    }
}

std::u16string TextCopy::Joined() const {
    std::u16string text;
    text.reserve(length_);
    for (const std::u16string& piece : pieces_)
        text += piece;
    return text;
}

} // namespace quillshift
