// How long the program takes from its start to its first painted window, beside an empty frame of
// the toolkit. Starts itself again and again, both kinds in turn, and prints the medians.
#include <wx/app.h>
#include <wx/eventfilter.h>
#include <wx/frame.h>

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
#include "views/wx/application.h"

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

int RunChild(const std::string& kind, int pipe, char** argv) {
    FirstPaint paint(pipe);
    int argc = 1;
    if (kind == "empty") {
        wxApp::SetInstance(new EmptyApp);
        return wxEntry(argc, argv);
    }
    return views::mirror::RunWithToolkit(argc, argv, [] {
        platform::MapDrives();
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
    std::vector<double> empty, sysman;
    for (int run = 0; run < kRuns; ++run) {
        empty.push_back(Measure(argv[0], "empty"));
        sysman.push_back(Measure(argv[0], "sysman"));
        if (empty.back() < 0 || sysman.back() < 0) {
            std::fputs("a window was not painted; is there a display?\n", stderr);
            return 1;
        }
    }
    std::printf("first paint, median of %d: empty frame %.1f ms, main window %.1f ms, %.2f times\n",
                kRuns, Median(empty), Median(sysman), Median(sysman) / Median(empty));
    return 0;
}
