// The INI store beside GLib's key file and SimpleIni: the same content, in one run. The argument is the
// number of keys; sections have 50 keys each, as the preferences of an analysis do.

#include "common/ini/Inifile.h"

#include <benchmark/benchmark.h>
#include <glib.h>
#define SI_IMPLEMENTATION
#define SI_NO_CONVERSION // narrow text only
#include <SimpleIni.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

using namespace CommonUI;

namespace
{

constexpr int c_keysPerSection = 50;

std::string KeyOf(int i)
{
    static const char* const suffixes[] = {"_P_On", "_P_Factor", "_P_FloatFormat", "_P_FloatSize",
                                           "_S_Value"};
    return "Parameter" + std::to_string(i) + suffixes[i % 5];
}

std::string SectionOf(int section)
{
    return "Preferences_Analysis" + std::to_string(section);
}

std::string Content(int keys)
{
    static const char* const values[] = {"1", "0.001", "Decimals", "6", "12.345678901234567"};
    std::string bytes = "# preferences\n";
    for (int i = 0; i < keys; ++i) {
        if (i % c_keysPerSection == 0)
            bytes += "\n[" + SectionOf(i / c_keysPerSection) + "]\n";
        bytes += KeyOf(i) + "=" + values[i % 5] + "\n";
    }
    return bytes;
}

// The content as a file, removed at the end.
class CContentFile
{
public:
    explicit CContentFile(int keys)
        : m_path(std::filesystem::temp_directory_path() / ("InifileBench" + std::to_string(keys) + ".ini"))
    {
        std::ofstream(m_path, std::ios::binary) << Content(keys);
    }
    CContentFile(const CContentFile&) = delete;
    CContentFile& operator=(const CContentFile&) = delete;
    ~CContentFile() { std::filesystem::remove(m_path); }

    std::string GetPath() const { return m_path.string(); }

private:
    std::filesystem::path m_path;
};

// The narrow names and their UTF-16 forms of all keys that hold a real number.
struct SName {
    std::string section;
    std::string key;
    CStr wideSection;
    CStr wideKey;
};

std::vector<SName> RealNames(int keys)
{
    std::vector<SName> names;
    for (int i = 4; i < keys; i += 5) {
        const std::string section = SectionOf(i / c_keysPerSection);
        names.push_back({section, KeyOf(i), CStr::FromAscii(section), CStr::FromAscii(KeyOf(i))});
    }
    return names;
}

using CGlibFile = std::unique_ptr<GKeyFile, decltype(&g_key_file_free)>;

CGlibFile NewGlibFile()
{
    return {g_key_file_new(), &g_key_file_free};
}

constexpr auto c_glibFlags = static_cast<GKeyFileFlags>(G_KEY_FILE_KEEP_COMMENTS);

int KeysOf(const benchmark::State& state)
{
    return static_cast<int>(state.range(0));
}

void SetBytes(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) * static_cast<std::int64_t>(bytes));
}

void LoadMemory_Inifile(benchmark::State& state)
{
    const std::string bytes = Content(KeysOf(state));
    for (auto _ : state) {
        CInifile ini;
        ini.LoadBytes(bytes);
        benchmark::DoNotOptimize(&ini);
    }
    SetBytes(state, bytes.size());
}

void LoadMemory_GLib(benchmark::State& state)
{
    const std::string bytes = Content(KeysOf(state));
    for (auto _ : state) {
        const CGlibFile file = NewGlibFile();
        g_key_file_load_from_data(file.get(), bytes.data(), bytes.size(), c_glibFlags, nullptr);
        benchmark::DoNotOptimize(file.get());
    }
    SetBytes(state, bytes.size());
}

void LoadMemory_SimpleIni(benchmark::State& state)
{
    const std::string bytes = Content(KeysOf(state));
    for (auto _ : state) {
        CSimpleIniCaseA ini;
        ini.LoadData(bytes.data(), bytes.size());
        benchmark::DoNotOptimize(&ini);
    }
    SetBytes(state, bytes.size());
}

void LoadFile_Inifile(benchmark::State& state)
{
    const CContentFile file(KeysOf(state));
    const CStr name = CStr::FromUtf8(file.GetPath());
    for (auto _ : state) {
        CInifile ini;
        if (!ini.Load(name))
            state.SkipWithError("cannot load");
    }
}

void LoadFile_GLib(benchmark::State& state)
{
    const CContentFile file(KeysOf(state));
    for (auto _ : state) {
        const CGlibFile ini = NewGlibFile();
        if (!g_key_file_load_from_file(ini.get(), file.GetPath().c_str(), c_glibFlags, nullptr))
            state.SkipWithError("cannot load");
    }
}

void LoadFile_SimpleIni(benchmark::State& state)
{
    const CContentFile file(KeysOf(state));
    for (auto _ : state) {
        CSimpleIniCaseA ini;
        if (ini.LoadFile(file.GetPath().c_str()) < 0)
            state.SkipWithError("cannot load");
    }
}

// One read of a real number of the current section.
void ReadDouble_Inifile(benchmark::State& state)
{
    CInifile ini;
    ini.LoadBytes(Content(KeysOf(state)));
    const std::vector<SName> names = RealNames(c_keysPerSection);
    ini.SelectSection(names[0].wideSection);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ini.ReadDouble(names[i].wideKey, 0));
        i = i + 1 < names.size() ? i + 1 : 0;
    }
}

