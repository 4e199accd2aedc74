#include "platform/files.h"

#include <algorithm>
#include <utility>

#include "platform/drives.h"
#include "platform/errors.h"
#include "platform/native.h"
#include "text/strings.h"

namespace platform {
namespace {

namespace fs = std::filesystem;

[[noreturn]] void Fail(std::string_view path, const std::error_code& error) {
    throw FileError(native::KindOf(error), std::string(path), error.message());
}

void Check(std::string_view path, const std::error_code& error) {
    if (error) Fail(path, error);
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
    if (pattern == "*.*") return true;
    // The usual walk with one place to fall back to: the last * and what it has swallowed so far.
    std::size_t at = 0, p = 0, star = pattern.npos, resume = 0;
    while (at < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            resume = at;
        } else if (p < pattern.size() &&
                   (pattern[p] == '?' ||
                    text::EqualIgnoringCase(pattern.substr(p, 1), name.substr(at, 1)))) {
            ++p;
            ++at;
        } else if (star != pattern.npos) {
            p = star + 1;
            at = ++resume;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == pattern.npos;
}

// Whether the folder can't be listed because it is not there (or is no folder).
bool IsMissing(const std::error_code& error) {
    const auto kind = native::KindOf(error);
    return kind == FileErrorKind::kFileNotFound || kind == FileErrorKind::kPathNotFound;
}

// Runs `visit` for each entry of a native folder; false when the folder is not there.
template <typename Visit>
bool ForEachEntry(std::string_view path, const fs::path& folder, Visit visit) {
    std::error_code error;
    fs::directory_iterator at(folder, error);
    if (error && IsMissing(error)) return false;
    Check(path, error);
    for (; at != fs::directory_iterator(); at.increment(error)) {
        visit(*at);
        if (error) break;
    }
    Check(path, error);
    return true;
}

}  // namespace

std::vector<std::string> Dir(std::string_view pattern, DirKinds kinds) {
    const Split split = SplitLast(pattern);
    std::vector<std::string> names;
    const bool directories = kinds == DirKinds::kFilesAndDirectories;
    const bool found =
        ForEachEntry(pattern, Resolve(split.folder), [&](const fs::directory_entry& entry) {
            const auto name = SystemName(entry.path().filename());
            if (!name || !Matches(*name, split.name) || native::IsHidden(entry.path())) return;
            std::error_code gone;
            if (directories ? entry.exists(gone) : entry.is_regular_file(gone)) {
                names.push_back(*name);
            }
        });
    std::sort(names.begin(), names.end(), text::LessIgnoringCase);
    const bool belowRoot = split.folder.size() > 3;
    if (found && directories && belowRoot && split.name == "*.*") {
        names.insert(names.begin(), {".", ".."});
    }
    return names;
}

bool FileExists(std::string_view path) {
    try {
        std::error_code error;
        return fs::is_regular_file(Resolve(path), error);
    } catch (const FileError&) {
        return false;
    }
}

void MkDir(std::string_view path) {
    const fs::path target = Resolve(path);
    std::error_code error;
    if (fs::symlink_status(target, error).type() != fs::file_type::not_found) {
        throw FileError(FileErrorKind::kPathFileAccess, std::string(path), "exists already");
    }
    if (!fs::is_directory(target.parent_path(), error)) {
        throw FileError(FileErrorKind::kPathNotFound, std::string(path),
                        "the directory that it belongs in is missing");
    }
    error.clear();
    fs::create_directory(target, error);
    Check(path, error);
}

bool IsLink(std::string_view path) {
    return native::IsLink(Resolve(path));
}

void RmDir(std::string_view path) {
    const fs::path target = Resolve(path, Lookup::kOnlyMatch);
    std::error_code error;
    const auto type = fs::symlink_status(target, error).type();
    if (type == fs::file_type::not_found) {
        throw FileError(FileErrorKind::kPathNotFound, std::string(path), "no such directory");
    }
    if (type != fs::file_type::directory || native::IsLink(target)) {
        throw FileError(FileErrorKind::kPathFileAccess, std::string(path), "is not a directory");
    }
    error.clear();
    fs::remove(target, error);
    Check(path, error);
}

void Kill(std::string_view pattern) {
    const Split split = SplitLast(pattern);
    const fs::path folder = Resolve(split.folder, Lookup::kOnlyMatch);
    if (native::IsLink(folder)) {
        throw FileError(FileErrorKind::kPathFileAccess, std::string(pattern), "leads elsewhere");
    }
    // The names are collected first: removing while iterating may skip entries.
    std::vector<fs::path> files;
    const bool found = ForEachEntry(pattern, folder, [&](const fs::directory_entry& entry) {
        std::error_code gone;
        const auto name = SystemName(entry.path().filename());
        const bool matches = split.name == "*.*" || (name && Matches(*name, split.name));
        // A link to a directory stays like one.
        const bool isDirectory = entry.is_directory(gone);
        if (matches && !isDirectory) files.push_back(entry.path());
    });
    if (!found || files.empty()) {
        throw FileError(FileErrorKind::kFileNotFound, std::string(pattern), "no file matches");
    }
    std::error_code failure;
    for (const fs::path& file : files) {
        std::error_code error;
        if (native::IsReadOnly(file)) {
            error = std::make_error_code(std::errc::permission_denied);
        } else {
            native::RemoveFile(file, error);
        }
        if (error && !failure) failure = error;
    }
    if (failure) {
        throw FileError(FileErrorKind::kPathFileAccess, std::string(pattern), failure.message());
    }
}

std::string ReadFile(std::string_view path) {
    std::error_code error;
    std::string bytes = native::ReadFile(Resolve(path), error);
    Check(path, error);
    return bytes;
}

void ReplaceWholeFile(std::string_view path, std::string_view bytes) {
    std::error_code error;
    fs::path target = Resolve(path);
    // A link stays a link: the file that it leads to is replaced.
    if (native::IsLink(target)) {
        const fs::path real = fs::canonical(target, error);
        if (!error) target = real;
    }
    error.clear();
    if (fs::is_directory(target, error)) {
        throw FileError(FileErrorKind::kPathFileAccess, std::string(path), "is a directory");
    }
    if (!fs::is_directory(target.parent_path(), error)) {
        throw FileError(FileErrorKind::kPathNotFound, std::string(path),
                        "the directory that it belongs in is missing");
    }
    if (native::IsReadOnly(target)) {
        throw FileError(FileErrorKind::kPathFileAccess, std::string(path), "is read-only");
    }
    error.clear();
    native::ReplaceWholeFile(target, bytes, error);
    Check(path, error);
}

void FileCopy(std::string_view from, std::string_view to) {
    ReplaceWholeFile(to, ReadFile(from));
}

std::uintmax_t FileLen(std::string_view path) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(Resolve(path), error);
    Check(path, error);
    return size;
}

std::tm FileDateTime(std::string_view path) {
    std::error_code error;
    const std::tm time = native::LastChange(Resolve(path), error);
    Check(path, error);
    return time;
}

bool StartBatchFile(std::string_view path) {
    std::error_code error;
    const bool started = native::StartBatchFile(Resolve(path), error);
    Check(path, error);
    return started;
}

}  // namespace platform
