#include "wizard/rescue/RescueRow.h"

namespace quillshift::wizard {

namespace {

bool IsIn(const Chain& chain, Target target) {
    const Set set = target == Target::Windows1251 ? Set::Windows1251 : Set::Utf8;
    return chain.stored == set && chain.layers.empty() && !chain.debris;
}

bool CanTryAgain(Outcome outcome) {
    return outcome == Outcome::Failed || outcome == Outcome::Unreadable;
}

} // namespace

bool WouldRepair(const RescueRow& row, Target target) {
    if (!row.Way() || row.isCopied || (row.outcome && !CanTryAgain(*row.outcome)))
        return false;
    return !IsIn(*row.Way(), row.text ? Target::Utf8 : target);
}

} // namespace quillshift::wizard
