#include "views/wx/toolkit.h"

#include <wx/app.h>
#include <wx/init.h>
#include <wx/log.h>

#include <iostream>
#include <utility>

#include "views/application.h"
#include "views/screen.h"
#include "views/wx/wx_printer.h"
#include "views/wx/wx_screen.h"

#ifdef __WXGTK__
#include <gtk/gtk.h>
#endif

namespace views::wx {
namespace {

class ToolkitApp : public wxApp {
  public:
    ToolkitApp(std::function<int()> body, bool& started)
        : body_(std::move(body)), started_(started) {}

    bool OnInit() override {
        started_ = true;
        wxLog::EnableLogging(true);
        SetAppName("quarvel-sysman");
        SetExitOnFrameDelete(false);
#ifdef __WXGTK__
        // Scroll bars that show only under the mouse tell nobody that there are more rows.
        g_object_set(gtk_settings_get_default(), "gtk-overlay-scrolling", FALSE, nullptr);
#endif
        return true;
    }

    // The first window has an event loop of its own, so the toolkit's main one is not run.
    int OnRun() override {
        WxScreen screen;
        WxPrinter printer;
        Screen* const screenBefore = InstallScreen(&screen);
        Printer* const printerBefore = InstallPrinter(&printer);
        const int status = body_();
        InstallPrinter(printerBefore);
        InstallScreen(screenBefore);
        return status;
    }

  private:
    std::function<int()> body_;
    bool& started_;
};

}  // namespace

int RunWithToolkit(int argc, char** argv, std::function<int()> body) {
    bool started = false;
    wxApp::SetInstance(new ToolkitApp(std::move(body), started));
    // The toolkit would report in a window that it cannot open one, and crash over that.
    wxLog::EnableLogging(false);
    const int status = wxEntry(argc, argv);
    if (!started) std::cerr << "Quarvel System Manager: no display can be opened" << std::endl;
    return status < 0 ? 1 : status;
}

}  // namespace views::wx
