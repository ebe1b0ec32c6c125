#include "model/RoughnessCatalogue.h"

#include "model/Enumerations.h"

#include <algorithm>
#include <array>

namespace CommonUI
{

namespace
{

// Numbers of CParameter::EDimension.
constexpr int c_dimensionless = 0;
constexpr int c_length = 1;
constexpr int c_area = 5;
constexpr int c_volume = 6;
constexpr int c_inverseLength = 7;
constexpr int c_inverseArea = 8;
constexpr int c_angle = 9;
constexpr int c_percent = 10;

constexpr SRoughnessVariable c_levelHeight[] = {{u"c", 9401, c_length, 0.0}};
// The defaults 10 % and 80 % make Vm(p) and Vv(p) start as Vmp and Vvv do (ISO 25178-3).
constexpr SRoughnessVariable c_materialRatio[] = {{u"p", 9402, c_percent, 10.0}};
constexpr SRoughnessVariable c_voidRatio[] = {{u"p", 9402, c_percent, 80.0}};
constexpr SRoughnessVariable c_twoRatios[] = {{u"p", 9402, c_percent, 10.0}, {u"q", 9403, c_percent, 50.0}};
constexpr SRoughnessVariable c_percentile[] = {{u"p", 9404, c_percent, 95.0}};
// The reference level C0 is given as the material ratio at it (ISO 4287, 4.5.4): a height would depend on the
// highest peak.
constexpr SRoughnessVariable c_referenceAndDepth[] = {{u"c0", 9405, c_percent, 5.0},
                                                      {u"dc", 9406, c_length, 1e-6}};

struct SRow {
    ERoughnessParameters value;
    std::u16string_view iniName;
    EAnalysisStandards standard;
    int dimension;
    std::span<const SRoughnessVariable> variables = {};
};

using enum ERoughnessParameters;
using enum EAnalysisStandards;

constexpr SRow c_rows[] = {
    // Areal: height parameters
    {Sa, u"Sa", VORNLegacy, c_length},
    {Sq, u"Sq", VORNLegacy, c_length},
    {Ssk, u"Ssk", VORNLegacy, c_dimensionless},
    {Sku, u"Sku", VORNLegacy, c_dimensionless},
    {Sp, u"Sp", VORNLegacy, c_length},
    {Sv, u"Sv", VORNLegacy, c_length},
    {Sz, u"Sz", VORNLegacy, c_length},
    {Smean, u"Smean", VORNLegacy, c_length},
    {Smin, u"Smin", VORNLegacy, c_length},
    {Smax, u"Smax", VORNLegacy, c_length},
    // Areal: spatial parameters
    {Sal, u"Sal", VORNLegacy, c_length},
    {Str, u"Str", VORNLegacy, c_dimensionless},
    {Std, u"Std", VORNLegacy, c_angle},
    {Scl20, u"Scl20", VORNLegacy, c_length},
    {Scl37, u"Scl37", VORNLegacy, c_length},
    {Str20, u"Str20", VORNLegacy, c_dimensionless},
    {Str37, u"Str37", VORNLegacy, c_dimensionless},
    {Stdi, u"Stdi", VORNLegacy, c_dimensionless},
    {Srw, u"Srw", VORNLegacy, c_length},
    {Srwi, u"Srwi", VORNLegacy, c_dimensionless},
    {Sfd, u"Sfd", VORNLegacy, c_dimensionless},
    // Areal: hybrid parameters
    {Sdq, u"Sdq", VORNLegacy, c_dimensionless},
    {Sdr, u"Sdr", VORNLegacy, c_percent},
    {S2A, u"S2A", VORNLegacy, c_area},
    {S3A, u"S3A", VORNLegacy, c_area},
    // Areal: functional parameters
    {Sk, u"Sk", VORNLegacy, c_length},
    {Spk, u"Spk", VORNLegacy, c_length},
    {Svk, u"Svk", VORNLegacy, c_length},
    {Smr1, u"Smr1", VORNLegacy, c_percent},
    {Smr2, u"Smr2", VORNLegacy, c_percent},
    {Sxp, u"Sxp", VORNLegacy, c_length},
    {Sdc0_5, u"Sdc0_5", VORNLegacy, c_length},
    {Sdc5_10, u"Sdc5_10", VORNLegacy, c_length},
    {Sdc10_50, u"Sdc10_50", VORNLegacy, c_length},
    {Sdc50_95, u"Sdc50_95", VORNLegacy, c_length},
    {Vmp, u"Vmp", VORNLegacy, c_length},
    {Vmc, u"Vmc", VORNLegacy, c_length},
    {Vvc, u"Vvc", VORNLegacy, c_length},
    {Vvv, u"Vvv", VORNLegacy, c_length},
    // Areal: feature parameters
    {Spd, u"Spd", VORNLegacy, c_inverseArea},
    {Spc, u"Spc", VORNLegacy, c_inverseLength},
    {S5p, u"S5p", VORNLegacy, c_length},
    {S5v, u"S5v", VORNLegacy, c_length},
    {S10z, u"S10z", VORNLegacy, c_length},
    {Sda, u"Sda", VORNLegacy, c_area},
    {Sha, u"Sha", VORNLegacy, c_area},
    {Sdv, u"Sdv", VORNLegacy, c_volume},
    {Shv, u"Shv", VORNLegacy, c_volume},
    // Areal: templates
    {Smr, u"Smr", VORNLegacy, c_percent, c_levelHeight},
    {Smc, u"Smc", VORNLegacy, c_length, c_materialRatio},
    {Sdc, u"Sdc", VORNLegacy, c_length, c_twoRatios},
    {Vm, u"Vm", VORNLegacy, c_length, c_materialRatio},
    {Vv, u"Vv", VORNLegacy, c_length, c_voidRatio},
    {Sch, u"Sch", VORNLegacy, c_length, c_percentile},
    // Profile parameters without filter
    {ProfileRa, u"Ra", VORNLegacy, c_length},
    {ProfileRq, u"Rq", VORNLegacy, c_length},
    {ProfileRsk, u"Rsk", VORNLegacy, c_dimensionless},
    {ProfileRku, u"Rku", VORNLegacy, c_dimensionless},
    {ProfileRp, u"Rp", VORNLegacy, c_length},
    {ProfileRv, u"Rv", VORNLegacy, c_length},
    {ProfileRz, u"Rz", VORNLegacy, c_length},
    {ProfileRt, u"Rt", VORNLegacy, c_length},
    {ProfileRmean, u"Rmean", VORNLegacy, c_length},
    {ProfileRmin, u"Rmin", VORNLegacy, c_length},
    {ProfileRmax, u"Rmax", VORNLegacy, c_length},
    {ProfileRSm, u"RSm", VORNLegacy, c_length},
    {ProfileRdq, u"Rdq", VORNLegacy, c_dimensionless},
    {ProfileRmr, u"Rmr", VORNLegacy, c_percent, c_levelHeight},
    {ProfileRdc, u"Rdc", VORNLegacy, c_length, c_twoRatios},
    {ProfileRmr2, u"Rmr2", VORNLegacy, c_percent, c_referenceAndDepth},
    // ISO 4287, roughness profile
    {Iso4287Ra, u"4287Ra", ISO4287, c_length},
    {Iso4287Rq, u"4287Rq", ISO4287, c_length},
    {Iso4287Rsk, u"4287Rsk", ISO4287, c_dimensionless},
    {Iso4287Rku, u"4287Rku", ISO4287, c_dimensionless},
    {Iso4287Rp, u"4287Rp", ISO4287, c_length},
    {Iso4287Rv, u"4287Rv", ISO4287, c_length},
    {Iso4287Rz, u"4287Rz", ISO4287, c_length},
    {Iso4287Rc, u"4287Rc", ISO4287, c_length},
    {Iso4287Rt, u"4287Rt", ISO4287, c_length},
    {Iso4287RSm, u"4287RSm", ISO4287, c_length},
    {Iso4287Rdq, u"4287Rdq", ISO4287, c_dimensionless},
    {Iso4287Rmr, u"4287Rmr", ISO4287, c_percent, c_levelHeight},
    {Iso4287Rdc, u"4287Rdc", ISO4287, c_length, c_twoRatios},
    {Iso4287Rmr2, u"4287Rmr2", ISO4287, c_percent, c_referenceAndDepth},
    // ISO 4287, waviness profile
    {Iso4287Wa, u"4287Wa", ISO4287, c_length},
    {Iso4287Wq, u"4287Wq", ISO4287, c_length},
    {Iso4287Wsk, u"4287Wsk", ISO4287, c_dimensionless},
    {Iso4287Wku, u"4287Wku", ISO4287, c_dimensionless},
    {Iso4287Wp, u"4287Wp", ISO4287, c_length},
    {Iso4287Wv, u"4287Wv", ISO4287, c_length},
    {Iso4287Wz, u"4287Wz", ISO4287, c_length},
    {Iso4287Wc, u"4287Wc", ISO4287, c_length},
    {Iso4287Wt, u"4287Wt", ISO4287, c_length},
    {Iso4287WSm, u"4287WSm", ISO4287, c_length},
    {Iso4287Wdq, u"4287Wdq", ISO4287, c_dimensionless},
    {Iso4287Wmr, u"4287Wmr", ISO4287, c_percent, c_levelHeight},
    {Iso4287Wdc, u"4287Wdc", ISO4287, c_length, c_twoRatios},
    {Iso4287Wmr2, u"4287Wmr2", ISO4287, c_percent, c_referenceAndDepth},
    // ISO 4287, primary profile
    {Iso4287Pa, u"4287Pa", ISO4287, c_length},
    {Iso4287Pq, u"4287Pq", ISO4287, c_length},
    {Iso4287Psk, u"4287Psk", ISO4287, c_dimensionless},
    {Iso4287Pku, u"4287Pku", ISO4287, c_dimensionless},
    {Iso4287Pp, u"4287Pp", ISO4287, c_length},
    {Iso4287Pv, u"4287Pv", ISO4287, c_length},
    {Iso4287Pz, u"4287Pz", ISO4287, c_length},
    {Iso4287Pc, u"4287Pc", ISO4287, c_length},
    {Iso4287Pt, u"4287Pt", ISO4287, c_length},
    {Iso4287PSm, u"4287PSm", ISO4287, c_length},
    {Iso4287Pdq, u"4287Pdq", ISO4287, c_dimensionless},
    {Iso4287Pmr, u"4287Pmr", ISO4287, c_percent, c_levelHeight},
    {Iso4287Pdc, u"4287Pdc", ISO4287, c_length, c_twoRatios},
    {Iso4287Pmr2, u"4287Pmr2", ISO4287, c_percent, c_referenceAndDepth},
    // ISO 13565-2
    {Iso13565Rk, u"p13565_2Rk", ISO13565, c_length},
    {Iso13565Rpk, u"p13565_2Rpk", ISO13565, c_length},
    {Iso13565Rvk, u"p13565_2Rvk", ISO13565, c_length},
    {Iso13565Mr1, u"p13565_2Rmr1", ISO13565, c_percent},
    {Iso13565Mr2, u"p13565_2Rmr2", ISO13565, c_percent},
    // ISO 12085, motifs
    {Iso12085AR, u"p12085_RAr", ISO12085, c_length},
    {Iso12085R, u"p12085_Rr", ISO12085, c_length},
    {Iso12085Rx, u"p12085_Rrx", ISO12085, c_length},
    {Iso12085SAR, u"p12085_RSAr", ISO12085, c_length},
    {Iso12085SR, u"p12085_RSr", ISO12085, c_length},
    {Iso12085AW, u"p12085_WAr", ISO12085, c_length},
    {Iso12085W, u"p12085_Wr", ISO12085, c_length},
    {Iso12085SAW, u"p12085_WSAr", ISO12085, c_length},
    {Iso12085SW, u"p12085_WSr", ISO12085, c_length},
    {Iso12085Wte, u"p12085_Wte", ISO12085, c_length},
    {Iso12085Wx, u"p12085_Wrx", ISO12085, c_length},
    // MUFU, functional valleys
    {MufuMsm, u"Msm", MUFU, c_length},
    {MufuRMn, u"rMn", MUFU, c_inverseLength},
    {MufuRMd, u"rMd", MUFU, c_length},
    {MufuRMx, u"rMx", MUFU, c_length},
    {MufuRMw, u"rMw", MUFU, c_length},
    {MufuRMs, u"rMs", MUFU, c_length},
    {MufuRMa, u"rMa", MUFU, c_percent},
    {MufuRMv, u"rMv", MUFU, c_length},
    // Plug-ins
    {PlugIn, u"PlugIn", RoughnessPlugIns, c_dimensionless},
    // Count
    {Count, u"Count", None, c_dimensionless},
};

constexpr std::size_t c_count = std::size(c_rows);

template<class Field>
constexpr bool IsUnique(Field field)
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

/// The texts of a parameter follow from its number; the plug-ins' entry has the text of its standard.
constexpr SEnumRow EnumRow(const SRow& row)
{
    const int value = static_cast<int>(row.value);
    const bool isPlugIn = row.value == PlugIn;
    return {.value = value,
            .iniName = row.iniName,
            .textId = isPlugIn ? 7818 : 9001 + value,
            .shortTextId = isPlugIn ? 0 : 9201 + value,
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

int RoughnessParameter2Dimension(ERoughnessParameters parameter)
{
    const SRow* const row = FindRow(parameter);
    return row ? row->dimension : c_dimensionless;
}

std::span<const SRoughnessVariable> GetRoughnessVariables(ERoughnessParameters parameter)
{
    const SRow* const row = FindRow(parameter);
    return row ? row->variables : std::span<const SRoughnessVariable>();
}

} // namespace CommonUI