// The same with the section named anew for each read, from all over the file, as the others have it.
void SelectAndReadDouble_Inifile(benchmark::State& state)
{
    CInifile ini;
    ini.LoadBytes(Content(KeysOf(state)));
    const std::vector<SName> names = RealNames(KeysOf(state));
    std::size_t i = 0;
    for (auto _ : state) {
        ini.SelectSection(names[i].wideSection);
        benchmark::DoNotOptimize(ini.ReadDouble(names[i].wideKey, 0));
        i = i + 1 < names.size() ? i + 1 : 0;
    }
}

void ReadDouble_GLib(benchmark::State& state, bool oneSection)
{
    const std::string bytes = Content(KeysOf(state));
    const CGlibFile ini = NewGlibFile();
    g_key_file_load_from_data(ini.get(), bytes.data(), bytes.size(), c_glibFlags, nullptr);
    const std::vector<SName> names = RealNames(oneSection ? c_keysPerSection : KeysOf(state));
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(
            g_key_file_get_double(ini.get(), names[i].section.c_str(), names[i].key.c_str(), nullptr));
        i = i + 1 < names.size() ? i + 1 : 0;
    }
}

void ReadDouble_SimpleIni(benchmark::State& state, bool oneSection)
{
    const std::string bytes = Content(KeysOf(state));
    CSimpleIniCaseA ini;
    ini.LoadData(bytes.data(), bytes.size());
    const std::vector<SName> names = RealNames(oneSection ? c_keysPerSection : KeysOf(state));
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(ini.GetDoubleValue(names[i].section.c_str(), names[i].key.c_str(), 0));
        i = i + 1 < names.size() ? i + 1 : 0;
    }
}

void ReadInt_Inifile(benchmark::State& state)
{
    CInifile ini;
    ini.LoadBytes(Content(KeysOf(state)));
    ini.SelectSection(u"Preferences_Analysis0");
    const CStr key = CStr::FromAscii(KeyOf(8));
    for (auto _ : state)
        benchmark::DoNotOptimize(ini.ReadInt(key, 0));
}

void ReadInt_SimpleIni(benchmark::State& state)
{
    const std::string bytes = Content(KeysOf(state));
    CSimpleIniCaseA ini;
    ini.LoadData(bytes.data(), bytes.size());
    const std::string key = KeyOf(8);
    for (auto _ : state)
        benchmark::DoNotOptimize(ini.GetLongValue("Preferences_Analysis0", key.c_str(), 0));
}

// A changed value, then the bytes of the whole file.
void Save_Inifile(benchmark::State& state)
{
    CInifile ini;
    ini.LoadBytes(Content(KeysOf(state)));
    ini.SelectSection(u"Preferences_Analysis0");
    const CStr key = CStr::FromAscii(KeyOf(8));
    int value = 0;
    for (auto _ : state) {
        ini.WriteInt(key, ++value);
        benchmark::DoNotOptimize(ini.GetBytes());
    }
}

void Save_GLib(benchmark::State& state)
{
    const std::string bytes = Content(KeysOf(state));
    const CGlibFile ini = NewGlibFile();
    g_key_file_load_from_data(ini.get(), bytes.data(), bytes.size(), c_glibFlags, nullptr);
    const std::string key = KeyOf(8);
    int value = 0;
    for (auto _ : state) {
        g_key_file_set_integer(ini.get(), "Preferences_Analysis0", key.c_str(), ++value);
        gchar* data = g_key_file_to_data(ini.get(), nullptr, nullptr);
        benchmark::DoNotOptimize(data);
        g_free(data);
    }
}

void Save_SimpleIni(benchmark::State& state)
{
    const std::string bytes = Content(KeysOf(state));
    CSimpleIniCaseA ini;
    ini.LoadData(bytes.data(), bytes.size());
    const std::string key = KeyOf(8);
    long value = 0;
    for (auto _ : state) {
        ini.SetLongValue("Preferences_Analysis0", key.c_str(), ++value);
        std::string data;
        ini.Save(data);
        benchmark::DoNotOptimize(data);
    }
}

BENCHMARK(LoadMemory_Inifile)->Arg(50)->Arg(1000)->Arg(100000);
BENCHMARK(LoadMemory_GLib)->Arg(50)->Arg(1000)->Arg(100000);
BENCHMARK(LoadMemory_SimpleIni)->Arg(50)->Arg(1000)->Arg(100000);
BENCHMARK(LoadFile_Inifile)->Arg(50)->Arg(1000)->Arg(100000);
BENCHMARK(LoadFile_GLib)->Arg(50)->Arg(1000)->Arg(100000);
BENCHMARK(LoadFile_SimpleIni)->Arg(50)->Arg(1000)->Arg(100000);
BENCHMARK(ReadDouble_Inifile)->Arg(1000);
BENCHMARK_CAPTURE(ReadDouble_GLib, one_section, true)->Arg(1000);
BENCHMARK_CAPTURE(ReadDouble_SimpleIni, one_section, true)->Arg(1000);
BENCHMARK(SelectAndReadDouble_Inifile)->Arg(1000);
BENCHMARK_CAPTURE(ReadDouble_GLib, all_sections, false)->Arg(1000);
BENCHMARK_CAPTURE(ReadDouble_SimpleIni, all_sections, false)->Arg(1000);
BENCHMARK(ReadInt_Inifile)->Arg(1000);
BENCHMARK(ReadInt_SimpleIni)->Arg(1000);
BENCHMARK(Save_Inifile)->Arg(1000);
BENCHMARK(Save_GLib)->Arg(1000);
BENCHMARK(Save_SimpleIni)->Arg(1000);

} // namespace
