#include "inspect/finding.h"

#include <cstdio>

#include "errors/errors.h"
#include "platform/drives.h"
#include "text/code_page.h"

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
    // What a terminal would act on is shown as its code.
    std::string shown;
    for (char c : finding.text) {
        char code[8] = {c, '\0'};
        if (c >= '\0' && c < ' ') std::snprintf(code, sizeof code, "\\x%02X", c);
        shown += code;
    }
    return NativePath(finding.path) + line + ": " + NameOf(finding.severity) + ": " +
           text::ToUtf8(shown);
}

}  // namespace inspect
