#include "tests/model/PreferencesTesting.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

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

    // Puts another line in a line's place or in front of it.
    void Change(CLines& lines)
    {
        const auto at = lines.begin() + static_cast<std::ptrdiff_t>(Below(lines.size()));
        const std::size_t equals = std::min(at->find('='), at->size());
        const std::string foreign = "Foreign" + std::to_string(Below(100));
        const std::string others[] = {"",
                                      at->substr(0, equals) + "=" + Value(),
                                      Value() + at->substr(equals),
                                      lines[Below(lines.size())],
                                      foreign + " = " + Value(),
                                      "[" + foreign + "]"};
        const std::string& other = others[Below(std::size(others))];
        if (Below(2) == 0)
            *at = other;
        else
            lines.insert(at, other);
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
