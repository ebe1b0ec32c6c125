#include "model/detail/OldPreferences.h"

#include "common/ini/SectionScope.h"
#include "common/NumberText.h"
#include "model/AnalysisPreferencesData.h"
#include "model/Preference.h"
#include "model/RoughnessAnalysisPreferencesData.h"
#include "model/RoughnessCatalogue.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

using enum EAnalysis;
using enum EOldTarget;

template<class... TAnalyses>
constexpr unsigned Of(TAnalyses... analyses)
{
    return ((1u << static_cast<unsigned>(analyses)) | ...);
}

constexpr unsigned c_all = (1u << 10) - 1;
constexpr unsigned c_image = Of(Roughness);
// There was one roughness analysis; both of today's continue it.
constexpr unsigned c_roughness = Of(Roughness, RoughnessProfile);

constexpr SOldKey Areal(std::u16string_view key, ERoughnessParameters parameter)
{
    return {key, c_image, Parameter, static_cast<int>(parameter)};
}

constexpr SOldKey Shown(std::u16string_view key, unsigned analyses, ERoughnessOutputs output)
{
    return {key, analyses, Output, static_cast<int>(output)};
}

using ERough = ERoughnessParameters;
using EOut = ERoughnessOutputs;

constexpr SOldKey c_oldKeys[] = {
    {u"Options1DCalFile", Of(Calibration1D), WriteToFile},
    {u"Options1DCal", Of(Calibration1D), WriteToDB},
    {u"OptionsCalFile", Of(CalibrationXY), WriteToFile},
    {u"OptionsCalDB", Of(CalibrationXY), WriteToDB},
    {u"OptionsZCalFile", Of(CalibrationZ), WriteToFile},
    {u"OptionsZCalDB", Of(CalibrationZ), WriteToDB},
    {u"OptionsCrossCorrFile", Of(CrossCorrelation), WriteToFile},
    {u"OptionsCrossCorrDB", Of(CrossCorrelation), WriteToDB},
    {u"OptionsLinearityFile", Of(Linearity), WriteToFile},
    {u"OptionsLinearityDB", Of(Linearity), WriteToDB},
    {u"OptionsSlopeFile", Of(PlaneCorrection), WriteToFile},
    {u"OptionsSlopeDB", Of(PlaneCorrection), WriteToDB},
    {u"OptionsRoughnessFile", c_roughness, WriteToFile},
    {u"OptionsRoughnessDB", c_roughness, WriteToDB},
    {u"OptionsTipFile", Of(Tip), WriteToFile},
    {u"OptionsTipDB", Of(Tip), WriteToDB},
    {u"OptionsGrainsFile", Of(Measure), WriteToFile},
    {u"OptionsGrainsDB", Of(Measure), WriteToDB},
    {u"OptionsHeightUnit", c_all, HeightUnit},
    {u"ReportOptions", c_roughness, ReportOption},
    {u"m_Preprocessing", c_all, Preprocessing},

    // One switch for the height parameters that have none of their own.
    Areal(u"Roughness", ERough::Sa),
    Areal(u"Roughness", ERough::Sq),
    Areal(u"Roughness", ERough::Ssk),
    Areal(u"Roughness", ERough::Sku),
    Areal(u"Roughness", ERough::Sp),
    Areal(u"Roughness", ERough::Sv),
    Areal(u"Roughness", ERough::Sz),
    Areal(u"Scl20", ERough::Scl20),
    Areal(u"Scl37", ERough::Scl37),
    Areal(u"Sdc0_5", ERough::Sdc0_5),
    Areal(u"Sdc5_10", ERough::Sdc5_10),
    Areal(u"Sdc10_50", ERough::Sdc10_50),
    Areal(u"Sdc50_95", ERough::Sdc50_95),
    Areal(u"Smax", ERough::Smax),
    Areal(u"Smean", ERough::Smean),
    Areal(u"Smin", ERough::Smin),
    Areal(u"Smr1", ERough::Smr1),
    Areal(u"Srw ", ERough::Srw), // the blank belongs to the key
    Areal(u"Srwi", ERough::Srwi),
    Areal(u"Stdi", ERough::Stdi),
    Areal(u"Str20", ERough::Str20),
    Areal(u"Str37", ERough::Str37),

    Shown(u"Abbott Curve", c_roughness, EOut::AbbottCurve),
    Shown(u"Radial Spectrum", c_image, EOut::RadialSpectrum),
    Shown(u"Angular Spectrum", c_image, EOut::AngularSpectrum),
    Shown(u"Integrated Radial Spectrum", c_image, EOut::IntegratedRadialSpectrum),
    Shown(u"Fractal Dimension (Angle)", c_image, EOut::FractalDimensionAngle),
    Shown(u"Correlation Length 20% angular graph", c_image, EOut::CorrelationLength20),
    Shown(u"Correlation Length 37% angular graph", c_image, EOut::CorrelationLength37),
    Shown(u"Roughness Chart", c_roughness, EOut::RoughnessChart),
    Shown(u"Roughness results in Grid Dialog", c_roughness, EOut::ResultGrid),
    Shown(u"Roughness results in all image windows", c_roughness, EOut::ResultAllImages),
    Shown(u"Roughness results in main image window", c_roughness, EOut::ResultMainImage),
};

bool HasOldKey(const CInifile& ini, EAnalysis analysis)
{
    return std::ranges::any_of(c_oldKeys,
                               [&](const SOldKey& row) { return row.IsOf(analysis) && ini.HasKey(row.key); });
}

} // namespace

std::span<const SOldKey> GetOldKeys()
{
    return c_oldKeys;
}

std::optional<CStr> FindOldSection(CInifile& ini, EAnalysis analysis)
{
    const CStr section = ini.GetSection();
    if (HasOldKey(ini, analysis))
        return section;
    const CStr ending = u"_" + CAnalysisPreferencesData::GetININame(analysis);
    if (!section.EndsWith(ending))
        return std::nullopt;
    const CStr shared = section.Left(section.GetLength() - ending.GetLength());
    const CSectionScope scope(ini, shared);
    return HasOldKey(ini, analysis) ? std::optional<CStr>(shared) : std::nullopt;
}

void ReadOldUnit(const CInifile& ini, const CStr& key, CUnit& unit)
{
    const CStr text = ini.ReadText(key);
    long long number = 0;
    if (!ParseInteger(text, number))
        unit = CUnit::FromText(text);
    else if (number >= 0 && number < static_cast<long long>(CUnit::EUnitFactor::Undefined))
        unit = CUnit(static_cast<CUnit::EUnitFactor>(number));
    else
        WarnOfPreference(CStr::Format(u"%s: there is no unit %s", key, text));
}

} // namespace CommonUI
