#pragma once

#include "wizard/detect/Chain.h"
#include "wizard/detect/RussianGlance.h"

#include <cstdint>
#include <vector>

namespace quillshift::wizard {

/// Undoes a chain by tables, some hundred times as quickly as `Undo` with its proof, which stay the judges of
/// what the tables do not know.
class TableUndo {
public:
    /// Takes any chain without debris that is not stored in UTF-16; of others it knows nothing.
    explicit TableUndo(const Chain& chain);

    /// What the chain makes of the bytes where each character surely comes back: what `Lossless` gives. Stays
    /// valid until the next call. False where the tables do not know.
    bool Undo(std::string_view bytes, std::string_view& text);
    /// How plausible what `Undo` gave last is as Russian, see `RussianGlance`.
    double Glance() const { return RussianGlance(codes_, count_); }

private:
    /// What a byte, or a character up to U+25FF, becomes: at most three bytes, the first one lowest, and
    /// above them how many, the code (see `LetterCode`) and a 1. Nothing is 0.
    using Entry = std::uint64_t;
    struct Step {
        std::vector<Entry> becomes;
        bool fromBytes = false; ///< what comes in is bytes, not UTF-8
        bool toBytes = false;   ///< what comes out is bytes that have to be UTF-8
        std::vector<char> out;
    };

    bool Go(Step& step, std::string_view bytes, std::string_view& text);
    /// Whether it is UTF-8; notes the codes.
    bool ReadCodes(std::string_view text);

    std::vector<Step> steps_;
    std::vector<std::uint8_t> codes_; ///< of the characters of the last text
    std::size_t count_ = 0;
    Entry readers_ = 0; ///< which of them can have made all of it
    bool knows_ = false;
};

/// Whether all of it is ASCII.
bool IsAscii(std::string_view bytes);

} // namespace quillshift::wizard
