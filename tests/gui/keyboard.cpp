#include "tests/gui/keyboard.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>
#include <vector>

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
    int key;  // of the platform
    int modifiers;
};

#ifdef _WIN32

constexpr std::pair<int, int> kModifierKeys[] = {{kShiftKey, VK_SHIFT},
                                                 {kCtrlKey, VK_CONTROL},
                                                 {kAltKey, VK_MENU},
                                                 {kAltGrKey, VK_RMENU},
                                                 {kWindowsKey, VK_LWIN}};

void Send(int key, bool down) {
    keybd_event(static_cast<BYTE>(key), static_cast<BYTE>(MapVirtualKeyW(key, 0)),
                (down ? 0 : KEYEVENTF_KEYUP) | (key == VK_RMENU ? KEYEVENTF_EXTENDEDKEY : 0), 0);
}

void SendUnicode(char32_t character) {
    INPUT input[2] = {};
    for (int i = 0; i < 2; ++i) {
        input[i].type = INPUT_KEYBOARD;
        input[i].ki.wScan = static_cast<WORD>(character);
        input[i].ki.dwFlags = KEYEVENTF_UNICODE | (i == 1 ? KEYEVENTF_KEYUP : 0);
    }
    SendInput(2, input, sizeof input[0]);
}

std::optional<Stroke> StrokeOf(char32_t character) {
    const SHORT found = VkKeyScanW(static_cast<WCHAR>(character));
    if (found == -1) return {};
    const int state = HIBYTE(found);
    return Stroke{LOBYTE(found),
                  (state & 6) == 6 ? kAltGrKey | (state & 1) : state};  // the same bits otherwise
}

#else

Display* TheDisplay() {
    return GDK_DISPLAY_XDISPLAY(gdk_display_get_default());
}

const std::vector<std::pair<int, int>>& ModifierKeys() {
    static std::vector<std::pair<int, int>> keys;
    keys.clear();
    for (const auto& [modifier, symbol] : {std::pair{kShiftKey, XK_Shift_L},
                                           {kCtrlKey, XK_Control_L},
                                           {kAltKey, XK_Alt_L},
                                           {kAltGrKey, XK_ISO_Level3_Shift},
                                           {kWindowsKey, XK_Super_L}}) {
        keys.emplace_back(modifier, XKeysymToKeycode(TheDisplay(), static_cast<KeySym>(symbol)));
    }
    return keys;
}

void Send(int key, bool down) {
    XTestFakeKeyEvent(TheDisplay(), static_cast<unsigned>(key), down, 0);
}

// What a key types; 0 for nothing. Level 1 is with Shift, 2 with AltGr.
char32_t Typed(int key, int level) {
    const KeySym symbol = XkbKeycodeToKeysym(TheDisplay(), static_cast<KeyCode>(key), 0, level);
    return gdk_keyval_to_unicode(static_cast<guint>(symbol));
}

// The keys of the main block.
constexpr int kFirstKey = 10, kLastKey = 61;

std::optional<Stroke> StrokeOf(char32_t character) {
    for (int level = 0; level < 4; ++level) {
        for (int key = kFirstKey; key <= 94; ++key) {
            if (Typed(key, level) != character) continue;
            return Stroke{key, (level & 1 ? kShiftKey : 0) | (level & 2 ? kAltGrKey : 0)};
        }
    }
    return {};
}

#endif

void Press(const Stroke& stroke) {
#ifdef _WIN32
    const auto& keys = kModifierKeys;
#else
    const auto keys = ModifierKeys();
#endif
    for (const auto& [modifier, key] : keys) {
        if (stroke.modifiers & modifier) Send(key, true);
    }
    Send(stroke.key, true);
    Send(stroke.key, false);
    for (const auto& [modifier, key] : keys) {
        if (stroke.modifiers & modifier) Send(key, false);
    }
#ifndef _WIN32
    XSync(TheDisplay(), False);
#endif
}

}  // namespace

void TypeCharacter(char32_t character) {
    if (const auto stroke = StrokeOf(character)) return Press(*stroke);
#ifdef _WIN32
    SendUnicode(character);
#else
    FAIL() << "no key types U+" << std::hex << static_cast<unsigned>(character);
#endif
}

void PressWith(int modifiers, char32_t character) {
    const auto stroke = StrokeOf(character);
    ASSERT_TRUE(stroke);
    Press({stroke->key, modifiers});
}

#ifdef _WIN32

void UseLayout(const std::string&) {}

std::u32string LayoutCharacters() {
    std::u32string all;
    for (int byte = ' '; byte < 256; ++byte) {
        const char32_t character = text::ToUnicode(static_cast<char>(byte));
        if (character < 127 || character >= 160) all += character;
    }
    return all + U"\u0142\u03A9";
}

void PressNamed(const char*) {}

void PressAny(unsigned number, int modifiers) {
    Press({static_cast<int>('0' + number % 43), modifiers});
}

void TurnWheel(bool down) {
    mouse_event(MOUSEEVENTF_WHEEL, 0, 0, static_cast<DWORD>(down ? -WHEEL_DELTA : WHEEL_DELTA), 0);
}

#else

void UseLayout(const std::string& layout) {
    ASSERT_EQ(std::system(("setxkbmap " + layout).c_str()), 0);
    Until([] { return false; }, 200);  // the new map reaches the toolkit as an event
}

std::u32string LayoutCharacters() {
    std::u32string all;
    for (int level = 0; level < 4; ++level) {
        for (int key = kFirstKey; key <= 94; ++key) {
            if (key > kLastKey && key != 65 && key != 94) continue;
            const char32_t typed = Typed(key, level);
            if (typed >= U' ' && typed != 127 && all.find(typed) == all.npos) all += typed;
        }
    }
    return all;
}

void PressNamed(const char* name) {
    Press({XKeysymToKeycode(TheDisplay(), XStringToKeysym(name)), 0});
}

void PressAny(unsigned number, int modifiers) {
    Press({kFirstKey + static_cast<int>(number % (kLastKey - kFirstKey)), modifiers});
}

void TurnWheel(bool down) {
    for (const Bool press : {True, False}) {
        XTestFakeButtonEvent(TheDisplay(), down ? 5 : 4, press, 0);
    }
    XSync(TheDisplay(), False);
}

#endif

}  // namespace test
