#include "process/process_table.h"

#include "app/system_config.h"
#include "errors/checked.h"

namespace process {

ThicknessRow& ProcessRecord::Row(int k) {
    return errors::Element(Rows, k, "Thickness row");
}

const ThicknessRow& ProcessRecord::Row(int k) const {
    return errors::Element(Rows, k, "Thickness row");
}

ProcessRecord& ProcessTable::Process(int n) {
    return errors::Element(Processes, n, "Process");
}

const ProcessRecord& ProcessTable::Process(int n) const {
    return errors::Element(Processes, n, "Process");
}

SharedState& Shared() {
    static SharedState state;
    return state;
}

std::string ProcessFilePath() {
    return app::TheConfig().SystemDir() + "\\process.dat";
}

}  // namespace process
