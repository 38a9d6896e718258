#include "controls/hooks/HookError.h"

#include "base/Error.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace quillshift {
namespace {

constexpr int kObjectErrorBase = -2147221504;
constexpr int kHighestPlainNumber = 1000;

struct FailureText {
    HookFailure failure;
    std::u16string_view text;
};

constexpr std::array kTexts{
    FailureText{HookFailure::InvalidCall, u"Invalid procedure call or argument"},
    FailureText{HookFailure::CantSubclass, u"Can't subclass window"},
    FailureText{HookFailure::AlreadyHandled, u"Message already handled by another class"},
    FailureText{HookFailure::InvalidWindow, u"Invalid window"},
    FailureText{HookFailure::ExternalWindow, u"Can't modify external window"},
    FailureText{HookFailure::TooManyTimers, u"No more than 10 timers allowed per class"},
    FailureText{HookFailure::NoSystemTimer, u"Can't create system timer"},
};

} // namespace

void RaiseHookError(HookFailure failure, const std::u16string& executable) {
    const int number = static_cast<int>(failure);
    const auto* const found = std::find_if(
        kTexts.begin(), kTexts.end(), [&](const FailureText& entry) { return entry.failure == failure; });
    throw Error(number > kHighestPlainNumber ? number | kObjectErrorBase : number,
                executable + u".WindowProc", std::u16string(found->text));
}

} // namespace quillshift
