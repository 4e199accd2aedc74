// What the tests of the directory windows share: data drives, the main window behind them, and a
// person at the keyboard.
#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "app/sys_man.h"
#include "app/system_config.h"
#include "materiallist/material_list_table.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/temp_drives.h"
#include "views/application.h"

namespace test {

using Log = std::vector<std::string>;

inline const std::string kTitle = "Quarvel System Manager";

class DirectoryWindows : public ::testing::Test {
  protected:
    DirectoryWindows() {
        app::TheConfig() = {};
        app::TheConfig().NestRootDir = "\\tolvarin";
        app::TheConfig().NestHomeDrive = "c:";
        for (const char* drive : {"c:", "d:"}) {
            drives.MakeDir(std::string(drive) + "\\tolvarin\\USER\\DESIGN");
            drives.MakeDir(std::string(drive) + "\\tolvarin\\USER\\PROD");
        }
        drives.MakeDir("c:\\tolvarin\\SYSTEM");
    }

    // The main window behind, as the operator has left it: kind, drive and selected directory.
    void Prepare(directories::DataKind kind, const std::string& selected = "",
                 const std::string& drive = "c:") {
        main.drvList.SetDrive(drive);
        (kind == directories::DataKind::kDesign ? main.optDesign : main.optProduction)
            .SetValue(true);
        for (int i = 0; i < main.lstDirectory.Count(); ++i) {
            if (main.lstDirectory.Items()[static_cast<std::size_t>(i)] == selected) {
                main.lstDirectory.SetListIndex(i);
            }
        }
    }

    // Opens the window and does the steps in it.
    template <class Window>
    void Open(const std::function<void(Window&, Keyboard&)>& steps) {
        std::unique_ptr<Window> made;
        if constexpr (std::is_constructible_v<Window, directories::Listed>) {
            made = std::make_unique<Window>(main.Listed());
        } else {
            made = std::make_unique<Window>(
                main.Area(), [this](const std::string& name) { main.DirectoryMade(name); });
        }
        Window& window = *made;
        screen.windows.push_back([&](views::Form&) {
            Keyboard keyboard(window);
            steps(window, keyboard);
        });
        views::Guard([&] { views::ShowModal(window); });
        screen.windows.clear();
    }

    TempDrives drives;
    ScriptedScreen screen;
    app::SysMan main;
};

}  // namespace test
