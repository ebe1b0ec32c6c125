#include "tests/model/PreferencesTesting.h"

#include <gtest/gtest.h>

using namespace CommonUI;

namespace
{

using ERough = ERoughnessParameters;
using EOut = ERoughnessOutputs;

bool File(const CAnalysisPreferencesData& data)
{
    return data.GetWriteToFile();
}

bool Database(const CAnalysisPreferencesData& data)
{
    return data.GetWriteToDB();
}

template<auto Id>
bool On(const CAnalysisPreferencesData& data)
{
    if constexpr (std::is_same_v<decltype(Id), EOut>)
        return data.GetOutput(static_cast<int>(Id)).IsOn();
    else
        return data.GetParameter(static_cast<int>(Id)).IsOn();
}

constexpr struct {
    const char* key;
    int analysis;
    bool (*is)(const CAnalysisPreferencesData&);
} c_switches[] = {
    {"Options1DCalFile", 0, File},
    {"Options1DCal", 0, Database},
    {"OptionsCalFile", 1, File},
    {"OptionsCalDB", 1, Database},
    {"OptionsZCalFile", 2, File},
    {"OptionsZCalDB", 2, Database},
    {"OptionsCrossCorrFile", 3, File},
    {"OptionsCrossCorrDB", 3, Database},
    {"OptionsLinearityFile", 4, File},
    {"OptionsLinearityDB", 4, Database},
    {"OptionsSlopeFile", 5, File},
    {"OptionsSlopeDB", 5, Database},
    {"OptionsRoughnessFile", 6, File},
    {"OptionsRoughnessDB", 6, Database},
    {"OptionsRoughnessFile", 7, File},
    {"OptionsRoughnessDB", 7, Database},
    {"OptionsTipFile", 8, File},
    {"OptionsTipDB", 8, Database},
    {"OptionsGrainsFile", 9, File},
    {"OptionsGrainsDB", 9, Database},
    {"Roughness", 6, On<ERough::Sa>},
    {"Roughness", 6, On<ERough::Sz>},
    {"Scl20", 6, On<ERough::Scl20>},
    {"Scl37", 6, On<ERough::Scl37>},
    {"Sdc0_5", 6, On<ERough::Sdc0_5>},
    {"Sdc5_10", 6, On<ERough::Sdc5_10>},
    {"Sdc10_50", 6, On<ERough::Sdc10_50>},
    {"Sdc50_95", 6, On<ERough::Sdc50_95>},
    {"Smax", 6, On<ERough::Smax>},
    {"Smean", 6, On<ERough::Smean>},
    {"Smin", 6, On<ERough::Smin>},
    {"Smr1", 6, On<ERough::Smr1>},
    {"Srw ", 6, On<ERough::Srw>},
    {"Srwi", 6, On<ERough::Srwi>},
    {"Stdi", 6, On<ERough::Stdi>},
    {"Str20", 6, On<ERough::Str20>},
    {"Str37", 6, On<ERough::Str37>},
    {"Abbott Curve", 6, On<EOut::AbbottCurve>},
    {"Abbott Curve", 7, On<EOut::AbbottCurve>},
    {"Radial Spectrum", 6, On<EOut::RadialSpectrum>},
    {"Angular Spectrum", 6, On<EOut::AngularSpectrum>},
    {"Integrated Radial Spectrum", 6, On<EOut::IntegratedRadialSpectrum>},
    {"Fractal Dimension (Angle)", 6, On<EOut::FractalDimensionAngle>},
    {"Correlation Length 20% angular graph", 6, On<EOut::CorrelationLength20>},
    {"Correlation Length 37% angular graph", 6, On<EOut::CorrelationLength37>},
    {"Roughness Chart", 6, On<EOut::RoughnessChart>},
    {"Roughness results in Grid Dialog", 7, On<EOut::ResultGrid>},
    {"Roughness results in all image windows", 6, On<EOut::ResultAllImages>},
    {"Roughness results in main image window", 7, On<EOut::ResultMainImage>},
};

} // namespace

