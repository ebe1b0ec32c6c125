// Opening a file of settings and asking it for one of them, beside QSettings, which reads the values of a
// section when the first of them is asked for; and a number of a store that is open, beside a hash map of
// texts.
#include "common/ini/Inifile.h"

#include <benchmark/benchmark.h>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>

#include <charconv>
#include <string>
#include <unordered_map>

using namespace CommonUI;

namespace
{

constexpr int c_keysPerSection = 50;

std::string KeyOf(int i)
{
    return "Parameter" + std::to_string(i) + "_P_Factor";
}

// The file with so many keys, which is removed with the object.
class CStoreFile
{
public:
    explicit CStoreFile(int keys)
        : m_path(m_folder.filePath(QStringLiteral("store.ini")))
    {
        std::string bytes;
        for (int i = 0; i < keys; ++i) {
            if (i % c_keysPerSection == 0)
                bytes += "[Analysis" + std::to_string(i / c_keysPerSection) + "]\n";
            bytes += KeyOf(i) + "=" + std::to_string(i) + "\n";
        }
        QFile file(m_path);
        if (file.open(QIODevice::WriteOnly))
            file.write(bytes.data(), static_cast<qsizetype>(bytes.size()));
    }
    const QString& GetPath() const { return m_path; }

private:
    QTemporaryDir m_folder;
    QString m_path;
};

void OpenStore_Inifile(benchmark::State& state)
{
    const CStoreFile file(static_cast<int>(state.range(0)));
    const CStr path(file.GetPath().toStdU16String());
    for (auto _ : state) {
        CInifile ini;
        ini.Load(path);
        ini.SelectSection(u"Analysis7");
        if (ini.ReadInt(u"Parameter355_P_Factor", 0) != 355)
            state.SkipWithError("another value");
    }
}

// It keeps files that it has read lately, unless they have changed.
void OpenStore_QSettings(benchmark::State& state)
{
    const CStoreFile file(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        state.PauseTiming();
        QFile again(file.GetPath());
        if (again.open(QIODevice::ReadWrite))
            again.setFileTime(QDateTime::currentDateTime().addMSecs(state.iterations()),
                              QFileDevice::FileModificationTime);
        again.close();
        state.ResumeTiming();
        const QSettings settings(file.GetPath(), QSettings::IniFormat);
        if (settings.value(QStringLiteral("Analysis7/Parameter355_P_Factor")).toInt() != 355)
            state.SkipWithError("another value");
    }
}

void ReadOne_Inifile(benchmark::State& state)
{
    const CStoreFile file(static_cast<int>(state.range(0)));
    CInifile ini;
    ini.Load(CStr(file.GetPath().toStdU16String()));
    ini.SelectSection(u"Analysis7");
    const CStr key = CStr::FromAscii(KeyOf(355));
    for (auto _ : state)
        benchmark::DoNotOptimize(ini.ReadInt(key, 0));
}

void ReadOne_HashMap(benchmark::State& state)
{
    std::unordered_map<std::string, std::string> section;
    for (int i = 350; i < 350 + c_keysPerSection; ++i)
        section[KeyOf(i)] = std::to_string(i);
    const std::string key = KeyOf(355);
    for (auto _ : state) {
        int value = 0;
        if (const auto found = section.find(key); found != section.end())
            std::from_chars(found->second.data(), found->second.data() + found->second.size(), value);
        benchmark::DoNotOptimize(value);
    }
}

} // namespace

BENCHMARK(OpenStore_Inifile)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenStore_QSettings)->Arg(1000)->Arg(100000)->Unit(benchmark::kMicrosecond);
BENCHMARK(ReadOne_Inifile)->Arg(100000);
BENCHMARK(ReadOne_HashMap)->Arg(100000);
