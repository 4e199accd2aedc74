// Which printer the print server would print on, found out before anything is printed: the
// toolkit's printing waits for ever for a server that is not there.
#pragma once

#include <string>

namespace views::wx {

// The name of the printer to print on: `chosen` where the server has it, else the default printer,
// else the first one. Throws FatalError when there is no server, it does not answer within 1.5
// seconds, it has no printer, or that one accepts no jobs.
std::string PrinterToUse(const std::string& chosen);

}  // namespace views::wx
