// How long the windows with data at capacity take from their opening to their first paint, and a
// key from the keyboard to the next paint. Prints the medians; needs a display.
#include <wx/app.h>
#include <wx/eventfilter.h>
#include <wx/uiaction.h>
#include <wx/utils.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "app/loader.h"
#include "app/system_config.h"
#include "materiallist/edit_material_list.h"
#include "materialtypes/edit_material_types.h"
#include "materialtypes/material_type_table.h"
#include "platform/drives.h"
#include "process/process_defaults.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "process/thickness_data.h"
#include "views/application.h"
#include "views/wx/toolkit.h"

namespace {

constexpr int kRuns = 15;

double Now() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return std::chrono::duration<double, std::milli>(now).count();
}

// The time of the last paint event.
class Painted : public wxEventFilter {
  public:
    Painted() { wxEvtHandler::AddFilter(this); }
    ~Painted() override { wxEvtHandler::RemoveFilter(this); }
    int FilterEvent(wxEvent& event) override {
        if (event.GetEventType() == wxEVT_PAINT) last = Now();
        return Event_Skip;
    }
    double last = 0;
};

void FillTables() {
    auto& processes = process::TheProcesses();
    processes.ProcessCount = process::MaxProcesses;
    for (int n = 1; n <= process::MaxProcesses; ++n) {
        processes.Process(n).Name = "Plasma " + std::to_string(n);
        process::InitProcessRecord(n, 0);
        processes.Process(n).ThicknessCount = process::MaxThicknessRows;
        for (int k = 1; k <= process::MaxThicknessRows; ++k) {
            processes.Process(n).Row(k) = {static_cast<float>(k), 2.5f, 1200, 5, 1.5f};
        }
    }
    process::WriteProcessFile();
    auto& types = materialtypes::TheMaterialTypes();
    types.Count = materialtypes::MaxMaterialTypes;
    for (int n = 1; n <= types.Count; ++n) {
        types.Record(n).Code = "S" + std::to_string(n);
        types.Record(n).Description = "Structural steel";
        types.Record(n).Density = 7.85f;
    }
    materialtypes::WriteMaterialTypes();
    auto& list = materiallist::TheMaterialList();
    list.EntryCount = 199;
    for (int i = 1; i <= 199; ++i) {
        list.Entry(i).MaterialType = "S" + std::to_string(i % 60 + 1);
        list.Entry(i).ProcessName = "Plasma " + std::to_string(i % 20 + 1);
        list.Entry(i).Thickness = 10;
    }
    materiallist::Shared().MaterialListSource = materiallist::kExistingDirectory;
    materiallist::Shared().MaterialListDirPath = "c:";
    materiallist::WriteMaterialList(materiallist::kExistingDirectory);
}

double Median(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

template <typename Window>
void Measure(const char* name, const std::function<void()>& before) {
    std::vector<double> opening, key;
    for (int run = 0; run < kRuns; ++run) {
        Painted painted;
        const double begin = Now();
        before();
        Window window;
        wxTheApp->CallAfter([&] {
            while (painted.last == 0 || window.Focus() == nullptr) wxYield();
            opening.push_back(painted.last - begin);
            for (double quiet = Now(); Now() - quiet < 200;) wxYield();
            const double pressed = Now();
            painted.last = 0;
            wxUIActionSimulator().Char('1');
            while (painted.last == 0 && Now() - pressed < 2000) wxYield();
            // A native control paints without telling the toolkit.
            if (painted.last > 0) key.push_back(painted.last - pressed);
            window.Dismiss();
        });
        views::ShowModal(window);
    }
    std::printf("%-16s opened and painted in %6.1f ms", name, Median(opening));
    if (!key.empty()) std::printf(", a key painted after %5.1f ms", Median(key));
    std::printf("\n");
}

}  // namespace

int main(int argc, char** argv) {
    return views::wx::RunWithToolkit(argc, argv, [] {
        namespace fs = std::filesystem;
        const fs::path folder =
            fs::temp_directory_path() / ("window-bench-" + std::to_string(wxGetProcessId()));
        fs::create_directories(folder / "c" / "tolvarin" / "system");
        platform::MapDrives(folder);
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
        FillTables();
        const auto nothing = [] {};
        Measure<materialtypes::FrmEditMaterialTypes>("material types", nothing);
        Measure<process::FrmProcessDefaults>("processes", nothing);
        process::ReadProcessFile();
        process::Shared().CurrentProcess = 1;
        Measure<process::FrmThicknessData>("thickness data", nothing);
        Measure<materiallist::FrmEditMaterialList>("material list",
                                                   [] { app::LoadForMaterialList(); });
        fs::remove_all(folder);
        return 0;
    });
}
