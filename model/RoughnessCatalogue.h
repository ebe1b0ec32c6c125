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
    Sa = 0,        ///< Arithmetical Mean Height, ISO 25178-2, 4.1.7
    Sq = 1,        ///< Root Mean Square Height, ISO 25178-2, 4.1.1
    Ssk = 2,       ///< Skewness, ISO 25178-2, 4.1.2
    Sku = 3,       ///< Kurtosis, ISO 25178-2, 4.1.3
    Sp = 4,        ///< Maximum Peak Height, ISO 25178-2, 4.1.4
    Sv = 5,        ///< Maximum Pit Height, ISO 25178-2, 4.1.5
    Sz = 6,        ///< Maximum Height, ISO 25178-2, 4.1.6
    Smean = 7,     ///< Mean of the Heights, own definition
    Smin = 8,      ///< Minimum of the Heights, own definition
    Smax = 9,      ///< Maximum of the Heights, own definition
    Sdq = 10,      ///< Root Mean Square Gradient, ISO 25178-2, 4.3.1
    Sdr = 11,      ///< Developed Interfacial Area Ratio, ISO 25178-2, 4.3.2
    S2A = 12,      ///< Projected Area, own definition
    S3A = 13,      ///< Developed Surface Area, own definition
    Sal = 14,      ///< Autocorrelation Length, ISO 25178-2, 4.2.1
    Str = 15,      ///< Texture Aspect Ratio, ISO 25178-2, 4.2.2
    Std = 16,      ///< Texture Direction, ISO 25178-2, 4.5.1
    Scl20 = 17,    ///< Correlation Length, Decay to 20 %, own definition
    Scl37 = 18,    ///< Correlation Length, Decay to 37 %, own definition
    Str20 = 19,    ///< Texture Aspect Ratio, Decay to 20 %, own definition
    Str37 = 20,    ///< Texture Aspect Ratio, Decay to 37 %, own definition
    Stdi = 21,     ///< Texture Direction Index, own definition
    Srw = 22,      ///< Dominant Radial Wavelength, own definition
    Srwi = 23,     ///< Radial Wavelength Index, own definition
    Sfd = 24,      ///< Fractal Dimension, own definition
    Sk = 25,       ///< Core Height, ISO 25178-2
    Spk = 26,      ///< Reduced Peak Height, ISO 25178-2
    Svk = 27,      ///< Reduced Dale Height, ISO 25178-2
    Smr1 = 28,     ///< Material Ratio at the Upper Core Limit, ISO 25178-2
    Smr2 = 29,     ///< Material Ratio at the Lower Core Limit, ISO 25178-2
    Sxp = 30,      ///< Peak Extreme Height, ISO 25178-2
    Vmp = 31,      ///< Peak Material Volume, ISO 25178-2
    Vmc = 32,      ///< Core Material Volume, ISO 25178-2
    Vvc = 33,      ///< Core Void Volume, ISO 25178-2
    Vvv = 34,      ///< Dale Void Volume, ISO 25178-2
    Sdc0_5 = 35,   ///< Material Ratio Height Difference, 0 % to 5 %, own definition
    Sdc5_10 = 36,  ///< Material Ratio Height Difference, 5 % to 10 %, own definition
    Sdc10_50 = 37, ///< Material Ratio Height Difference, 10 % to 50 %, own definition
    Sdc50_95 = 38, ///< Material Ratio Height Difference, 50 % to 95 %, own definition
    Spd = 39,      ///< Density of Peaks, ISO 25178-2, 6
    Spc = 40,      ///< Arithmetic Mean Peak Curvature, ISO 25178-2, 6
    S5p = 41,      ///< Five Point Peak Height, ISO 25178-2, 6
    S5v = 42,      ///< Five Point Pit Height, ISO 25178-2, 6
    S10z = 43,     ///< Ten Point Height, ISO 25178-2, 6
    Sda = 44,      ///< Closed Dale Area, ISO 25178-2, 6
    Sha = 45,      ///< Closed Hill Area, ISO 25178-2, 6
    Sdv = 46,      ///< Closed Dale Volume, ISO 25178-2, 6
    Shv = 47,      ///< Closed Hill Volume, ISO 25178-2, 6
    Smr = 48,      ///< Areal Material Ratio, ISO 25178-2
    Smc = 49,      ///< Inverse Areal Material Ratio, ISO 25178-2
    Sdc = 50,      ///< Material Ratio Height Difference, ISO 25178-2:2021
    Vm = 51,       ///< Material Volume, ISO 25178-2
    Vv = 52,       ///< Void Volume, ISO 25178-2
    Sch = 53,      ///< Percentile Height, own definition

    // Of a whole profile: no filter, no sampling lengths.
    ProfileRa = 56,    ///< Arithmetical Mean Deviation, Unfiltered, ISO 4287
    ProfileRq = 57,    ///< Root Mean Square Deviation, Unfiltered, ISO 4287
    ProfileRsk = 58,   ///< Skewness, Unfiltered, ISO 4287
    ProfileRku = 59,   ///< Kurtosis, Unfiltered, ISO 4287
    ProfileRp = 60,    ///< Maximum Peak Height, Unfiltered, ISO 4287
    ProfileRv = 61,    ///< Maximum Valley Depth, Unfiltered, ISO 4287
    ProfileRz = 62,    ///< Ten Point Height, Unfiltered, ISO 4287-1:1984
    ProfileRt = 63,    ///< Total Height, Unfiltered, ISO 4287
    ProfileRmean = 64, ///< Mean of the Heights, Unfiltered, own definition
    ProfileRmin = 65,  ///< Minimum of the Heights, Unfiltered, own definition
    ProfileRmax = 66,  ///< Maximum of the Heights, Unfiltered, own definition
    ProfileRSm = 67,   ///< Mean Width of the Profile Elements, Unfiltered, ISO 4287
    ProfileRdq = 68,   ///< Root Mean Square Slope, Unfiltered, ISO 4287
    ProfileRdc = 69,   ///< Profile Section Height Difference, Unfiltered, ISO 4287
    ProfileRmr = 70,   ///< Material Ratio, Unfiltered, ISO 4287
    ProfileRmr2 = 71,  ///< Relative Material Ratio, Unfiltered, ISO 4287

    // ISO 4287:1997, roughness profile.
    Iso4287Ra = 72,   ///< Arithmetical Mean Deviation, ISO 4287, 4.2.1
    Iso4287Rq = 73,   ///< Root Mean Square Deviation, ISO 4287, 4.2.2
    Iso4287Rsk = 74,  ///< Skewness, ISO 4287, 4.2.3
    Iso4287Rku = 75,  ///< Kurtosis, ISO 4287, 4.2.4
    Iso4287Rp = 76,   ///< Maximum Profile Peak Height, ISO 4287, 4.1.1
    Iso4287Rv = 77,   ///< Maximum Profile Valley Depth, ISO 4287, 4.1.2
    Iso4287Rz = 78,   ///< Maximum Height of Profile, ISO 4287, 4.1.3
    Iso4287Rc = 79,   ///< Mean Height of Profile Elements, ISO 4287, 4.1.4
    Iso4287Rt = 80,   ///< Total Height of Profile, ISO 4287, 4.1.5
    Iso4287RSm = 81,  ///< Mean Width of the Profile Elements, ISO 4287, 4.3.1
    Iso4287Rdq = 82,  ///< Root Mean Square Slope, ISO 4287, 4.4.1
    Iso4287Rmr = 83,  ///< Material Ratio of the Profile, ISO 4287, 4.5.1
    Iso4287Rdc = 84,  ///< Profile Section Height Difference, ISO 4287, 4.5.3
    Iso4287Rmr2 = 85, ///< Relative Material Ratio, ISO 4287, 4.5.4

    // ISO 4287:1997, waviness profile.
    Iso4287Wa = 86,   ///< Arithmetical Mean Deviation, ISO 4287, 4.2.1
    Iso4287Wq = 87,   ///< Root Mean Square Deviation, ISO 4287, 4.2.2
    Iso4287Wsk = 88,  ///< Skewness, ISO 4287, 4.2.3
    Iso4287Wku = 89,  ///< Kurtosis, ISO 4287, 4.2.4
    Iso4287Wp = 90,   ///< Maximum Profile Peak Height, ISO 4287, 4.1.1
    Iso4287Wv = 91,   ///< Maximum Profile Valley Depth, ISO 4287, 4.1.2
    Iso4287Wz = 92,   ///< Maximum Height of Profile, ISO 4287, 4.1.3
    Iso4287Wc = 93,   ///< Mean Height of Profile Elements, ISO 4287, 4.1.4
    Iso4287Wt = 94,   ///< Total Height of Profile, ISO 4287, 4.1.5
    Iso4287WSm = 95,  ///< Mean Width of the Profile Elements, ISO 4287, 4.3.1
    Iso4287Wdq = 96,  ///< Root Mean Square Slope, ISO 4287, 4.4.1
    Iso4287Wmr = 97,  ///< Material Ratio of the Profile, ISO 4287, 4.5.1
    Iso4287Wdc = 98,  ///< Profile Section Height Difference, ISO 4287, 4.5.3
    Iso4287Wmr2 = 99, ///< Relative Material Ratio, ISO 4287, 4.5.4

    // ISO 4287:1997, primary profile.
    Iso4287Pa = 100,   ///< Arithmetical Mean Deviation, ISO 4287, 4.2.1
    Iso4287Pq = 101,   ///< Root Mean Square Deviation, ISO 4287, 4.2.2
    Iso4287Psk = 102,  ///< Skewness, ISO 4287, 4.2.3
    Iso4287Pku = 103,  ///< Kurtosis, ISO 4287, 4.2.4
    Iso4287Pp = 104,   ///< Maximum Profile Peak Height, ISO 4287, 4.1.1
    Iso4287Pv = 105,   ///< Maximum Profile Valley Depth, ISO 4287, 4.1.2
    Iso4287Pz = 106,   ///< Maximum Height of Profile, ISO 4287, 4.1.3
    Iso4287Pc = 107,   ///< Mean Height of Profile Elements, ISO 4287, 4.1.4
    Iso4287Pt = 108,   ///< Total Height of Profile, ISO 4287, 4.1.5
    Iso4287PSm = 109,  ///< Mean Width of the Profile Elements, ISO 4287, 4.3.1
    Iso4287Pdq = 110,  ///< Root Mean Square Slope, ISO 4287, 4.4.1
    Iso4287Pmr = 111,  ///< Material Ratio of the Profile, ISO 4287, 4.5.1
    Iso4287Pdc = 112,  ///< Profile Section Height Difference, ISO 4287, 4.5.3
    Iso4287Pmr2 = 113, ///< Relative Material Ratio, ISO 4287, 4.5.4

    // ISO 13565-2.
    Iso13565Rk = 116,  ///< Core Roughness Depth, ISO 13565-2
    Iso13565Rpk = 117, ///< Reduced Peak Height, ISO 13565-2
    Iso13565Rvk = 118, ///< Reduced Valley Depth, ISO 13565-2
    Iso13565Mr1 = 119, ///< Material Portion at the Upper Core Limit, ISO 13565-2
    Iso13565Mr2 = 120, ///< Material Portion at the Lower Core Limit, ISO 13565-2

    // ISO 12085.
    Iso12085AR = 122,  ///< Mean Spacing of Roughness Motifs, ISO 12085
    Iso12085R = 123,   ///< Mean Depth of Roughness Motifs, ISO 12085
    Iso12085Rx = 124,  ///< Maximum Depth of Profile Irregularity, ISO 12085
    Iso12085SAR = 125, ///< Standard Deviation of the Spacing of Roughness Motifs, ISO 12085
    Iso12085SR = 126,  ///< Standard Deviation of the Depth of Roughness Motifs, ISO 12085
    Iso12085AW = 127,  ///< Mean Spacing of Waviness Motifs, ISO 12085
    Iso12085W = 128,   ///< Mean Depth of Waviness Motifs, ISO 12085
    Iso12085SAW = 129, ///< Standard Deviation of the Spacing of Waviness Motifs, ISO 12085
    Iso12085SW = 130,  ///< Standard Deviation of the Depth of Waviness Motifs, ISO 12085
    Iso12085Wte = 131, ///< Total Depth of Waviness, ISO 12085
    Iso12085Wx = 132,  ///< Maximum Depth of Waviness, ISO 12085

    // Valleys below the reference line of a robust regression filter with morphological closing.
    MufuMsm = 134, ///< Mean Spacing of Valleys, own definition
    MufuRMn = 135, ///< Number of Valleys per Length, own definition
    MufuRMd = 136, ///< Mean Valley Depth, own definition
    MufuRMx = 137, ///< Maximum Valley Depth, own definition
    MufuRMw = 138, ///< Mean Valley Width, own definition
    MufuRMs = 139, ///< Standard Deviation of Valley Depth, own definition
    MufuRMa = 140, ///< Valley Share of the Length, own definition
    MufuRMv = 141, ///< Valley Volume per Area, own definition

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
