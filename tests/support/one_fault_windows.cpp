// Faults by way of the program's table of imported functions: its entries lead through here, where
// a call can be dropped, cut or given another result. The calls that the system makes inside
// itself are out of reach, and so is a kill, because the work is done in this process.
#ifdef _WIN32

#include <windows.h>

#include <cstdint>
#include <string_view>
#include <type_traits>

#include "tests/support/one_fault.h"

namespace test {
namespace {

Outcome* g_outcome = nullptr;  // of the work that is being done
const Fault* g_fault = nullptr;
int g_call = 0;

bool IsHere(const char* name) {
    const bool here = g_outcome != nullptr && ++g_outcome->calls == g_call;
    if (here) g_outcome->call = name;
    return here;
}

template <typename Result>
Result Failed(std::intptr_t result) {
    g_outcome->happened = true;
    SetLastError(static_cast<DWORD>(g_fault->error));
    return (Result)result;
}

// An imported function, and the address that its entry gets. A handle is always closed: one that
// stays open would keep the next case from its files.
template <int Index, std::intptr_t kFailed, bool kAlways, typename Function>
struct Hook;

template <int Index, std::intptr_t kFailed, bool kAlways, typename Result, typename... Arguments>
struct Hook<Index, kFailed, kAlways, Result(WINAPI*)(Arguments...)> {
    static inline const char* name;
    static inline Result(WINAPI* real)(Arguments...);

    static Result WINAPI Call(Arguments... arguments) {
        if (!IsHere(name) || g_fault->error == 0) return real(arguments...);
        if (kAlways || g_fault->how == Fault::kDone) {
            const Result done = real(arguments...);
            if constexpr (std::is_same_v<Result, HANDLE>) {
                std::string_view(name).starts_with("Find") ? FindClose(done) : CloseHandle(done);
            }
        }
        return Failed<Result>(kFailed);
    }
};

// Reading and writing can also be cut.
template <bool kWrites, typename Buffer>
struct Transfer {
    static inline BOOL(WINAPI* real)(HANDLE, Buffer, DWORD, DWORD*, OVERLAPPED*);

    static BOOL WINAPI Call(HANDLE file, Buffer bytes, DWORD size, DWORD* moved, OVERLAPPED* at) {
        if (!IsHere(kWrites ? "WriteFile" : "ReadFile")) return real(file, bytes, size, moved, at);
        const bool lies = g_fault->how == Fault::kLied;
        if (g_fault->error != 0) {
            if (g_fault->how == Fault::kDone) real(file, bytes, size, moved, at);
            return Failed<BOOL>(0);
        }
        g_outcome->happened = kWrites || !lies;
        const DWORD part = g_fault->how == Fault::kNone ? 0 : size / 2;
        const BOOL done = real(file, bytes, g_outcome->happened ? part : size, moved, at);
        if (lies && kWrites) *moved = size;
        return done;
    }
};

// The entry of that name in the program's import table.
void** EntryOf(std::string_view name) {
    char* const base = reinterpret_cast<char*>(GetModuleHandleW(nullptr));
    const auto at = [&](auto offset) { return base + offset; };
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(at(dos->e_lfanew));
    const auto& table = nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    auto* library = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(at(table.VirtualAddress));
    for (; library->Name != 0; ++library) {
        auto* names = reinterpret_cast<const IMAGE_THUNK_DATA*>(at(library->OriginalFirstThunk));
        auto** entry = reinterpret_cast<void**>(at(library->FirstThunk));
        for (; names->u1.AddressOfData != 0; ++names, ++entry) {
            if (IMAGE_SNAP_BY_ORDINAL(names->u1.Ordinal)) continue;
            const auto* import =
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(at(names->u1.AddressOfData));
            if (name == reinterpret_cast<const char*>(import->Name)) return entry;
        }
    }
    return nullptr;
}

template <typename Hooked>
void Install(const char* name) {
    void** const entry = EntryOf(name);
    DWORD before = 0;
    // A function that the program does not use has no entry.
    if (entry == nullptr || !VirtualProtect(entry, sizeof *entry, PAGE_READWRITE, &before)) return;
    Hooked::real = reinterpret_cast<decltype(Hooked::real)>(*entry);
    *entry = reinterpret_cast<void*>(&Hooked::Call);
    VirtualProtect(entry, sizeof *entry, before, &before);
}

template <int Index, std::intptr_t kFailed, bool kAlways = false, typename Function>
void InstallHook(const char* name, Function) {
    using Hooked = Hook<Index, kFailed, kAlways, Function>;
    Hooked::name = name;
    Install<Hooked>(name);
}

void InstallAll() {
#define HOOK(function, ...) InstallHook<__COUNTER__, __VA_ARGS__>(#function, &function)
    HOOK(CreateFileW, -1), HOOK(GetFileAttributesW, -1), HOOK(FindFirstFileW, -1);
    HOOK(GetFileAttributesExW, 0), HOOK(GetFileInformationByHandle, 0), HOOK(GetFileSizeEx, 0);
    HOOK(FlushFileBuffers, 0), HOOK(GetVolumeInformationByHandleW, 0), HOOK(MoveFileExW, 0);
    HOOK(GetFileSecurityW, 0), HOOK(SetFileSecurityW, 0), HOOK(DeleteFileW, 0);
    HOOK(CreateDirectoryW, 0), HOOK(RemoveDirectoryW, 0), HOOK(FindNextFileW, 0);
    HOOK(CreateMutexW, 0), HOOK(OpenProcessToken, 0), HOOK(CloseHandle, 0, true);
#undef HOOK
    Install<Transfer<true, const void*>>("WriteFile");
    Install<Transfer<false, void*>>("ReadFile");
}

}  // namespace

const std::vector<Fault>& Faults() {
    static std::vector<Fault> faults;
    if (!faults.empty()) return faults;
    for (const int error : {ERROR_IO_DEVICE, ERROR_DISK_FULL, ERROR_ACCESS_DENIED,
                            ERROR_NETNAME_DELETED, ERROR_TOO_MANY_OPEN_FILES}) {
        faults.push_back({Fault::kRefused, error});
    }
    for (const auto how : {Fault::kHalf, Fault::kNone, Fault::kLied}) faults.push_back({how});
    faults.push_back({Fault::kDone, ERROR_IO_DEVICE});
    return faults;
}

Outcome RunWith(const Fault& fault, int n, const std::function<std::string()>& work,
                const std::function<void()>&) {
    static const bool installed = (InstallAll(), true);
    Outcome outcome;
    g_call = installed ? n : 0;
    g_fault = &fault;
    g_outcome = &outcome;
    std::string said;
    try {
        SetLastError(0);  // so that no earlier failure can pass for the reason of this one
        said = work();
    } catch (...) {
        outcome.crashed = true;
    }
    g_outcome = nullptr;
    outcome.said = said;
    return outcome;
}

bool CanFail() {
    return true;
}

}  // namespace test

#endif
