// A system as it is at the start of a run.
#pragma once

#include "app/system_config.h"
#include "materiallist/material_list_table.h"
#include "materialtypes/material_type_table.h"
#include "process/process_table.h"
#include "views/application.h"

namespace test {

inline void FreshSystem() {
    app::TheConfig() = {};
    process::Shared() = {};
    materialtypes::Shared() = {};
    materiallist::Shared() = {};
    views::ResetApplication();
}

}  // namespace test
