#include "model/AnalysisPreferencesManager.h"
#include "tests/model/PreferencesTesting.h"
#include "tests/TemporaryFolder.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <random>

#if !defined(_WIN32)
#include <csignal>
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace CommonUI;

namespace
{

using CLines = std::vector<std::string>;

// The lines of the golden file that belong to one analysis.
CLines GoldenLines(EAnalysis analysis)
{
    const std::string start = "[Analysis_" + CAnalysisPreferencesData::GetININame(analysis).ToUtf8();
    CLines lines;
    bool isOurs = false;
    for (const std::string& line : ReadTestLines("analysis-preferences.ini")) {
        if (line.starts_with("["))
            isOurs = line == start + "]" || line == start + "_DynamicParameters]";
        if (isOurs)
            lines.push_back(line);
    }
    return lines;
}

class CMutator
{
public:
    explicit CMutator(unsigned seed)
        : m_random(seed)
    {
    }

    std::string Mutate(CLines lines)
    {
        for (std::size_t count = 1 + Below(12); count > 0; --count)
            Change(lines);
        std::string bytes;
        for (const std::string& line : lines)
            bytes += line + "\n";
        for (std::size_t count = Below(3); count > 0; --count)
            bytes[Below(bytes.size())] = static_cast<char>(Below(256));
        return bytes;
    }

private:
    std::size_t Below(std::size_t limit) { return m_random() % limit; }

    std::string Value()
    {
        static const std::string values[] = {
            "",         "-1",           "2000000000", "99999999999999999999",
            "1e999",    "nan",          "-inf",       "0x10",
            "true",     "1,2,3",        ",",          "\"",
            "Nano ",    "FormatRoman",  "Sch",        "PlugIn",
            "\xFF\xFE", "\xED\xA0\x80", "%s%n",       std::string(5000, 'x'),
        };
        return values[Below(std::size(values))];
    }

    void Change(CLines& lines)
    {
        const auto at = lines.begin() + static_cast<std::ptrdiff_t>(Below(lines.size()));
        const std::size_t equals = std::min(at->find('='), at->size());
        switch (Below(7)) {
        case 0:
            *at = at->substr(0, equals) + "=" + Value();
            break;
        case 1:
            *at = Value() + at->substr(equals);
            break;
        case 2:
            if (lines.size() > 1)
                lines.erase(at);
            break;
        case 3:
            lines.insert(at, lines[Below(lines.size())]);
            break;
        case 4:
            std::swap(*at, lines[Below(lines.size())]);
            break;
        case 5:
            lines.insert(at, "Foreign" + std::to_string(Below(100)) + " = " + Value());
            break;
        default:
            lines.insert(at, "[Foreign" + std::to_string(Below(3)) + "]");
        }
    }

    std::mt19937 m_random;
};

// The keys that are not the library's, with their values. What stands between dynamic parameters does not
// count: their section is written anew.
std::map<std::pair<CStr, CStr>, CStr> ForeignKeys(CInifile ini)
{
    std::map<std::pair<CStr, CStr>, CStr> keys;
    for (const CStr& section : ini.GetSections()) {
        ini.SelectSection(section);
        for (const CStr& key : ini.GetKeys()) {
            if (key.StartsWith(u"Foreign") && !section.EndsWith(u"_DynamicParameters"))
                keys[{section, key}] = ini.ReadText(key);
        }
    }
    return keys;
}

void ExpectSane(const CAnalysisPreferencesData& data, std::size_t staticCount)
{
    EXPECT_LE(data.GetParameterIDs().size(), staticCount + 30) << "more than the file can hold";
    for (const CParameter& parameter : data.GetParameters()) {
        EXPECT_FALSE(parameter.IsOn() && !parameter.HasParent() && parameter.GetVariableCount() != 0);
        EXPECT_LE(parameter.GetDimension(), CParameter::EDimension::Percent);
        EXPECT_LE(parameter.GetUnitFactor(), CUnit::EUnitFactor::Undefined);
        EXPECT_LE(parameter.GetFloatFormat().type, CParameter::EFormatSpecifier::FormatInteger);
        EXPECT_LE(static_cast<unsigned>(parameter.GetFloatFormat().count), 20u);
    }
}

} // namespace