TEST(OldPreferences, EverySwitchTurnsOnAndOff)
{
    for (const auto& row : c_switches) {
        for (const bool on : {false, true}) {
            SCOPED_TRACE(row.key);
            const std::string line = std::string(row.key) + (on ? "=1\n" : "=0\n");
            const auto data = MakePreferences(EAnalysis{row.analysis});
            CInifile ini = PreferencesIni("[A]\n" + line);
            EXPECT_TRUE(data->Load(ini));
            EXPECT_EQ(row.is(*data), on);
            EXPECT_TRUE(data->IsModified()) << "it has to be saved in today's layout";
            EXPECT_EQ(ini.GetBytes(), "[A]\n" + line);
            CInifile mixed = PreferencesIni("[A]\nWriteToFile=0\nWriteToDB=0\n" + line);
            const auto untouched = MakePreferences(EAnalysis{row.analysis});
            untouched->Load(mixed);
            EXPECT_FALSE(untouched->IsModified()) << "with today's key the old ones mean nothing";
        }
    }
}

TEST(OldPreferences, UnitPreprocessingAndReport)
{
    const CWarningCounter warnings;
    const struct {
        const char* line;
        const char16_t* unit;
        int preprocessing;
        int report;
        int warned;
    } rows[] = {
        {"OptionsHeightUnit=um", u"µm", 1, 0, 0}, {"OptionsHeightUnit=4", u"µm", 1, 0, 0},
        {"OptionsHeightUnit=13", u"nm", 1, 0, 1}, {"m_Preprocessing=2", u"nm", 2, 0, 0},
        {"m_Preprocessing=9", u"nm", 1, 0, 1},    {"ReportOptions=2", u"nm", 1, 2, 0},
        {"ReportOptions=-1", u"nm", 1, 0, 1},     {"ReportOptions=HTML", u"nm", 1, 0, 1},
    };
    int warned = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        CRoughnessAnalysisPreferencesData data(EAnalysis::Roughness);
        CInifile ini = PreferencesIni("[A]\n" + std::string(row.line));
        EXPECT_TRUE(data.Load(ini));
        EXPECT_TRUE(data.IsModified());
        EXPECT_EQ(data.GetUnit().GetText(), row.unit);
        EXPECT_EQ(static_cast<int>(data.GetPreprocessingOption()), row.preprocessing);
        EXPECT_EQ(static_cast<int>(data.GetReportOption()), row.report);
        EXPECT_EQ(warnings.GetCount(), warned += row.warned);
    }
}

TEST(OldPreferences, SharedSectionIsFoundFromTheAnalysisSection)
{
    const struct {
        const char* bytes;
        const char16_t* section;
        bool found;
    } rows[] = {
        {"[A]\nOptionsTipDB=1\n", u"A_TipAnalysis", true},
        {"OptionsTipDB=1\n", u"_TipAnalysis", true},
        {"[A]\nOptionsTipDB=1\n[A_TipAnalysis]\nOptionsTipDB=0\n", u"A_TipAnalysis", false},
        {"[A]\nOptionsTipDB=1\n", u"A_Linearity", false},
        {"[A]\nOptionsCalDB=1\n", u"A_TipAnalysis", false},
        {"[A]\nOptionsTipDB=1\n[A_TipAnalysis]\nWriteToFile=0\n", u"A_TipAnalysis", false},
    };
    for (const auto& row : rows) {
        CAnalysisPreferencesData data(EAnalysis::Tip);
        CInifile ini = PreferencesIni(row.bytes, row.section);
        EXPECT_TRUE(data.Load(ini));
        EXPECT_EQ(data.GetWriteToDB(), row.found) << row.bytes;
        EXPECT_EQ(ini.GetSection(), row.section);
    }
}
