#include "platform/folder.h"

#include <algorithm>
#include <utility>

#include "errors/errors.h"
#include "platform/native.h"
#include "text/strings.h"

namespace platform {
namespace {

using errors::FileError;
using errors::FileErrorKind;

void Check(std::string_view path, const std::error_code& error) {
    if (!error) return;
    const bool noDirectory = native::KindOf(error) == FileErrorKind::kFileNotFound;
    throw FileError(noDirectory ? FileErrorKind::kPathNotFound : native::KindOf(error),
                    std::string(path), native::Reason(error));
}

// The name in the system's set, if it can be addressed by it.
std::optional<std::string> Addressable(const native::fs::path& name) {
    auto result = SystemName(name);
    if (result && !IsValidName(*result)) result.reset();
    return result;
}

// By case as well where nothing else tells two names apart, so that a listing has one order.
bool Before(const std::string& a, const std::string& b) {
    if (text::LessIgnoringCase(a, b)) return true;
    return !text::LessIgnoringCase(b, a) && a < b;
}

}  // namespace

struct Folder::State {
    std::string path;
    native::Directory directory;

    std::string PathOf(std::string_view name) const { return path + "\\" + std::string(name); }
    std::vector<native::Entry> Entries() const {
        std::error_code error;
        auto entries = directory.Entries(error);
        Check(path, error);
        return entries;
    }
    // The native name of the only entry with that name.
    native::fs::path Only(std::string_view name) const {
        std::vector<native::fs::path> found;
        for (auto& entry : Entries()) {
            const auto other = Addressable(entry.name);
            if (other && text::EqualIgnoringCase(*other, name)) found.push_back(entry.name);
        }
        if (found.size() == 1) return found.front();
        throw FileError(
            found.empty() ? FileErrorKind::kPathNotFound : FileErrorKind::kPathFileAccess,
            PathOf(name), found.empty() ? "no such directory" : "more than one name matches");
    }
    // Whether it is a normal file, which a link leads to or not.
    bool IsFile(const native::Entry& entry) const {
        if (entry.type != native::EntryType::kLink) return entry.type == native::EntryType::kFile;
        std::error_code error;
        const auto type = directory.TypeOf(entry.name, error);
        // What cannot be looked at is listed: a file of that name may well be there.
        return error || type == native::EntryType::kFile;
    }
};

Folder::Folder(std::unique_ptr<State> state) : state_(std::move(state)) {}
Folder::Folder(Folder&&) noexcept = default;
Folder::~Folder() = default;

Folder::Folder(std::string_view path, Lookup lookup) {
    std::error_code error;
    native::Directory directory(Resolve(path, lookup), error);
    Check(path, error);
    state_ = std::make_unique<State>(State{std::string(path), std::move(directory)});
}

std::optional<Folder> Folder::IfThere(std::string_view path) {
    std::error_code error;
    native::Directory directory(Resolve(path), error);
    if (error && native::IsMissing(error)) return std::nullopt;
    Check(path, error);
    return Folder(std::make_unique<State>(State{std::string(path), std::move(directory)}));
}

Folder Folder::Sub(std::string_view name) const {
    std::error_code error;
    native::Directory directory(state_->directory, state_->Only(name), error);
    Check(state_->PathOf(name), error);
    return Folder(std::make_unique<State>(State{state_->PathOf(name), std::move(directory)}));
}

std::vector<std::string> Folder::Names(DirKinds kinds) const {
    std::vector<std::string> names;
    for (const native::Entry& entry : state_->Entries()) {
        if (entry.hidden) continue;
        const auto name = Addressable(entry.name);
        if (!name) continue;
        if (kinds == DirKinds::kFilesAndDirectories || state_->IsFile(entry)) {
            names.push_back(*name);
        }
    }
    std::sort(names.begin(), names.end(), Before);
    return names;
}

FileDetails Folder::Details(std::string_view name) const {
    std::error_code error;
    const auto details = state_->directory.Details(native::FromSystem(name), error);
    if (error) throw FileError(native::KindOf(error), state_->PathOf(name), native::Reason(error));
    return details;
}

void Folder::Kill() const {
    bool any = false;
    std::error_code failure;
    for (const native::Entry& entry : state_->Entries()) {
        if (!Addressable(entry.name)) continue;
        std::error_code error;
        auto type = entry.type;
        if (type == native::EntryType::kLink) type = state_->directory.TypeOf(entry.name, error);
        if (type == native::EntryType::kDirectory) continue;
        any = true;
        if (!error) state_->directory.RemoveFile(entry.name, error);
        if (error && !failure) failure = error;
    }
    if (failure) {
        throw FileError(FileErrorKind::kPathFileAccess, state_->path, native::Reason(failure));
    }
    if (!any) throw FileError(FileErrorKind::kFileNotFound, state_->path, "no file matches");
}

void Folder::RmDir(std::string_view name) const {
    std::error_code error;
    state_->directory.RemoveFolder(state_->Only(name), error);
    Check(state_->PathOf(name), error);
}

}  // namespace platform
