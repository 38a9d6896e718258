#pragma once

#include "platform/TextSurface.h"

#include <cstddef>
#include <string>
#include <vector>

namespace quillshift {

/// A copy of a text's front part that grows piece by piece, while the text is edited.
class TextCopy {
public:
    /// In 16-bit units.
    std::size_t Length() const { return length_; }
    /// Takes what stands behind the copy in the text.
    void Append(std::u16string piece);
    /// The text was edited. What of it was copied may get shorter; what is left is a front part of the text.
    void Follow(const TextEdit& edit);
    std::u16string Joined() const;

private:
    std::vector<std::u16string> pieces_;
    std::size_t length_ = 0; // of all of them
};

} // namespace quillshift
