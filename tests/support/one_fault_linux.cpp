// Faults by way of the debugger's interface: a child process does the work and stops at each
// system call, where the call can be dropped, cut or given another result.
#if defined(__linux__) && defined(__x86_64__)

#include <signal.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>

#include "tests/support/one_fault.h"

namespace test {
namespace {

// Memory and signals, the first of which have numbers in a row, are no business of the disk.
bool CanFail(long call) {
    const bool inRow = call >= SYS_mmap && call <= SYS_rt_sigreturn;
    return !inRow && call != SYS_mremap && call != SYS_madvise && call != SYS_futex &&
           call != SYS_getpid && call != SYS_exit_group;
}

// That which has one on Windows, too, has that name.
std::string NameOf(long call) {
    return call == SYS_read                                ? "ReadFile"
           : call == SYS_write                             ? "WriteFile"
           : call == SYS_fsync || call == SYS_syncfs       ? "FlushFileBuffers"
           : call == SYS_renameat || call == SYS_renameat2 ? "MoveFileExW"
                                                           : "call " + std::to_string(call);
}

}  // namespace

const std::vector<std::string_view> kWays = {"refused", "done",   "half",      "none",
                                             "lied",    "killed", "overtaken", "overtaken inside"};
const std::vector<int> kErrors = {0, EIO, EACCES, EINTR, EINVAL};
const std::size_t kSample = 120;

std::string RunWith(const Fault& fault, std::size_t n, const std::function<std::string()>& work,
                    const std::function<void()>& other, std::vector<std::string>& calls) {
    calls.clear();
#ifdef __SANITIZE_ADDRESS__
    return {};  // the sanitizers make calls of their own, which must not fail
#endif
    // Where the child leaves what it has to say.
    constexpr std::size_t kSize = 1 << 12;
    static char* const said = static_cast<char*>(
        mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0));
    std::fill_n(said, kSize, '\0');
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(9);
        raise(SIGSTOP);
        errno = 0;  // so that no earlier failure can pass for the reason of this one
        work().copy(said, kSize - 1);
        _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    user_regs_struct registers;
    // To where a call begins or ends.
    const auto goOn = [&] {
        ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
        waitpid(child, &status, 0);
        ptrace(PTRACE_GETREGS, child, nullptr, &registers);
        return WIFSTOPPED(status) && WSTOPSIG(status) == (SIGTRAP | 0x80);
    };
    for (bool here = false; !here && goOn();) {
        const long call = static_cast<long>(registers.orig_rax);
        const auto size = registers.rdx;
        if (CanFail(call)) calls.push_back(NameOf(call));
        here = CanFail(call) && calls.size() == n;
        if (here && fault.how.starts_with("overtaken")) other();
        if (fault.how == "refused") registers.orig_rax = ~0ull;
        if (fault.how == "half" || fault.how == "lied") registers.rdx = size / 2;
        if (fault.how == "none") registers.rdx = 0;
        if (here) ptrace(PTRACE_SETREGS, child, nullptr, &registers);
        if (!goOn()) break;
        if (fault.how == "lied") registers.rax = size;
        if (fault.error != 0) registers.rax = static_cast<unsigned long long>(-fault.error);
        if (here) ptrace(PTRACE_SETREGS, child, nullptr, &registers);
        if (here && fault.how == "killed") kill(child, SIGKILL);
    }
    if (WIFSTOPPED(status)) {
        // What comes after the fault runs on its own; a crash in front of it is one.
        ptrace(PTRACE_DETACH, child, nullptr, WSTOPSIG(status) == (SIGTRAP | 0x80) ? 0 : SIGKILL);
        waitpid(child, &status, 0);
    }
    return status == 0 || fault.how == "killed" ? said : "CRASHED";
}

}  // namespace test

#endif
