// The material types and the material lists on the page.
#pragma once

#include <map>
#include <string>

#include "inspect/installation.h"
#include "materialtypes/material_type_table.h"
#include "process/process_table.h"
#include "report/found.h"
#include "report/html.h"

namespace report {

// The anchors of what the lists name, by inspect::Comparable names.
struct Names {
    std::map<std::string, std::string> types, processes;

    Names(const materialtypes::MaterialTypeTable& typeTable,
          const process::ProcessTable& processTable);
};

std::string TypeAnchor(int type);

// Puts what was found in mattypes.dat to the types.
void PlaceTypes(const std::string& path, const std::string& bytes,
                materialtypes::MaterialTypeTable& table, Found& found);
void PutTypes(Html& html, materialtypes::MaterialTypeTable& table, const Found& found);

// Reads the list and shows it, or why it cannot be read; puts what was found in it to its entries.
// `id` and `name` are those of its place.
void PutList(Html& html, const inspect::ListFile& list, const Place& place, const Names& names,
             Found& found);

}  // namespace report
