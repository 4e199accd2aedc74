// The keys of the platform, and what its keyboard layout makes of them.
#include <gtest/gtest.h>

#include <cstdlib>
#include <map>

#include "tests/gui/real_player.h"
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
    unsigned key;
    int held = 0;
};

#ifdef _WIN32

constexpr unsigned kHeldKeys[] = {VK_SHIFT, VK_CONTROL, VK_MENU, VK_LWIN, VK_RMENU};
constexpr unsigned kNoKey = 1 << 16;  // a character and this is one that no key stands for

void Send(unsigned key, bool down) {
    INPUT input = {};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = static_cast<WORD>(key < kNoKey ? key : 0);
    input.ki.wScan = static_cast<WORD>(key < kNoKey ? MapVirtualKeyW(key, 0) : key);
    input.ki.dwFlags = (down ? 0 : KEYEVENTF_KEYUP) | (key < kNoKey ? 0 : KEYEVENTF_UNICODE) |
                       (key == VK_RMENU ? KEYEVENTF_EXTENDEDKEY : 0);
    SendInput(1, &input, sizeof input);
}

// The system counts Shift, Ctrl and Alt as it is done here. Ctrl with Alt is AltGr.
std::map<char32_t, Stroke> Strokes() {
    std::map<char32_t, Stroke> strokes = {{U'\u0142', {kNoKey + 0x142}},
                                          {U'\u03A9', {kNoKey + 0x3A9}}};
    for (int byte = ' '; byte < 256; ++byte) {
        const char32_t character = text::ToUnicode(static_cast<char>(byte));
        if (character >= 127 && character < 160) continue;
        const SHORT found = VkKeyScanW(static_cast<WCHAR>(character));
        strokes[character] =
            found == -1 ? Stroke{kNoKey + character} : Stroke{LOBYTE(found), HIBYTE(found)};
    }
    return strokes;
}

#else

constexpr unsigned kHeldKeys[] = {XK_Shift_L, XK_Control_L, XK_Alt_L, XK_Super_L,
                                  XK_ISO_Level3_Shift};

Display* TheDisplay() {
    return GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
}

void Send(unsigned symbol, bool down) {
    XTestFakeKeyEvent(TheDisplay(), XKeysymToKeycode(TheDisplay(), symbol), down, 0);
    XSync(TheDisplay(), False);
}

// Of the main block of the keyboard, with the blank and the one beside the left Shift key.
std::map<char32_t, Stroke> Strokes() {
    std::map<char32_t, Stroke> strokes;
    for (int level = 0; level < 4; ++level) {
        for (unsigned key = 10; key <= 94; key = key == 61 ? 65 : key == 65 ? 94 : key + 1) {
            const auto symbol = [code = static_cast<KeyCode>(key)](int at) {
                return static_cast<unsigned>(XkbKeycodeToKeysym(TheDisplay(), code, 0, at));
            };
            const char32_t typed = gdk_keyval_to_unicode(symbol(level));
            const int held = (level & 1 ? kShiftKey : 0) | (level & 2 ? kAltGrKey : 0);
            if (typed >= U' ' && typed != 127) strokes.try_emplace(typed, Stroke{symbol(0), held});
        }
    }
    return strokes;
}

#endif

}  // namespace

void Press(unsigned key, int held) {
    for (const bool down : {true, false}) {
        if (!down) Send(key, true), Send(key, false);
        for (unsigned bit = 0; bit < std::size(kHeldKeys); ++bit) {
            if ((held >> bit & 1) != 0) Send(kHeldKeys[bit], down);
        }
    }
}

void TypeCharacter(char32_t character, int held) {
    const Stroke stroke = Strokes().at(character);
    Press(stroke.key, held != 0 ? held : stroke.held);
}

std::u32string LayoutCharacters() {
    std::u32string all;
    for (const auto& [character, stroke] : Strokes()) all += character;
    return all;
}

bool UseLayout(const std::string& layout) {
#ifdef _WIN32
    return layout == "us";
#else
    EXPECT_EQ(std::system(("setxkbmap " + layout).c_str()), 0);
    return !Until([] { return false; }, 200);  // the new map reaches the toolkit as an event
#endif
}

}  // namespace test
