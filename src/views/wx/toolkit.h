// Starts the toolkit and runs the program in it.
#pragma once

#include <functional>

namespace views::wx {

// Runs `body` with the toolkit, the real screen and the real printer in place; gives back what it
// returns, or 1 when there is no display to show windows on.
int RunWithToolkit(int argc, char** argv, std::function<int()> body);

}  // namespace views::wx
