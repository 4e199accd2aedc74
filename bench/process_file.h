// A process file as the system writes it, of any number of processes, to measure with.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace bench {

// Every process has its 13 defaults and a full table of 100 thicknesses.
struct ProcessFile {
    std::string bytes;
    std::vector<std::pair<std::string, std::string>> keys;  // section and key, in file order
};

ProcessFile MakeProcessFile(int processes);

}  // namespace bench
