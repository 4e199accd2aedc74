#include "materiallist/nest_options.h"

#include <algorithm>

#include "profile/data_file.h"
#include "profile/write_key.h"
#include "text/numbers.h"

namespace materiallist {
namespace {

constexpr std::string_view kSection = "Nest";

std::string ProfileIn(const std::string& userDir) {
    return userDir + "\\nestuser.ini";
}

}  // namespace

bool NestOptionsChanged = false;

NestOptions& TheNestOptions() {
    static NestOptions options;
    return options;
}

void ResetNestOptions() {
    TheNestOptions() = {};
    NestOptionsChanged = false;
}

void ReadNestOptions(const std::string& userDir) {
    const auto file = profile::Profile::LoadIfReadable(ProfileIn(userDir));
    profile::ValueReader values(file);
    const auto flag = [&](std::string_view key) -> std::int16_t {
        return text::Val(values.Read(kSection, key, "0")) != 0 ? 1 : 0;
    };
    NestOptions& options = TheNestOptions();
    options.AllowKerfProg = flag("AllowKerfProg");
    options.NestCheck = flag("NestCheck");
    options.TracePlateOutline = flag("TracePlateOutLine");
    options.PrePiercingEnabled = flag("PrePiercingEnabled");
    options.PrePiercingThickness = std::max(
        0.0f, text::ToSingle(text::Val(values.Read(kSection, "PrePiercingThickness", "50"))));
}

void WriteNestOptions(const std::string& userDir) {
    const NestOptions& options = TheNestOptions();
    const auto flag = [](int value) { return value != 0 ? "1" : "0"; };
    profile::WriteKeys(ProfileIn(userDir), kSection,
                       {{"AllowKerfProg", flag(options.AllowKerfProg)},
                        {"NestCheck", flag(options.NestCheck)},
                        {"TracePlateOutline", flag(options.TracePlateOutline)},
                        {"PrePiercingEnabled", flag(options.PrePiercingEnabled)},
                        {"PrePiercingThickness", text::PlainText(options.PrePiercingThickness)}});
}

}  // namespace materiallist
