// One system call of some work goes wrong, as on a failing disk, a share that goes away or a power
// cut. The program's own calls go wrong, not a stand-in for them.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace test {

// What can be brought about on the platform, and how many cases of it a run has the time for. Of
// the errors, its codes, the first is 0 for none.
extern const std::vector<std::string_view> kWays;
extern const std::vector<int> kErrors;
extern const std::size_t kSample;

// Refused: not done. Done, but reported as failed. Of the bytes only half or none are read or
// written; lied: half are written, but all reported. Killed: done, and the last thing that the
// program does. Overtaken: another program does something in front of it, in one place or another.
struct Fault {
    std::string_view how;
    int error;

    bool Fits(std::string_view call) const {
        if (how == "refused") return error != 0;
        if (how == "done") return error == kErrors[1];
        // Only what moves bytes can move fewer.
        const bool cut = how == "half" || how == "none" || how == "lied";
        const bool moves = call == "WriteFile" || (call == "ReadFile" && how != "lied");
        return error == 0 && (moves || !cut);
    }
};

// Runs the work with a fault in its n-th call, counted from 1; 0 for none. Gives back what the work
// does, or CRASHED, and puts the names of its calls that can fail, as far as they were watched,
// in `calls`; none where none can be made to fail. `other` is what another program does. Where the
// platform can, the work is done in a process of its own.
std::string RunWith(const Fault& fault, std::size_t n, const std::function<std::string()>& work,
                    const std::function<void()>& other, std::vector<std::string>& calls);

}  // namespace test
