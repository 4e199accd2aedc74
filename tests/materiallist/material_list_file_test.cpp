// material.dat: which of its lines are read, and every byte that is written.
#include <gtest/gtest.h>

#include "materiallist/material_list_table.h"
#include "tests/support/source_files.h"

namespace {

using std::string;

TEST(MaterialListFile, IsReadUpToTheFirstSectionWithoutATypeAndWrittenByteForByte) {
    const string demo = test::SourceFile("demo/drives/c/tolvarin/USER/PROD/JOB4711/MATERIAL.DAT");
    const std::pair<string, string> files[] = {
        {demo, demo},
        {"; note\n[MAT2]\nTYPE= S\x01x \nthickness= .25mm\nOther=1\n[Mat1]\nType=" +
             string(33, 'T') + "\nThickness=12.5\nProcess=" + string(65, 'P') +
             "\n[mat1]\nType=second\n[Mat3]\nType=A\nThickness=-3mm\nProcess=S\xE4gen\n[Mat4]\n"
             "Type=\n[Mat5]\nType=C",
         "; MATERIAL.DAT\r\n; Defaults Material Database\r\n; Used for creating new directories\r\n"
         "\r\r\n[Mat1]\r\nType=" +
             string(32, 'T') + "\r\nThickness=12.5mm\r\nProcess=" + string(64, 'P') +
             "\r\n\r\r\n[Mat2]\r\nType=S\r\nThickness=0.25mm\r\nProcess=\r\n\r\r\n[Mat3]\r\n"
             "Type=A\r\nThickness=0mm\r\nProcess=S\xE4gen\r\n"}};
    for (const auto& [bytes, written] : files) {
        materiallist::MaterialListTable list;
        ReadMaterialList(profile::Profile(bytes), list);
        EXPECT_EQ(MaterialListText(list, materiallist::kExistingDirectory), written);
    }
}

}  // namespace
