// How long the program takes from its start to its first painted window, beside an empty frame of
// the toolkit and beside the same controls made by hand. Starts itself again and again, the three
// kinds in turn, and prints the medians.
#include <wx/app.h>
#include <wx/button.h>
#include <wx/choice.h>
#include <wx/eventfilter.h>
#include <wx/frame.h>
#include <wx/listbox.h>
#include <wx/panel.h>
#include <wx/radiobut.h>
#include <wx/sizer.h>
#include <wx/statbox.h>
#include <wx/stattext.h>

#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "app/sys_man.h"
#include "platform/drives.h"
#include "views/application.h"
#include "views/wx/toolkit.h"

namespace {

constexpr int kRuns = 21;

long long Now() {
    return std::chrono::steady_clock::now().time_since_epoch().count();
}

// Ends the program when the first paint event has been handled, telling when on the pipe.
class FirstPaint : public wxEventFilter {
  public:
    explicit FirstPaint(int pipe) : pipe_(pipe) { wxEvtHandler::AddFilter(this); }
    ~FirstPaint() override { wxEvtHandler::RemoveFilter(this); }
    int FilterEvent(wxEvent& event) override {
        if (event.GetEventType() == wxEVT_PAINT && !seen_) {
            seen_ = true;
            wxTheApp->CallAfter([this] {
                const long long now = Now();
                std::_Exit(write(pipe_, &now, sizeof now) == sizeof now ? 0 : 1);
            });
        }
        return Event_Skip;
    }

  private:
    int pipe_;
    bool seen_ = false;
};

struct EmptyApp : wxApp {
    bool OnInit() override { return (new wxFrame(nullptr, wxID_ANY, "Empty"))->Show(); }
};

// The controls of the main window as a program has them that is written for the toolkit alone.
struct ByHandApp : wxApp {
    static wxSizer* Line(wxWindow* parent, int way, std::initializer_list<const char*> buttons) {
        auto* line = new wxBoxSizer(way);
        for (const char* text : buttons) line->Add(new wxButton(parent, wxID_ANY, text));
        return line;
    }
    bool OnInit() override {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "By hand");
        auto* panel = new wxPanel(frame);
        auto* whole = new wxBoxSizer(wxVERTICAL);
        auto* upper = new wxStaticBoxSizer(wxVERTICAL, panel, "Directory");
        wxWindow* box = upper->GetStaticBox();
        auto* drive = new wxBoxSizer(wxHORIZONTAL);
        drive->Add(new wxStaticText(box, wxID_ANY, "Drive:"));
        auto* drives = new wxChoice(box, wxID_ANY);
        drives->Append("c:");
        drives->SetSelection(0);
        drive->Add(drives, 1);
        upper->Add(drive, 0, wxEXPAND);
        auto* kinds = new wxBoxSizer(wxHORIZONTAL);
        kinds->Add(new wxRadioButton(box, wxID_ANY, "Design Data", wxDefaultPosition, wxDefaultSize,
                                     wxRB_GROUP));
        kinds->Add(new wxRadioButton(box, wxID_ANY, "Production Data"));
        upper->Add(kinds);
        auto* list = new wxBoxSizer(wxHORIZONTAL);
        auto* names = new wxListBox(box, wxID_ANY, wxDefaultPosition, wxSize(256, 294));
        for (const char* name : {"brackets", "flanges", "gussets", "shims"}) names->Append(name);
        list->Add(names, 1, wxEXPAND);
        list->Add(Line(box, wxVERTICAL,
                       {"Material...", "Create...", "Delete...", "Backup...", "Print..."}));
        upper->Add(list, 1, wxEXPAND);
        whole->Add(upper, 1, wxEXPAND);
        auto* lower = new wxStaticBoxSizer(wxVERTICAL, panel, "System Wide Data");
        lower->Add(Line(lower->GetStaticBox(), wxHORIZONTAL,
                        {"Material...", "Process...", "Defaults..."}));
        whole->Add(lower, 0, wxEXPAND);
        whole->Add(Line(panel, wxHORIZONTAL, {"Close"}));
        panel->SetSizer(whole);
        whole->SetSizeHints(frame);
        return frame->Show();
    }
};

int RunChild(const std::string& kind, int pipe, char** argv) {
    FirstPaint paint(pipe);
    int argc = 1;
    if (kind != "sysman") {
        wxApp::SetInstance(kind == "empty" ? static_cast<wxApp*>(new EmptyApp) : new ByHandApp);
        return wxEntry(argc, argv);
    }
    return views::wx::RunWithToolkit(argc, argv, [] {
        app::SysMan window;
        views::Guard([&] { views::ShowModal(window); });
        return 1;
    });
}

// Milliseconds from the start of a new process to its first paint; negative when it has none.
double Measure(const char* program, const char* kind) {
    int ends[2];
    if (pipe(ends) != 0) return -1;
    const long long begin = Now();
    const pid_t child = fork();
    if (child == 0) {
        execl(program, program, kind, std::to_string(ends[1]).c_str(), nullptr);
        _exit(127);
    }
    close(ends[1]);
    long long painted = 0;
    const bool got = read(ends[0], &painted, sizeof painted) == sizeof painted;
    close(ends[0]);
    waitpid(child, nullptr, 0);
    return got ? static_cast<double>(painted - begin) / 1e6 : -1;
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

}  // namespace

int main(int argc, char** argv) {
    if (argc == 3) return RunChild(argv[1], std::atoi(argv[2]), argv);
    std::vector<double> empty, byHand, sysman;
    for (int run = 0; run < kRuns; ++run) {
        empty.push_back(Measure(argv[0], "empty"));
        byHand.push_back(Measure(argv[0], "byhand"));
        sysman.push_back(Measure(argv[0], "sysman"));
        if (empty.back() < 0 || byHand.back() < 0 || sysman.back() < 0) {
            std::fputs("a window was not painted; is there a display?\n", stderr);
            return 1;
        }
    }
    std::printf(
        "first paint, median of %d: empty frame %.1f ms, the same controls by hand %.1f ms,\n"
        "main window %.1f ms: %.2f times the empty frame, %.2f times the controls by hand\n",
        kRuns, Median(empty), Median(byHand), Median(sysman), Median(sysman) / Median(empty),
        Median(sysman) / Median(byHand));
    return 0;
}
