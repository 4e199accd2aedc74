// One system call of some work goes wrong, as on a failing disk, a share that goes away or a power
// cut. The program's own calls go wrong, not a stand-in for them.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <functional>
#include <random>
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

// A fault in the n-th call, counted from 1.
struct Case {
    std::size_t n;
    Fault fault;
};

// The seed of the sample that a run takes, from FAULTS in the environment; "all" for every case.
inline std::string Seed() {
    const char* const chosen = std::getenv("FAULTS");
    return chosen != nullptr ? chosen : "1";
}

// What reaches the disk and gets its name, in order: "flush rename ".
inline std::string OrderOf(const std::vector<std::string>& calls) {
    std::string order;
    for (const auto& call : calls)
        order += call == "FlushFileBuffers" ? "flush " : call == "MoveFileExW" ? "rename " : "";
    return order;
}

// What can go wrong in these calls: each is refused, a change of name for every reason and also
// done and reported as failed, and of all else there are so many cases at the most.
inline std::vector<Case> CasesOf(const std::vector<std::string>& calls, bool overtaken,
                                 std::size_t most) {
    std::vector<Case> cases;
    for (std::size_t n = 1; n <= calls.size(); ++n) {
        for (const auto how : kWays) {
            if (how.starts_with("overtaken") && !overtaken) continue;
            for (const int error : kErrors)
                if (Fault{how, error}.Fits(calls[n - 1])) cases.push_back({n, {how, error}});
        }
    }
    static std::mt19937 random(static_cast<unsigned>(std::atoi(Seed().c_str())));
    std::shuffle(cases.begin(), cases.end(), random);
    const auto always = [&](const Case& one) {
        const bool every = calls[one.n - 1] == "MoveFileExW";
        const bool refused = one.fault.how == "refused";
        return every ? refused || one.fault.how == "done"
                     : refused && one.fault.error == kErrors[1];
    };
    const auto rest = std::stable_partition(cases.begin(), cases.end(), always);
    const auto taken = static_cast<std::size_t>(rest - cases.begin()) + most;
    if (Seed() != "all") cases.resize(std::min(cases.size(), taken));
    return cases;
}

// Runs the work with a fault in its n-th call, counted from 1; 0 for none. Gives back what the work
// does, or CRASHED, and puts the names of its calls that can fail, as far as they were watched,
// in `calls`; none where none can be made to fail. `other` is what another program does. Where the
// platform can, the work is done in a process of its own.
std::string RunWith(const Fault& fault, std::size_t n, const std::function<std::string()>& work,
                    const std::function<void()>& other, std::vector<std::string>& calls);

}  // namespace test
