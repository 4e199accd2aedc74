// mattypes.dat beneath its window: what the fields hold between reading and showing, and the bytes
// of the demonstration drive.
#include <gtest/gtest.h>

#include "app/system_config.h"
#include "materialtypes/material_type_table.h"
#include "profile/profile.h"
#include "tests/support/source_files.h"
#include "tests/support/workshop.h"
#include "text/clean_text.h"

namespace {

using namespace std::string_literals;
using materialtypes::TheMaterialTypes;

const std::string kPath = "c:\\tolvarin\\system\\mattypes.dat";

TEST(MaterialTypeFile, FieldsHoldTheValueANulAndBlanks) {
    const test::Workshop workshop;
    app::TheConfig().NestHomeDrive = "c:";
    app::TheConfig().NestRootDir = "\\tolvarin";
    const std::string code(32, 'C'), text(50, 't');
    workshop.Write(kPath, "[materials]\nMAT1 = ms \nMat2=" + code + "12345678\nMat3=no\nMat5=X\n" +
                              "[MS]\nDescription=Mild Steel   \nDensity= 7 .85 t\n[" + code +
                              "]\nDescription=" + text + "0123\nDensity=heavy\n");
    ASSERT_TRUE(materialtypes::ReadMaterialTypes());
    auto& table = TheMaterialTypes();
    ASSERT_EQ(table.Count, 3) << "a gap ends the list";
    EXPECT_EQ(table.Record(1).Code.View(), "ms\0"s.append(29, ' '));
    EXPECT_EQ(table.Record(1).Description.View(), "Mild Steel\0"s.append(39, ' '));
    EXPECT_EQ(table.Record(1).Density, 7.85f);
    EXPECT_EQ(table.Record(2).Code.View(), code);
    EXPECT_EQ(table.Record(2).Description.View(), text);
    EXPECT_EQ(table.Record(2).Density, 0);
    EXPECT_EQ(table.Record(3).Description.View(), "\0"s.append(49, ' '));
    // The list is written with the codes as stored, their sections with the clean ones.
    table.Count = 1;
    const std::string written = materialtypes::MaterialTypesText(table);
    EXPECT_NE(written.find("\r\nMat1=ms\0 "s), written.npos);
    EXPECT_NE(written.find("\r\n[ms]\r\nDescription=Mild Steel\0 "s), written.npos);
    EXPECT_EQ(table.Record(1).Code.View(), "ms" + std::string(30, ' '));
}

TEST(MaterialTypeFile, TheDemonstrationReadsAndWritesTheSame) {
    const std::string demo = test::SourceFile("demo/drives/c/tolvarin/system/mattypes.dat");
    materialtypes::MaterialTypeTable table;
    materialtypes::ReadMaterialTypes(profile::Profile(demo), table);
    for (int n = 1; n <= table.Count; ++n) {
        auto& record = table.Record(n);
        record.Code = text::CleanText(record.Code);
        record.Description = text::CleanText(record.Description);
    }
    EXPECT_EQ(materialtypes::MaterialTypesText(table), demo);
}

}  // namespace
