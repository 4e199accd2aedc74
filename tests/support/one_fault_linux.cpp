// Faults by way of the debugger's interface: a child process does the work and stops at each
// system call, where the call can be dropped, cut or given another result.
#if defined(__linux__) && defined(__x86_64__)

#include <gtest/gtest.h>

#include <signal.h>
#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iterator>

#include "tests/support/one_fault.h"

namespace test {
namespace {

using Call = unsigned long long;

// Memory, clocks and signals are no business of the disk.
bool CanGoWrong(Call call) {
    static constexpr Call kNever[] = {
        SYS_brk,
        SYS_mmap,
        SYS_munmap,
        SYS_mprotect,
        SYS_mremap,
        SYS_madvise,
        SYS_futex,
        SYS_rt_sigaction,
        SYS_rt_sigreturn,
        SYS_rt_sigprocmask,
        SYS_getpid,
        SYS_gettid,
        SYS_getuid,
        SYS_geteuid,
        SYS_umask,
        SYS_exit_group,
        SYS_tgkill,
        SYS_clock_gettime,
        SYS_sysinfo,
        SYS_prlimit64,
        SYS_sched_getaffinity,
    };
    return std::find(std::begin(kNever), std::end(kNever), call) == std::end(kNever);
}

// Before the call is made. False when the fault is none for it.
bool Prepare(const Fault& fault, user_regs_struct& registers) {
    const auto call = registers.orig_rax;
    if (fault.how == Fault::kRefused) registers.orig_rax = static_cast<Call>(-1);
    if (fault.how != Fault::kHalf && fault.how != Fault::kNone && fault.how != Fault::kLied)
        return true;
    registers.rdx = fault.how == Fault::kNone ? 0 : registers.rdx / 2;
    return call == SYS_write || (call == SYS_read && fault.how != Fault::kLied);
}

// Where the child leaves what it has to say.
char* SharedText() {
    static constexpr std::size_t kSize = 1 << 16;
    static void* const memory =
        mmap(nullptr, kSize, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    std::memset(memory, 0, 1);
    return static_cast<char*>(memory);
}

}  // namespace

const std::vector<Fault>& Faults() {
    static std::vector<Fault> faults;
    if (!faults.empty()) return faults;
    for (const int error : {EIO, ENOSPC, EACCES, EINTR, ESTALE, EMFILE}) {
        faults.push_back({Fault::kRefused, error});
    }
    for (const auto how : {Fault::kHalf, Fault::kNone, Fault::kLied, Fault::kKilled})
        faults.push_back({how});
    faults.push_back({Fault::kDone, EIO});
    return faults;
}

Outcome RunWith(const Fault& fault, int n, const std::function<std::string()>& work,
                const std::function<void()>& other) {
    Outcome outcome;
    char* const said = SharedText();
    const pid_t child = fork();
    if (child == 0) {
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(9);
        raise(SIGSTOP);
        errno = 0;  // so that no earlier failure can pass for the reason of this one
        std::strncpy(said, work().c_str(), 60000);
        _exit(0);
    }
    int status = 0;
    bool inside = false, here = false;
    Call size = 0;
    waitpid(child, &status, 0);
    ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL);
    while (WIFSTOPPED(status)) {
        const int signal = WSTOPSIG(status);
        if (signal == (SIGTRAP | 0x80)) {
            user_regs_struct registers;
            ptrace(PTRACE_GETREGS, child, nullptr, &registers);
            inside = !inside;
            if (inside) {
                here = CanGoWrong(registers.orig_rax) && ++outcome.calls == n;
                if (here && fault.how == Fault::kOvertaken) other();
                if (here) outcome.call = "system call " + std::to_string(registers.orig_rax);
                size = registers.rdx;
                here = here && Prepare(fault, registers);
            } else if (here) {
                outcome.happened = true;
                if (fault.how == Fault::kKilled) kill(child, SIGKILL);
                if (fault.error != 0) registers.rax = static_cast<Call>(-fault.error);
                if (fault.how == Fault::kLied) registers.rax = size;
            }
            if (here) ptrace(PTRACE_SETREGS, child, nullptr, &registers);
            here = here && inside;
        }
        const bool passOn = signal != (SIGTRAP | 0x80) && signal != SIGSTOP && signal != SIGTRAP;
        // What comes after the fault runs on its own.
        const bool watch = !outcome.happened;
        ptrace(watch ? PTRACE_SYSCALL : PTRACE_CONT, child, nullptr, passOn ? signal : 0);
        waitpid(child, &status, 0);
    }
    outcome.crashed = !(WIFEXITED(status) && WEXITSTATUS(status) == 0) &&
                      !(outcome.happened && fault.how == Fault::kKilled);
    outcome.said = said;
    return outcome;
}

bool CanFail() {
#ifdef __SANITIZE_ADDRESS__
    return false;  // the sanitizers make calls of their own, which must not fail
#else
    return !RunWith({Fault::kDone}, 0, [] { return std::string(); }).crashed;
#endif
}

}  // namespace test

#endif
