// The material types and the thicknesses in real windows, by mouse and by keyboard alone: what was
// typed is in the file and in the process, byte for byte and number for number.
#include <gtest/gtest.h>
#include <wx/grid.h>
#include <wx/textctrl.h>

#include "app/system_config.h"
#include "materialtypes/edit_material_types.h"
#include "materialtypes/material_type_table.h"
#include "process/process_table.h"
#include "process/thickness_data.h"
#include "tests/gui/next_dialog.h"
#include "tests/gui/person.h"
#include "tests/support/temp_drives.h"

namespace {

const std::string kPath = "c:\\tolvarin\\system\\mattypes.dat";

class GridWindows : public ::testing::Test {
  protected:
    GridWindows() {
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
    }
    ~GridWindows() override { app::TheConfig() = {}; }

    static wxGrid* Real(const views::Grid& grid) {
        return dynamic_cast<wxGrid*>(test::RealOf(grid));
    }
    // Whether the real grid shows the plain one's current cell and its text.
    static void ExpectInStep(const views::Grid& plain, int row, int column) {
        EXPECT_EQ(plain.Row(), row);
        EXPECT_EQ(plain.Column(), column);
        wxGrid* grid = Real(plain);
        EXPECT_TRUE(test::Until([&] {
            return grid->GetGridCursorRow() == row - 1 && grid->GetGridCursorCol() == column - 1;
        })) << grid->GetGridCursorRow()
            << "," << grid->GetGridCursorCol();
        EXPECT_EQ(grid->GetCellValue(row - 1, column - 1), plain.CurrentText());
    }
    static void CloseWithYes(views::Form& form, const std::function<void()>& close) {
        test::AnswerNextBox(true);
        close();
        EXPECT_TRUE(test::Until([&] { return !form.IsOpen(); }));
    }

