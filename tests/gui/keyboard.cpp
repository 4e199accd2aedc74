#include "tests/gui/keyboard.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
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

std::optional<Stroke> StrokeOf(char32_t character) {
    const SHORT found = VkKeyScanW(static_cast<WCHAR>(character));
    if (found == -1) return {};
    const int state = HIBYTE(found);
    return Stroke{LOBYTE(found),
                  (state & 6) == 6 ? kAltGrKey | (state & 1) : state};  // the same bits otherwise
}

#else

constexpr std::pair<int, KeySym> kModifierKeys[] = {{kShiftKey, XK_Shift_L},
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

// Of the main block of the keyboard, with the blank and the one beside the left Shift key. Level 1
// is with Shift, 2 with AltGr.
template <class Visit>
void ForEachKey(const Visit& visit) {
    for (int level = 0; level < 4; ++level) {
        for (int key = 10; key <= 94; ++key) {
            if (key > 61 && key != 65 && key != 94) continue;
            const auto symbol =
                XkbKeycodeToKeysym(TheDisplay(), static_cast<KeyCode>(key), 0, level);
            const char32_t typed = gdk_keyval_to_unicode(static_cast<guint>(symbol));
            if (typed < U' ' || typed == 127) continue;
            visit(typed, Stroke{key, (level & 1 ? kShiftKey : 0) | (level & 2 ? kAltGrKey : 0)});
        }
    }
}

std::optional<Stroke> StrokeOf(char32_t character) {
    std::optional<Stroke> found;
    ForEachKey([&](char32_t typed, const Stroke& stroke) {
        if (typed == character && !found) found = stroke;
    });
    return found;
}

#endif

void Press(const Stroke& stroke) {
    for (const bool down : {true, false}) {
        for (const auto& [modifier, key] : kModifierKeys) {
            if (down && (stroke.modifiers & modifier) != 0) Send(key, true);
        }
        Send(static_cast<decltype(kModifierKeys[0].second)>(stroke.key), down);
        for (const auto& [modifier, key] : kModifierKeys) {
            if (!down && (stroke.modifiers & modifier) != 0) Send(key, false);
        }
    }
}

}  // namespace

void PressWith(int modifiers, char32_t character) {
    const auto stroke = StrokeOf(character);
    ASSERT_TRUE(stroke);
    Press({stroke->key, modifiers});
}

#ifdef _WIN32

void UseLayout(const std::string&) {}

void TypeCharacter(char32_t character) {
    if (const auto stroke = StrokeOf(character)) return Press(*stroke);
    for (const DWORD released : {0, KEYEVENTF_KEYUP}) {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wScan = static_cast<WORD>(character);
        input.ki.dwFlags = KEYEVENTF_UNICODE | released;
        SendInput(1, &input, sizeof input);
    }
}

std::u32string LayoutCharacters() {
    std::u32string all;
    for (int byte = ' '; byte < 256; ++byte) {
        const char32_t character = text::ToUnicode(static_cast<char>(byte));
        if (character < 127 || character >= 160) all += character;
    }
    return all + U"\u0142\u03A9";
}

void PressNamed(const char*) {}

#else

void UseLayout(const std::string& layout) {
    ASSERT_EQ(std::system(("setxkbmap " + layout).c_str()), 0);
    Until([] { return false; }, 200);  // the new map reaches the toolkit as an event
}

void TypeCharacter(char32_t character) {
    const auto stroke = StrokeOf(character);
    ASSERT_TRUE(stroke) << "no key types U+" << std::hex << static_cast<unsigned>(character);
    Press(*stroke);
}

std::u32string LayoutCharacters() {
    std::u32string all;
    ForEachKey([&](char32_t typed, const Stroke&) {
        if (all.find(typed) == all.npos) all += typed;
    });
    return all;
}

void PressNamed(const char* name) {
    for (const bool down : {true, false}) Send(XStringToKeysym(name), down);
}

#endif

}  // namespace test
