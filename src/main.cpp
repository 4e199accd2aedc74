// Puts the parts together and starts the main window.
#include "app/sys_man.h"
#include "views/application.h"
#include "views/wx/toolkit.h"

int main(int argc, char** argv) {
    return views::wx::RunWithToolkit(argc, argv, [] {
        app::SysMan window;
        views::Guard([&] { views::ShowModal(window); });
        return views::ExitStatus();
    });
}
