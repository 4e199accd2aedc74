// How long loading and saving the data files takes at their capacity, and at a tenth of it, beside
// a plain read and write of the same bytes and another reader of such files. Look at the medians:
// --benchmark_repetitions=9 --benchmark_report_aggregates_only=true
#include <benchmark/benchmark.h>

#include <ini.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <unordered_map>
#include <vector>

#include "app/loader.h"
#include "app/system_config.h"
#include "materiallist/material_list_table.h"
#include "materialtypes/material_type_table.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "process/process_file.h"
#include "process/process_table.h"
#include "process_file.h"

namespace {

namespace fs = std::filesystem;

constexpr const char* kProcessFile = "c:\\tolvarin\\system\\process.dat";
constexpr const char* kOtherFile = "c:\\tolvarin\\system\\other.dat";

// The three files on a drive of their own, filled to so many tenths of their capacity.
class System {
  public:
    explicit System(std::int64_t tenths) {
        const int n = static_cast<int>(tenths);
        platform::MapDrives(folder_);
        app::TheConfig() = {};
        app::TheConfig().NestHomeDrive = "c:";
        app::TheConfig().NestRootDir = "\\tolvarin";
        process::Shared() = {};
        fs::create_directories(folder_ / "c/tolvarin/system");
        Add("process.dat", bench::MakeProcessFile(2 * n).bytes);

        auto& types = materialtypes::TheMaterialTypes();
        types.Count = static_cast<std::int16_t>(6 * n);
        for (int i = 1; i <= types.Count; ++i) {
            auto& record = types.Record(i);
            record.Code = "MATERIAL " + std::to_string(i);
            record.Description = "Structural steel, quality " + std::to_string(i);
            record.Density = 7.85f;
        }
        Add("mattypes.dat", materialtypes::MaterialTypesText(types));

        auto& list = materiallist::TheMaterialList();
        list.EntryCount = static_cast<std::int16_t>(20 * n - 1);
        for (int i = 1; i <= list.EntryCount; ++i) {
            auto& entry = list.Entry(i);
            entry.MaterialType = "MATERIAL " + std::to_string(1 + i % types.Count);
            entry.ProcessName = "Plasma 130A Table 1";
            entry.Thickness = static_cast<float>(i) / 2;
        }
        Add("material.dat", materiallist::MaterialListText(list, materiallist::kNewDirectory));
    }
    ~System() { fs::remove_all(folder_); }
    System(const System&) = delete;
    System& operator=(const System&) = delete;

    const std::vector<std::string>& Paths() const { return paths_; }
    fs::path Folder() const { return folder_ / "c/tolvarin/system"; }

    // Bytes of the first so many files.
    void Count(benchmark::State& state, std::size_t files) const {
        std::int64_t bytes = 0;
        for (std::size_t i = 0; i < files; ++i) {
            bytes += static_cast<std::int64_t>(fs::file_size(paths_[i]));
        }
        state.SetBytesProcessed(state.iterations() * bytes);
        state.counters["bytes"] = static_cast<double>(bytes);
    }

  private:
    void Add(const char* name, const std::string& bytes) {
        paths_.push_back((Folder() / name).string());
        std::ofstream(paths_.back(), std::ios::binary) << bytes;
    }

    fs::path folder_ = fs::temp_directory_path() / ("data-files-bench-" + std::to_string(getpid()));
    std::vector<std::string> paths_;
};

void LoadSystemTables(benchmark::State& state) {
    const System system(state.range(0));
    for (auto _ : state) {
        if (!app::LoadSystemTables()) state.SkipWithError("not loaded");
    }
    if (process::TheProcesses().ProcessThicknessMax[0] != 100) state.SkipWithError("no ranges");
    system.Count(state, 3);
}
BENCHMARK(LoadSystemTables)->Arg(1)->Arg(10);

// The same bytes into a map that still has to be looked up in.
void InihIntoMaps(benchmark::State& state) {
    using Map = std::unordered_map<std::string, std::string>;
    const System system(state.range(0));
    for (auto _ : state) {
        for (const std::string& path : system.Paths()) {
            Map map;
            ini_parse(
                path.c_str(),
                [](void* user, const char* section, const char* key, const char* value) {
                    std::string name(section);
                    name.append(1, '\n').append(key);
                    static_cast<Map*>(user)->emplace(std::move(name), value);
                    return 1;
                },
                &map);
            if (map.size() < 18) state.SkipWithError("not every key was kept");
        }
    }
    system.Count(state, 3);
}
BENCHMARK(InihIntoMaps)->Arg(1)->Arg(10);

void ReadProcessFile(benchmark::State& state) {
    const System system(state.range(0));
    for (auto _ : state) {
        if (!process::ReadProcessFile()) state.SkipWithError("not read");
    }
    if (process::TheProcesses().Process(1).ThicknessCount != 100) state.SkipWithError("no rows");
    system.Count(state, 1);
}
BENCHMARK(ReadProcessFile)->Arg(1)->Arg(10);

void PlainReadOfTheSame(benchmark::State& state) {
    const System system(state.range(0));
    for (auto _ : state) benchmark::DoNotOptimize(platform::ReadFile(kProcessFile));
    system.Count(state, 1);
}
BENCHMARK(PlainReadOfTheSame)->Arg(1)->Arg(10);

void WriteProcessFile(benchmark::State& state) {
    const System system(state.range(0));
    process::ReadProcessFile();
    for (auto _ : state) process::WriteProcessFile();
    system.Count(state, 1);
}
BENCHMARK(WriteProcessFile)->Arg(1)->Arg(10)->UseRealTime();

// Without the disk.
void TextOfTheSame(benchmark::State& state) {
    const System system(state.range(0));
    process::ReadProcessFile();
    for (auto _ : state) {
        benchmark::DoNotOptimize(process::ProcessFileText(process::TheProcesses()));
    }
    system.Count(state, 1);
}
BENCHMARK(TextOfTheSame)->Arg(1)->Arg(10);

void ReplaceByTheSame(benchmark::State& state) {
    const System system(state.range(0));
    process::ReadProcessFile();
    const std::string bytes = process::ProcessFileText(process::TheProcesses());
    for (auto _ : state) platform::ReplaceWholeFile(kOtherFile, bytes);
    system.Count(state, 1);
}
BENCHMARK(ReplaceByTheSame)->Arg(1)->Arg(10)->UseRealTime();

// Overwritten in place and not flushed: what a power cut would leave half done.
void PlainWriteOfTheSame(benchmark::State& state) {
    const System system(state.range(0));
    process::ReadProcessFile();
    const std::string bytes = process::ProcessFileText(process::TheProcesses());
    const fs::path path = system.Folder() / "plain.dat";
    for (auto _ : state) std::ofstream(path, std::ios::binary) << bytes;
    system.Count(state, 1);
}
BENCHMARK(PlainWriteOfTheSame)->Arg(1)->Arg(10)->UseRealTime();

}  // namespace
