#pragma once

#include "../export/Export.h"
#include "AnalysisPreferencesData.h"
#include "RoughnessCatalogue.h"

#include <memory>
#include <vector>

namespace CommonUI
{

/// What a roughness analysis draws, and where it shows its results. The curves of an image and those of
/// profiles differ; GetOutputs of the analysis has those that exist.
enum class ERoughnessOutputs {
    AbbottCurve = 1,              ///< material ratio over height
    RadialSpectrum = 2,           ///< amplitude over wavelength, averaged over all directions
    AngularSpectrum = 3,          ///< amplitude over direction
    IntegratedRadialSpectrum = 4, ///< the radial spectrum summed from the longest wavelength
    FractalDimensionAngle = 5,    ///< fractal dimension over direction
    CorrelationLength20 = 6,      ///< length over which the autocorrelation falls to 20 %, over direction
    CorrelationLength37 = 7,
    HeightDistribution = 8, ///< amplitude density of a profile
    PowerSpectrum = 9,
    Autocorrelation = 10,
    RoughnessChart = 11, ///< one parameter of all evaluations as bars
    ResultGrid = 12,
    ResultAllImages = 13,
    ResultMainImage = 14
};

/// The preferences of the roughness analysis of images or of profiles.
///
/// Parameters come in groups by standard and kind. Templates such as Sch(p), the percentile height, are never
/// on; AddParameter makes parameters with numbers in place of the variables from them, whose texts tell them
/// apart: "Sch(95 %), Percentile Height". Plug-ins add parameters of their own. Parameters are kept in the
/// order of the catalogue, added ones behind it in the order of their numbers.
class COMMONUI_API CRoughnessAnalysisPreferencesData : public CAnalysisPreferencesData
{
public:
    /// The chart of one parameter over the evaluations of a session.
    struct SBarChartConfig {
        ERoughnessParameters parameter = ERoughnessParameters::Sa; ///< whose values are drawn
        int barCount = 20;        ///< the evaluations that are shown, the last ones; 1 to 1000
        bool autoScale = true;    ///< the axis follows the values instead of `lower` and `upper`
        double lower = 0;         ///< of the axis, at unit factor 1
        double upper = 1e-6;      ///< of the axis, likewise
        bool limitsOn = false;    ///< bars beyond the tolerance are marked
        double lowerLimit = 0;    ///< of the tolerance, at unit factor 1
        double upperLimit = 1e-6; ///< of the tolerance, likewise

        bool operator==(const SBarChartConfig& other) const = default;
    };

    /// Preferences with the defaults of the analysis.
    /// @param analysis EAnalysis::Roughness or EAnalysis::RoughnessProfile
    explicit CRoughnessAnalysisPreferencesData(EAnalysis analysis);
    CRoughnessAnalysisPreferencesData(const CRoughnessAnalysisPreferencesData&) = default;
    CRoughnessAnalysisPreferencesData(CRoughnessAnalysisPreferencesData&&) noexcept = default;
    CRoughnessAnalysisPreferencesData& operator=(const CRoughnessAnalysisPreferencesData&) = default;
    CRoughnessAnalysisPreferencesData& operator=(CRoughnessAnalysisPreferencesData&&) noexcept = default;
    ~CRoughnessAnalysisPreferencesData() override;

    using CAnalysisPreferencesData::Load;
    void Init() override;
    bool Save(CInifile& ini) override;
    bool LoadOld(CInifile& ini) override;
    bool Load(CInifile& ini) override;
    std::unique_ptr<CAnalysisPreferencesData> Clone() const override;
    bool Assign(const CAnalysisPreferencesData& other) override;
    SDifferences Compare(const CAnalysisPreferencesData& other) const override;
    /// A group for each enabled standard of which there are parameters, in the order of
    /// GetAnalysisStandardsEnum, with groups by kind below it where the standard has several. Empty groups
    /// are left out.
    std::vector<SParameterGroup> GetGroups(FGetter getter, bool all) const override;
    /// The groups of GetCurveGroups, and one of what shows results.
    std::vector<SParameterGroup> GetOutputGroups() const override;
    /// Adds a parameter under a new number.
    /// @param parent a template of the list: the new parameter is an instance of it, with the values of the
    ///     variables of `parameter`, and is called by them; any other number: the parameter is a plug-in's
    /// @return the new number
    int AddParameter(int parent, const CParameter& parameter) override;
    /// Replaces all parameters and puts them into the order of the catalogue; templates are switched off.
    bool SetParameters(const std::vector<CParameter>& parameters) override;

    /// The outputs that are curves, by kind.
    std::vector<SParameterGroup> GetCurveGroups() const;
    /// Makes a parameter from a template of the list, with these values for its variables in their order, in
    /// m or percent by their dimension, and switches it on.
    /// @return its number, or CParameter::c_noParent when there is no such template or it has another count
    ///     of variables
    int AddTemplateInstance(ERoughnessParameters parent, const std::vector<double>& values);

    /// The bar chart of the analysis; see SBarChartConfig.
    const SBarChartConfig& GetBarChartConfig() const noexcept { return m_barChart; }
    /// A bar count out of its range is brought into it.
    void SetBarChartConfig(const SBarChartConfig& config);
    /// What form is subtracted from profiles before they are evaluated.
    ERoughnessFormRemoval GetFormRemoval() const noexcept { return m_formRemoval; }
    /// Changes the form removal, of which listeners of the manager are told as of parameters.
    void SetFormRemoval(ERoughnessFormRemoval removal);
    /// Whether and how results go to a report.
    ERoughnessReportOption GetReportOption() const noexcept { return m_reportOption; }
    /// Changes the report option, of which listeners of the manager are told as of outputs.
    void SetReportOption(ERoughnessReportOption option);
    /// The filter in front of a MUFU evaluation.
    EMUFUFilterType GetMUFUFilterType() const noexcept { return m_mufuFilterType; }
    /// Changes the filter in front of a MUFU evaluation.
    void SetMUFUFilterType(EMUFUFilterType type);
    /// From what the robust filter of a MUFU evaluation starts.
    EMUFURobustSeed GetMUFURobustSeed() const noexcept { return m_mufuRobustSeed; }
    /// Changes from what the robust filter starts.
    void SetMUFURobustSeed(EMUFURobustSeed seed);
    /// The ratio of the filter's cut-off to the length of the closing in a MUFU evaluation.
    EMUFUClosingCutOffRatio GetMUFUClosingCutOffRatio() const noexcept { return m_mufuRatio; }
    /// Changes that ratio.
    void SetMUFUClosingCutOffRatio(EMUFUClosingCutOffRatio ratio);

private:
    struct SStored;

    void InitOwn();

    SBarChartConfig m_barChart;
    ERoughnessFormRemoval m_formRemoval = ERoughnessFormRemoval::Line;
    ERoughnessReportOption m_reportOption = ERoughnessReportOption::None;
    EMUFUFilterType m_mufuFilterType = EMUFUFilterType::RGR2;
    EMUFURobustSeed m_mufuRobustSeed = EMUFURobustSeed::Closing;
    EMUFUClosingCutOffRatio m_mufuRatio = EMUFUClosingCutOffRatio::Ratio2;
};

} // namespace CommonUI
