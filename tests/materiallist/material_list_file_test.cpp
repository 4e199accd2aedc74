// material.dat: which of its lines are read, and every byte that is written.
#include <gtest/gtest.h>

#include "materiallist/material_list_table.h"
#include "tests/support/source_files.h"

namespace {

using std::string;

string Rewritten(const string& bytes, materiallist::ListSource source) {
    materiallist::MaterialListTable list;
    ReadMaterialList(profile::Profile(bytes), list);
    return MaterialListText(list, source);
}

TEST(MaterialListFile, KeepsWhatFitsUpToTheFirstSectionWithoutAType) {
    EXPECT_EQ(Rewritten("; note\n[MAT2]\nTYPE= S\x01x \nthickness= .25mm\nOther=1\n[Mat1]\nType=" +
                            string(33, 'T') + "\nThickness=12.5\nProcess=" + string(65, 'P') +
                            "\n[mat1]\nType=second\n[Mat3]\nType=A\nThickness=-3mm\n"
                            "Process=S\xE4gen\n[Mat4]\nType=\n[Mat5]\nType=C",
                        materiallist::kNewDirectory),
              "; MATERIAL.DAT\r\n; Defaults Material Database\r\n; Used for creating new "
              "directories\r\n\r\r\n[Mat1]\r\nType=" +
                  string(32, 'T') + "\r\nThickness=12.5mm\r\nProcess=" + string(64, 'P') +
                  "\r\n\r\r\n[Mat2]\r\nType=S\r\nThickness=0.25mm\r\nProcess=\r\n"
                  "\r\r\n[Mat3]\r\nType=A\r\nThickness=0mm\r\nProcess=S\xE4gen\r\n");
}

TEST(MaterialListFile, TheListsOfTheDemonstrationComeBackByteForByte) {
    for (const string name : {"system/material.dat", "USER/PROD/P10/MATERIAL.DAT"}) {
        const string demo = test::SourceFile("demo/drives/c/tolvarin/" + name);
        EXPECT_EQ(Rewritten(demo, name[0] == 's' ? materiallist::kSystemDefaults
                                                 : materiallist::kExistingDirectory),
                  demo);
    }
}

}  // namespace
