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

// Unlike in the system's own data files there is a zero before the point, and a negative value
// stays one: it is limited when it is read.
std::string PrePiercingText(float thickness) {
    std::string text = text::NumberText(thickness);
    const std::size_t sign = text.front() == '-' ? 1 : 0;
    if (text[sign] == '.') text.insert(sign, 1, '0');
    return text;
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
    const std::string path = ProfileIn(userDir);
    const auto write = [&](std::string_view key, std::string_view value) {
        profile::WriteKey(path, kSection, key, value);
    };
    const auto writeFlag = [&](std::string_view key, int flag) {
        write(key, flag != 0 ? "1" : "0");
    };
    writeFlag("AllowKerfProg", options.AllowKerfProg);
    writeFlag("NestCheck", options.NestCheck);
    writeFlag("TracePlateOutline", options.TracePlateOutline);
    writeFlag("PrePiercingEnabled", options.PrePiercingEnabled);
    write("PrePiercingThickness", PrePiercingText(options.PrePiercingThickness));
}

}  // namespace materiallist
