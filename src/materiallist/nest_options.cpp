#include "materiallist/nest_options.h"

#include <algorithm>

#include "app/system_config.h"
#include "materiallist/material_list_table.h"
#include "profile/data_file.h"
#include "profile/write_key.h"
#include "text/numbers.h"

namespace materiallist {
namespace {

constexpr std::string_view kSection = "Nest";

}  // namespace

void ReadNestOptions(const std::string& userDir) {
    const auto file = profile::Profile::LoadIfReadable(app::UserProfileIn(userDir));
    profile::ValueReader values(file);
    const auto flag = [&](std::string_view key) -> std::int16_t {
        return text::Val(values.Read(kSection, key, "0")) != 0 ? 1 : 0;
    };
    NestOptions& options = TheNestOptions();
    options.AllowKerfProg = flag("AllowKerfProg");
    options.NestCheck = flag("NestCheck");
    options.TracePlateOutline = flag("TracePlateOutLine");
    options.PrePiercingEnabled = flag("PrePiercingEnabled");
    options.PrePiercingThickness =
        std::max(0.0f, text::ToSingle(values.Read(kSection, "PrePiercingThickness", "50")));
}

void WriteNestOptions(const std::string& userDir) {
    const NestOptions& options = TheNestOptions();
    const auto flag = [](int value) { return value != 0 ? "1" : "0"; };
    profile::WriteKeys(app::UserProfileIn(userDir), kSection,
                       {{"AllowKerfProg", flag(options.AllowKerfProg)},
                        {"NestCheck", flag(options.NestCheck)},
                        {"TracePlateOutline", flag(options.TracePlateOutline)},
                        {"PrePiercingEnabled", flag(options.PrePiercingEnabled)},
                        {"PrePiercingThickness", text::PlainText(options.PrePiercingThickness)}});
}

}  // namespace materiallist
