#include "process/process_table.h"

#include "app/system_config.h"
#include "platform/checked.h"

namespace process {

std::int16_t CurrentProcess = 0;
bool ProcessChanged = false;

ThicknessRow& ProcessRecord::Row(int k) {
    return platform::Element(Rows, k, "Thickness row");
}

const ThicknessRow& ProcessRecord::Row(int k) const {
    return platform::Element(Rows, k, "Thickness row");
}

ProcessRecord& ProcessTable::Process(int n) {
    return platform::Element(Processes, n, "Process");
}

const ProcessRecord& ProcessTable::Process(int n) const {
    return platform::Element(Processes, n, "Process");
}

ProcessTable& TheProcesses() {
    static ProcessTable table;
    return table;
}

void ResetProcesses() {
    TheProcesses() = {};
    CurrentProcess = 0;
    ProcessChanged = false;
}

std::string ProcessFilePath() {
    return app::TheConfig().SystemDir() + "\\process.dat";
}

}  // namespace process
