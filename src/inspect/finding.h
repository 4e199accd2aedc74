// What a look over the data has found, in the form in which compilers say it.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace inspect {

enum class Severity {
    kError,    // the System Manager cannot read or use it
    kWarning,  // it reads or saves other than it stands there, or is tied to nothing
    kNote,     // nothing that the programs mind; a cutter might
};

struct Finding {
    std::string path;      // of the system: c:\tolvarin\system\process.dat
    std::size_t line = 0;  // counted from 1; 0 for a file or directory as a whole
    Severity severity = Severity::kError;
    std::string text;  // in the system's character set
};

using Findings = std::vector<Finding>;

// "error", "warning" or "note".
const char* NameOf(Severity severity);

// "path:line: error: text" in UTF-8, the path as the platform spells it.
std::string Sentence(const Finding& finding);

}  // namespace inspect