    test::TempDrives drives;
};

std::string Padded(std::string text, std::size_t width) {
    text.resize(width, ' ');
    return text;
}

const std::string kHead =
    "; MATTYPES.DAT\r\n; Material types database.\r\n\r\r\n"
    "; Densities are in tonnes/cubic metre\r\n\r\r\n[Materials]\r\n";

std::string Section(const std::string& code, const std::string& description,
                    const std::string& density) {
    return "\r\r\n[" + code + "]\r\nDescription=" + Padded(description, 50) +
           "\r\nDensity=" + density + "\r\n";
}

TEST_F(GridWindows, AMaterialTypeIsAdded) {
    drives.Write(kPath, kHead + "Mat1=MS\r\n[MS]\r\nDescription=Mild Steel\r\nDensity=7.8\r\n");
    materialtypes::FrmEditMaterialTypes form;
    test::WorkIn(form, [&] {
        EXPECT_EQ(form.Focus(), &form.grdMaterialTypes);
        EXPECT_FALSE(test::RealOf(form.cmdDelete)->IsEnabled());
        {
            const test::InNextDialog dialog([](wxDialog& real) {
                auto* code =
                    dynamic_cast<wxTextCtrl*>(wxWindow::FindWindowByName("txtAddMaterial", &real));
                test::Key('z');
                code->WriteText(wxString('y', 31));
                test::Key(WXK_HOME);
                test::Key('x');  // the 33rd, in front
                EXPECT_TRUE(test::Until([&] { return code->GetInsertionPoint() == 32; }));
                EXPECT_EQ(code->GetValue(), "xz" + wxString('y', 30));
                code->SelectAll();
                test::Type("pp");
                test::Key(WXK_RETURN);
            });
            test::Click(form.cmdAdd);
        }
        ExpectInStep(form.grdMaterialTypes, 2, 1);
        test::Type("hard");
        test::Key(WXK_SPACE);
        test::Type("plastic");
        test::Key(WXK_TAB);
        test::Type("07.850");
        EXPECT_EQ(form.txtEditData.Text(), "07.850");
        test::Key(WXK_TAB);
        ExpectInStep(form.grdMaterialTypes, 2, 2);
        EXPECT_EQ(form.grdMaterialTypes.CurrentText(), "7.85");
        CloseWithYes(form, [&] { test::Click(form.cmdClose); });
    });
    EXPECT_EQ(drives.Read(kPath),
              kHead + "Mat1=" + Padded("MS", 32) + "\r\nMat2=" + Padded("PP", 32) + "\r\n" +
                  Section("MS", "Mild Steel", "7.8") + Section("PP", "hard plastic", "7.85"));
}

TEST_F(GridWindows, MaterialTypesByKeyboardAlone) {
    std::string file = kHead, sections;
    for (int n = 1; n <= 20; ++n) {
        const std::string code = "M" + std::to_string(n);
        file += "Mat" + std::to_string(n) + "=" + Padded(code, 32) + "\r\n";
        sections += Section(code, "as it was", "1");
    }
    drives.Write(kPath, file + sections);
    materialtypes::FrmEditMaterialTypes form;
    const auto& grid = form.grdMaterialTypes;
    test::WorkIn(form, [&] {
        test::Key(WXK_RIGHT);
        test::Type(".50x");
        test::Key(WXK_BACK);
        test::Key(WXK_DOWN);
        ExpectInStep(grid, 2, 2);
        EXPECT_EQ(grid.Text(1, 2), "0.5");
        test::Key(WXK_LEFT);
        test::Key(WXK_HOME, wxMOD_CONTROL);  // no key of the grid: nothing moves
        test::Key(WXK_DOWN, wxMOD_SHIFT);
        ExpectInStep(grid, 3, 1);
        for (int n = 0; n < 4; ++n) test::Key(WXK_RETURN);
        ExpectInStep(grid, 7, 1);
        EXPECT_TRUE(test::Until([&] { return !Real(grid)->IsVisible(0, 0); }))
            << "the 7th row scrolls the first one away";
        test::Key(WXK_UP, wxMOD_CONTROL);
        ExpectInStep(grid, 1, 1);
        EXPECT_TRUE(test::Until([&] { return Real(grid)->IsVisible(0, 0); }));

        // The box is reached from the button behind it.
        {
            const test::InNextDialog dialog([](wxDialog&) { test::Key(WXK_ESCAPE); });
            test::Key('A', wxMOD_ALT);
        }
        ExpectInStep(grid, 20, 1);
        test::Key(WXK_TAB, wxMOD_SHIFT);
        EXPECT_EQ(form.Focus(), &form.txtEditData);
        test::Type("first");  // over the whole text
        test::Key(WXK_TAB);
        test::Type("3");
        test::Key(WXK_TAB, wxMOD_SHIFT);
        test::Key(WXK_UP);
        ExpectInStep(grid, 19, 1);
        test::AnswerNextBox(true);
        test::Key('D', wxMOD_ALT);
        EXPECT_TRUE(test::Until([&] { return grid.Rows() == 20; }));
        EXPECT_EQ(form.txtEditData.Text(), "first");
        EXPECT_FALSE(test::RealOf(form.cmdDelete)->IsEnabled());
        CloseWithYes(form, [] { test::Key(WXK_ESCAPE); });
    });
    std::string expected = kHead, after;
    for (int n = 1; n <= 19; ++n) {
        const std::string code = "M" + std::to_string(n == 19 ? 20 : n);
        expected += "Mat" + std::to_string(n) + "=" + Padded(code, 32) + "\r\n";
        after += Section(code, n == 19 ? "first" : "as it was",
                         n == 1    ? ".5"
                         : n == 19 ? "3"
                                   : "1");
    }
    EXPECT_EQ(drives.Read(kPath), expected + after);
}

TEST_F(GridWindows, APasteByMouseIsSaved) {
    drives.Write(kPath, kHead + "Mat1=MS\r\n[MS]\r\nDescription=Mild Steel\r\nDensity=7.8\r\n");
    materialtypes::FrmEditMaterialTypes form;
    test::WorkIn(form, [&] {
        test::ClickCell(form.grdMaterialTypes, 1, 2);
        auto* box = dynamic_cast<wxTextCtrl*>(test::RealOf(form.txtEditData));
        test::Click(form.txtEditData);
        EXPECT_FALSE(materialtypes::Shared().MaterialTypesChanged);
        box->SelectAll();
        box->WriteText("8.03");
        EXPECT_TRUE(test::Until([&] { return form.grdMaterialTypes.Text(1, 2) == "8.03"; }));
        CloseWithYes(form, [&] { test::Key('C', wxMOD_ALT); });
    });
    EXPECT_NE(drives.Read(kPath).find("Density=8.03\r\n"), std::string::npos);
}

TEST_F(GridWindows, ThicknessesAreAddedEditedAndDeleted) {
    auto& table = process::TheProcesses();
    table.ProcessCount = process::Shared().CurrentProcess = 1;
    auto& plasma = table.Process(1);
    plasma.Name = "Plasma";
    plasma.ThicknessCount = 2;
    plasma.Row(1) = {2, 1, 1, 1, 1};
    plasma.Row(2) = {10, 1, 1, 1, 1};
    process::FrmThicknessData form;
    const auto& grid = form.grdThicknessData;
    test::WorkIn(form, [&] {
        {
            const test::InNextDialog dialog([](wxDialog&) {
                test::Type("5");
                test::Key(WXK_RETURN);
            });
            test::Key('A', wxMOD_ALT);
        }
        EXPECT_TRUE(test::Until([&] { return Real(grid)->GetNumberRows() == 3; }));
        test::Key(WXK_DOWN);  // what is pressed after Add goes to the grid
        ExpectInStep(grid, 2, 1);
        test::Type("a2.5");
        ExpectInStep(grid, 2, 1);
        test::Key(WXK_TAB);
        test::Click(form.txtEditData);
        form.txtEditData.SelectAll();
        test::Type("1200mm");
        test::Key(WXK_TAB);
        ExpectInStep(grid, 2, 3);
        test::Type(".5");  // the whole text is selected
        test::Key(WXK_DOWN);
        ExpectInStep(grid, 3, 3);
        EXPECT_EQ(grid.Text(2, 3), "0.5");
        test::ClickCell(grid, 1, 0);
        EXPECT_EQ(grid.Selection(), (views::Grid::Block{1, 1, 1, 4}));
        test::Click(form.cmdThkDel);
        EXPECT_TRUE(test::Until([&] { return Real(grid)->GetNumberRows() == 2; }));
        EXPECT_EQ(Real(grid)->GetRowLabelValue(0), "5");
        EXPECT_FALSE(test::RealOf(form.cmdThkDel)->IsEnabled());
        test::Click(form.cmdThkClose);
        EXPECT_TRUE(test::Until([&] { return !form.IsOpen(); }));
    });
    EXPECT_TRUE(process::Shared().ProcessChanged);
    ASSERT_EQ(plasma.ThicknessCount, 2);
    EXPECT_EQ(plasma.Row(1), (process::ThicknessRow{5, 2.5f, 1200, .5f, 0}));
    EXPECT_EQ(plasma.Row(2), (process::ThicknessRow{10, 1, 1, 1, 1}));
}

}  // namespace
