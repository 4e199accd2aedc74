// The keys of the platform, and what its keyboard layout makes of them.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/gui/real_player.h"
#include "text/code_page.h"

#ifdef _WIN32
#include <windows.h>
#else
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>
#include <gdk/gdkx.h>
#endif

namespace test {
namespace {

struct Stroke {
    unsigned key;
    int held;
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
Stroke StrokeOf(char32_t character) {
    const SHORT found = VkKeyScanW(static_cast<WCHAR>(character));
    if (found != -1) return {LOBYTE(found), HIBYTE(found)};
    const bool sent = text::FromUnicode(character) || character == U'\u03A9';
    return {sent ? kNoKey + character : 0, 0};
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

Stroke StrokeOf(char32_t character) {
    GdkKeymap* const layout = gdk_keymap_get_for_display(gdk_display_get_default());
    GdkKeymapKey* keys = nullptr;
    int count = 0;
    gdk_keymap_get_entries_for_keyval(layout, gdk_unicode_to_keyval(character), &keys, &count);
    GdkKeymapKey key = {};
    for (int i = 0; i < count; ++i) {
        if (key.keycode == 0 && keys[i].level < 4) key = keys[i];
    }
    g_free(keys);
    const int held = (key.level & 1 ? kShiftKey : 0) | (key.level & 2 ? kAltGrKey : 0);
    key.level = 0;
    return {gdk_keymap_lookup_key(layout, &key), held};
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
    AwaitKeyboard();
    const Stroke stroke = StrokeOf(character);
    Press(stroke.key, held != 0 ? held : stroke.held);
}

// From the blank to the arrows, without what is no character of any keyboard.
std::u32string LayoutCharacters() {
    std::u32string all;
    for (char32_t each = U' '; each < U'\u2200'; each += each == U'~' ? 34 : 1) {
        if (StrokeOf(each).key != 0) all += each;
    }
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
