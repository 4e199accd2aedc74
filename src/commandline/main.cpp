// quarvel-data: looks over, shows, backs up and restores the data that the System Manager edits,
// without a display.
#include <iostream>

#ifdef _WIN32
#include <windows.h>
#endif

#include "commandline/commands.h"

int main(int argc, char** argv) {
#ifdef _WIN32
    SetConsoleOutputCP(CP_UTF8);
#endif
    return commandline::Main(argc, argv, std::cout, std::cerr);
}
