// What a key event of the toolkit is to the system: a key of its closed table, a character, or
// nothing of either.
#pragma once

#include <wx/event.h>

#include <optional>

namespace views::wx {

// The code of a key (see views/keys.h). None for a modifier by itself, which is no key yet.
std::optional<int> KeyOf(const wxKeyEvent& event);
int ShiftOf(const wxKeyEvent& event);

struct Typing {
    enum class Kind {
        kNone,     // a key and no character, which the toolkit may go on with
        kTyped,    // `character` was typed
        kBarred,   // nothing must come of it: it was held with the Windows key
        kUnknown,  // a character that the system's set does not have
    };
    Kind kind = Kind::kNone;
    char character = 0;
};

// Of an event of kind wxEVT_CHAR, after the keyboard layout has done its work.
Typing TypingOf(const wxKeyEvent& event);

}  // namespace views::wx