TEST(PreferencesFuzz, MutatedFilesAreLoadedAndSaved)
{
    const CDiagnosticsCapture warnings;
    for (int i = 0; i < c_analysisCount; ++i) {
        const EAnalysis analysis{i};
        const CStr section = u"Analysis_" + CAnalysisPreferencesData::GetININame(analysis);
        const CLines lines = GoldenLines(analysis);
        const auto fresh = MakePreferences(analysis);
        for (unsigned seed = 0; seed < 400; ++seed) {
            SCOPED_TRACE(seed);
            CInifile ini = PreferencesIni(CMutator(seed).Mutate(lines), section);
            const auto foreign = ForeignKeys(ini);
            const auto data = fresh->Clone();
            EXPECT_TRUE(data->Load(ini));
            ExpectSane(*data, fresh->GetParameterIDs().size());
            EXPECT_TRUE(data->Save(ini));
            EXPECT_EQ(ForeignKeys(ini), foreign);

            const std::string saved = ini.GetBytes();
            const auto again = fresh->Clone();
            CInifile reloaded = PreferencesIni(saved, section);
            EXPECT_TRUE(again->Load(reloaded) && again->Save(reloaded));
            EXPECT_TRUE(reloaded.GetBytes() == saved);
            ASSERT_FALSE(HasFailure()) << saved;
        }
    }
    EXPECT_GT(warnings.GetCount(), 1000);
}

#if !defined(_WIN32)

namespace
{

// Saves one content and the other in turn until it is killed; says so, once it is about to begin.
[[noreturn]] void SaveForever(const CStr& file, const std::string (&contents)[2], int started)
{
    CInifile ini;
    ini.SetFileName(file);
    const bool told = write(started, "x", 1) == 1;
    for (unsigned i = 0; told; ++i) {
        ini.LoadBytes(contents[i % 2]);
        if (!ini.Save())
            break;
    }
    _exit(1);
}

// Kills such a process at a random moment.
void InterruptSaving(const CStr& file, const std::string (&contents)[2], std::chrono::microseconds moment)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const pid_t process = fork();
    ASSERT_GE(process, 0);
    if (process == 0)
        SaveForever(file, contents, ends[1]);
    char byte = 0;
    EXPECT_EQ(read(ends[0], &byte, 1), 1);
    const auto end = std::chrono::steady_clock::now() + moment;
    while (std::chrono::steady_clock::now() < end) {
    }
    EXPECT_EQ(kill(process, SIGKILL), 0);
    int status = 0;
    EXPECT_EQ(waitpid(process, &status, 0), process);
    EXPECT_TRUE(WIFSIGNALED(status)) << "it stopped by itself";
    close(ends[0]);
    close(ends[1]);
}

std::string ManagerBytes(const CAnalysisPreferencesManager& manager)
{
    CInifile ini = PreferencesIni({}, u"Analysis");
    manager.Save(ini);
    return ini.GetBytes();
}

} // namespace

TEST(PreferencesFuzz, InterruptedSavingLeavesTheOldFileOrTheNewOne)
{
    CAnalysisPreferencesManager manager;
    const std::string before = ManagerBytes(manager);
    manager.SetDataParameterOn(EAnalysis::Roughness, 0, false);
    manager.SetDataPreprocessingNo(EAnalysis::Tip, 2);
    const std::string contents[2] = {before + "; a comment\n", ManagerBytes(manager)};

    const CTemporaryFolder folder;
    folder.Write("preferences.ini", contents[1]);
    const CStr file = (folder.GetPath() / "preferences.ini").u16string();
    std::mt19937 random(1);
    for (int round = 0; round < 400; ++round) {
        InterruptSaving(file, contents, std::chrono::microseconds(random() % 3000));
        const std::string found = folder.Read("preferences.ini");
        ASSERT_TRUE(found == contents[0] || found == contents[1])
            << round << ": " << found.size() << " bytes";
    }
    CInifile ini = PreferencesIni({}, u"Analysis");
    EXPECT_TRUE(ini.Load(file) && manager.Load(ini) && manager.Save(ini) && ini.Save());
}

#endif
