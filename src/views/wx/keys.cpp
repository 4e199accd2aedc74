#include "views/wx/keys.h"

#include "text/code_page.h"
#include "views/keys.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#else
#include <wx/msw/wrapwin.h>
#endif

namespace views::wx {
namespace {

// The modifiers held with a character, as far as they decide what it is.
struct Held {
    bool windowsKey;
    bool command;  // Ctrl or Alt; AltGr is neither
};

Held HeldWith(const wxKeyEvent& event) {
    // AltGr is told as Ctrl and Alt together on both platforms.
    Held held{false, event.ControlDown() != event.AltDown()};
#ifdef __WXGTK__
    // The toolkit does not tell of the Windows key, nor AltGr from Ctrl and Alt; its platform does.
    // An input method that commits a text later does so in no event at all.
    GdkModifierType state{};
    if (gtk_get_current_event_state(&state)) {
        held.windowsKey = (state & (GDK_SUPER_MASK | GDK_MOD4_MASK)) != 0;
        held.command = (state & (GDK_CONTROL_MASK | GDK_MOD1_MASK)) != 0;
    }
#else
    // As it was when the character was typed, not as it is by now.
    held.windowsKey = ::GetKeyState(VK_LWIN) < 0 || ::GetKeyState(VK_RWIN) < 0;
#endif
    return held;
}

}  // namespace

std::optional<int> KeyOf(const wxKeyEvent& event) {
    const int code = event.GetKeyCode();
    switch (code) {
        case WXK_SHIFT:
        case WXK_CONTROL:
        case WXK_ALT:
        case WXK_WINDOWS_LEFT:
        case WXK_WINDOWS_RIGHT:
        case WXK_CAPITAL:
        case WXK_NUMLOCK:
        case WXK_SCROLL:
            return {};
        case WXK_BACK:
        case WXK_SPACE:
        case WXK_ESCAPE:
            return code;
        case WXK_TAB:
        case WXK_NUMPAD_TAB:
            return kKeyTab;
        case WXK_RETURN:
        case WXK_NUMPAD_ENTER:
            return kKeyEnter;
        case WXK_PAGEUP:
        case WXK_NUMPAD_PAGEUP:
            return kKeyPageUp;
        case WXK_PAGEDOWN:
        case WXK_NUMPAD_PAGEDOWN:
            return kKeyPageDown;
        case WXK_END:
        case WXK_NUMPAD_END:
            return kKeyEnd;
        case WXK_HOME:
        case WXK_NUMPAD_HOME:
            return kKeyHome;
        case WXK_LEFT:
        case WXK_NUMPAD_LEFT:
            return kKeyLeft;
        case WXK_UP:
        case WXK_NUMPAD_UP:
            return kKeyUp;
        case WXK_RIGHT:
        case WXK_NUMPAD_RIGHT:
            return kKeyRight;
        case WXK_DOWN:
        case WXK_NUMPAD_DOWN:
            return kKeyDown;
        case WXK_F6:
            return kKeyF6;
        default:
            return IsLetterOrDigit(code) ? code : kKeyOther;
    }
}

int ShiftOf(const wxKeyEvent& event) {
    return (event.ShiftDown() ? kShift : 0) | (event.ControlDown() ? kCtrl : 0) |
           (event.AltDown() ? kAlt : 0);
}

Typing TypingOf(const wxKeyEvent& event) {
    if (event.GetKeyCode() == WXK_BACK) {
        if (event.HasModifiers()) return {};
        return {Typing::Kind::kTyped, static_cast<char>(kKeyBackspace)};
    }
    const auto unicode = static_cast<char32_t>(event.GetUnicodeKey());
    if (unicode < U' ' || unicode == U'\x7F') return {};
    const Held held = HeldWith(event);
    if (held.windowsKey) return {Typing::Kind::kBarred};
    if (held.command) return {};
    const auto character = text::FromUnicode(unicode);
    if (!character) return {Typing::Kind::kUnknown};
    return {Typing::Kind::kTyped, *character};
}

}  // namespace views::wx
