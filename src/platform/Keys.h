#pragma once

namespace quillshift {

/// Virtual key codes; a Latin letter's or a digit's is that of the character, in upper case.
namespace key {
inline constexpr int kBackspace = 8;
inline constexpr int kTab = 9;
inline constexpr int kEnter = 13;
inline constexpr int kShift = 16;
inline constexpr int kCtrl = 17;
inline constexpr int kAlt = 18;
inline constexpr int kCapsLock = 20;
inline constexpr int kEscape = 27;
inline constexpr int kSpace = 32;
inline constexpr int kPageUp = 33;
inline constexpr int kPageDown = 34;
inline constexpr int kEnd = 35;
inline constexpr int kHome = 36;
inline constexpr int kLeft = 37;
inline constexpr int kUp = 38;
inline constexpr int kRight = 39;
inline constexpr int kDown = 40;
inline constexpr int kInsert = 45;
inline constexpr int kDelete = 46;
inline constexpr int kWindows = 91; ///< or another key that only goes with others
inline constexpr int kF1 = 0x70;
inline constexpr int kNumLock = 144;

/// Whether a key does nothing alone, Alt excepted.
inline constexpr bool IsModifier(int virtualKey) {
    return virtualKey == kShift || virtualKey == kCtrl || virtualKey == kCapsLock || virtualKey == kWindows ||
           virtualKey == kNumLock;
}
} // namespace key

/// Bits of a shortcut's modifiers.
namespace modifier {
inline constexpr int kShift = 1;
inline constexpr int kCtrl = 2;
inline constexpr int kAlt = 4;
} // namespace modifier

} // namespace quillshift
