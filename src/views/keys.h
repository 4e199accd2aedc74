// The keys that have a meaning in the windows: a closed table.
//
// A key of the table is told by its code; letters and digits have the code of the capital letter
// ('A' to 'Z') or of the digit. Every other key is kKeyOther, whatever it types: what a keyboard
// layout makes of it arrives as a character and as nothing else. The codes of the arrows are the
// characters % & ' ( elsewhere, so a character must never be taken for a code.
#pragma once

namespace views {

inline constexpr int kKeyOther = 0, kKeyBackspace = 8, kKeyTab = 9, kKeyEnter = 13, kKeyEscape = 27,
                     kKeySpace = 32, kKeyPageUp = 33, kKeyPageDown = 34, kKeyEnd = 35,
                     kKeyHome = 36, kKeyLeft = 37, kKeyUp = 38, kKeyRight = 39, kKeyDown = 40,
                     kKeyF6 = 117;

// Shift states, which add up.
inline constexpr int kShift = 1, kCtrl = 2, kAlt = 4;

constexpr bool IsArrow(int key) {
    return key >= kKeyLeft && key <= kKeyDown;
}
// Page Up and Down, Home and End.
constexpr bool IsPaging(int key) {
    return key >= kKeyPageUp && key <= kKeyHome;
}

// Whether a code is that of a letter or a digit.
constexpr bool IsLetterOrDigit(int key) {
    return (key >= 'A' && key <= 'Z') || (key >= '0' && key <= '9');
}

}  // namespace views
