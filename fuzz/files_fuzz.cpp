// Any bytes as a profile: every key that is written is found with its value, also after the next.
// Any processes as their data file: what is written is read back as it was.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <map>

#include "process/process_file.h"
#include "process/process_table.h"
#include "profile/profile.h"
#include "profile/write_key.h"
#include "text/clean_text.h"
#include "text/strings.h"

namespace {

#define REQUIRE(condition) \
    if (!(condition)) std::abort()

using profile::Profile;
using std::string;

// What can stand in a line as a name or a value.
string Word(FuzzedDataProvider& input) {
    string word = input.ConsumeRandomLengthString(70);
    std::erase_if(word, [](char c) { return c == ' ' || !text::IsPrintableChar({&c, 1}); });
    std::erase_if(word, [](char c) { return c == '"' || c == '\'' || c == ']'; });
    return word;
}

void CheckProfile(FuzzedDataProvider& input) {
    // A name comes again, in this case or the other.
    const auto name = [&] {
        return string(input.PickValueInArray({"a", "A", "b", "a b", "", "\xFC", "\xDC", "\xFF"}));
    };
    string file = input.ConsumeRandomLengthString();
    std::map<std::pair<string, string>, string> keys;  // by section and key in capitals
    for (int writes = input.ConsumeIntegralInRange(0, 20); writes > 0; --writes) {
        const string section = name(), key = name(), value = Word(input);
        const auto written = profile::WithKey(file, section, key, value);
        if (!written) continue;
        file = *written;
        keys[{text::UpperCase(section), text::UpperCase(key)}] = value;
        const Profile read(file);
        for (const auto& [place, kept] : keys)
            REQUIRE(read.Find(place.first, place.second) == kept);
    }
}

void CheckTable(FuzzedDataProvider& input) {
    const auto pick = [&](std::int16_t from, std::int16_t to) {
        return input.ConsumeIntegralInRange(from, to);
    };
    const auto number = [&] { return static_cast<float>(pick(0, 9999)) / 8; };  // of seven digits
    const auto lead = [&] { return input.PickValueInArray({"Line", "Arc", "A180", ""}); };
    const auto clean = [](auto& text) { text = text::CleanText(text); };

    process::ProcessTable table, read;
    table.ProcessCount = pick(0, process::MaxProcesses);
    for (int n = 1; n <= table.ProcessCount; ++n) {
        auto& record = table.Process(n);
        record.Name = "P" + std::to_string(n) + "." + Word(input);
        record.Rapid = number(), record.LineMarkRate = number();
        record.Leadin = lead(), record.Leadout = lead();
        if (record.Leadin.View() == process::kLeadLine) record.Angle = pick(-32768, 32767);
        if (record.Leadout.View() == process::kLeadLine) record.Leadoutangle = pick(-32768, 32767);
        record.LeadoutPercent = pick(-32768, 32767), record.LeadoutOverrun = pick(-32768, 32767);
        record.MajorDir = pick(-1, 1), record.MinorDir = pick(-1, 1);
        record.MinorOpenKerf = pick(-1, 1), record.AddKerf = pick(0, 1);
        record.Extension = pick(0, 1), record.Leadoutextension = pick(0, 32767);
        record.ThicknessCount = pick(0, 3);
        for (int k = 1; k <= record.ThicknessCount; ++k) {
            record.Row(k) = {-number(), number(), number(), number(), number()};
        }
    }
    ReadProcesses(Profile(ProcessFileText(table)), read);
    for (auto& record : read.Processes) {
        clean(record.Name), clean(record.Leadin), clean(record.Leadout);
    }
    REQUIRE(table.Processes == read.Processes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    input.ConsumeBool() ? CheckProfile(input) : CheckTable(input);
    return 0;
}
