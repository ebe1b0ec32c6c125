#pragma once

#include "../../analysis/filter/IsoGaussianFilter.h"
#include "../../common/Enum.h"
#include "../../export/Export.h"

#include <vector>

namespace CommonUI
{

class CInifile;

/// What a filter does to each point. The kernel is a window of rows and columns around the point; points
/// beyond the border and missing ones do not count.
enum class EFilterKind : int {
    Median = 0,      ///< puts the median of the window in place of the point
    Mean = 1,        ///< puts the mean of the window in place of the point
    Gauss = 2,       ///< as Mean, weighted by exp(-r² / 2σ²) at the distance r in points
    Convolution = 3, ///< as Mean, with weights of the set's own
    Spikes = 4,      ///< puts the median of the window in place of a point that stands out from it
    Streaks = 5,     ///< levels pieces of lines of an image that stand out from the lines around them
    /// The linear Gaussian profile filter of ISO 16610-21, which took the place of ISO 11562; an image is
    /// filtered line by line.
    ProfileGaussian = 6,
    ArealGaussian = 7, ///< the linear Gaussian areal filter of ISO 16610-61
};

/// How the kernel lies.
enum class EFilterApplication : int {
    Image = 0, ///< over rows and columns
    Curve = 1, ///< along the points of a curve or profile, or of each line of an image; one row
};

/// Which points a median replaces.
enum class EFilterStrength : int {
    Full = 0, ///< all
    Weak = 1, ///< those that stand out from the median by more than the threshold
};

/// To which side something stands out.
enum class EFilterPolarity : int {
    Both = 0,
    Bright = 1, ///< upwards
    Dark = 2,   ///< downwards
};

/// The name under which a standard knows the cut-off, or nesting index, of a filter.
enum class ENestingIndex : int {
    LambdaC = 0, ///< between roughness and waviness of a profile
    LambdaS = 1, ///< between roughness of a profile and the shorter waves, which are left out
    L = 2,       ///< of the filter that takes large-scale components off a surface
    S = 3,       ///< of the filter that takes small-scale components off a surface
};

/// Where the length of a cut-off comes from.
enum class ECutoffRule : int {
    Length = 0,   ///< it is given in metres
    Fraction = 1, ///< a fraction of the evaluation length
    /// The greatest length of the series 1, 2, 2.5, 5, 8, 10, 20, ... (in any power of ten) that fits five
    /// times into the evaluation length, so that a profile has the usual five sampling lengths.
    Automatic = 2,
};

/// The enumerations, in the order of selection lists.
COMMONUI_API const CEnum<EFilterKind>& GetFilterKindEnum();
/// How kernels lie, with the names under which that is stored.
COMMONUI_API const CEnum<EFilterApplication>& GetFilterApplicationEnum();
/// Which points a median replaces, with the names under which that is stored.
COMMONUI_API const CEnum<EFilterStrength>& GetFilterStrengthEnum();
/// To which side something stands out, with the names under which that is stored.
COMMONUI_API const CEnum<EFilterPolarity>& GetFilterPolarityEnum();
/// Which waves a filter keeps, with the names under which that is stored.
COMMONUI_API const CEnum<Analysis::EPass>& GetFilterPassEnum();
/// The names for the cut-off of the areal filter, or of the profile filter for every other kind.
COMMONUI_API const CEnum<ENestingIndex>& GetNestingIndexEnum(EFilterKind kind);
/// Where cut-offs come from, with the names under which that is stored.
COMMONUI_API const CEnum<ECutoffRule>& GetCutoffRuleEnum();

/// The cut-off of a Gaussian filter: the wavelength of which it lets half the amplitude pass.
struct COMMONUI_API SFilterCutoff {
    ENestingIndex nestingIndex = ENestingIndex::LambdaC; ///< what the cut-off is called; computes nothing
    Analysis::EPass pass = Analysis::EPass::High;        ///< which waves are kept
    ECutoffRule rule = ECutoffRule::Length;              ///< where the length comes from
    double length = 0;                                   ///< in metres, above 0; 0 under another rule
    double fraction = 0;                                 ///< above 0, at most 1; 0 under another rule

    bool operator==(const SFilterCutoff& other) const = default;

    /// The cut-off in metres.
    /// @param evaluationLength in metres: the length of the profile or line, or the shorter side of the
    ///     surface. Where the rule needs it and it is not positive and finite, the result is 0.
    double GetLength(double evaluationLength) const;
};

/// What a set of the type Filter holds. Which members a kind uses is told beside them; the others keep their
/// defaults. The stored form is described in docs/filter-settings.md.
struct COMMONUI_API SFilterSettings {
    EFilterKind kind = EFilterKind::Median; ///< decides which of the others count

    /// The kernel of Median, Mean, Gauss, Convolution and Spikes, in points: odd numbers from 1 to 255.
    /// A kernel over an image has at least 5 points if there is a threshold.
    EFilterApplication application = EFilterApplication::Image;
    int rows = 1;    ///< points of the kernel from top to bottom
    int columns = 1; ///< points of the kernel from left to right

    EFilterStrength strength = EFilterStrength::Full; ///< of Median
    /// Of a weak Median, of Spikes and of Streaks: how far a point has to stand out, above 0, at most 1000.
    /// The unit is a standard deviation that outliers do not change: that of the heights in the window; along
    /// a curve, that of the noise between neighbouring points; for streaks, that of the differences between
    /// lines.
    double threshold = 3;
    EFilterPolarity polarity = EFilterPolarity::Both; ///< of Streaks
    int maximumWidth = 1; ///< of Streaks: the widest that are removed, in lines; 1 to 127
    /// Of Gauss, in points: above 0, at most 40.
    double standardDeviation = 0;
    /// Of Convolution: rows times columns finite weights, row by row. The result is divided by the sum of
    /// those that count; if one is negative, by the sum of all, unless that is 0.
    std::vector<double> weights{};

    SFilterCutoff cutoff{}; ///< of ProfileGaussian and ArealGaussian

    bool operator==(const SFilterSettings& other) const = default;

    /// Reads the set from a document. What is not said there has its default; the kind has to be said, and so
    /// have the numbers that docs/filter-settings.md marks.
    /// @return false, with the reason in the diagnostics (category u"Settings") and this object unchanged,
    ///     when the document holds no set that could be used
    bool Load(CInifile& ini);
    /// Writes the set to a document, in place of one that is there. Does not check it.
    void Save(CInifile& ini) const;
};

} // namespace CommonUI
