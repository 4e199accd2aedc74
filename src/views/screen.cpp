#include "views/screen.h"

#include <utility>

namespace views {
namespace {

Screen* g_screen = nullptr;

}  // namespace

Screen& TheScreen() {
    return *g_screen;
}

Screen* InstallScreen(Screen* screen) {
    return std::exchange(g_screen, screen);
}

void ShowWarning(std::string_view text, std::string_view title) {
    TheScreen().Show({std::string(text), std::string(title), Buttons::kOk, Icon::kExclamation});
}

bool AskYesNo(std::string_view text, std::string_view title, Icon icon) {
    return TheScreen().Show({std::string(text), std::string(title), Buttons::kYesNo, icon}) ==
           Answer::kYes;
}

}  // namespace views
