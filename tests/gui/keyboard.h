// The keyboard in front of the real windows: keys are pressed through the platform, and what they
// type is the keyboard layout's business, as it is for an operator.
#pragma once

#include <string>

namespace test {

inline constexpr int kShiftKey = 1, kCtrlKey = 2, kAltKey = 4, kAltGrKey = 8, kWindowsKey = 16;

// Makes a layout of the virtual display the current one ("de"). Windows keeps the one it has.
void UseLayout(const std::string& layout);
// Every character that some key of the layout types, alone or with Shift, AltGr or both. On Windows
// also those of the system's set that no key stands for, and two that the set does not have.
std::u32string LayoutCharacters();
// Types a character; one that no key stands for comes as an input method sends it.
void TypeCharacter(char32_t character);
// Presses the key that types a character without a modifier, with these modifiers.
void PressWith(int modifiers, char32_t character);
// A key by the name that the display server has for it ("Caps_Lock", "KP_1"); none on Windows.
void PressNamed(const char* name);

}  // namespace test
