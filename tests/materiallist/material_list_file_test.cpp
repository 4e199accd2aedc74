// material.dat of the system and of a production directory: reading, its limit, writing.
#include <gtest/gtest.h>

#include <random>

#include "app/system_config.h"
#include "errors/errors.h"
#include "materiallist/material_list_table.h"
#include "tests/support/source_files.h"
#include "tests/support/temp_drives.h"

namespace materiallist {
namespace {

using namespace std::string_literals;

const std::string kJob = "d:\\Tolvarin\\USER\\PROD\\Job 1";

class MaterialListFile : public ::testing::Test {
  protected:
    MaterialListFile() {
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\Tolvarin";
        Shared() = {};
        Shared().MaterialListDirPath = kJob;
        drives.MakeDir(kJob);
        drives.MakeDir("c:\\Tolvarin\\system");
    }

    bool Read(const std::string& bytes) {
        drives.Write(kJob + "\\material.dat", bytes);
        return ReadMaterialList(kExistingDirectory) == profile::ReadResult::kRead;
    }
    std::string Written(ListSource source) {
        WriteMaterialList(source);
        const std::string folder = source == kSystemDefaults ? "c:\\Tolvarin\\system" : kJob;
        EXPECT_EQ(drives.Count(folder), 1);
        return drives.Read(folder + "\\material.dat");
    }
    void Add(std::string_view type, float thickness, std::string_view process) {
        MaterialListEntry& entry = list.Entry(++list.EntryCount);
        entry.MaterialType = type;
        entry.Thickness = thickness;
        entry.ProcessName = process;
    }
    test::TempDrives drives;
    MaterialListTable& list = TheMaterialList();
};

TEST_F(MaterialListFile, WritesWhatTheNestingSystemReads) {
    for (const ListSource source : {kSystemDefaults, kNewDirectory, kExistingDirectory}) {
        list.EntryCount = 0;
        EXPECT_EQ(Written(source), test::SourceFile("tests/materiallist/golden/empty.dat"));
        Add("MS", 10, "PLASMA");
        Add("SS", 12.5f, "OXY");
        const std::string golden = source == kSystemDefaults ? "system" : "directory";
        EXPECT_EQ(Written(source),
                  test::SourceFile("tests/materiallist/golden/" + golden + ".dat"));
    }
    list.EntryCount = 0;
    Add("WEAR PLATE 400 HB, HOT-ROLLED #2 and more", .25f,
        "Hi-Definition Plasma, 130 A, argon + hydrogen, water shield, #12 and more");
    Add(" S ", -3, "P");
    Add("Stainless\0left"s, 1234567, "\tnot printable");
    Add("", 0, "  S\xE4gen");
    EXPECT_EQ(Written(kNewDirectory), test::SourceFile("tests/materiallist/golden/every_kind.dat"));
    EXPECT_EQ(list.Entry(2).MaterialType.View(), "S" + std::string(31, ' '));
    EXPECT_EQ(list.Entry(4).ProcessName.View(), "S\xE4gen" + std::string(59, ' '));
}

TEST_F(MaterialListFile, ReadsUpToTheFirstSectionWithoutAType) {
    const std::string type40(40, 'T'), process70(70, 'P');
    ASSERT_TRUE(
        Read("; note\r\n[MAT2]\r\nTYPE= SS \r\nthickness= 3.2mm\r\nOther=1\r\n"
             "[Mat1]\r\nType=" +
             type40 + "\r\nProcess=" + process70 +
             "\r\n[mat1]\r\nType=second of its name\r\n"
             "[Mat3]\r\nType=A\r\nThickness=\r\n[Mat4]\r\nType=B\r\nThickness=mm\r\n"
             "[Mat5]\r\nType=\r\n[Mat6]\r\nType=C\r\n"));
    ASSERT_EQ(list.EntryCount, 4);
    EXPECT_EQ(list.Entry(1).MaterialType.View(), type40.substr(0, 32));
    EXPECT_EQ(list.Entry(1).ProcessName.View(), process70.substr(0, 64));
    EXPECT_EQ(list.Entry(1).Thickness, 0);
    EXPECT_EQ(list.Entry(2).MaterialType.View(), "SS" + std::string(30, ' '));
    EXPECT_EQ(list.Entry(2).ProcessName.View(), std::string(64, ' '));
    EXPECT_EQ(list.Entry(2).Thickness, 3.2f);
    EXPECT_EQ(list.Entry(3).Thickness, 0);
    EXPECT_EQ(list.Entry(4).Thickness, 0);
    for (const char* none : {"", "[Mat1]\r\nThickness=1mm\r\n", "[Mat01]\r\nType=A\r\n"}) {
        EXPECT_TRUE(Read(none));
        EXPECT_EQ(list.EntryCount, 0);
    }
}

std::string FullFile(int entries) {
    std::string file =
        "; MATERIAL.DAT\r\n; Defaults Material Database\r\n"
        "; Used for creating new directories\r\n";
    for (int i = 1; i <= entries; ++i) {
        const std::string number = std::to_string(i);
        file += "\r\r\n[Mat" + number + "]\r\nType=T" + number + "\r\nThickness=" + number +
                ".5mm\r\nProcess=Process " + number + "\r\n";
    }
    return file;
}

TEST_F(MaterialListFile, TheLargestListHas199Entries) {
    ASSERT_TRUE(Read(FullFile(199)));
    EXPECT_EQ(list.EntryCount, 199);
    EXPECT_EQ(list.Entry(199).Thickness, 199.5f);
    EXPECT_EQ(Written(kExistingDirectory), FullFile(199));
    for (const int tooMany : {200, 201}) {
        EXPECT_FALSE(Read(FullFile(tooMany)));
        EXPECT_EQ(list.EntryCount, 200);
        EXPECT_EQ(list.Entry(200).Thickness, 200.5f);
    }
    EXPECT_THROW(list.Entry(0), errors::FatalError);
    EXPECT_THROW(list.Entry(201), errors::FatalError);
}

TEST_F(MaterialListFile, AMissingFileLeavesTheTable) {
    list.EntryCount = 3;
    EXPECT_EQ(ReadMaterialList(kSystemDefaults), profile::ReadResult::kMissing);
    EXPECT_EQ(list.EntryCount, 3);
}

TEST_F(MaterialListFile, WhatIsWrittenReadsBackTheSame) {
    for (const std::string file :
         {"tolvarin/USER/PROD/P10/MATERIAL.DAT", "tolvarin/USER/PROD/JOB4711/MATERIAL.DAT"}) {
        const std::string demo = test::SourceFile("demo/drives/c/" + file);
        ASSERT_TRUE(Read(demo));
        EXPECT_EQ(Written(kExistingDirectory), demo);
    }
    const std::string demo = test::SourceFile("demo/drives/c/tolvarin/system/material.dat");
    ASSERT_TRUE(Read(demo));
    EXPECT_EQ(Written(kSystemDefaults), demo);

    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        const auto text = [&](std::size_t limit) {
            std::string result = "x";
            for (auto length = random() % limit; length > 0; --length) {
                const auto code = random() % 190;
                result += static_cast<char>(code < 95 ? 32 + code : 66 + code);
            }
            return result;
        };
        Shared() = {};
        Shared().MaterialListDirPath = kJob;
        for (auto count = random() % 200; count > 0; --count) {
            Add(text(32), static_cast<float>(random() % 1'000'000) / 1000, text(64));
        }
        const std::string written = Written(kNewDirectory);
        EXPECT_EQ(Written(kNewDirectory), written) << seed;
        const MaterialListTable before = list;
        list = {};
        ASSERT_EQ(ReadMaterialList(kNewDirectory), profile::ReadResult::kRead);
        ASSERT_EQ(list.EntryCount, before.EntryCount) << seed;
        ASSERT_TRUE(list.Entries == before.Entries) << seed;
    }
}

}  // namespace
}  // namespace materiallist
