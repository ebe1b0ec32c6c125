#pragma once

#include "../common/Enum.h"
#include "../export/Export.h"
#include "Parameter.h"

#include <span>
#include <string_view>

namespace CommonUI
{

/// The parameters of the roughness analyses. Files store the keys of GetRoughnessParametersEnum, never these
/// numbers. A number that is missing here belongs to no parameter and is not given to a new one; numbers
/// above the last one are those of parameters that a user makes from a template.
enum class ERoughnessParameters : int {
    // Areal.
    Sa = 0,
    Sq = 1,
    Ssk = 2,
    Sku = 3,
    Sp = 4,
    Sv = 5,
    Sz = 6,
    Smean = 7,
    Smin = 8,
    Smax = 9,
    Sdq = 10,
    Sdr = 11,
    S2A = 12,
    S3A = 13,
    Sal = 14,
    Str = 15,
    Std = 16,
    Scl20 = 17,
    Scl37 = 18,
    Str20 = 19,
    Str37 = 20,
    Stdi = 21,
    Srw = 22,
    Srwi = 23,
    Sfd = 24,
    Sk = 25,
    Spk = 26,
    Svk = 27,
    Smr1 = 28,
    Smr2 = 29,
    Sxp = 30,
    Vmp = 31,
    Vmc = 32,
    Vvc = 33,
    Vvv = 34,
    Sdc0_5 = 35,
    Sdc5_10 = 36,
    Sdc10_50 = 37,
    Sdc50_95 = 38,
    Spd = 39,
    Spc = 40,
    S5p = 41,
    S5v = 42,
    S10z = 43,
    Sda = 44,
    Sha = 45,
    Sdv = 46,
    Shv = 47,
    Smr = 48,
    Smc = 49,
    Sdc = 50,
    Vm = 51,
    Vv = 52,
    Sch = 53,

    // Of a whole profile: no filter, no sampling lengths.
    ProfileRa = 56,
    ProfileRq = 57,
    ProfileRsk = 58,
    ProfileRku = 59,
    ProfileRp = 60,
    ProfileRv = 61,
    ProfileRz = 62,
    ProfileRt = 63,
    ProfileRmean = 64,
    ProfileRmin = 65,
    ProfileRmax = 66,
    ProfileRSm = 67,
    ProfileRdq = 68,
    ProfileRdc = 69,
    ProfileRmr = 70,
    ProfileRmr2 = 71,

    // ISO 4287:1997, roughness profile.
    Iso4287Ra = 72,
    Iso4287Rq = 73,
    Iso4287Rsk = 74,
    Iso4287Rku = 75,
    Iso4287Rp = 76,
    Iso4287Rv = 77,
    Iso4287Rz = 78,
    Iso4287Rc = 79,
    Iso4287Rt = 80,
    Iso4287RSm = 81,
    Iso4287Rdq = 82,
    Iso4287Rmr = 83,
    Iso4287Rdc = 84,
    Iso4287Rmr2 = 85,

    // ISO 4287:1997, waviness profile.
    Iso4287Wa = 86,
    Iso4287Wq = 87,
    Iso4287Wsk = 88,
    Iso4287Wku = 89,
    Iso4287Wp = 90,
    Iso4287Wv = 91,
    Iso4287Wz = 92,
    Iso4287Wc = 93,
    Iso4287Wt = 94,
    Iso4287WSm = 95,
    Iso4287Wdq = 96,
    Iso4287Wmr = 97,
    Iso4287Wdc = 98,
    Iso4287Wmr2 = 99,

    // ISO 4287:1997, primary profile.
    Iso4287Pa = 100,
    Iso4287Pq = 101,
    Iso4287Psk = 102,
    Iso4287Pku = 103,
    Iso4287Pp = 104,
    Iso4287Pv = 105,
    Iso4287Pz = 106,
    Iso4287Pc = 107,
    Iso4287Pt = 108,
    Iso4287PSm = 109,
    Iso4287Pdq = 110,
    Iso4287Pmr = 111,
    Iso4287Pdc = 112,
    Iso4287Pmr2 = 113,

    // ISO 13565-2.
    Iso13565Rk = 116,
    Iso13565Rpk = 117,
    Iso13565Rvk = 118,
    Iso13565Mr1 = 119,
    Iso13565Mr2 = 120,

    // ISO 12085.
    Iso12085AR = 122,
    Iso12085R = 123,
    Iso12085Rx = 124,
    Iso12085SAR = 125,
    Iso12085SR = 126,
    Iso12085AW = 127,
    Iso12085W = 128,
    Iso12085SAW = 129,
    Iso12085SW = 130,
    Iso12085Wte = 131,
    Iso12085Wx = 132,

    // Valleys below the reference line of a robust regression filter with morphological closing.
    MufuMsm = 134,
    MufuRMn = 135,
    MufuRMd = 136,
    MufuRMx = 137,
    MufuRMw = 138,
    MufuRMs = 139,
    MufuRMa = 140,
    MufuRMv = 141,

    PlugIn = 142, ///< the parent of the parameters that plug-ins compute; has no value of its own
    Count = 143   ///< the number of measured points that entered the evaluation
};

/// The 138 roughness parameters in the order of selection lists: family by family, within a family by the
/// kind of property, templates last. The display text is the symbol and the name ("Sa, Arithmetical Mean
/// Height"), the short one the symbol, the standard an EAnalysisStandards number. Profile parameters without
/// a filter say so in their display text, because their symbols are those of the ISO 4287 roughness profile.
///
/// Values of the parameters are in SI units: m, m², m³, 1/m and 1/m²; angles are in degrees and ratios whose
/// dimension is percent in percent (5.2 means 5.2 %). Any thread may call.
COMMONUI_API const CEnum<ERoughnessParameters>& GetRoughnessParametersEnum();

/// The dimension of the parameter's values; dimensionless for a value that the catalogue
/// does not have. Heights and distances both count as lengths in the common unit of X and Y. The volume
/// parameters of ISO 25178-2 (Vmp, Vmc, Vvc, Vvv, Vm, Vv) are volumes per area, thus lengths.
COMMONUI_API CParameter::EDimension RoughnessParameter2Dimension(ERoughnessParameters parameter);

/// Whether plug-ins supply the values of a roughness parameter: of the catalogue's entry for them and of what
/// is added below it. The library computes nothing of these.
COMMONUI_API bool IsSuppliedByPlugIn(const CParameter& parameter);

/// An input of a template parameter.
struct SRoughnessVariable {
    std::u16string_view key;          ///< the symbol in the parameter's formula
    int textId;                       ///< of the display text in the string table
    CParameter::EDimension dimension; ///< in which its values are asked for
    double defaultValue;              ///< in m or percent, by its dimension
};

/// The inputs of a template parameter in the order in which files store their values; empty for every other
/// parameter. Heights c count upward from the mean plane or mean line; material ratios lie between 0 and 100,
/// p below q.
COMMONUI_API std::span<const SRoughnessVariable> GetRoughnessVariables(ERoughnessParameters parameter);

/// A catalogue entry as a parameter to be chosen: with its texts, its dimension and its variables at their
/// defaults. It is switched off, and the number of points is shown as an integer.
/// @throws EInternal when the catalogue does not have the number: "Illegal Parameter ID: %d"
COMMONUI_API CParameter MakeRoughnessParameter(ERoughnessParameters parameter);

} // namespace CommonUI
