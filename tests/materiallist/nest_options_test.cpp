// The nesting options in the operator's profile.
#include "materiallist/nest_options.h"

#include <gtest/gtest.h>

#include "errors/errors.h"
#include "materiallist/material_list_table.h"
#include "tests/support/temp_drives.h"

namespace materiallist {
namespace {

const std::string kUser = "c:\\tolvarin\\network\\user1";
const std::string kPath = kUser + "\\nestuser.ini";

class NestOptionsFile : public ::testing::Test {
  protected:
    // The flags as digits, then the thickness.
    std::string Read(const std::string& lines) {
        drives.Write(kPath, "[Nest]\r\n" + lines);
        return Options();
    }
    std::string Options() {
        ReadNestOptions(kUser);
        const NestOptions& options = TheNestOptions();
        return std::to_string(options.AllowKerfProg) + std::to_string(options.NestCheck) +
               std::to_string(options.TracePlateOutline) +
               std::to_string(options.PrePiercingEnabled) + " " +
               std::to_string(static_cast<int>(options.PrePiercingThickness * 100));
    }
    test::TempDrives drives;
};

TEST_F(NestOptionsFile, WhatIsMissingTakesItsDefault) {
    EXPECT_EQ(Options(), "0000 5000");
    drives.Write(kPath, "AllowKerfProg=1\r\n[Other]\r\nNestCheck=1\r\nPrePiercingThickness=1\r\n");
    EXPECT_EQ(Options(), "0000 5000");
    EXPECT_EQ(Read("tracePlateOutLINE=1\r\n"), "0010 5000");
    std::filesystem::remove(drives.Path(kPath));
    drives.MakeDir(kPath);
    EXPECT_EQ(Options(), "0000 5000");
}

TEST_F(NestOptionsFile, FlagsAreAnyNumberButZeroAndTheThicknessIsNotNegative) {
    EXPECT_EQ(Read("AllowKerfProg=1\r\nNestCheck=-1\r\nTracePlateOutline=7\r\n"
                   "PrePiercingEnabled=.1x\r\nPrePiercingThickness=12.5mm\r\n"),
              "1111 1250");
    EXPECT_EQ(Read("AllowKerfProg=0\r\nNestCheck=\r\nTracePlateOutline=on\r\n"
                   "PrePiercingEnabled=yes 1\r\nPrePiercingThickness=-5\r\n"),
              "0000 0");
    EXPECT_EQ(Read("PrePiercingThickness=0\r\n"), "0000 0");
    EXPECT_EQ(Read("PrePiercingThickness=\r\n"), "0000 0");
}

TEST_F(NestOptionsFile, OnlyTheFiveValuesAreWritten) {
    drives.Write(kPath,
                 "; of user 1\n[SystemManager]\r\nCurrentSysManDrive=c:\r\n[NEST]\r\n"
                 " nestcheck = 0 \r\nUnknown\r\nTracePlateOutLine=1\r\n\r\n[Tail]\r\nx=\xFF");
    TheNestOptions() = {.AllowKerfProg = 1,
                        .NestCheck = -1,
                        .TracePlateOutline = 0,
                        .PrePiercingEnabled = 2,
                        .PrePiercingThickness = .5f};
    WriteNestOptions(kUser);
    EXPECT_EQ(drives.Read(kPath),
              "; of user 1\n[SystemManager]\r\nCurrentSysManDrive=c:\r\n[NEST]\r\n"
              " nestcheck = 1 \r\nUnknown\r\nTracePlateOutLine=0\r\nAllowKerfProg=1\n"
              "PrePiercingEnabled=1\nPrePiercingThickness=0.5\n\r\n[Tail]\r\nx=\xFF");
    EXPECT_EQ(drives.Count(kUser), 1);
    EXPECT_EQ(Options(), "1101 50");
}

TEST_F(NestOptionsFile, ANewProfileIsMadeWhereItsDirectoryIs) {
    EXPECT_THROW(WriteNestOptions(kUser), errors::FileError);
    EXPECT_FALSE(drives.Exists(kUser));
    drives.MakeDir(kUser);
    WriteNestOptions(kUser);
    EXPECT_EQ(drives.Read(kPath),
              "[Nest]\r\nAllowKerfProg=0\r\nNestCheck=0\r\nTracePlateOutline=0\r\n"
              "PrePiercingEnabled=0\r\nPrePiercingThickness=0\r\n");
    for (const auto& [thickness, text] :
         std::vector<std::pair<float, std::string>>{{50.f, "50"},
                                                    {12.5f, "12.5"},
                                                    {-5.f, "-5"},
                                                    {-.5f, "-0.5"},
                                                    {1e7f, "10000000"},
                                                    {1.25e-5f, "0.0000125"},
                                                    {-3.4e10f, "-34000000000"}}) {
        TheNestOptions().PrePiercingThickness = thickness;
        WriteNestOptions(kUser);
        EXPECT_NE(drives.Read(kPath).find("PrePiercingThickness=" + text + "\r\n"),
                  std::string::npos);
    }
}

}  // namespace
}  // namespace materiallist
