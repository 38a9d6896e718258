#include "wizard/detect/Repair.h"

#include <algorithm>

namespace quillshift::wizard {

namespace {

/// Whether the byte of a line feed ends a line in the set, and nothing else.
bool HasLines(Set set) {
    return set != Set::Utf16Le && set != Set::Utf16Be;
}

bool IsAscii(std::string_view bytes) {
    return std::none_of(bytes.begin(), bytes.end(),
                        [](char c) { return static_cast<std::uint8_t>(c) >= 0x80; });
}

/// Undoes a chain where that proves lossless.
bool AddUndone(Repaired& repaired, std::string_view line, const Chain& chain) {
    const Undone undone = Undo(chain, line);
    if (undone.lost > 0 || !Proves(chain, undone.text, line))
        return false;
    repaired.text += undone.text;
    repaired.changed = true;
    return true;
}

/// A line alone: by the chain of the whole where that fits, else by what the line itself is sure of.
void RepairLine(Repaired& repaired, std::string_view line, const std::optional<Chain>& chain,
                const DetectOptions& options) {
    if (IsAscii(line)) {
        repaired.text += line;
        return;
    }
    if (chain && AddUndone(repaired, line, *chain))
        return;
    const Verdict own = Detect(line, options);
    if (own.answer == Answer::Sure && AddUndone(repaired, line, own.candidates.front().chain))
        return;
    repaired.unsure += own.answer != Answer::Clean || !IsUtf8(line);
    repaired.text += line;
}

} // namespace

Repaired Repair(std::string_view bytes, const Verdict& verdict, const DetectOptions& options) {
    Repaired repaired{std::string(bytes), false, 0};
    if (verdict.answer == Answer::Clean)
        return repaired;
    std::optional<Chain> chain;
    if (verdict.answer == Answer::Sure) {
        chain = verdict.candidates.front().chain;
        Undone undone = Undo(*chain, bytes);
        if (undone.lost == 0 && Proves(*chain, undone.text, bytes)) {
            repaired.text = std::move(undone.text);
            repaired.changed = true;
            return repaired;
        }
    }
    const bool oneLine = bytes.find('\n') >= bytes.size() - 1;
    if (oneLine || (chain && (chain->debris || !HasLines(chain->stored)))) {
        repaired.unsure = 1;
        return repaired;
    }
    repaired.text.clear();
    while (!bytes.empty()) {
        const std::size_t end = std::min(bytes.find('\n'), bytes.size() - 1) + 1;
        RepairLine(repaired, bytes.substr(0, end), chain, options);
        bytes.remove_prefix(end);
    }
    return repaired;
}

} // namespace quillshift::wizard
