#include "platform/folder.h"

#include "platform/drives.h"
#include "platform/errors.h"
#include "platform/native.h"

namespace platform {

Folder::Folder(std::string_view path) : path_(path), native_(Resolve(path)) {}

std::optional<FileDetails> Folder::Details(std::string_view name) const {
    const std::filesystem::path file = native_ / native::FromSystem(name);
    std::error_code error;
    FileDetails details{std::filesystem::file_size(file, error), {}};
    if (!error) details.changed = native::LastChange(file, error);
    if (!error) return details;
    const FileErrorKind kind = native::KindOf(error);
    if (kind == FileErrorKind::kFileNotFound || kind == FileErrorKind::kPathNotFound) {
        return std::nullopt;
    }
    throw FileError(kind, path_ + "\\" + std::string(name), error.message());
}

}  // namespace platform
