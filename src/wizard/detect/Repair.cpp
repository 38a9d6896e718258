#include "wizard/detect/Repair.h"

#include "wizard/detect/LineRepair.h"

namespace quillshift::wizard {

namespace {

/// All or nothing: what has no lines of its own.
Repaired RepairWhole(std::string_view bytes, const Verdict& verdict) {
    const Chain& chain = verdict.candidates.front().chain;
    auto text = verdict.answer == Answer::Sure ? Lossless(chain, bytes) : std::nullopt;
    return text ? Repaired{std::move(*text), true, 0, 0} : Repaired{std::string(bytes), false, 1, 0};
}

} // namespace

Repaired Repair(std::string_view bytes, const Verdict& verdict, const DetectOptions& options) {
    const bool known = !verdict.candidates.empty();
    const bool clean = verdict.answer == Answer::Clean;
    // What is in another language's set is left alone as a whole, like what is no text.
    if (clean && (!known || !IsUtf8(bytes)))
        return {std::string(bytes), false, 0, 0};
    const bool oneLine = bytes.find('\n') >= bytes.size() - 1;
    if (clean && oneLine)
        return {std::string(bytes), false, 0, 0};
    const Chain& chain = verdict.candidates.front().chain;
    if (oneLine || chain.debris || chain.stored == Set::Utf16Le || chain.stored == Set::Utf16Be)
        return RepairWhole(bytes, verdict);
    LineRepair lines(bytes, verdict, options);
    Repaired repaired;
    lines.Add(bytes, repaired.text);
    repaired.changed = lines.Changed();
    repaired.unsure = lines.Unsure();
    repaired.apart = lines.Apart();
    return repaired;
}

} // namespace quillshift::wizard
