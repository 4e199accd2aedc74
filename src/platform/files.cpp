#include "platform/files.h"

#include <algorithm>
#include <utility>

#include "errors/errors.h"
#include "platform/drives.h"
#include "platform/native.h"
#include "text/strings.h"

namespace platform {
namespace {

namespace fs = std::filesystem;
using errors::BadName;
using errors::FileError;
using errors::FileErrorKind;

[[noreturn]] void Fail(std::string_view path, const std::error_code& error) {
    throw FileError(native::KindOf(error), std::string(path), native::Reason(error));
}

void Check(std::string_view path, const std::error_code& error) {
    if (error) Fail(path, error);
}

// For what is made in a directory: that one is what is missing.
void CheckParent(std::string_view path, const std::error_code& error) {
    if (error && native::IsMissing(error)) {
        throw FileError(FileErrorKind::kPathNotFound, std::string(path),
                        "the directory that it belongs in is missing");
    }
    Check(path, error);
}

struct Split {
    std::string_view folder;  // without the last backslash
    std::string_view name;
};

Split SplitLast(std::string_view path) {
    const auto at = path.rfind('\\');
    if (at == path.npos)
        return {path.substr(0, 2), path.substr(std::min<std::size_t>(2, path.size()))};
    return {path.substr(0, at), path.substr(at + 1)};
}

bool Matches(std::string_view name, std::string_view pattern) {
    return pattern == "*.*" || text::FitsWildCards(text::LowerCase(name), text::LowerCase(pattern));
}

}  // namespace

std::vector<std::string> Dir(std::string_view pattern, DirKinds kinds) {
    const Split split = SplitLast(pattern);
    const auto folder = Folder::IfThere(split.folder);
    if (!folder) return {};
    auto names = folder->Names(kinds);
    std::erase_if(names, [&](const std::string& name) { return !Matches(name, split.name); });
    const bool directories = kinds == DirKinds::kFilesAndDirectories;
    const bool belowRoot = split.folder.size() > 3;
    if (directories && belowRoot && split.name == "*.*") names.insert(names.begin(), {".", ".."});
    return names;
}

void MkDir(std::string_view path) {
    const fs::path target = Resolve(path);
    std::error_code error;
    const auto there = native::TypeOf(target, Links::kStay, error);
    Check(path, error);
    if (there != native::EntryType::kMissing) {
        throw FileError(FileErrorKind::kPathFileAccess, std::string(path), "exists already");
    }
    native::MakeDirectory(target, error);
    CheckParent(path, error);
}

std::string ReadFile(std::string_view path) {
    std::error_code error;
    std::string bytes = native::ReadFile(Resolve(path), error);
    Check(path, error);
    return bytes;
}

std::optional<std::string> ReadFileIfThere(std::string_view path) {
    try {
        std::error_code error;
        std::string bytes = native::ReadFile(Resolve(path), error);
        if (error == native::ErrorOf(native::Refusal::kNotAFile)) return std::nullopt;
        Check(path, error);
        return bytes;
    } catch (const BadName&) {
        return std::nullopt;
    } catch (const FileError& failure) {
        if (failure.IsMissing()) return std::nullopt;
        throw;
    }
}

void ReplaceWholeFile(std::string_view path, std::string_view bytes) {
    std::error_code error;
    native::ReplaceWholeFile(Resolve(path), bytes, error);
    CheckParent(path, error);
}

void FileCopy(std::string_view from, std::string_view to) {
    ReplaceWholeFile(to, ReadFile(from));
}

std::uintmax_t FileLen(std::string_view path) {
    const fs::path file = Resolve(path);
    std::error_code error;
    const native::Directory folder(file.parent_path(), error);
    Check(path, error);
    const auto size = folder.Details(file.filename(), error).size;
    if (error == native::ErrorOf(native::Refusal::kNotAFile)) {
        throw FileError(FileErrorKind::kFileNotFound, std::string(path), "no file of that name");
    }
    Check(path, error);
    return size;
}

bool StartBatchFile(std::string_view path) {
    std::error_code error;
    const bool started = native::StartBatchFile(Resolve(path), error);
    Check(path, error);
    return started;
}

}  // namespace platform
