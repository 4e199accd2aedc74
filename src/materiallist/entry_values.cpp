#include "materiallist/entry_values.h"

#include <algorithm>

#include "materialtypes/material_type_table.h"
#include "process/process_table.h"
#include "text/clean_text.h"
#include "text/numbers.h"
#include "text/strings.h"

namespace materiallist {
namespace {

// The form in which codes and process names are compared.
std::string Comparable(std::string_view value) {
    std::string upper = text::UpperCase(value);
    return text::CleanText(upper);
}

}  // namespace

std::span<const std::string> TypeCodes() {
    const auto& types = materialtypes::TheMaterialTypes();
    return std::span(types.Codes).first(types.Count);
}

std::span<const std::string> ProcessNames() {
    const auto& processes = process::TheProcesses();
    return std::span(processes.ProcessNames).first(processes.ProcessCount);
}

int NumberBeginningWith(std::span<const std::string> values, std::string_view text) {
    const std::string sought = Comparable(text);
    const auto found = std::find_if(values.begin(), values.end(), [&](const std::string& value) {
        return Comparable(value).starts_with(sought);
    });
    return found == values.end() ? 1 : static_cast<int>(found - values.begin()) + 1;
}

int LimitThickness(MaterialListEntry& entry) {
    const std::string sought = Comparable(entry.ProcessName.View());
    const auto names = ProcessNames();
    const auto found = std::find_if(names.begin(), names.end(), [&](const std::string& name) {
        return Comparable(name) == sought;
    });
    const auto index = static_cast<std::size_t>(found - names.begin());
    if (found != names.end()) {
        const auto& processes = process::TheProcesses();
        entry.Thickness = std::max(std::min(entry.Thickness, processes.ProcessThicknessMax[index]),
                                   processes.ProcessThicknessMin[index]);
    }
    return static_cast<int>(index) + 1;
}

MaterialListEntry FirstValues() {
    MaterialListEntry entry;
    if (!TypeCodes().empty()) entry.MaterialType = TypeCodes().front();
    if (!ProcessNames().empty()) {
        entry.ProcessName = ProcessNames().front();
        entry.Thickness = process::TheProcesses().ProcessThicknessMin.front();
    }
    return entry;
}

std::vector<std::string> EntryTexts(int i) {
    MaterialListEntry& entry = TheMaterialList().Entry(i);
    return {
        std::to_string(i), text::CleanText(entry.MaterialType), text::CleanText(entry.ProcessName),
        Shared().MaterialListSource == kSystemDefaults ? "" : text::ShownNumber(entry.Thickness)};
}

}  // namespace materiallist
