// Loading the tables for the material list window from real files.
#include "app/loader.h"

#include <gtest/gtest.h>

#include "app/system_config.h"
#include "errors/errors.h"
#include "materiallist/material_list_table.h"
#include "materialtypes/material_type_table.h"
#include "process/process_table.h"
#include "tests/support/scripted_screen.h"
#include "tests/support/temp_drives.h"
#include "text/strings.h"

namespace {

using Log = std::vector<std::string>;
using materiallist::TheMaterialList;
using materialtypes::TheMaterialTypes;
using process::TheProcesses;

const std::string kSystem = "c:\\Tolvarin\\system\\";
const std::string kJob = "d:\\Tolvarin\\USER\\PROD\\JOB1";

Log Warning(const std::string& text) {
    return {"beep", test::Box("Error in Loading", text, "OK", "exclamation")};
}

class Loader : public ::testing::Test {
  protected:
    Loader() {
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\TOLVARIN";
        Reset();
        drives.Write(kSystem + "process.dat", "[Processes]\r\nProcess1=P\r\n");
        drives.Write(kSystem + "mattypes.dat", "[Materials]\r\nMat1=MS\r\n");
        drives.Write(kSystem + "material.dat", "[Mat1]\r\nType=MS\r\n");
        drives.Write(kJob + "\\material.dat", "[Mat1]\r\nType=SS\r\nThickness=3mm\r\n");
    }
    ~Loader() override { Reset(); }

    static void Reset() { materiallist::Shared().MaterialListDirPath = kJob; }
    // How many processes, types and entries are loaded.
    static std::string Counts() {
        return std::to_string(TheProcesses().ProcessCount) + " " +
               std::to_string(TheMaterialTypes().Count) + " " +
               std::to_string(TheMaterialList().EntryCount);
    }
    test::TempDrives drives;
    test::ScriptedScreen screen;
};

TEST_F(Loader, FillsNamesRangesAndCodes) {
    const std::string longName(100, 'L');
    drives.Write(kSystem + "process.dat",
                 "[Processes]\r\nProcess1= Plasma  260A \r\nProcess2=" + longName +
                     "\r\nProcess3=Scrap\r\nProcess5=Later\r\n"
                     "[plasma  260a]\r\nThickness1=6mm, 1\r\nThickness2=3\r\nThickness3=12.5mm\r\n"
                     "Thickness5=99\r\n[" +
                     longName +
                     "]\r\nThickness1=-1\r\nThickness2=-3\r\n"
                     "[Scrap]\r\nThickness1=mm\r\nThickness2=\r\nThickness3=4\r\n");
    drives.Write(kSystem + "mattypes.dat", "[Materials]\r\nMat1= ms \r\nMat2=SS\r\nMat4=X\r\n");
    // What only the windows load stays as it was.
    TheProcesses().Process(1).Rapid = 7;
    TheMaterialTypes().Record(1).Density = 8;
    for (int again = 0; again < 2; ++again) {
        ASSERT_TRUE(app::LoadSystemTables());
        EXPECT_EQ(Counts(), "3 2 1");
    }
    EXPECT_EQ(TheProcesses().ProcessNames[0], "Plasma  260A");
    EXPECT_EQ(TheProcesses().ProcessThicknessMin[0], 0);
    EXPECT_EQ(TheProcesses().ProcessThicknessMax[0], 12.5f);
    EXPECT_EQ(TheProcesses().ProcessNames[1], longName);
    EXPECT_EQ(TheProcesses().ProcessThicknessMin[1], -3);
    EXPECT_EQ(TheProcesses().ProcessThicknessMax[1], 0);
    EXPECT_EQ(TheMaterialTypes().Codes[0], "ms");
    EXPECT_EQ(TheMaterialTypes().Codes[1], "SS");
    EXPECT_EQ(TheProcesses().Process(1).Rapid, 7);
    EXPECT_EQ(TheMaterialTypes().Record(1).Density, 8);
    EXPECT_EQ(screen.TakeLog(), Log{});
}

TEST_F(Loader, AMissingFileEndsTheLoadWithTwoMessages) {
    for (const auto& [name, counts] : std::vector<std::pair<std::string, std::string>>{
             {"process.dat", "0 0 0"}, {"mattypes.dat", "1 0 0"}, {"material.dat", "1 1 0"}}) {
        const std::string bytes = drives.Read(kSystem + name);
        std::filesystem::remove(drives.Path(kSystem + name));
        TheMaterialList().EntryCount = TheProcesses().ProcessCount = TheMaterialTypes().Count = 9;
        materiallist::Shared().MaterialListSource = materiallist::kSystemDefaults;
        EXPECT_FALSE(app::LoadForMaterialList());
        EXPECT_EQ(Counts(), counts);
        Log expected = Warning("File c:\\tolvarin\\system\\" + name + " is not found");
        for (const auto& line :
             Warning("Problem During Loading files\rCan not start Material List Edit")) {
            expected.push_back(line);
        }
        EXPECT_EQ(screen.TakeLog(), expected);
        EXPECT_FALSE(app::LoadSystemTables());
        EXPECT_EQ(screen.TakeLog().size(), 2u);
        drives.Write(kSystem + name, bytes);
    }
}

TEST_F(Loader, OverCapacityIsFatal) {
    const auto failure = []() -> std::string {
        try {
            app::LoadForMaterialList();
        } catch (const errors::FatalError& error) {
            return error.what();
        }
        return {};
    };
    // A job's own list.
    materiallist::Shared().MaterialListSource = materiallist::kExistingDirectory;
    EXPECT_EQ(failure(), "");
    EXPECT_EQ(TheMaterialList().Entry(1).MaterialType.View().substr(0, 3), "SS ");
    std::string list;
    for (int i = 1; i <= 200; ++i) list += "[Mat" + std::to_string(i) + "]\r\nType=MS\r\n";
    drives.Write(kJob + "\\material.dat", list);
    EXPECT_FALSE(app::LoadSystemTables());
    EXPECT_EQ(screen.TakeLog(),
              Warning("File " + text::LowerCase(kJob) + "\\material.dat is Too big"));
    materiallist::Shared().MaterialListSource = materiallist::kSystemDefaults;
    std::string processes = "[Processes]\r\n", types = "[Materials]\r\n";
    const auto add = [](std::string& file, const char* key, int n) {
        file += key + std::to_string(n) + "=N" + std::to_string(n) + "\r\n";
    };
    for (int n = 1; n <= 20; ++n) add(processes, "Process", n);
    for (int n = 1; n <= 60; ++n) add(types, "Mat", n);
    drives.Write(kSystem + "process.dat", processes);
    drives.Write(kSystem + "mattypes.dat", types);
    EXPECT_EQ(failure(), "");
    EXPECT_EQ(Counts(), "20 60 1");
    add(types, "Mat", 61);
    drives.Write(kSystem + "mattypes.dat", types);
    EXPECT_EQ(failure(), "MATTYPES.DAT lists more than 60 material types");
    add(processes, "Process", 21);
    drives.Write(kSystem + "process.dat", processes);
    EXPECT_EQ(failure(), "PROCESS.DAT lists more than 20 processes");
    EXPECT_EQ(screen.TakeLog(), Log{});
}

}  // namespace
