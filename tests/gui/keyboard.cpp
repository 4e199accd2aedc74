#include "tests/gui/keyboard.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <utility>

#include "tests/gui/person.h"
#include "text/code_page.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <X11/XKBlib.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <gdk/gdkx.h>
#endif

namespace test {
namespace {

struct Stroke {
    unsigned key;  // of the platform; 0 for none
    int modifiers;
};

#ifdef _WIN32

constexpr std::pair<int, unsigned> kModifierKeys[] = {{kShiftKey, VK_SHIFT},
                                                      {kCtrlKey, VK_CONTROL},
                                                      {kAltKey, VK_MENU},
                                                      {kAltGrKey, VK_RMENU},
                                                      {kWindowsKey, VK_LWIN}};

void Send(unsigned key, bool down) {
    keybd_event(static_cast<BYTE>(key), static_cast<BYTE>(MapVirtualKeyW(key, 0)),
                (down ? 0 : KEYEVENTF_KEYUP) | (key == VK_RMENU ? KEYEVENTF_EXTENDEDKEY : 0), 0);
}

// As an input method sends it.
void SendCharacter(char32_t character) {
    for (const DWORD released : {0, KEYEVENTF_KEYUP}) {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wScan = static_cast<WORD>(character);
        input.ki.dwFlags = KEYEVENTF_UNICODE | released;
        SendInput(1, &input, sizeof input);
    }
}

std::map<char32_t, Stroke> Strokes() {
    std::map<char32_t, Stroke> strokes = {{U'\u0142', {}}, {U'\u03A9', {}}};
    for (int byte = ' '; byte < 256; ++byte) {
        const char32_t character = text::ToUnicode(static_cast<char>(byte));
        if (character >= 127 && character < 160) continue;
        const SHORT found = VkKeyScanW(static_cast<WCHAR>(character));
        const int state = HIBYTE(found);  // the same bits but for AltGr, which is Ctrl with Alt
        const int held = (state & 6) == 6 ? kAltGrKey | (state & 1) : state;
        strokes[character] = found == -1 ? Stroke{} : Stroke{LOBYTE(found), held};
    }
    return strokes;
}

#else

constexpr std::pair<int, unsigned> kModifierKeys[] = {{kShiftKey, XK_Shift_L},
                                                      {kCtrlKey, XK_Control_L},
                                                      {kAltKey, XK_Alt_L},
                                                      {kAltGrKey, XK_ISO_Level3_Shift},
                                                      {kWindowsKey, XK_Super_L}};

Display* TheDisplay() {
    return GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
}

// Keys by their symbols from 256 up, by their codes below.
void Send(KeySym key, bool down) {
    const KeySym code = key > 255 ? XKeysymToKeycode(TheDisplay(), key) : key;
    XTestFakeKeyEvent(TheDisplay(), static_cast<unsigned>(code), down, 0);
    XSync(TheDisplay(), False);
}

void SendCharacter(char32_t character) {
    ADD_FAILURE() << "no key types U+" << std::hex << static_cast<unsigned>(character);
}

// Of the main block of the keyboard, with the blank and the one beside the left Shift key. Level 1
// is with Shift, 2 with AltGr.
std::map<char32_t, Stroke> Strokes() {
    std::map<char32_t, Stroke> strokes;
    for (int level = 0; level < 4; ++level) {
        for (unsigned key = 10; key <= 94; key = key == 61 ? 65 : key == 65 ? 94 : key + 1) {
            const auto symbol =
                XkbKeycodeToKeysym(TheDisplay(), static_cast<KeyCode>(key), 0, level);
            const char32_t typed = gdk_keyval_to_unicode(static_cast<guint>(symbol));
            const int held = (level & 1 ? kShiftKey : 0) | (level & 2 ? kAltGrKey : 0);
            if (typed >= U' ' && typed != 127) strokes.try_emplace(typed, Stroke{key, held});
        }
    }
    return strokes;
}

#endif

void Press(unsigned key, int modifiers) {
    for (const bool down : {true, false}) {
        if (!down) Send(key, true), Send(key, false);
        for (const auto& [modifier, symbol] : kModifierKeys) {
            if ((modifiers & modifier) != 0) Send(symbol, down);
        }
    }
}

}  // namespace

std::u32string LayoutCharacters() {
    std::u32string all;
    for (const auto& [character, stroke] : Strokes()) all += character;
    return all;
}

void TypeCharacter(char32_t character) {
    const Stroke stroke = Strokes()[character];
    stroke.key == 0 ? SendCharacter(character) : Press(stroke.key, stroke.modifiers);
}

void PressWith(int modifiers, char32_t character) {
    Press(Strokes()[character].key, modifiers);
}

void UseLayout([[maybe_unused]] const std::string& layout) {
#ifndef _WIN32
    ASSERT_EQ(std::system(("setxkbmap " + layout).c_str()), 0);
    Until([] { return false; }, 200);  // the new map reaches the toolkit as an event
#endif
}

void PressNamed([[maybe_unused]] const char* name) {
#ifndef _WIN32
    for (const bool down : {true, false}) Send(XStringToKeysym(name), down);
#endif
}

}  // namespace test
