#include "analysis/calibration/Gratings.h"
#include "analysis/calibration/Linearity.h"
#include "analysis/calibration/StepHeights.h"
#include "analysis/correlation/CrossCorrelation.h"
#include "analysis/form/Levelling.h"
#include "analysis/form/PlaneCorrection.h"
#include "analysis/form/Tilt.h"
#include "analysis/numeric/Statistics.h"
#include "analysis/tip/TipShape.h"
#include "measurement/detail/DescribeLength.h"
#include "measurement/detail/FurtherResults.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>
#include <utility>

namespace CommonUI::Measurement
{

using Analysis::SSurface;
using Analysis::SValue;

namespace
{

constexpr std::string_view c_noReference = "no reference is given to compare with";
constexpr std::string_view c_profile = "a profile has one direction only";

// A value, or why there is none.
SValue MakeValue(std::string_view key, double value, std::string_view reason)
{
    return {key, value, std::isnan(value) ? reason : std::string_view()};
}

// What is measured of a reference that is known.
void AddComparison(std::string_view factorKey, std::string_view deviationKey, const SValue& measured,
                   std::optional<double> reference, std::vector<SValue>& values)
{
    const std::string_view reason = reference ? measured.reason : c_noReference;
    const double known = reference.value_or(Analysis::c_undefined);
    values.push_back(MakeValue(factorKey, known / measured.value, reason));
    values.push_back(MakeValue(deviationKey, 100 * (measured.value - known) / known, reason));
}

// One of the statistics of values, "Mean" or "Sd"; NaN where they have none.
double GetStatistic(std::span<const double> values, std::string_view key)
{
    const std::vector<SValue> statistics = Analysis::ComputeStatistics(values);
    return std::ranges::find(statistics, key, &SValue::key)->value;
}

double GetMean(std::span<const double> values)
{
    return GetStatistic(values, "Mean");
}

const CParameter* Find(const std::vector<CParameter>& outputs, std::u16string_view key)
{
    const auto found = std::ranges::find(outputs, CStr(key), &CParameter::GetIniName);
    return found != outputs.end() && found->IsOn() ? &*found : nullptr;
}

// The curve of an output with its number on the right.
SOutputCurve MakeNumbered(const CParameter& output, const CStr& label, std::span<const double> values)
{
    SOutputCurve curve{
        .key = output.GetIniName(), .name = output.GetFriendlyString(), .labelX = u"Number", .labelY = label};
    for (std::size_t i = 0; i < values.size(); ++i)
        curve.points.emplace_back(static_cast<double>(i + 1), values[i]);
    return curve;
}

std::vector<SValue> GetPitchValues(double pitch, std::span<const double> pitches, std::string_view reason,
                                   std::optional<double> reference)
{
    const std::string_view sdReason = reason.empty() ? "there are less than two periods" : reason;
    std::vector<SValue> values{MakeValue("Pitch", pitch, reason),
                               MakeValue("PitchSd", GetStatistic(pitches, "Sd"), sdReason),
                               {"PeriodCount", static_cast<double>(pitches.size())}};
    AddComparison("ScaleFactor", "Deviation", SValue(values.front()), reference, values);
    return values;
}

CStr NameSections(bool isAlongY)
{
    return isAlongY ? u"Column" : u"Profile";
}

void EvaluatePitch(const SSurface& surface, const SFurtherOptions& options,
                   const std::vector<CParameter>& outputs, SEvaluation& evaluation)
{
    const Analysis::SGrating grating = Analysis::MeasureGrating(surface);
    const std::vector<double> pitches = grating.GetPitches();
    const bool isCentroid = options.pitchMethod == EPitchMethod::Centroid;
    evaluation.values =
        GetPitchValues(isCentroid ? grating.centroidPitch : grating.pitch, pitches,
                       grating.reason.empty() ? "no section has two lines of the grating" : grating.reason,
                       options.reference);
    evaluation.notes.emplace_back(u"Mean pitch", isCentroid ? u"by the centres of gravity, ISO 11952"
                                                            : u"by the Fourier transform, ISO 11952");
    if (grating.reason.empty())
        evaluation.notes.emplace_back(
            u"Direction of the grating",
            CStr::Format(u"%.3f °", std::round(1000 * grating.direction) / 1000 + 0.0));
    evaluation.sectionName = NameSections(grating.isAlongY);
    for (const auto& section : grating.sections)
        evaluation.sections.push_back(
            GetPitchValues(GetMean(section), section, "the section has no whole period", options.reference));
    if (const CParameter* const chart = Find(outputs, u"PitchChart"))
        evaluation.outputs.curves.push_back(MakeNumbered(*chart, u"Pitch", pitches));
}

void EvaluateLattice(const SSurface& surface, const SFurtherOptions& options,
                     const std::vector<CParameter>& outputs, SEvaluation& evaluation)
{
    const Analysis::SLattice lattice = Analysis::MeasureLattice(surface);
    auto& values = evaluation.values;
    values = {MakeValue("PitchX", lattice.pitchX, lattice.reason),
              MakeValue("PitchY", lattice.pitchY, lattice.reason),
              MakeValue("Orthogonality", lattice.orthogonality, lattice.reason),
              MakeValue("Rotation", lattice.rotation, lattice.reason)};
    const SValue x = values[0];
    const SValue y = values[1];
    AddComparison("ScaleFactorX", "DeviationX", x, options.reference, values);
    AddComparison("ScaleFactorY", "DeviationY", y,
                  options.referenceY ? options.referenceY : options.reference, values);
    const CParameter* const image = Find(outputs, u"DistortionImage");
    if (image && lattice.reason.empty())
        evaluation.outputs.images.push_back(
            {image->GetIniName(), image->GetFriendlyString(), Analysis::ComputeDistortion(surface)});
}

std::vector<SValue> GetStepValues(std::span<const double> heights, std::string_view reason,
                                  std::optional<double> reference)
{
    std::vector<SValue> values{MakeValue("StepHeight", GetMean(heights), reason),
                               MakeValue("StepHeightSd", GetStatistic(heights, "Sd"),
                                         heights.empty() ? reason : "there is one step only")};
    AddComparison("ScaleFactorZ", "DeviationZ", SValue(values.front()), reference, values);
    return values;
}

// The numbers of steps in classes of equal width.
SOutputCurve MakeHistogram(const CParameter& output, std::span<const double> heights)
{
    SOutputCurve curve{.key = output.GetIniName(),
                       .name = output.GetFriendlyString(),
                       .labelX = u"Step height",
                       .labelY = u"Number",
                       .isLengthX = true,
                       .isLengthY = false};
    if (heights.empty())
        return curve;
    constexpr double c_mostClasses = 50;
    const auto [lowest, highest] = std::ranges::minmax(heights);
    const auto count = static_cast<std::size_t>(
        std::clamp(std::ceil(std::sqrt(static_cast<double>(heights.size()))), 1.0, c_mostClasses));
    const double width = (highest - lowest) / static_cast<double>(count);
    for (std::size_t i = 0; i < count; ++i)
        curve.points.emplace_back(lowest + (static_cast<double>(i) + 0.5) * width, 0);
    for (const double height : heights) {
        const double place = width > 0 ? (height - lowest) / width : 0;
        ++curve.points[std::min(static_cast<std::size_t>(place), count - 1)].second;
    }
    return curve;
}

void EvaluateSteps(const SSurface& surface, const SFurtherOptions& options,
                   const std::vector<CParameter>& outputs, SEvaluation& evaluation)
{
    const Analysis::SSteps steps = Analysis::MeasureSteps(surface);
    const std::vector<double> heights = steps.GetHeights();
    evaluation.values = GetStepValues(heights, steps.reason, options.reference);
    evaluation.notes.emplace_back(u"Step height", u"ISO 5436-1, type A1");
    evaluation.notes.emplace_back(steps.areGrooves ? u"Grooves" : u"Ridges",
                                  CStr::Format(u"%d", heights.size()));
    evaluation.sectionName = NameSections(steps.isAlongY);
    for (const auto& section : steps.sections)
        evaluation.sections.push_back(
            GetStepValues(section, "the section has no step with enough points", options.reference));
    if (const CParameter* const histogram = Find(outputs, u"HeightHistogram"))
        evaluation.outputs.curves.push_back(MakeHistogram(*histogram, heights));
}

// @param second null where there is none
void EvaluateShift(const SSurface& surface, const SSurface* second, const std::vector<CParameter>& outputs,
                   SEvaluation& evaluation)
{
    Analysis::SShift shift{.reason = "it needs a second surface to compare with"};
    if (second)
        shift.reason = Analysis::FindRefusal(surface, *second);
    if (shift.reason.empty()) {
        const Analysis::CCrossCorrelation correlation(surface, *second);
        shift = Analysis::FindShift(surface, *second, correlation);
        if (const CParameter* const image = Find(outputs, u"CorrelationImage"))
            evaluation.outputs.images.push_back(
                {image->GetIniName(), image->GetFriendlyString(), correlation.MakeMap(), false});
    }
    const std::string_view across = shift.reason.empty() ? c_profile : shift.reason;
    const double length = surface.IsProfile() ? std::fabs(shift.x) : std::hypot(shift.x, shift.y);
    evaluation.values = {MakeValue("Coefficient", shift.coefficient, shift.reason),
                         MakeValue("ShiftX", shift.x, shift.reason), MakeValue("ShiftY", shift.y, across),
                         MakeValue("Shift", length, shift.reason),
                         MakeValue("Rotation", shift.rotation, across)};
}

// Mean distances from the line by classes of x.
class CMeanCurve
{
public:
    CMeanCurve(double first, double last, std::size_t count)
        : m_first(first)
        , m_width((last - first) / static_cast<double>(count))
        , m_sums(count)
    {
    }

