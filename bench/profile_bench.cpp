// How long reading a full process file takes, by itself and beside two other readers of such
// files. Look at the medians: --benchmark_repetitions=9 --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>

#include <SimpleIni.h>
#include <ini.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <unordered_map>

#include "platform/drives.h"
#include "platform/files.h"
#include "process_file.h"
#include "profile/profile.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kPath = "c:\\tolvarin\\system\\process.dat";
constexpr int kFull = 20;  // processes, the system's limit

// The file on a drive of its own, where the system has it, for the time of one benchmark.
class FileOnDrive {
  public:
    explicit FileOnDrive(int processes) : file_(bench::MakeProcessFile(processes)) {
        const fs::path directory = folder_ / "c/tolvarin/system";
        fs::create_directories(directory);
        native_ = (directory / "process.dat").string();
        std::ofstream(native_, std::ios::binary) << file_.bytes;
        platform::MapDrives(folder_);
    }
    ~FileOnDrive() { fs::remove_all(folder_); }
    FileOnDrive(const FileOnDrive&) = delete;
    FileOnDrive& operator=(const FileOnDrive&) = delete;

    const char* Native() const { return native_.c_str(); }
    const std::string& Bytes() const { return file_.bytes; }
    const auto& Keys() const { return file_.keys; }

  private:
    bench::ProcessFile file_;
    fs::path folder_ = fs::temp_directory_path() / ("profile-bench-" + std::to_string(getpid()));
    std::string native_;
};

void Count(benchmark::State& state, const FileOnDrive& file) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * file.Bytes().size()));
    state.counters["bytes"] = static_cast<double>(file.Bytes().size());
    state.counters["keys"] = static_cast<double>(file.Keys().size());
}

void LookUpAll(benchmark::State& state, const FileOnDrive& file, const profile::Profile& profile) {
    std::size_t found = 0;
    for (const auto& [section, key] : file.Keys()) found += profile.Find(section, key).has_value();
    if (found != file.Keys().size()) state.SkipWithError("a key was not found");
}

void OpenParseLookUp(benchmark::State& state) {
    const FileOnDrive file(static_cast<int>(state.range(0)));
    for (auto _ : state) LookUpAll(state, file, profile::Profile::Load(kPath));
    Count(state, file);
}
BENCHMARK(OpenParseLookUp)->Arg(1)->Arg(5)->Arg(10)->Arg(kFull);

void ParseOnly(benchmark::State& state) {
    const FileOnDrive file(static_cast<int>(state.range(0)));
    for (auto _ : state) benchmark::DoNotOptimize(profile::Profile(file.Bytes()));
    Count(state, file);
}
BENCHMARK(ParseOnly)->Arg(1)->Arg(5)->Arg(10)->Arg(kFull);

void LookUpOnly(benchmark::State& state) {
    const FileOnDrive file(kFull);
    const auto profile = profile::Profile::Load(kPath);
    for (auto _ : state) LookUpAll(state, file, profile);
    Count(state, file);
}
BENCHMARK(LookUpOnly);

void ReadBytesOnly(benchmark::State& state) {
    const FileOnDrive file(kFull);
    for (auto _ : state) benchmark::DoNotOptimize(platform::ReadFile(kPath));
    Count(state, file);
}
BENCHMARK(ReadBytesOnly);

// What asking the platform key by key amounts to where it keeps nothing in memory.
void FileReadPerKey(benchmark::State& state) {
    const FileOnDrive file(kFull);
    for (auto _ : state) {
        for (const auto& [section, key] : file.Keys()) {
            const auto profile = profile::Profile::Load(kPath);
            benchmark::DoNotOptimize(profile.Find(section, key));
        }
    }
    Count(state, file);
}
BENCHMARK(FileReadPerKey)->Iterations(1)->Unit(benchmark::kMillisecond);

void InihCallbacks(benchmark::State& state) {
    const FileOnDrive file(kFull);
    for (auto _ : state) {
        std::size_t keys = 0;
        ini_parse(
            file.Native(),
            [](void* user, const char*, const char*, const char*) {
                return static_cast<int>(++*static_cast<std::size_t*>(user) > 0);
            },
            &keys);
        if (keys != file.Keys().size()) state.SkipWithError("not every key was reported");
    }
    Count(state, file);
}
BENCHMARK(InihCallbacks);

void InihIntoMap(benchmark::State& state) {
    using Map = std::unordered_map<std::string, std::string>;
    const FileOnDrive file(kFull);
    for (auto _ : state) {
        Map map;
        ini_parse(
            file.Native(),
            [](void* user, const char* section, const char* key, const char* value) {
                std::string name(section);
                name.append(1, '\n').append(key);
                static_cast<Map*>(user)->emplace(std::move(name), value);
                return 1;
            },
            &map);
        if (map.size() != file.Keys().size()) state.SkipWithError("not every key was kept");
    }
    Count(state, file);
}
BENCHMARK(InihIntoMap);

void SimpleIniLoadLookUp(benchmark::State& state) {
    const FileOnDrive file(kFull);
    for (auto _ : state) {
        CSimpleIniA ini;
        std::size_t found = 0;
        if (ini.LoadFile(file.Native()) != SI_OK) state.SkipWithError("the file was not read");
        for (const auto& [section, key] : file.Keys()) {
            found += ini.GetValue(section.c_str(), key.c_str()) != nullptr;
        }
        if (found != file.Keys().size()) state.SkipWithError("a key was not found");
    }
    Count(state, file);
}
BENCHMARK(SimpleIniLoadLookUp);

}  // namespace
