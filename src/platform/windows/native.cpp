// The file layer on Windows: its own drives, names in UTF-16, case kept but not compared.
#include "platform/native.h"

#include <windows.h>

#include "text/code_page.h"

namespace platform::native {
namespace {

std::string NarrowLabel(const wchar_t* label) {
    std::string result;
    for (; *label != L'\0'; ++label) {
        // Only shown, never used as a name, so a stand-in does no harm here.
        result += text::FromUnicode(*label).value_or('?');
    }
    return result;
}

// Where programs are looked for.
std::wstring SearchPath() {
    std::wstring path(GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0');
    path.resize(GetEnvironmentVariableW(L"PATH", path.data(), static_cast<DWORD>(path.size())));
    return path;
}

}  // namespace

fs::path CacheFolder(std::error_code& error) {
    return fs::temp_directory_path(error) / L"quarvel-sysman";
}

std::error_code LastError() {
    return {static_cast<int>(GetLastError()), std::system_category()};
}

FileErrorKind KindOfPlatform(const std::error_code& error) {
    if (error == std::errc::no_space_on_device || error == std::errc::file_too_large) {
        return FileErrorKind::kDiskFull;
    }
    if (error.category() == std::generic_category()) {  // found by the standard library itself
        if (error == std::errc::no_such_file_or_directory) return FileErrorKind::kFileNotFound;
        if (error == std::errc::not_a_directory) return FileErrorKind::kPathNotFound;
        return FileErrorKind::kPathFileAccess;
    }
    switch (error.value()) {
        case ERROR_FILE_NOT_FOUND:
            return FileErrorKind::kFileNotFound;
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_DRIVE:
        case ERROR_DIRECTORY:
            return FileErrorKind::kPathNotFound;
        case ERROR_ACCESS_DENIED:
        case ERROR_SHARING_VIOLATION:
        case ERROR_LOCK_VIOLATION:
        case ERROR_WRITE_PROTECT:
        case ERROR_FILE_EXISTS:
        case ERROR_ALREADY_EXISTS:
        case ERROR_DIR_NOT_EMPTY:
        case ERROR_CURRENT_DIRECTORY:
        case ERROR_INVALID_NAME:
            return FileErrorKind::kPathFileAccess;
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            return FileErrorKind::kDiskFull;
        case ERROR_NOT_READY:
        case ERROR_DEV_NOT_EXIST:
        case ERROR_GEN_FAILURE:
        case ERROR_CRC:
        case ERROR_IO_DEVICE:
        case ERROR_SEM_TIMEOUT:
        case ERROR_BAD_NETPATH:
        case ERROR_BAD_NET_NAME:
        case ERROR_NETNAME_DELETED:
        case ERROR_UNEXP_NET_ERR:
            return FileErrorKind::kDeviceUnavailable;
        default:
            return FileErrorKind::kOther;
    }
}

namespace {

// The letters of the computer.
class Letters : public DriveSource {
  public:
    Letters() {
        // An empty card reader is to be skipped, not asked for with the system's own box.
        SetErrorMode(SetErrorMode(0) | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
    }

    fs::path Root(char letter) const override { return fs::path(std::string(1, letter) + ":\\"); }
    std::optional<std::string> Label(char letter) const override {
        if ((GetLogicalDrives() & (1u << (letter - 'a'))) == 0) return std::nullopt;
        // The volume is asked, not its root: that of an empty one has no entries, which reads as
        // an error.
        wchar_t label[MAX_PATH + 1] = L"";
        if (!GetVolumeInformationW(Root(letter).c_str(), label, MAX_PATH + 1, nullptr, nullptr,
                                   nullptr, nullptr, 0)) {
            return std::nullopt;
        }
        return NarrowLabel(label);
    }
    std::string Place() const override { return "the letters of this computer that answer"; }
    std::string WindowsDirectory() const override {
        char buffer[255] = "";
        const UINT length = GetWindowsDirectoryA(buffer, 254);
        return {buffer, length < 254 ? length : 0};
    }
};

}  // namespace

std::unique_ptr<DriveSource> OwnDrives() {
    return std::make_unique<Letters>();
}

std::string Reason(const std::error_code& error) {
    return error.message();  // in the ANSI code page
}

fs::path FromSystem(std::string_view name) {
    std::wstring wide;
    for (char c : name) wide += static_cast<wchar_t>(text::ToUnicode(c));
    return fs::path(wide);
}

std::optional<std::string> ToSystem(const fs::path& name) {
    std::string result;
    for (wchar_t wide : name.native()) {
        const auto byte = text::FromUnicode(wide);
        if (!byte) return std::nullopt;
        result += *byte;
    }
    return result;
}

fs::path FindEntry(const fs::path& folder, std::string_view name, Lookup) {
    return folder / FromSystem(name);
}

bool StartBatchFile(const fs::path& path, std::error_code& error) {
    // The interpreter would read the file in the code page of old consoles, where a name with an
    // accent is another one. The console's is changed first, to that which the file is written in.
    wchar_t program[MAX_PATH] = L"", system[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, program, MAX_PATH);
    GetSystemDirectoryW(system, MAX_PATH);
    const std::wstring interpreter = (fs::path(system) / L"cmd.exe").native();
    std::wstring command = L"\"" + interpreter + L"\" /d /s /c \"chcp " +
                           std::to_wstring(GetACP()) + L" >nul & \"" + path.native() + L"\"\"";
    const std::wstring search = SearchPath();
    const std::wstring first = fs::path(program).parent_path().native() + L";" + search;
    SetEnvironmentVariableW(L"PATH", first.c_str());

    STARTUPINFOW start = {};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = SW_SHOWMAXIMIZED;
    PROCESS_INFORMATION started = {};
    const BOOL done =
        CreateProcessW(interpreter.c_str(), command.data(), nullptr, nullptr, FALSE,
                       CREATE_NEW_CONSOLE, nullptr, path.parent_path().c_str(), &start, &started);
    if (!done) error = LastError();
    SetEnvironmentVariableW(L"PATH", search.c_str());
    if (done) {
        CloseHandle(started.hThread);
        CloseHandle(started.hProcess);
    }
    return done != 0;
}

}  // namespace platform::native
