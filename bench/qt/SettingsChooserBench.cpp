// The menu of settings and the chooser over a folder with 10^4 files of the user's own, a hundred to a
// folder, beside the same without any. What is shown at once should not depend on their number.
#include "platform/memory/FixedFolders.h"
#include "platform/MessageLoop.h"
#include "qt/settings/SettingsButton.h"
#include "qt/settings/SettingsChooserWindow.h"

#include <benchmark/benchmark.h>
#include <QCoreApplication>
#include <QMenu>
#include <QPixmap>

#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <string>

using namespace CommonUI;
namespace fs = std::filesystem;

namespace
{

constexpr auto c_type = ESettingType::Filter;

// A settings folder with so many filters.
class COwnSets
{
public:
    explicit COwnSets(std::int64_t files)
        : m_path(fs::temp_directory_path() / ("commonui-bench-" + std::to_string(std::random_device()())))
        , m_folders(m_path, m_path)
    {
        for (std::int64_t i = 0; i < files; ++i) {
            const fs::path folder = m_path / "Custom Settings" / ("Group " + std::to_string(i / 100));
            fs::create_directories(folder);
            std::ofstream(folder / ("Filter of the workshop " + std::to_string(i) + ".flt")) << "Kind=1\n";
        }
    }
    ~COwnSets()
    {
        std::error_code error;
        fs::remove_all(m_path, error);
    }
    COwnSets(const COwnSets&) = delete;
    COwnSets& operator=(const COwnSets&) = delete;

    CFolders& GetFolders() noexcept { return m_folders; }

private:
    fs::path m_path;
    CFixedFolders m_folders;
};

CFolders& FoldersOf(std::int64_t files)
{
    static std::map<std::int64_t, COwnSets> sets;
    return sets.try_emplace(files, files).first->second.GetFolders();
}

void WaitFor(const CCustomSettingsScan& scan)
{
    GetMessageLoop().RunUntil([&] { return !scan.IsRunning(); });
}

// From the call to the first picture of the menu.
void OpenMenu(benchmark::State& state)
{
    const CServiceScope<CFolders> scope(FoldersOf(state.range(0)));
    for (auto _ : state) {
        CSettingsButton button(c_type);
        button.GetPopup().popup({});
        benchmark::DoNotOptimize(button.GetPopup().grab());
        state.PauseTiming();
        WaitFor(button.GetMenu().GetScan());
        button.GetPopup().close();
        state.ResumeTiming();
    }
}

// What one would take otherwise: all files are looked for, and all are in the menu.
void OpenMenuOfAll(benchmark::State& state)
{
    const CServiceScope<CFolders> scope(FoldersOf(state.range(0)));
    for (auto _ : state) {
        QMenu menu;
        for (const auto& heading : GetSettingsFactory().GetTree(c_type, ESettingCategory::Custom))
            for (const auto& group : heading.GetChildren())
                for (const auto& leaf : group.GetChildren())
                    menu.addAction(QString::fromUtf16(leaf.GetValue().first.data()));
        menu.popup({});
        benchmark::DoNotOptimize(menu.grab());
    }
}

enum class EUntil { FirstPicture, FirstOwnSet, AllSets };

template<EUntil Until>
void OpenChooser(benchmark::State& state)
{
    const CServiceScope<CFolders> scope(FoldersOf(state.range(0)));
    QPixmap picture(QSize(600, 500));
    for (auto _ : state) {
        CSettingsMenu menu(c_type);
        CSettingsChooserWindow window(menu);
        const CCustomSettingsScan& scan = menu.GetScan();
        if (Until == EUntil::FirstOwnSet)
            GetMessageLoop().RunUntil([&] { return !scan.GetFolders().empty() || !scan.IsRunning(); });
        else if (Until == EUntil::AllSets)
            WaitFor(scan);
        window.ensurePolished();
        window.render(&picture);
        state.PauseTiming();
        WaitFor(scan);
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK(OpenMenu)->Name("OpenSettingsMenu")->Arg(0)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenMenuOfAll)->Name("OpenMenuOfAllFiles")->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(OpenChooser<EUntil::FirstPicture>)
    ->Name("OpenChooser")
    ->Arg(0)
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(OpenChooser<EUntil::FirstOwnSet>)
    ->Name("OpenChooserToFirstOwnSets")
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(OpenChooser<EUntil::AllSets>)
    ->Name("OpenChooserToAllSets")
    ->Arg(10000)
    ->Unit(benchmark::kMillisecond);
