// mattypes.dat: what is read from it, what is written, and that the two fit together.
#include <gtest/gtest.h>

#include <random>

#include "app/system_config.h"
#include "errors/errors.h"
#include "materialtypes/material_type_table.h"
#include "tests/support/source_files.h"
#include "tests/support/temp_drives.h"
#include "text/clean_text.h"
#include "views/view_procedures.h"

namespace materialtypes {
namespace {

using namespace std::string_literals;

const std::string kFolder = "d:\\Tolvarin\\System";
const std::string kPath = kFolder + "\\mattypes.dat";

class MaterialTypeFile : public ::testing::Test {
  protected:
    MaterialTypeFile() {
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "d:";
        app::TheConfig().NestRootDir = "\\TOLVARIN";
        drives.MakeDir(kFolder);
        Shared() = {};
    }

    bool Read(const std::string& bytes) {
        drives.Write(kPath, bytes);
        return ReadMaterialTypes();
    }
    std::string Written() {
        WriteMaterialTypes();
        EXPECT_EQ(drives.Count(kFolder), 1);
        return drives.Read(kPath);
    }
    void Add(std::string_view code, std::string_view description, float density) {
        MaterialTypeRecord& record = table.Record(++table.Count);
        record.Code = code;
        record.Description = description;
        record.Density = density;
    }
    // What the window does with the texts when it shows them.
    void Show() {
        for (int n = 1; n <= table.Count; ++n) {
            MaterialTypeRecord& record = table.Record(n);
            record.Code = text::CleanText(record.Code);
            record.Description = text::CleanText(record.Description);
        }
    }
    test::TempDrives drives;
    MaterialTypeTable& table = TheMaterialTypes();
};

TEST_F(MaterialTypeFile, WritesWhatTheNestingSystemReads) {
    EXPECT_EQ(Written(), test::SourceFile("tests/materialtypes/golden/empty.dat"));
    Add("MS", "Mild Steel", 7.85f);
    EXPECT_EQ(Written(), test::SourceFile("tests/materialtypes/golden/one_type.dat"));
    table.Count = 0;
    Add("WEAR PLATE 400 HB, HOT-ROLLED #2 and more",  // cut at 32
        "Abrasion resistant, quenched; tested at -40 deg. C!", 8);
    Add("S", "", 0);
    Add("SS\0"s, "Stainless\0"s, .25f);
    Add("\xC4\xD6", "\xBD hart", 1.2345678f);
    // The list shows the codes as stored, their sections the clean ones.
    EXPECT_EQ(Written(), test::SourceFile("tests/materialtypes/golden/every_kind.dat"));
    EXPECT_EQ(table.Record(3).Code.View(), "SS" + std::string(30, ' '));
}

TEST_F(MaterialTypeFile, FieldsHoldTheValueANulAndBlanks) {
    const std::string code32(32, 'C'), text50(50, 't');
    ASSERT_TRUE(Read("[materials]\r\nMAT1 = ms \r\nMat2=" + code32 + "12345678\r\nMat4=X\r\n" +
                     "[MS]\r\nDescription=Mild Steel   \r\nDensity= 7 .85 t\r\n[" + code32 +
                     "]\r\nDescription=" + text50 + "0123456789\r\nDensity=heavy\r\n"));
    ASSERT_EQ(table.Count, 2);
    EXPECT_EQ(table.Record(1).Code.View(), "ms\0"s.append(29, ' '));
    EXPECT_EQ(table.Record(1).Description.View(), "Mild Steel\0"s.append(39, ' '));
    EXPECT_EQ(table.Record(1).Density, 7.85f);
    EXPECT_EQ(table.Record(2).Code.View(), code32);
    EXPECT_EQ(table.Record(2).Description.View(), text50);
    EXPECT_EQ(table.Record(2).Density, 0);

    ASSERT_TRUE(Read("[Materials]\r\nMat1=NOWHERE\r\n"));
    EXPECT_EQ(table.Record(1).Description.View(), "\0"s.append(49, ' '));
    EXPECT_EQ(table.Record(1).Density, 0);
    ASSERT_TRUE(Read("[Materials]\r\nMat1=\r\nMat2=MS\r\n"));
    EXPECT_EQ(table.Count, 0);
}

TEST_F(MaterialTypeFile, AMissingFileChangesNothing) {
    Add("MS", "Mild Steel", 7.85f);
    EXPECT_FALSE(ReadMaterialTypes());
    EXPECT_EQ(table.Count, 1);
    EXPECT_FALSE(ReadMaterialTypeCodes());
    EXPECT_EQ(table.Count, 1);
}

std::string FullFile(int types) {
    std::string file =
        "; MATTYPES.DAT\r\n; Material types database.\r\n\r\r\n"
        "; Densities are in tonnes/cubic metre\r\n\r\r\n[Materials]\r\n";
    for (int n = 1; n <= types; ++n) {
        std::string code = "CODE" + std::to_string(n);
        code.resize(32, ' ');
        file += "Mat" + std::to_string(n) + "=" + code + "\r\n";
    }
    for (int n = 1; n <= types; ++n) {
        std::string description = "Type " + std::to_string(n);
        description.resize(50, ' ');
        file += "\r\r\n[CODE" + std::to_string(n) + "]\r\nDescription=" + description +
                "\r\nDensity=" + std::to_string(n) + ".5\r\n";
    }
    return file;
}

TEST_F(MaterialTypeFile, HoldsItsCapacityAndNotOneMore) {
    ASSERT_TRUE(Read(FullFile(60)));
    EXPECT_EQ(table.Count, 60);
    EXPECT_EQ(table.Record(60).Density, 60.5f);
    Show();
    EXPECT_EQ(Written(), FullFile(60));

    const auto before = table.Records;
    table.Count = 7;
    try {
        Read(FullFile(61));
        ADD_FAILURE() << "nothing failed";
    } catch (const errors::FatalError& failure) {
        EXPECT_STREQ(failure.what(), "MATTYPES.DAT lists more than 60 material types");
    }
    EXPECT_EQ(table.Count, 7);
    EXPECT_TRUE(table.Records == before);
    EXPECT_THROW(table.Record(0), errors::FatalError);
    EXPECT_THROW(table.Record(61), errors::FatalError);
}

TEST_F(MaterialTypeFile, WhatIsWrittenReadsBackTheSame) {
    const std::string demo = test::SourceFile("demo/drives/c/tolvarin/system/mattypes.dat");
    ASSERT_TRUE(Read(demo));
    Show();
    EXPECT_EQ(Written(), demo);

    for (unsigned seed = 1; seed <= 40; ++seed) {
        std::mt19937 random(seed);
        const auto text = [&](std::size_t limit) {
            std::string result;
            for (auto length = random() % limit; length > 0; --length) {
                const auto code = random() % 190;
                result += static_cast<char>(code < 95 ? 32 + code : 66 + code);
            }
            return result;
        };
        Shared() = {};
        for (auto count = random() % 61; count > 0; --count) {
            // Sections that differ in case only would be one.
            Add(std::to_string(100 + table.Count) + text(29), "x" + text(50),
                (static_cast<float>(random() % 1'000'000) - 500'000) / 1000);
        }
        const std::string written = Written();
        EXPECT_EQ(Written(), written) << seed;
        const MaterialTypeTable before = table;
        Shared() = {};
        ASSERT_TRUE(ReadMaterialTypes());
        Show();
        ASSERT_EQ(table.Count, before.Count) << seed;
        ASSERT_TRUE(table.Records == before.Records) << seed;
        EXPECT_EQ(Written(), written) << seed;
    }
}

TEST_F(MaterialTypeFile, AFileThatCannotBeWrittenIsReportedWithItsPath) {
    drives.Write(kPath, "old");
    drives.SetReadOnly(kPath, true);
    Add("MS", "Mild Steel", 7.85f);
    try {
        WriteMaterialTypes();
        ADD_FAILURE() << "written";
    } catch (const errors::FileError& failure) {
        EXPECT_EQ(std::string(failure.what()).rfind("d:\\TOLVARIN\\system\\mattypes.dat: ", 0), 0u)
            << failure.what();
    }
    EXPECT_EQ(drives.Read(kPath), "old");
    EXPECT_EQ(drives.Count(kFolder), 1);
}

}  // namespace
}  // namespace materialtypes
