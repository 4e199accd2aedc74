#include "platform/operator_file.h"

#include <string>

#include "errors/errors.h"
#include "platform/drives.h"
#include "platform/native.h"
#include "text/code_page.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

// For messages; what the system's set lacks only stays out of them.
std::string SystemText(const fs::path& path) {
    const std::u8string utf8 = path.u8string();
    return text::FromUtf8(std::string(utf8.begin(), utf8.end())).value_or("The file");
}

// `missing` says what it is that is not there, where that is not the file.
void Check(const fs::path& path, const std::error_code& error, const char* missing = nullptr) {
    if (!error) return;
    const bool other = missing != nullptr && native::IsMissing(error);
    throw errors::FileError(native::KindOf(error), SystemText(path),
                            other ? missing : native::Reason(error));
}

fs::path Absolute(const fs::path& path) {
    std::error_code error;
    const fs::path absolute = fs::absolute(path, error);
    Check(path, error);
    return absolute;
}

}  // namespace

void ReplaceOperatorFile(const fs::path& path, std::string_view bytes) {
    std::error_code error;
    native::ReplaceWholeFile(Absolute(path), bytes, error);
    Check(path, error, "the directory that it belongs in is missing");
}

bool LiesIn(const fs::path& path, std::string_view directory) {
    const fs::path folder = Resolve(directory);
    std::error_code error;
    if (!fs::exists(folder, error)) {
        if (error) Check(folder, error);
        return false;
    }
    fs::path place = fs::weakly_canonical(Absolute(path), error);
    Check(path, error);
    // By what the directories are, not by their names, which may differ in case.
    for (; place.has_relative_path(); place = place.parent_path()) {
        if (fs::exists(place, error) && fs::equivalent(place, folder, error)) return true;
    }
    return false;
}

fs::path PageToShow(std::string_view name) {
    std::error_code error;
    const fs::path folder = native::CacheFolder(error);
    if (!error) fs::create_directories(folder, error);
    Check(folder, error);
    return folder / name;
}

void ShowToOperator(const fs::path& path) {
    std::error_code error;
    native::ShowToOperator(Absolute(path), error);
    Check(path, error, "there is no program to show it with");
}

}  // namespace platform
