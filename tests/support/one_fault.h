// One system call of some work goes wrong, as on a failing disk, a share that goes away or a power
// cut. The program's own calls go wrong, not a stand-in for them.
#pragma once

#include <functional>
#include <string>
#include <vector>

namespace test {

struct Fault {
    enum How {
        kRefused,    // not done
        kDone,       // done, but reported as failed
        kHalf,       // half of the bytes are read or written
        kNone,       // none of them, as at the end of a file
        kLied,       // half of them are written, but all are reported
        kKilled,     // done, and the last thing that the program does
        kOvertaken,  // another program does something in front of it
    };
    How how;
    int error = 0;  // the platform's code

    std::string Name() const {
        static const char* const kNames[] = {
            "refused",  "done, but reported as failed", "half", "none", "lied", "killed",
            "overtaken"};
        return std::string(kNames[how]) + " with error " + std::to_string(error);
    }
};

// The kinds that the platform has and that can be brought about on it.
const std::vector<Fault>& Faults();

struct Outcome {
    int calls = 0;          // how many calls that can fail the work has made
    bool happened = false;  // whether the fault did: the call is there and can fail so
    bool crashed = false;
    std::string call;  // its name
    std::string said;  // what the work has returned
};

// Runs the work with a fault in its n-th call, counted from 1; 0 for none. Where the platform can,
// the work is done in a process of its own. `other` is what another program does.
Outcome RunWith(
    const Fault& fault, int n, const std::function<std::string()>& work,
    const std::function<void()>& other = [] {});

// Whether calls can be made to fail here.
bool CanFail();

}  // namespace test
