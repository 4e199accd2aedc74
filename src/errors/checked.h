// Tables of fixed capacity: an index outside one is a fatal error, never a stray access.
#pragma once

#include <string>
#include <string_view>

#include "errors/errors.h"

namespace errors {

// Element n of a table, counted from 1; `what` names it in the text of the FatalError.
template <typename Table>
auto& Element(Table& table, int n, std::string_view what) {
    if (n < 1 || n > static_cast<int>(table.size())) {
        throw FatalError(std::string(what) + " " + std::to_string(n) + " is outside 1 to " +
                         std::to_string(table.size()));
    }
    return table[static_cast<std::size_t>(n - 1)];
}

}  // namespace errors
