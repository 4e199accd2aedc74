// Faults by way of the pointers that the program calls imported functions through: they lead here,
// where a call can be dropped, cut or given another result. The calls that the system makes inside
// itself are out of reach, and so is a kill, because the work is done in this process.
#ifdef _WIN32

#include <windows.h>

#include <type_traits>

#include "tests/support/one_fault.h"

namespace test {
namespace {

std::vector<std::string>* g_calls = nullptr;  // of the work that is being done
Fault g_fault;
std::size_t g_call = 0;

template <typename Result, typename... Arguments>
Result Try(Result (*real)(Arguments...), const std::string& name, Arguments... arguments) {
    if (g_calls != nullptr) g_calls->push_back(name);
    const bool here = g_calls != nullptr && g_calls->size() == g_call;
    if (!here || g_fault.error == 0) return real(arguments...);
    // A handle is always closed: one that stays open would keep the next case from its files.
    if (g_fault.how == "done" || name == "CloseHandle") {
        [[maybe_unused]] const Result done = real(arguments...);
        if constexpr (std::is_same_v<Result, HANDLE>)
            name == "FindFirstFileW" ? FindClose(done) : CloseHandle(done);
    }
    SetLastError(static_cast<DWORD>(g_fault.error));
    return (Result)(std::is_same_v<Result, BOOL> ? 0LL : -1LL);
}

// Reading and writing can also be cut.
template <typename Buffer>
BOOL Try(BOOL (*real)(HANDLE, Buffer, DWORD, DWORD*, OVERLAPPED*), const std::string& name,
         HANDLE file, Buffer bytes, DWORD size, DWORD* moved, OVERLAPPED* at) {
    const bool cut = g_calls != nullptr && g_calls->size() + 1 == g_call && g_fault.error == 0;
    const DWORD part = !cut ? size : g_fault.how == "none" ? 0 : size / 2;
    const BOOL done = Try<BOOL, HANDLE, Buffer, DWORD, DWORD*, OVERLAPPED*>(real, name, file, bytes,
                                                                            part, moved, at);
    if (cut && g_fault.how == "lied") *moved = size;
    return done;
}

}  // namespace

// The linker takes these before those of the platform's libraries.
#define IMPORT(function)                                                        \
    decltype(&function) __imp_##function = [](auto... arguments) {              \
        static const auto real = reinterpret_cast<decltype(&function)>(         \
            (void*)GetProcAddress(GetModuleHandleW(L"kernelbase"), #function)); \
        return Try(real, #function, arguments...);                              \
    };
#define IMPORTS(a, b, c, d) IMPORT(a) IMPORT(b) IMPORT(c) IMPORT(d)
extern "C" {
IMPORTS(CreateFileW, CloseHandle, ReadFile, WriteFile)
IMPORTS(FlushFileBuffers, GetFileSizeEx, GetFileInformationByHandle, GetVolumeInformationByHandleW)
IMPORTS(GetFileAttributesW, GetFileAttributesExW, GetFileSecurityW, SetFileSecurityW)
IMPORTS(FindFirstFileW, FindNextFileW, MoveFileExW, DeleteFileW)
IMPORTS(CreateDirectoryW, RemoveDirectoryW, OpenProcessToken, GetTokenInformation)
}

const std::vector<std::string_view> kWays = {"refused", "done", "half", "none", "lied"};
const std::vector<int> kErrors = {0, ERROR_IO_DEVICE, ERROR_ACCESS_DENIED};
const std::size_t kSample = 30;

std::string RunWith(const Fault& fault, std::size_t n, const std::function<std::string()>& work,
                    const std::function<void()>&, std::vector<std::string>& calls) {
    calls.clear();
    g_fault = fault;
    g_call = n;
    g_calls = &calls;
    SetLastError(0);  // so that no earlier failure can pass for the reason of this one
    const std::string said = work();
    g_calls = nullptr;
    return said;
}

}  // namespace test

#endif
