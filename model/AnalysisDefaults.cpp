#include "model/detail/AnalysisDefaults.h"

#include "common/StringTable.h"
#include "model/MeasureParameters.h"
#include "model/RoughnessAnalysisPreferencesData.h"
#include "model/RoughnessCatalogue.h"

#include <algorithm>
#include <iterator>
#include <span>

namespace CommonUI
{

namespace
{

using EDimension = CParameter::EDimension;
using EFormat = CParameter::EFormatSpecifier;
using EPreprocessing = ERoughnessPreprocessingOptions;

// In the order of the numbers of EAnalysis.
constexpr SAnalysisDefaults c_analyses[] = {
    {u"1DCalibration", 7219, true, false, u"nm", EPreprocessing::None},
    {u"XYCalibration", 7220, true, false, u"nm", EPreprocessing::None},
    // A step height says nothing on a tilted surface.
    {u"ZCalibration", 7221, true, false, u"nm", EPreprocessing::Plane},
    {u"CrossCorrelation", 7222, false, false, u"nm", EPreprocessing::None},
    {u"Linearity", 7223, true, false, u"nm", EPreprocessing::None},
    // The plane itself is the result.
    {u"PlaneCorrection", 7224, false, false, u"nm", EPreprocessing::None},
    {u"RoughnessAnalysis", 7784, false, false, u"nm", EPreprocessing::Plane},
    // Profiles lose their form by the form removal of the analysis.
    {u"RoughnessProfileAnalysis", 7225, false, false, u"nm", EPreprocessing::None},
    {u"TipAnalysis", 7226, false, false, u"nm", EPreprocessing::None},
    {u"MeasureTools", 7372, false, false, u"nm", EPreprocessing::Plane},
};

// A parameter or an output of an analysis.
struct SQuantity {
    int value;
    std::u16string_view iniName;
    int textId;
    bool on;
    EDimension dimension = EDimension::None;
    EFormat format = EFormat::FormatDigits;
};

constexpr SQuantity c_calibration1D[] = {
    {1, u"Pitch", 9701, true, EDimension::Length},
    {2, u"PitchSd", 9702, true, EDimension::Length},
    {3, u"PeriodCount", 9703, false, EDimension::None, EFormat::FormatInteger},
    {4, u"ScaleFactor", 9704, true},
    {5, u"Deviation", 9705, true, EDimension::Percent},
};
constexpr SQuantity c_calibrationXY[] = {
    {1, u"PitchX", 9706, true, EDimension::LengthX},
    {2, u"PitchY", 9707, true, EDimension::LengthY},
    {3, u"ScaleFactorX", 9708, true},
    {4, u"ScaleFactorY", 9709, true},
    {5, u"DeviationX", 9710, false, EDimension::Percent},
    {6, u"DeviationY", 9711, false, EDimension::Percent},
    {7, u"Orthogonality", 9712, true, EDimension::Angle},
    {8, u"Rotation", 9713, false, EDimension::Angle},
};
constexpr SQuantity c_calibrationZ[] = {
    {1, u"StepHeight", 9714, true, EDimension::LengthZ},
    {2, u"StepHeightSd", 9715, true, EDimension::LengthZ},
    {3, u"ScaleFactorZ", 9716, true},
    {4, u"DeviationZ", 9717, true, EDimension::Percent},
};
constexpr SQuantity c_crossCorrelation[] = {
    {1, u"Coefficient", 9718, true},
    {2, u"ShiftX", 9719, true, EDimension::LengthX},
    {3, u"ShiftY", 9720, true, EDimension::LengthY},
    {4, u"Shift", 9721, false, EDimension::Length},
    {5, u"Rotation", 9713, false, EDimension::Angle},
};
constexpr SQuantity c_linearity[] = {
    {1, u"Deviation", 9722, true, EDimension::Length},
    {2, u"DeviationRms", 9723, false, EDimension::Length},
    {3, u"DeviationPercent", 9724, true, EDimension::Percent},
    {4, u"Amplification", 9725, true},
};
constexpr SQuantity c_planeCorrection[] = {
    {1, u"TiltX", 9726, true, EDimension::Angle},      {2, u"TiltY", 9727, true, EDimension::Angle},
    {3, u"Tilt", 9728, false, EDimension::Angle},      {4, u"TiltDirection", 9729, false, EDimension::Angle},
    {5, u"Residual", 9730, true, EDimension::LengthZ},
};
constexpr SQuantity c_tip[] = {
    {1, u"TipRadius", 9731, true, EDimension::Length},   {2, u"ConeAngle", 9732, true, EDimension::Angle},
    {3, u"TipHeight", 9733, false, EDimension::LengthZ}, {4, u"TipWidth", 9734, true, EDimension::Length},
    {5, u"TipArea", 9735, false, EDimension::Area},
};

constexpr SQuantity c_outputs1D[] = {
    {1, u"ResultTable", 9741, true}, {2, u"ResultImage", 9742, false}, {3, u"PitchChart", 9743, true}};
constexpr SQuantity c_outputsXY[] = {
    {1, u"ResultTable", 9741, true}, {2, u"ResultImage", 9742, false}, {3, u"DistortionImage", 9750, true}};
constexpr SQuantity c_outputsZ[] = {
    {1, u"ResultTable", 9741, true}, {2, u"ResultImage", 9742, false}, {3, u"HeightHistogram", 9744, true}};
constexpr SQuantity c_outputsCorrelation[] = {
    {1, u"ResultTable", 9741, true}, {2, u"ResultImage", 9742, false}, {3, u"CorrelationImage", 9745, true}};
constexpr SQuantity c_outputsLinearity[] = {{1, u"ResultTable", 9741, true},
                                            {2, u"DeviationCurve", 9746, true}};
constexpr SQuantity c_outputsPlane[] = {{1, u"ResultTable", 9741, false}, {2, u"CorrectedImage", 9747, true}};
constexpr SQuantity c_outputsTip[] = {
    {1, u"ResultTable", 9741, true}, {2, u"TipImage", 9748, true}, {3, u"TipProfile", 9749, false}};

constexpr SQuantity Output(ERoughnessOutputs output, std::u16string_view iniName, int textId, bool on)
{
    return {static_cast<int>(output), iniName, textId, on};
}
constexpr SQuantity c_outputsRoughness[] = {
    Output(ERoughnessOutputs::AbbottCurve, u"AbbottCurve", 9751, true),
    Output(ERoughnessOutputs::RadialSpectrum, u"RadialSpectrum", 9752, false),
    Output(ERoughnessOutputs::AngularSpectrum, u"AngularSpectrum", 9753, false),
    Output(ERoughnessOutputs::IntegratedRadialSpectrum, u"IntegratedRadialSpectrum", 9754, false),
    Output(ERoughnessOutputs::FractalDimensionAngle, u"FractalDimensionAngle", 9755, false),
    Output(ERoughnessOutputs::CorrelationLength20, u"CorrelationLength20", 9756, false),
    Output(ERoughnessOutputs::CorrelationLength37, u"CorrelationLength37", 9757, false),
    Output(ERoughnessOutputs::RoughnessChart, u"RoughnessChart", 9761, false),
    Output(ERoughnessOutputs::ResultGrid, u"ResultGrid", 9762, true),
    Output(ERoughnessOutputs::ResultAllImages, u"ResultAllImages", 9763, false),
    Output(ERoughnessOutputs::ResultMainImage, u"ResultMainImage", 9764, false),
};
constexpr SQuantity c_outputsProfile[] = {
    Output(ERoughnessOutputs::AbbottCurve, u"AbbottCurve", 9751, true),
    Output(ERoughnessOutputs::HeightDistribution, u"HeightDistribution", 9758, false),
    Output(ERoughnessOutputs::PowerSpectrum, u"PowerSpectrum", 9759, false),
    Output(ERoughnessOutputs::Autocorrelation, u"Autocorrelation", 9760, false),
    Output(ERoughnessOutputs::RoughnessChart, u"RoughnessChart", 9761, false),
    Output(ERoughnessOutputs::ResultGrid, u"ResultGrid", 9762, true),
    Output(ERoughnessOutputs::ResultAllImages, u"ResultAllImages", 9763, false),
    Output(ERoughnessOutputs::ResultMainImage, u"ResultMainImage", 9764, false),
};

using ERough = ERoughnessParameters;
// What a drawing or a report asks for first: ISO 25178-2 heights with their shape, the slopes, the texture.
constexpr ERough c_arealOn[] = {ERough::Sa,  ERough::Sq,  ERough::Sz,  ERough::Ssk, ERough::Sku,
                                ERough::Sal, ERough::Str, ERough::Sdq, ERough::Sdr};
// Ra and Rz stand on most drawings; Rq, Rt and RSm complete them.
constexpr ERough c_profileOn[] = {ERough::Iso4287Ra, ERough::Iso4287Rq, ERough::Iso4287Rz, ERough::Iso4287Rt,
                                  ERough::Iso4287RSm};

using EMeasure = EMeasureParameters;
constexpr EMeasure c_measureOn[] = {EMeasure::HeywoodDiameter,
                                    EMeasure::Perimeter,
                                    EMeasure::MaxFeret,
                                    EMeasure::AreaExHoles,
                                    EMeasure::Volume,
                                    EMeasure::MaxHeight,
                                    EMeasure::AverageHeight,
                                    EMeasure::RangeAbsHeight,
                                    EMeasure::AspectRatio,
                                    EMeasure::Roundness,
                                    EMeasure::ID};
constexpr EMeasure c_measureOutputsOn[] = {EMeasure::HeywoodDiameter, EMeasure::MaxHeight};

using EStat = EStatistics;
// The statistics in the order of their enumeration, and those that are on.
constexpr EStat c_statistics[] = {EStat::Count, EStat::Minimum,   EStat::Maximum, EStat::Mean,
                                  EStat::Sd,    EStat::SdPercent, EStat::Median,  EStat::Fractile};
constexpr EStat c_measureStatistics[] = {EStat::Count,
                                         EStat::Total,
                                         EStat::Sum,
                                         EStat::Minimum,
                                         EStat::Maximum,
                                         EStat::Mean,
                                         EStat::Sd,
                                         EStat::SdPercent,
                                         EStat::Median,
                                         EStat::Fractile,
                                         EStat::Mode,
                                         EStat::MeanWeightArea,
                                         EStat::SDWeightArea,
                                         EStat::MeanWeightVolume,
                                         EStat::SDWeightVolume};
constexpr EStat c_statisticsOn[] = {EStat::Count, EStat::Minimum, EStat::Maximum, EStat::Mean, EStat::Sd};
constexpr double c_fractile = 95;

template<class TList, class TValue>
bool Contains(const TList& list, TValue value)
{
    return std::ranges::find(list, value) != std::end(list);
}

std::span<const SQuantity> ParametersOf(EAnalysis analysis)
{
    switch (analysis) {
    case EAnalysis::Calibration1D:
        return c_calibration1D;
    case EAnalysis::CalibrationXY:
        return c_calibrationXY;
    case EAnalysis::CalibrationZ:
        return c_calibrationZ;
    case EAnalysis::CrossCorrelation:
        return c_crossCorrelation;
    case EAnalysis::Linearity:
        return c_linearity;
    case EAnalysis::PlaneCorrection:
        return c_planeCorrection;
    case EAnalysis::Tip:
        return c_tip;
    default:
        return {};
    }
}

std::span<const SQuantity> OutputsOf(EAnalysis analysis)
{
    switch (analysis) {
    case EAnalysis::Calibration1D:
        return c_outputs1D;
    case EAnalysis::CalibrationXY:
        return c_outputsXY;
    case EAnalysis::CalibrationZ:
        return c_outputsZ;
    case EAnalysis::CrossCorrelation:
        return c_outputsCorrelation;
    case EAnalysis::Linearity:
        return c_outputsLinearity;
    case EAnalysis::PlaneCorrection:
        return c_outputsPlane;
    case EAnalysis::Tip:
        return c_outputsTip;
    case EAnalysis::Roughness:
        return c_outputsRoughness;
    case EAnalysis::RoughnessProfile:
        return c_outputsProfile;
    default:
        return {};
    }
}

// Where a parameter starts to be shown, so that the numbers of a surface of some micrometres are readable.
CUnit::EUnitFactor FactorOf(EDimension dimension)
{
    switch (dimension) {
    case EDimension::Area:
    case EDimension::Volume:
    case EDimension::InverseLength:
    case EDimension::InverseArea:
        return CUnit::EUnitFactor::Micro;
    case EDimension::Angle:
        return CUnit::EUnitFactor::Undefined;
    default:
        return CUnit::EUnitFactor::Nano;
    }
}

std::vector<CParameter> FromQuantities(std::span<const SQuantity> quantities)
{
    std::vector<CParameter> list;
    list.reserve(quantities.size());
    for (const SQuantity& row : quantities) {
        CParameter& made = list.emplace_back(row.value, row.iniName, GetString(row.textId), CStr(), 0, row.on,
                                             row.dimension);
        made.SetUnitFactor(FactorOf(row.dimension));
        made.SetFloatFormat({row.format, made.GetFloatFormat().count});
    }
    return list;
}

// The image analysis has the areal parameters, the profile analysis those of profiles, and both have the
// plug-ins' entry and the number of points.
bool HasRoughnessParameter(EAnalysis analysis, ERough parameter)
{
    if (parameter == ERough::PlugIn || parameter == ERough::Count)
        return true;
    return (parameter < ERough::ProfileRa) == (analysis == EAnalysis::Roughness);
}

std::vector<CParameter> MakeRoughnessParameters(EAnalysis analysis)
{
    std::vector<CParameter> list;
    for (const auto& row : GetRoughnessParametersEnum()) {
        const ERough parameter{row.GetValue()};
        if (!HasRoughnessParameter(analysis, parameter))
            continue;
        CParameter& made = list.emplace_back(MakeRoughnessParameter(parameter));
        made.SetUnitFactor(FactorOf(made.GetDimension()));
        made.SetOn(Contains(c_arealOn, parameter) || Contains(c_profileOn, parameter));
    }
    return list;
}

bool IsIdentifier(EMeasure parameter)
{
    return parameter == EMeasure::Type || parameter == EMeasure::NearestNeighbourID ||
           parameter == EMeasure::ID || parameter == EMeasure::AreaPixel;
}

std::vector<CParameter> MakeMeasureParameters()
{
    std::vector<CParameter> list;
    for (const auto& row : GetMeasureParametersEnum()) {
        const EMeasure parameter{row.GetValue()};
        CParameter& made =
            list.emplace_back(row.GetValue(), row.GetIniName(), row.GetFriendlyString(), CStr(), 0,
                              Contains(c_measureOn, parameter), MeasureParameter2Dimension(parameter));
        made.SetUnitFactor(FactorOf(made.GetDimension()));
        double lower = 0;
        double upper = 0;
        MeasureParameter2NaturalLimits(parameter, lower, upper);
        made.SetLimits(lower, upper);
        if (IsIdentifier(parameter))
            made.SetFloatFormat({EFormat::FormatInteger, 5});
    }
    return list;
}

std::vector<CParameter> MakeMeasureOutputs()
{
    std::vector<CParameter> list;
    for (const auto& row : GetMeasureOutputsEnum())
        list.emplace_back(row.GetValue(), row.GetIniName(), row.GetFriendlyString(), CStr(), 0,
                          Contains(c_measureOutputsOn, EMeasure{row.GetValue()}));
    return list;
}

std::vector<CParameter> FromStatistics(std::span<const EStat> statistics)
{
    std::vector<CParameter> list;
    list.reserve(statistics.size());
    for (const EStat statistic : statistics) {
        const auto row = GetStatisticsEnum().Find(static_cast<int>(statistic));
        CParameter& made = list.emplace_back(row->GetValue(), row->GetIniName(), row->GetFriendlyString(),
                                             CStr(), 0, Contains(c_statisticsOn, statistic));
        if (statistic == EStat::Fractile)
            made.SetVariableValue(c_fractile);
    }
    return list;
}

} // namespace

const SAnalysisDefaults* FindAnalysisDefaults(EAnalysis analysis)
{
    const auto index = static_cast<std::size_t>(analysis);
    return index < std::size(c_analyses) ? &c_analyses[index] : nullptr;
}

std::vector<CParameter> MakeDefaultParameters(EAnalysis analysis)
{
    if (IsRoughness(analysis))
        return MakeRoughnessParameters(analysis);
    return analysis == EAnalysis::Measure ? MakeMeasureParameters() : FromQuantities(ParametersOf(analysis));
}

std::vector<CParameter> MakeDefaultStatistics(EAnalysis analysis)
{
    return analysis == EAnalysis::Measure ? FromStatistics(c_measureStatistics)
                                          : FromStatistics(c_statistics);
}

std::vector<CParameter> MakeDefaultOutputs(EAnalysis analysis)
{
    return analysis == EAnalysis::Measure ? MakeMeasureOutputs() : FromQuantities(OutputsOf(analysis));
}

} // namespace CommonUI
