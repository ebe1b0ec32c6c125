#include "platform/Folders.h"
#include "platform/memory/FixedFolders.h"
#include "settings/catalogue/BuiltInSettingText.h"
#include "settings/factory/SettingsFactory.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <regex>
#include <string>

using namespace CommonUI;
namespace fs = std::filesystem;

namespace
{

// A settings folder with so many filters among the custom settings, a hundred to a folder.
class CCustomFolder
{
public:
    explicit CCustomFolder(std::int64_t files)
        : m_path(fs::temp_directory_path() / ("commonui-bench-" + std::to_string(std::random_device()())))
        , m_folders(m_path, m_path)
    {
        const fs::path custom = GetCustom();
        for (std::int64_t i = 0; i < files; ++i) {
            const fs::path folder = custom / ("Group " + std::to_string(i / 100));
            if (i % 100 == 0)
                fs::create_directories(folder);
            std::ofstream(folder / ("Filter of the workshop " + std::to_string(i) + ".flt")) << "Kind=1\n";
        }
    }
    ~CCustomFolder()
    {
        std::error_code error;
        fs::remove_all(m_path, error);
    }
    CCustomFolder(const CCustomFolder&) = delete;
    CCustomFolder& operator=(const CCustomFolder&) = delete;

    fs::path GetCustom() const { return m_path / "Custom Settings"; }
    CFolders& GetFolders() noexcept { return m_folders; }

private:
    fs::path m_path;
    CFixedFolders m_folders;
};

// The folder of so many files, made once: that takes longer than any walk.
CCustomFolder& FolderOf(std::int64_t files)
{
    static std::map<std::int64_t, CCustomFolder> folders;
    return folders.try_emplace(files, files).first->second;
}

void CountItems(benchmark::State& state, std::int64_t count)
{
    state.counters["per item"] =
        benchmark::Counter(static_cast<double>(state.iterations() * count),
                           benchmark::Counter::kIsRate | benchmark::Counter::kInvert);
}

CStr MakePath(std::int64_t i)
{
    return CStr::Format(u"/settings/of/the/workshop/%d/filter %d.flt", static_cast<int>(i % 100),
                        static_cast<int>(i));
}

class CManyItems : public CSettingsFactory
{
public:
    explicit CManyItems(std::int64_t count)
    {
        for (std::int64_t i = 0; i < count; ++i)
            Use(MakePath(i));
    }
    void Use(const CStr& path)
    {
        SSettingsEntry entry(path, ESettingType::Filter);
        NewDynamicItem(entry, true);
    }
};

// Once: the catalogue is built on first access.
void FirstAccessToCatalogue(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(GetBuiltInSettingEnum().GetCount());
}

void AllBuiltInTexts(benchmark::State& state)
{
    for (auto _ : state) {
        for (const auto& setting : GetBuiltInSettingEnum())
            benchmark::DoNotOptimize(GetBuiltInSettingText(EBuiltInSetting{setting.GetValue()}));
    }
    CountItems(state, static_cast<std::int64_t>(GetBuiltInSettingEnum().GetCount()));
}

// What any walk over the files costs: names and kinds alone.
void BareWalk(benchmark::State& state)
{
    const fs::path folder = FolderOf(state.range(0)).GetCustom();
    for (auto _ : state) {
        std::int64_t files = 0;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
            files += entry.is_regular_file() ? 1 : 0;
        benchmark::DoNotOptimize(files);
    }
    CountItems(state, state.range(0));
}

// The first menu of a run: every file gets its identifier.
void FirstCustomTree(benchmark::State& state)
{
    const CServiceScope<CFolders> scope(FolderOf(state.range(0)).GetFolders());
    for (auto _ : state) {
        CSettingsFactory factory;
        benchmark::DoNotOptimize(factory.GetTree(ESettingType::Filter, ESettingCategory::Custom));
    }
    CountItems(state, state.range(0));
}

void NextCustomTree(benchmark::State& state)
{
    const CServiceScope<CFolders> scope(FolderOf(state.range(0)).GetFolders());
    CSettingsFactory factory;
    for (auto _ : state)
        benchmark::DoNotOptimize(factory.GetTree(ESettingType::Filter, ESettingCategory::Custom));
    CountItems(state, state.range(0));
}

void RecentUse(benchmark::State& state)
{
    const std::int64_t count = state.range(0);
    CManyItems factory(count);
    std::vector<CStr> paths;
    for (std::int64_t i = 0; i < 1000; ++i)
        paths.push_back(MakePath(i * 7919 % count));
    std::size_t i = 0;
    for (auto _ : state)
        factory.Use(paths[i++ % paths.size()]);
}

// Four recent sets of every type.
CInifile FullRecentLists()
{
    CInifile ini;
    ini.SelectSection(CSettingsFactory::c_StorageSection);
    for (const auto& type : GetSettingTypeEnum())
        ini.WriteTexts(type.GetIniName(), {u"FILE:/settings/of/the/workshop/first.set",
                                           u"FILE:/settings/of/the/workshop/second.set",
                                           u"FILE:/settings/of/the/workshop/third.set",
                                           u"FILE:/settings/of/the/workshop/fourth.set"});
    return ini;
}

void LoadFactory(benchmark::State& state)
{
    CInifile ini = FullRecentLists();
    for (auto _ : state) {
        CSettingsFactory factory;
        benchmark::DoNotOptimize(factory.Load(ini));
    }
}

// To a store that has other lists.
void SaveFactory(benchmark::State& state)
{
    CInifile ini = FullRecentLists();
    CSettingsFactory factories[2];
    factories[0].Load(ini);
    std::size_t i = 0;
    for (auto _ : state)
        benchmark::DoNotOptimize(factories[i++ % 2].Save(ini));
}

// A built-in set named by its key, as in a command line.
void ParseUserSpec(benchmark::State& state)
{
    const CSettingsFactory factory;
    const auto& settings = GetBuiltInSettingEnum();
    const auto filter = std::ranges::find(settings, ESettingType::Filter, [](const auto& setting) {
        return GetSettingType(EBuiltInSetting{setting.GetValue()});
    });
    const CStr spec = u"Filter[Id(" + filter->GetIniName() + u")]";
    for (auto _ : state) {
        CSettingsFactory::SParseInfo info;
        benchmark::DoNotOptimize(factory.ParseUserSpec(spec, info));
    }
}

// The same text taken apart, without a look into the catalogue.
void ParseUserSpecByRegex(benchmark::State& state)
{
    const std::regex form(R"((\w+)\[(Id|File)\((.*)\)\])");
    const std::string spec = "Filter[Id(FilterQuickLaunchMedian3x3)]";
    for (auto _ : state) {
        std::smatch parts;
        benchmark::DoNotOptimize(std::regex_match(spec, parts, form));
    }
}

BENCHMARK(ParseUserSpec);
BENCHMARK(ParseUserSpecByRegex);
BENCHMARK(FirstAccessToCatalogue)->Iterations(1)->Unit(benchmark::kMicrosecond);
BENCHMARK(AllBuiltInTexts)->Unit(benchmark::kMicrosecond);
BENCHMARK(BareWalk)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstCustomTree)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(NextCustomTree)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);
BENCHMARK(RecentUse)->Arg(100)->Arg(100000);
BENCHMARK(LoadFactory)->Unit(benchmark::kMicrosecond);
BENCHMARK(SaveFactory)->Unit(benchmark::kMicrosecond);

} // namespace
