#pragma once

#include "wizard/detect/Chain.h"
#include "wizard/detect/SetToUtf8.h"

#include <cstdint>
#include <optional>
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
    /// The same of whole lines, each with its end, which are looked over one by one. What is unclear in
    /// `text` need not be UTF-8, nor what `Undo` gives.
    bool UndoLines(std::string_view bytes, std::string_view& text, LookedLines& lines);
    /// Whether what `Undo` gave last is Russian beyond doubt, see `IsClearlyRussian`.
    bool IsClear();
    /// How plausible it is as Russian, see `RussianGlance`.
    double Glance();
    /// Whether a line that `UndoLines` has undone is plausible at a glance.
    bool IsPlausible(std::string_view line, std::string_view undone);

private:
    /// What a character up to U+25FF becomes: at most three bytes, the first one lowest, and above them how
    /// many and which readers can have made it. Nothing is 0.
    using Entry = std::uint32_t;
    /// Undoes a layer.
    struct Step {
        std::vector<Entry> becomes;
        bool toBytes = false; ///< what comes out is bytes that have to be UTF-8
        std::vector<char> out;
    };

    /// `convert`: from what it is stored in.
    template <typename Convert>
    bool Go(std::string_view bytes, const Convert& convert);
    bool Take(Step& step);
    /// Notes the codes; false where it is not UTF-8.
    bool NoteCodes();
    /// The same of a single-byte set, by the bytes.
    void TakeCodes();
    /// The same of any text.
    bool ReadCodes();

    std::optional<SetToUtf8> stored_;
    std::vector<char> storedOut_, lines_;
    std::vector<Step> steps_;
    std::string_view bytes_;          ///< as they came
    std::string_view text_;           ///< as it is by now
    std::optional<bool> isClear_;     ///< if it was asked
    std::vector<std::uint8_t> codes_; ///< of its characters
    std::size_t count_ = 0;
    bool hasCodes_ = false;
    bool knows_ = false;
};

} // namespace quillshift::wizard
