// Any bytes as a profile: every key that is written is found with its value, also after the next.
// Any processes as their data file: what is written is read back as it was, and a look over it
// finds no error. Any lines as a data file: what such a look calls an error is what cannot be
// opened.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdlib>
#include <map>

#include "errors/errors.h"
#include "inspect/check_files.h"
#include "materialtypes/material_type_table.h"
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

bool FindsError(const auto& check, const string& bytes) {
    inspect::Tables tables;
    inspect::Findings findings;
    check("c:\\x", bytes, tables, findings);
    return std::any_of(findings.begin(), findings.end(), [](const inspect::Finding& finding) {
        return finding.severity == inspect::Severity::kError;
    });
}

bool Throws(const auto& read) {
    try {
        read();
        return false;
    } catch (const errors::FatalError&) {
        return true;
    }
}

void CheckLook(const string& bytes) {
    const Profile file(bytes);
    process::ProcessTable processes;
    materialtypes::MaterialTypeTable types;
    materiallist::MaterialListTable list;
    REQUIRE(FindsError(inspect::CheckProcesses, bytes) ==
            Throws([&] { ReadProcesses(file, processes); }));
    REQUIRE(FindsError(inspect::CheckMaterialTypes, bytes) ==
            Throws([&] { ReadMaterialTypes(file, types); }));
    const auto checkList = [](const string& path, const string& text, const inspect::Tables& tables,
                              inspect::Findings& findings) {
        CheckMaterialList(path, text, materiallist::kExistingDirectory, tables, findings);
    };
    REQUIRE(FindsError(checkList, bytes) ==
            (ReadMaterialList(file, list) == profile::ReadResult::kTooBig));
}

// Names of sections are found by hash, which no fuzzer guesses.
string Lines(FuzzedDataProvider& input) {
    static constexpr std::pair<const char*, const char*> kNumbered[] = {
        {"Process", "=P\n"}, {"Mat", "=P\n"}, {"[Mat", "]\nType=P\n"}, {"Thickness", "=3\n"}};
    string bytes;
    for (int lines = input.ConsumeIntegralInRange(0, 12); lines > 0; --lines) {
        bytes += input.PickValueInArray({"", "[Processes]\n", "[Materials]\n", "[P]\n",
                                         "Angle=", "Leadin=Line\n",
                                         "MajorDir=", "LeadoutPercent=", "Rapid="});
        bytes += input.ConsumeRandomLengthString(10);
        const auto& [begin, end] = input.PickValueInArray(kNumbered);
        const int last = input.PickValueInArray({0, 1, 2, 21, 61, 101, 200});
        for (int n = 1; n <= last; ++n) bytes += begin + std::to_string(n) + end;
    }
    return bytes;
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
    const string text = ProcessFileText(table);
    CheckLook(text);
    ReadProcesses(Profile(text), read);
    for (auto& record : read.Processes) {
        clean(record.Name), clean(record.Leadin), clean(record.Leadout);
    }
    REQUIRE(table.Processes == read.Processes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const int kind = input.ConsumeIntegralInRange(0, 2);
    if (kind == 0) CheckProfile(input);
    if (kind == 1) CheckTable(input);
    if (kind == 2) CheckLook(Lines(input));
    return 0;
}
