#include "model/RoughnessCatalogue.h"

#include "common/Exceptions.h"
#include "model/Enumerations.h"

#include <algorithm>
#include <array>

namespace CommonUI
{

namespace
{

using EDimension = CParameter::EDimension;

constexpr SRoughnessVariable c_levelHeight[] = {{u"c", 9401, EDimension::Length, 0.0}};
// The defaults 10 % and 80 % make Vm(p) and Vv(p) start as Vmp and Vvv do (ISO 25178-3).
constexpr SRoughnessVariable c_materialRatio[] = {{u"p", 9402, EDimension::Percent, 10.0}};
constexpr SRoughnessVariable c_voidRatio[] = {{u"p", 9402, EDimension::Percent, 80.0}};
constexpr SRoughnessVariable c_twoRatios[] = {{u"p", 9402, EDimension::Percent, 10.0},
                                              {u"q", 9403, EDimension::Percent, 50.0}};
constexpr SRoughnessVariable c_percentile[] = {{u"p", 9404, EDimension::Percent, 95.0}};
// The reference level C0 is given as the material ratio at it (ISO 4287, 4.5.4): a height would depend on the
// highest peak.
constexpr SRoughnessVariable c_referenceAndDepth[] = {{u"c0", 9405, EDimension::Percent, 5.0},
                                                      {u"dc", 9406, EDimension::Length, 1e-6}};

struct SRow {
    ERoughnessParameters value;
    std::u16string_view iniName;
    EAnalysisStandards standard;
    EDimension dimension;
    std::span<const SRoughnessVariable> variables = {};
};

using enum ERoughnessParameters;
using enum EAnalysisStandards;

constexpr SRow c_rows[] = {
    // Areal: height parameters
    {Sa, u"Sa", VORNLegacy, EDimension::Length},
    {Sq, u"Sq", VORNLegacy, EDimension::Length},
    {Ssk, u"Ssk", VORNLegacy, EDimension::None},
    {Sku, u"Sku", VORNLegacy, EDimension::None},
    {Sp, u"Sp", VORNLegacy, EDimension::Length},
    {Sv, u"Sv", VORNLegacy, EDimension::Length},
    {Sz, u"Sz", VORNLegacy, EDimension::Length},
    {Smean, u"Smean", VORNLegacy, EDimension::Length},
    {Smin, u"Smin", VORNLegacy, EDimension::Length},
    {Smax, u"Smax", VORNLegacy, EDimension::Length},
    // Areal: spatial parameters
    {Sal, u"Sal", VORNLegacy, EDimension::Length},
    {Str, u"Str", VORNLegacy, EDimension::None},
    {Std, u"Std", VORNLegacy, EDimension::Angle},
    {Scl20, u"Scl20", VORNLegacy, EDimension::Length},
    {Scl37, u"Scl37", VORNLegacy, EDimension::Length},
    {Str20, u"Str20", VORNLegacy, EDimension::None},
    {Str37, u"Str37", VORNLegacy, EDimension::None},
    {Stdi, u"Stdi", VORNLegacy, EDimension::None},
    {Srw, u"Srw", VORNLegacy, EDimension::Length},
    {Srwi, u"Srwi", VORNLegacy, EDimension::None},
    {Sfd, u"Sfd", VORNLegacy, EDimension::None},
    // Areal: hybrid parameters
    {Sdq, u"Sdq", VORNLegacy, EDimension::None},
    {Sdr, u"Sdr", VORNLegacy, EDimension::Percent},
    {S2A, u"S2A", VORNLegacy, EDimension::Area},
    {S3A, u"S3A", VORNLegacy, EDimension::Area},
    // Areal: functional parameters
    {Sk, u"Sk", VORNLegacy, EDimension::Length},
    {Spk, u"Spk", VORNLegacy, EDimension::Length},
    {Svk, u"Svk", VORNLegacy, EDimension::Length},
    {Smr1, u"Smr1", VORNLegacy, EDimension::Percent},
    {Smr2, u"Smr2", VORNLegacy, EDimension::Percent},
    {Sxp, u"Sxp", VORNLegacy, EDimension::Length},
    {Sdc0_5, u"Sdc0_5", VORNLegacy, EDimension::Length},
    {Sdc5_10, u"Sdc5_10", VORNLegacy, EDimension::Length},
    {Sdc10_50, u"Sdc10_50", VORNLegacy, EDimension::Length},
    {Sdc50_95, u"Sdc50_95", VORNLegacy, EDimension::Length},
    {Vmp, u"Vmp", VORNLegacy, EDimension::Length},
    {Vmc, u"Vmc", VORNLegacy, EDimension::Length},
    {Vvc, u"Vvc", VORNLegacy, EDimension::Length},
    {Vvv, u"Vvv", VORNLegacy, EDimension::Length},
    // Areal: feature parameters
    {Spd, u"Spd", VORNLegacy, EDimension::InverseArea},
    {Spc, u"Spc", VORNLegacy, EDimension::InverseLength},
    {S5p, u"S5p", VORNLegacy, EDimension::Length},
    {S5v, u"S5v", VORNLegacy, EDimension::Length},
    {S10z, u"S10z", VORNLegacy, EDimension::Length},
    {Sda, u"Sda", VORNLegacy, EDimension::Area},
    {Sha, u"Sha", VORNLegacy, EDimension::Area},
    {Sdv, u"Sdv", VORNLegacy, EDimension::Volume},
    {Shv, u"Shv", VORNLegacy, EDimension::Volume},
    // Areal: templates
    {Smr, u"Smr", VORNLegacy, EDimension::Percent, c_levelHeight},
    {Smc, u"Smc", VORNLegacy, EDimension::Length, c_materialRatio},
    {Sdc, u"Sdc", VORNLegacy, EDimension::Length, c_twoRatios},
    {Vm, u"Vm", VORNLegacy, EDimension::Length, c_materialRatio},
    {Vv, u"Vv", VORNLegacy, EDimension::Length, c_voidRatio},
    {Sch, u"Sch", VORNLegacy, EDimension::Length, c_percentile},
    // Profile parameters without filter
    {ProfileRa, u"Ra", VORNLegacy, EDimension::Length},
    {ProfileRq, u"Rq", VORNLegacy, EDimension::Length},
    {ProfileRsk, u"Rsk", VORNLegacy, EDimension::None},
    {ProfileRku, u"Rku", VORNLegacy, EDimension::None},
    {ProfileRp, u"Rp", VORNLegacy, EDimension::Length},
    {ProfileRv, u"Rv", VORNLegacy, EDimension::Length},
    {ProfileRz, u"Rz", VORNLegacy, EDimension::Length},
    {ProfileRt, u"Rt", VORNLegacy, EDimension::Length},
    {ProfileRmean, u"Rmean", VORNLegacy, EDimension::Length},
    {ProfileRmin, u"Rmin", VORNLegacy, EDimension::Length},
    {ProfileRmax, u"Rmax", VORNLegacy, EDimension::Length},
    {ProfileRSm, u"RSm", VORNLegacy, EDimension::Length},
    {ProfileRdq, u"Rdq", VORNLegacy, EDimension::None},
    {ProfileRmr, u"Rmr", VORNLegacy, EDimension::Percent, c_levelHeight},
    {ProfileRdc, u"Rdc", VORNLegacy, EDimension::Length, c_twoRatios},
    {ProfileRmr2, u"Rmr2", VORNLegacy, EDimension::Percent, c_referenceAndDepth},
    // ISO 4287, roughness profile
    {Iso4287Ra, u"4287Ra", ISO4287, EDimension::Length},
    {Iso4287Rq, u"4287Rq", ISO4287, EDimension::Length},
    {Iso4287Rsk, u"4287Rsk", ISO4287, EDimension::None},
    {Iso4287Rku, u"4287Rku", ISO4287, EDimension::None},
    {Iso4287Rp, u"4287Rp", ISO4287, EDimension::Length},
    {Iso4287Rv, u"4287Rv", ISO4287, EDimension::Length},
    {Iso4287Rz, u"4287Rz", ISO4287, EDimension::Length},
    {Iso4287Rc, u"4287Rc", ISO4287, EDimension::Length},
    {Iso4287Rt, u"4287Rt", ISO4287, EDimension::Length},
    {Iso4287RSm, u"4287RSm", ISO4287, EDimension::Length},
    {Iso4287Rdq, u"4287Rdq", ISO4287, EDimension::None},
    {Iso4287Rmr, u"4287Rmr", ISO4287, EDimension::Percent, c_levelHeight},
    {Iso4287Rdc, u"4287Rdc", ISO4287, EDimension::Length, c_twoRatios},
    {Iso4287Rmr2, u"4287Rmr2", ISO4287, EDimension::Percent, c_referenceAndDepth},
    // ISO 4287, waviness profile
    {Iso4287Wa, u"4287Wa", ISO4287, EDimension::Length},
    {Iso4287Wq, u"4287Wq", ISO4287, EDimension::Length},
    {Iso4287Wsk, u"4287Wsk", ISO4287, EDimension::None},
    {Iso4287Wku, u"4287Wku", ISO4287, EDimension::None},
    {Iso4287Wp, u"4287Wp", ISO4287, EDimension::Length},
    {Iso4287Wv, u"4287Wv", ISO4287, EDimension::Length},
    {Iso4287Wz, u"4287Wz", ISO4287, EDimension::Length},
    {Iso4287Wc, u"4287Wc", ISO4287, EDimension::Length},
    {Iso4287Wt, u"4287Wt", ISO4287, EDimension::Length},
    {Iso4287WSm, u"4287WSm", ISO4287, EDimension::Length},
    {Iso4287Wdq, u"4287Wdq", ISO4287, EDimension::None},
    {Iso4287Wmr, u"4287Wmr", ISO4287, EDimension::Percent, c_levelHeight},
    {Iso4287Wdc, u"4287Wdc", ISO4287, EDimension::Length, c_twoRatios},
    {Iso4287Wmr2, u"4287Wmr2", ISO4287, EDimension::Percent, c_referenceAndDepth},
    // ISO 4287, primary profile
    {Iso4287Pa, u"4287Pa", ISO4287, EDimension::Length},
    {Iso4287Pq, u"4287Pq", ISO4287, EDimension::Length},
    {Iso4287Psk, u"4287Psk", ISO4287, EDimension::None},
    {Iso4287Pku, u"4287Pku", ISO4287, EDimension::None},
    {Iso4287Pp, u"4287Pp", ISO4287, EDimension::Length},
    {Iso4287Pv, u"4287Pv", ISO4287, EDimension::Length},
    {Iso4287Pz, u"4287Pz", ISO4287, EDimension::Length},
    {Iso4287Pc, u"4287Pc", ISO4287, EDimension::Length},
    {Iso4287Pt, u"4287Pt", ISO4287, EDimension::Length},
    {Iso4287PSm, u"4287PSm", ISO4287, EDimension::Length},
    {Iso4287Pdq, u"4287Pdq", ISO4287, EDimension::None},
    {Iso4287Pmr, u"4287Pmr", ISO4287, EDimension::Percent, c_levelHeight},
    {Iso4287Pdc, u"4287Pdc", ISO4287, EDimension::Length, c_twoRatios},
    {Iso4287Pmr2, u"4287Pmr2", ISO4287, EDimension::Percent, c_referenceAndDepth},
    // ISO 13565-2
    {Iso13565Rk, u"p13565_2Rk", ISO13565, EDimension::Length},
    {Iso13565Rpk, u"p13565_2Rpk", ISO13565, EDimension::Length},
    {Iso13565Rvk, u"p13565_2Rvk", ISO13565, EDimension::Length},
    {Iso13565Mr1, u"p13565_2Rmr1", ISO13565, EDimension::Percent},
    {Iso13565Mr2, u"p13565_2Rmr2", ISO13565, EDimension::Percent},
    // ISO 12085, motifs
    {Iso12085AR, u"p12085_RAr", ISO12085, EDimension::Length},
    {Iso12085R, u"p12085_Rr", ISO12085, EDimension::Length},
    {Iso12085Rx, u"p12085_Rrx", ISO12085, EDimension::Length},
    {Iso12085SAR, u"p12085_RSAr", ISO12085, EDimension::Length},
    {Iso12085SR, u"p12085_RSr", ISO12085, EDimension::Length},
    {Iso12085AW, u"p12085_WAr", ISO12085, EDimension::Length},
    {Iso12085W, u"p12085_Wr", ISO12085, EDimension::Length},
    {Iso12085SAW, u"p12085_WSAr", ISO12085, EDimension::Length},
    {Iso12085SW, u"p12085_WSr", ISO12085, EDimension::Length},
    {Iso12085Wte, u"p12085_Wte", ISO12085, EDimension::Length},
    {Iso12085Wx, u"p12085_Wrx", ISO12085, EDimension::Length},
    // MUFU, functional valleys
    {MufuMsm, u"Msm", MUFU, EDimension::Length},
    {MufuRMn, u"rMn", MUFU, EDimension::InverseLength},
    {MufuRMd, u"rMd", MUFU, EDimension::Length},
    {MufuRMx, u"rMx", MUFU, EDimension::Length},
    {MufuRMw, u"rMw", MUFU, EDimension::Length},
    {MufuRMs, u"rMs", MUFU, EDimension::Length},
    {MufuRMa, u"rMa", MUFU, EDimension::Percent},
    {MufuRMv, u"rMv", MUFU, EDimension::Length},
    // Plug-ins
    {PlugIn, u"PlugIn", RoughnessPlugIns, EDimension::None},
    // Count
    {Count, u"Count", None, EDimension::None},
};

constexpr std::size_t c_count = std::size(c_rows);

template<class TField>
constexpr bool IsUnique(TField field)
{
    for (std::size_t i = 0; i < c_count; ++i)
        for (std::size_t j = 0; j < i; ++j)
            if (c_rows[i].*field == c_rows[j].*field)
                return false;
    return true;
}
static_assert(c_count == 138);
static_assert(IsUnique(&SRow::value));
static_assert(IsUnique(&SRow::iniName));
static_assert(std::ranges::max_element(c_rows, {}, &SRow::value)->value == ERoughnessParameters(143));

// The texts of a parameter follow from its number; the plug-ins' entry has the text of its standard.
constexpr int c_names = 9001;
constexpr int c_shortNames = 9201;
constexpr int c_plugIns = 7818;

constexpr SEnumRow EnumRow(const SRow& row)
{
    const int value = static_cast<int>(row.value);
    const bool isPlugIn = row.value == PlugIn;
    return {.value = value,
            .iniName = row.iniName,
            .textId = isPlugIn ? c_plugIns : c_names + value,
            .shortTextId = isPlugIn ? 0 : c_shortNames + value,
            .standard = static_cast<int>(row.standard)};
}

const SRow* FindRow(ERoughnessParameters parameter)
{
    const auto* const found = std::ranges::find(c_rows, parameter, &SRow::value);
    return found == std::end(c_rows) ? nullptr : found;
}

} // namespace

const CEnum<ERoughnessParameters>& GetRoughnessParametersEnum()
{
    static const auto& values = *new auto([] {
        std::array<SEnumRow, c_count> rows;
        std::ranges::transform(c_rows, rows.begin(), EnumRow);
        return CEnum<ERoughnessParameters>::FromRows(rows);
    }());
    return values;
}

CParameter::EDimension RoughnessParameter2Dimension(ERoughnessParameters parameter)
{
    const SRow* const row = FindRow(parameter);
    return row ? row->dimension : EDimension::None;
}

bool IsSuppliedByPlugIn(const CParameter& parameter)
{
    return parameter.GetStandard() == static_cast<int>(RoughnessPlugIns) ||
           parameter.GetBaseValue() == static_cast<int>(PlugIn);
}

std::span<const SRoughnessVariable> GetRoughnessVariables(ERoughnessParameters parameter)
{
    const SRow* const row = FindRow(parameter);
    return row ? row->variables : std::span<const SRoughnessVariable>();
}

CParameter MakeRoughnessParameter(ERoughnessParameters parameter)
{
    const auto& catalogue = GetRoughnessParametersEnum();
    const auto entry = catalogue.Find(static_cast<int>(parameter));
    if (entry == catalogue.end())
        throw EInternal(u"RoughnessCatalogue", __LINE__, u"MakeRoughnessParameter",
                        CStr::Format(u"Illegal Parameter ID: %d", parameter));
    CParameter made(entry->GetValue(), entry->GetIniName(), entry->GetFriendlyString(),
                    entry->GetShortFriendlyString(), entry->GetStandard(), false,
                    RoughnessParameter2Dimension(parameter));
    if (parameter == Count)
        made.SetFloatFormat({CParameter::EFormatSpecifier::FormatInteger, 5});
    int number = 0;
    for (const SRoughnessVariable& row : GetRoughnessVariables(parameter)) {
        CParameter variable(number++, row.key, GetString(row.textId), CStr(), 0, true, row.dimension);
        variable.SetVariableValue(row.defaultValue);
        made.AddVariable(variable);
    }
    return made;
}

} // namespace CommonUI
