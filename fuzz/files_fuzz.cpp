// Any bytes as the files of the system. Of a profile every key is found with the value that was put
// there, and a key that is written changes its own value and no other byte. Each data file is a
// table within its limits or refused, and what was written once is read and written the same.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <map>
#include <set>
#include <string>

#include "errors/errors.h"
#include "materiallist/material_list_table.h"
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
string Word(FuzzedDataProvider& input, const char* forbidden, std::size_t most = 70) {
    string word = input.ConsumeRandomLengthString(most);
    std::erase_if(word, [&](char c) {
        return static_cast<unsigned char>(c) <= ' ' || string(forbidden).find(c) != string::npos;
    });
    return word;
}

// One that comes again, in this case or the other.
string Name(FuzzedDataProvider& input) {
    return input.PickValueInArray({"a", "A", "b", "B", "a b", "", "\xFC", "\xDC", "\xFF"});
}

using Keys = std::map<std::pair<string, string>, string>;  // by section and key in capitals

void CheckFound(const string& bytes, const Keys& keys) {
    const Profile file(bytes);
    for (const auto& [name, value] : keys) REQUIRE(file.Find(name.first, name.second) == value);
    REQUIRE(!file.Find("nowhere", "a") && !file.Find("a", "never"));
}

// All bytes are there still but these, which stood in one place: a value with its quotes, or none.
void CheckOnlyChange(const string& before, const string& after, std::size_t went) {
    const auto front = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto back = std::mismatch(before.rbegin(), before.rend(), after.rbegin(), after.rend());
    const auto same = (front.first - before.begin()) + (back.first - before.rbegin());
    REQUIRE(static_cast<std::size_t>(same) + went >= before.size());
}

void CheckProfile(FuzzedDataProvider& input) {
    const string lineEnd = input.PickValueInArray({"\r\n", "\n", "\r"});
    string file, section;
    Keys keys;
    std::set<string> sections{""};
    bool counts = true;  // of two sections of a name the first does, and of two keys
    for (int lines = input.ConsumeIntegralInRange(0, 20); lines > 0; --lines) {
        const string blanks = input.PickValueInArray({"", "", " ", "\t "}), name = Name(input);
        const int kind = input.ConsumeIntegralInRange(0, 5);
        if (kind == 0) file += blanks + ";" + name + "=";
        if (kind == 1) {
            section = text::UpperCase(name);
            counts = sections.insert(section).second;
            file += blanks + "[" + blanks + name + blanks + "]" + blanks;
        } else if (kind > 1) {
            const string value = Word(input, "\"'", 8), quote = kind == 2 ? "'" : "";
            if (counts) keys.try_emplace({section, text::UpperCase(name)}, value);
            file += blanks + name + blanks + "=" + blanks + quote + value + quote + blanks;
        }
        file += lineEnd;
    }
    CheckFound(file, keys);
    const string wanted = Name(input), key = Name(input), value = Word(input, "\"'", 8);
    const std::pair place(text::UpperCase(wanted), text::UpperCase(key));
    const auto written = profile::WithKey(file, wanted, key, value);
    REQUIRE(written);
    CheckOnlyChange(file, *written, keys.contains(place) ? keys[place].size() + 2 : 0);
    keys[place] = value;
    CheckFound(*written, keys);
    // And into anything.
    const string bytes = input.ConsumeRemainingBytesAsString();
    if (const auto changed = profile::WithKey(bytes, "x", key, value)) {
        REQUIRE(Profile(*changed).Find("x", key) == value);
        if (!Profile(bytes).Find("x", key)) CheckOnlyChange(bytes, *changed, 0);
    }
    REQUIRE(!profile::WithKey(file, "x\n", key, value) && !profile::WithKey(file, "x", "=", value));
}

// A file of all three formats at once. Its names are found by hash, which no fuzzer guesses.
string DataFile(FuzzedDataProvider& input) {
    string names = "[Processes]", types = "\r\n[Materials]", sections;
    const int count = input.ConsumeIntegralInRange(0, 22);
    const auto add = [&](const string& key) {
        const string usual = input.PickValueInArray(
            {"Line", "Arc ", "A180", "0", "1", "-1", "2.5", ".5mm", "9, 1e9,,x,.25"});
        if (input.ConsumeBool()) sections += "\r\n" + key + "=" + usual;
        if (input.ConsumeBool()) sections += Word(input, "\"'");
    };
    for (int n = 1; n <= count; ++n) {
        const string number = std::to_string(n),
                     name = "P" + number + "." + Word(input, "\"']", 60);
        names += "\r\nProcess" + number + "=" + name;
        types += "\r\nMat" + number + "=" + name;
        sections += "\r\n[" + name + "]";
        for (const char* key : {"Rapid", "LineMarkRate", "Leadin", "Angle", "Leadout", "MajorDir",
                                "Leadoutangle", "LeadoutPercent", "LeadoutOverrun", "MinorDir",
                                "MinorOpenKerf", "Extension", "Leadoutextension", "AddKerf",
                                "Description", "Density", "Thickness1", "Thickness2"}) {
            add(key);
        }
        sections += "\r\n[Mat" + number + "]";
        for (const char* key : {"Type", "Thickness", "Process"}) add(key);
    }
    return names + types + sections + "\r\n";
}

// What one writing makes of a file, another one leaves; `read` gives back the text to write.
template <class Read>
void CheckKept(string bytes, Read read) {
    try {
        // The second time, the last digit of a number may still change.
        for (int times = 0; times < 2; ++times) bytes = read(Profile(bytes));
        REQUIRE(read(Profile(bytes)) == bytes);
    } catch (const errors::FatalError&) {
    }
}

// As the windows show it and put it back.
template <std::size_t Width>
void Clean(text::FixedText<Width>& field) {
    field = text::CleanText(field);
}

void CheckDataFiles(const string& bytes) {
    CheckKept(bytes, [](const Profile& file) {
        process::ProcessTable table, ranges;
        ReadProcesses(file, table);
        ReadProcessRanges(file, ranges);
        REQUIRE(table.ProcessCount >= 0 && table.ProcessCount <= process::MaxProcesses);
        REQUIRE(ranges.ProcessCount == table.ProcessCount);
        for (auto& record : table.Processes) Clean(record.Name);
        return ProcessFileText(table);
    });
    CheckKept(bytes, [](const Profile& file) {
        materialtypes::MaterialTypeTable table, codes;
        ReadMaterialTypes(file, table);
        ReadMaterialTypeCodes(file, codes);
        REQUIRE(table.Count >= 0 && table.Count <= materialtypes::MaxMaterialTypes);
        REQUIRE(codes.Count == table.Count);
        for (auto& record : table.Records) Clean(record.Code), Clean(record.Description);
        return MaterialTypesText(table);
    });
    CheckKept(bytes, [](const Profile& file) {
        materiallist::MaterialListTable table;
        const bool fits = ReadMaterialList(file, table) != profile::ReadResult::kTooBig;
        REQUIRE(fits == (table.EntryCount < materiallist::MaxMaterialListEntries));
        for (auto& entry : table.Entries) Clean(entry.MaterialType), Clean(entry.ProcessName);
        return MaterialListText(table, materiallist::kExistingDirectory);
    });
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    switch (input.ConsumeIntegralInRange(0, 2)) {
        case 0:
            CheckProfile(input);
            break;
        case 1:
            CheckDataFiles(DataFile(input));
            break;
        default:
            CheckDataFiles(input.ConsumeRemainingBytesAsString());
    }
    return 0;
}
