// What the tests of the material types window share: a file of some types, and an operator who
// works in the window and its dialog.
#pragma once

#include <gtest/gtest.h>

#include <functional>

#include "app/system_config.h"
#include "materialtypes/add_material_types.h"
#include "materialtypes/edit_material_types.h"
#include "materialtypes/material_type_table.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/temp_drives.h"
#include "views/application.h"
#include "views/view_procedures.h"

namespace materialtypes {

using Log = std::vector<std::string>;
using views::Answer;

inline const std::string kPath = "c:\\tolvarin\\SYSTEM\\MATTYPES.DAT";
inline const std::string kSaveBox =
    test::Box("Material Types Save", "       Save Changes ?", "Yes/No", "none");

struct Entry {
    std::string code, description, density;
};

inline std::string Padded(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

inline std::string FileOf(const std::vector<Entry>& types) {
    std::string bytes =
        "; MATTYPES.DAT\r\n; Material types database.\r\n\r\r\n"
        "; Densities are in tonnes/cubic metre\r\n\r\r\n";
    if (types.empty()) return bytes;
    bytes += "[Materials]\r\n";
    int n = 0;
    for (const Entry& type : types) {
        bytes += "Mat" + std::to_string(++n) + "=" + Padded(type.code, 32) + "\r\n";
    }
    for (const Entry& type : types) {
        bytes += "\r\r\n[" + type.code + "]\r\nDescription=" + Padded(type.description, 50) +
                 "\r\nDensity=" + type.density + "\r\n";
    }
    return bytes;
}

class MaterialTypesWindow : public ::testing::Test {
  protected:
    MaterialTypesWindow() {
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
        drives.MakeDir("c:\\tolvarin\\SYSTEM");
    }
    ~MaterialTypesWindow() override { app::TheConfig() = {}; }

    // Opens the window on a file with these types, for a person who does this in it.
    void Edit(const std::vector<Entry>& types, const std::function<void()>& steps) {
        drives.Write(kPath, FileOf(types));
        Open(steps);
    }
    void Open(const std::function<void()>& steps) {
        FrmEditMaterialTypes form;
        window = &form;
        screen.windows.push_back([&](views::Form&) { steps(); });
        views::Guard([&] { views::ShowModal(form); });
        window = nullptr;
    }
    // What is done in the next dialog for a new type.
    void InDialog(const std::function<void(FrmAddMaterialTypes&, test::Keyboard&)>& steps) {
        screen.windows.push_back([steps](views::Form& form) {
            test::Keyboard keyboard(form);
            steps(dynamic_cast<FrmAddMaterialTypes&>(form), keyboard);
        });
    }
    void Add(const std::string& code) {
        InDialog([code](FrmAddMaterialTypes&, test::Keyboard& keyboard) {
            keyboard.Type(code);
            keyboard.Press(views::kKeyEnter);
        });
        Push(window->cmdAdd);
    }
    static void Push(views::CommandButton& button) {
        views::Guard([&] { button.Press(); });
    }
    void Click(int row, int column) {
        views::Guard([&] { window->grdMaterialTypes.ClickCell(row, column); });
    }
    void Press(int key, int shift = 0) { test::Keyboard(*window).Press(key, shift); }
    void Type(std::string_view text) { test::Keyboard(*window).Type(text); }

    const std::string& Text(int row, int column) const {
        return window->grdMaterialTypes.Text(row, column);
    }
    std::string Cell() const {
        return std::to_string(window->grdMaterialTypes.Row()) + "," +
               std::to_string(window->grdMaterialTypes.Column());
    }
    const std::string& Box() const { return window->txtEditData.Text(); }

    test::TempDrives drives;
    test::ScriptedScreen screen;
    FrmEditMaterialTypes* window = nullptr;
};

inline const std::vector<Entry> kThree = {
    {"MS", "Mild Steel", "7.85"}, {"AL", "Aluminium", "2.7"}, {"PP", "Plastic", ".5"}};

}  // namespace materialtypes
