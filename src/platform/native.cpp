#include "platform/native.h"

namespace platform::native {
namespace {

class RefusalCategory : public std::error_category {
  public:
    const char* name() const noexcept override { return "file layer"; }
    std::string message(int code) const override {
        switch (static_cast<Refusal>(code)) {
            case Refusal::kNotAFile:
                return "there is something else than a file in its place";
            case Refusal::kNotADirectory:
                return "is not a directory of its own";
            case Refusal::kReadOnly:
                return "is read-only";
            case Refusal::kGroupLost:
                return "its group cannot be kept, and its members could not use it any more";
            case Refusal::kNotAsWritten:
                return "the disk has not kept what was written";
            case Refusal::kChanging:
                return "the file is being changed by another program";
        }
        return "unknown";
    }
};

}  // namespace

std::error_code ErrorOf(Refusal refusal) {
    static const RefusalCategory category;
    return {static_cast<int>(refusal), category};
}

FileErrorKind KindOf(const std::error_code& error) {
    if (error == ErrorOf(Refusal::kNotAsWritten)) return FileErrorKind::kDeviceUnavailable;
    if (error.category() == ErrorOf(Refusal::kNotAFile).category()) {
        return FileErrorKind::kPathFileAccess;
    }
    return KindOfPlatform(error);
}

}  // namespace platform::native
