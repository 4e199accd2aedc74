#include "tests/support/workshop.h"

#include <string>

#include "materiallist/material_list_table.h"
#include "materialtypes/material_type_table.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "profile/profile.h"
#include "text/clean_text.h"

namespace test {
namespace {

using profile::Profile;

// The texts as the windows show them, in all their places.
void Clean(auto&... texts) {
    ((texts = text::CleanText(texts)), ...);
}

std::string ProcessFile() {
    process::ProcessTable table;
    ReadProcesses(Profile("[Processes]\nProcess1=Plasma\nProcess2=Oxy Fuel\n"
                          "[Plasma]\nRapid=20000\nLineMarkRate=6000\nLeadin=Line\nAngle=45\n"
                          "LeadoutPercent=50\nLeadoutOverrun=3\nMajorDir=-1\nMinorDir=1\n"
                          "MinorOpenKerf=1\nAddKerf=1\nThickness1=3mm, .1, 6400, 4, 1.5\n"
                          "Thickness2=25mm, 2, 550, 12, 1.5\n"
                          "[Oxy Fuel]\nRapid=.5\nLineMarkRate=1\nLeadin=A180\nMajorDir=1\n"
                          "MinorOpenKerf=0\nExtension=1\nLeadout=Line\nLeadoutangle=-30\n"
                          "Leadoutextension=1\n"),
                  table);
    for (auto& record : table.Processes) Clean(record.Name);
    table.Process(1).Leadout = "Arc";
    return ProcessFileText(table);
}

std::string MaterialTypesFile() {
    materialtypes::MaterialTypeTable table;
    ReadMaterialTypes(Profile("[Materials]\nMat1=MS\nMat2=SS304\n"
                              "[MS]\nDescription=Mild steel\nDensity=7.85\n"
                              "[SS304]\nDescription=Stainless\nDensity=.5\n"),
                      table);
    for (auto& record : table.Records) Clean(record.Code, record.Description);
    return MaterialTypesText(table);
}

std::string ListFile(materiallist::ListSource source) {
    materiallist::MaterialListTable table;
    ReadMaterialList(Profile("[Mat1]\nType=MS\nThickness=10\nProcess=Plasma\n"
                             "[Mat2]\nType=SS304\nThickness=12.5\nProcess=Oxy Fuel\n"),
                     table);
    return MaterialListText(table, source);
}

}  // namespace

Workshop::Workshop() {
    const std::string system = "c:\\tolvarin\\system\\", user = "c:\\tolvarin\\USER\\";
    Write(system + "process.dat", ProcessFile());
    Write(system + "mattypes.dat", MaterialTypesFile());
    Write(system + "material.dat", ListFile(materiallist::kSystemDefaults));
    Write(user + "PROD\\P10\\MATERIAL.DAT", ListFile(materiallist::kExistingDirectory));
    for (const char* folder : {"COMP", "GROUP", "NEST", "TAPE"}) {
        MakeDir(user + "PROD\\P10\\" + folder);
    }
    Write(user + "DESIGN\\PLATES\\GEOMETRY\\A.DSN", "x");
    Write("c:\\tolvarin\\network\\user1\\nestuser.ini",
          "; kept\r\n[Nest]\r\nAllowKerfProg=1\r\nother=x\r\nPrePiercingThickness=.5\r\n");
}

}  // namespace test
