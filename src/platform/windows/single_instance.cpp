#include "platform/single_instance.h"

#include <windows.h>

#include <sddl.h>

#include "errors/errors.h"
#include "platform/native.h"
#include "platform/windows/handle.h"

namespace platform {
namespace {

// The operator's own number on this computer, the same in all sessions.
std::wstring Operator() {
    HANDLE raw = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &raw)) return {};
    const native::Handle token(raw);
    union {
        TOKEN_USER user;
        char space[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE];
    } buffer;
    DWORD size = 0;
    wchar_t* text = nullptr;
    if (!GetTokenInformation(token.Get(), TokenUser, &buffer, sizeof buffer, &size) ||
        !ConvertSidToStringSidW(buffer.user.User.Sid, &text)) {
        return {};
    }
    const std::wstring number = text;
    LocalFree(text);
    return number;
}

}  // namespace

// A named mutex; it goes with the process.
SingleInstance::SingleInstance() {
    const std::wstring name = Operator();
    if (!name.empty()) {
        const std::wstring suffix(Suffix().begin(), Suffix().end());
        handle_ = CreateMutexW(nullptr, FALSE,
                               (L"Global\\QuarvelSystemManager-" + name + suffix).c_str());
    }
    const std::error_code error = native::LastError();
    // One that may not be opened is there all the same.
    const bool denied = !name.empty() && handle_ == nullptr && error.value() == ERROR_ACCESS_DENIED;
    anotherIsRunning_ = denied || (handle_ != nullptr && error.value() == ERROR_ALREADY_EXISTS);
    if (handle_ == nullptr && !denied) {
        throw errors::FatalError("Whether another System Manager is running cannot be found out: " +
                                 native::Reason(error));
    }
}

SingleInstance::~SingleInstance() {
    if (handle_ != nullptr) CloseHandle(handle_);
}

}  // namespace platform
