// Showing a file on a Windows desktop.
#include <windows.h>

#include <shellapi.h>

#include "platform/native.h"

namespace platform::native {

void ShowToOperator(const fs::path& path, std::error_code& error) {
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(nullptr, L"open", path.c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    // What the call gives up to 32 is a failure; the reason is also the platform's last error.
    if (result <= 32) error = LastError();
}

}  // namespace platform::native
