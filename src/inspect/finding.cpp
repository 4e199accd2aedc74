#include "inspect/finding.h"

#include "errors/errors.h"
#include "platform/drives.h"
#include "text/code_page.h"
#include "text/strings.h"

namespace inspect {
namespace {

std::string NativePath(const std::string& path) {
    try {
        const std::u8string native = platform::Resolve(path).u8string();
        return {native.begin(), native.end()};
    } catch (const errors::FileError&) {
        return text::ToUtf8(path);
    }
}

}  // namespace

const char* NameOf(Severity severity) {
    static constexpr const char* kNames[] = {"error", "warning", "note"};
    return kNames[static_cast<int>(severity)];
}

std::string Sentence(const Finding& finding) {
    const std::string line = finding.line == 0 ? "" : ":" + std::to_string(finding.line);
    return NativePath(finding.path) + line + ": " + NameOf(finding.severity) + ": " +
           text::ToUtf8(text::ShowControls(finding.text));
}

}  // namespace inspect