    void Add(double x, double y)
    {
        if (std::isnan(x) || std::isnan(y))
            return;
        const double place = m_width > 0 ? (x - m_first) / m_width : 0;
        SSum& sum = m_sums[std::min(static_cast<std::size_t>(std::max(place, 0.0)), m_sums.size() - 1)];
        ++sum.count;
        sum.x += x;
        sum.y += y;
    }
    std::vector<std::pair<double, double>> GetPoints() const
    {
        std::vector<std::pair<double, double>> points;
        for (const SSum& sum : m_sums)
            if (sum.count > 0)
                points.emplace_back(sum.x / sum.count, sum.y / sum.count);
        return points;
    }

private:
    struct SSum {
        double count = 0;
        double x = 0;
        double y = 0;
    };
    double m_first;
    double m_width;
    std::vector<SSum> m_sums;
};

// Over the heights of the reference, or over the position without one.
std::vector<std::pair<double, double>> GetDeviations(const SSurface& surface, const SSurface* reference,
                                                     const Analysis::SLinearity& linearity)
{
    constexpr std::size_t c_classes = 256;
    if (!reference) {
        SSurface level = surface;
        Level(level, Analysis::ELevelling::Plane);
        CMeanCurve curve(0, static_cast<double>(surface.points) * surface.dx,
                         std::min(c_classes, surface.points));
        for (std::size_t i = 0; i < level.heights.size(); ++i)
            curve.Add(static_cast<double>(i % surface.points) * surface.dx, level.heights[i]);
        return curve.GetPoints();
    }
    double lowest = Analysis::c_missing;
    double highest = Analysis::c_missing;
    std::vector<double> distances(surface.heights.size());
    for (std::size_t i = 0; i < distances.size(); ++i) {
        distances[i] = surface.heights[i] - linearity.amplification * reference->heights[i];
        if (std::isnan(distances[i]))
            continue;
        lowest = std::fmin(lowest, reference->heights[i]);
        highest = std::fmax(highest, reference->heights[i]);
    }
    const double offset = GetMean(distances);
    CMeanCurve curve(lowest, highest, c_classes);
    for (std::size_t i = 0; i < distances.size(); ++i)
        curve.Add(reference->heights[i], distances[i] - offset);
    return curve.GetPoints();
}

void EvaluateLinearity(const SSurface& surface, const SSurface* reference,
                       const std::vector<CParameter>& outputs, SEvaluation& evaluation)
{
    const Analysis::SLinearity linearity =
        reference ? Analysis::MeasureLinearity(surface, *reference) : Analysis::MeasureLinearity(surface);
    const std::string_view flat = linearity.reason.empty() ? "the surface is flat" : linearity.reason;
    evaluation.values = {MakeValue("Deviation", linearity.deviation, linearity.reason),
                         MakeValue("DeviationRms", linearity.deviationRms, linearity.reason),
                         MakeValue("DeviationPercent", linearity.share, flat),
                         MakeValue("Amplification", linearity.amplification, linearity.amplificationReason)};
    evaluation.notes.emplace_back(u"Response", reference ? u"heights over those of the reference"
                                                         : u"heights over the position on an inclined plane");
    const CParameter* const output = Find(outputs, u"DeviationCurve");
    if (!output || !linearity.reason.empty())
        return;
    evaluation.outputs.curves.push_back({.key = output->GetIniName(),
                                         .name = output->GetFriendlyString(),
                                         .labelX = reference ? u"Reference" : u"Position",
                                         .labelY = u"Deviation",
                                         .isLengthX = true,
                                         .points = GetDeviations(surface, reference, linearity)});
}

void EvaluateTilt(const SSurface& surface, const std::vector<CParameter>& outputs, SEvaluation& evaluation)
{
    const Analysis::STilt tilt = Analysis::MeasureTilt(surface);
    const std::string_view across = tilt.reason.empty() ? c_profile : tilt.reason;
    const bool isProfile = surface.IsProfile();
    evaluation.values = {MakeValue("TiltX", tilt.x, tilt.reason), MakeValue("TiltY", tilt.y, across),
                         MakeValue("Tilt", tilt.total, tilt.reason),
                         MakeValue("TiltDirection", tilt.direction,
                                   isProfile || !tilt.reason.empty() ? across : "the surface is not tilted"),
                         MakeValue("Residual", tilt.residual, tilt.reason)};
    if (const CParameter* const image = Find(outputs, u"CorrectedImage")) {
        SSurface level = surface;
        Level(level, Analysis::ELevelling::Plane);
        evaluation.outputs.images.push_back(
            {image->GetIniName(), image->GetFriendlyString(), std::move(level)});
    }
}

// The depth that an area stands for, m; nothing for a width.
std::optional<double> GetDepth(ETipEstimationArea area)
{
    switch (area) {
    case ETipEstimationArea::Depth10:
        return 10e-9;
    case ETipEstimationArea::Depth20:
        return 20e-9;
    case ETipEstimationArea::Depth50:
        return 50e-9;
    case ETipEstimationArea::Depth100:
        return 100e-9;
    case ETipEstimationArea::Depth150:
        return 150e-9;
    case ETipEstimationArea::Width:
        break;
    }
    return {};
}

void EvaluateTip(const SSurface& surface, const SFurtherOptions& options,
                 const std::vector<CParameter>& outputs, SEvaluation& evaluation)
{
    Analysis::STipExtent extent{.noise = options.tipNoise};
    if (const auto depth = GetDepth(options.tipArea)) {
        extent.depth = *depth;
        evaluation.notes.emplace_back(u"Tip", u"down to " + DescribeLength(*depth) + u" below its apex");
    } else {
        extent.width = options.tipWidth;
        evaluation.notes.emplace_back(u"Tip", DescribeLength(options.tipWidth) + u" wide");
    }
    const Analysis::STip tip = Analysis::EstimateTip(surface, extent);
    const auto because = [&tip](std::string_view reason) { return tip.reason.empty() ? reason : tip.reason; };
    evaluation.values = {
        MakeValue("TipRadius", tip.radius, because("the apex is a single point")),
        MakeValue("ConeAngle", tip.coneAngle, because("the tip has no flanks within the depth")),
        MakeValue("TipHeight", tip.height, tip.reason), MakeValue("TipWidth", tip.width, tip.reason),
        MakeValue("TipArea", tip.area, because("a profile has no cross section"))};
    if (tip.shape.heights.empty())
        return;
    if (const CParameter* const profile = Find(outputs, u"TipProfile")) {
        const auto line = tip.shape.GetLine(tip.shape.lines / 2);
        const std::size_t middle = line.size() / 2;
        SOutputCurve curve{.key = profile->GetIniName(),
                           .name = profile->GetFriendlyString(),
                           .labelX = u"Position",
                           .labelY = u"Height",
                           .isLengthX = true};
        for (std::size_t i = 0; i < line.size(); ++i)
            curve.points.emplace_back((static_cast<double>(i) - static_cast<double>(middle)) * tip.shape.dx,
                                      line[i]);
        evaluation.outputs.curves.push_back(std::move(curve));
    }
    if (const CParameter* const image = Find(outputs, u"TipImage"); image && !tip.shape.IsProfile())
        evaluation.outputs.images.push_back({image->GetIniName(), image->GetFriendlyString(), tip.shape});
}

// @return what it is called; empty where nothing is done
CStr Preprocess(ERoughnessPreprocessingOptions option, SSurface& surface)
{
    using enum Analysis::ECorrectionScope;
    using enum Analysis::ECorrectionMethod;
    switch (option) {
    case ERoughnessPreprocessingOptions::Plane:
        Level(surface, Analysis::ELevelling::Plane);
        return u"least-squares plane subtracted";
    case ERoughnessPreprocessingOptions::Paraboloid:
        Correct(surface, {Global, Polynomial, 2});
        return u"least-squares form of second order subtracted";
    case ERoughnessPreprocessingOptions::Lines:
        Correct(surface, {Linewise, Polynomial, 1});
        return u"least-squares line of each line subtracted";
    case ERoughnessPreprocessingOptions::None:
        break;
    }
    return {};
}

bool ComparesSurfaces(EAnalysis analysis)
{
    return analysis == EAnalysis::CrossCorrelation || analysis == EAnalysis::Linearity;
}

} // namespace

SEvaluation Evaluate(const SSurface& surface, const SFurtherAnalysis& further,
                     const std::vector<CParameter>& outputs)
{
    const SFurtherOptions& options = further.options;
    SEvaluation evaluation;
    SSurface processed = surface;
    if (const CStr done = Preprocess(further.preprocessing, processed); !done.IsEmpty())
        evaluation.notes.emplace_back(u"Preprocessing", done);
    // What is compared has lost the same.
    std::optional<SSurface> second;
    if (options.second && ComparesSurfaces(further.analysis))
        Preprocess(further.preprocessing, second.emplace(*options.second));
    const SSurface* const other = second ? &*second : nullptr;
    switch (further.analysis) {
    case EAnalysis::Calibration1D:
        EvaluatePitch(processed, options, outputs, evaluation);
        break;
    case EAnalysis::CalibrationXY:
        EvaluateLattice(processed, options, outputs, evaluation);
        break;
    case EAnalysis::CalibrationZ:
        EvaluateSteps(processed, options, outputs, evaluation);
        break;
    case EAnalysis::CrossCorrelation:
        EvaluateShift(processed, other, outputs, evaluation);
        break;
    case EAnalysis::Linearity:
        EvaluateLinearity(processed, other, outputs, evaluation);
        break;
    case EAnalysis::PlaneCorrection:
        EvaluateTilt(processed, outputs, evaluation);
        break;
    case EAnalysis::Tip:
        EvaluateTip(processed, options, outputs, evaluation);
        break;
    default:
        break;
    }
    return evaluation;
}

} // namespace CommonUI::Measurement
