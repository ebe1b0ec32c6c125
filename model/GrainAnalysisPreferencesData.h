#pragma once

#include "../export/Export.h"
#include "AnalysisPreferencesData.h"
#include "MeasureParameters.h"

#include <memory>
#include <vector>

namespace CommonUI
{

/// The histograms that a quantity of the grains has: which of CParameter's histogram setups is which. They
/// differ in what a grain counts for, as the quantities of particle size analysis do (ISO 9276-1: q0, q2 and
/// q3).
enum class EGrainHistograms {
    Number = 0, ///< each grain counts one
    Area = 1,   ///< each grain counts by its area
    Volume = 2  ///< each grain counts by its volume
};

/// The preferences of the grain analysis: the quantities of the grain catalogue with their dimensions and
/// natural limits, which are shown, and the histograms of each. An output is the drawn histogram of the
/// quantity of the same number.
class COMMONUI_API CGrainAnalysisPreferencesData : public CAnalysisPreferencesData
{
public:
    /// What a stored histogram may have for classes.
    COMMONUI_CONSTANT int c_mostClasses = 10000;

    /// Preferences with the defaults of EAnalysis::Measure.
    CGrainAnalysisPreferencesData();
    CGrainAnalysisPreferencesData(const CGrainAnalysisPreferencesData&) = default;
    CGrainAnalysisPreferencesData(CGrainAnalysisPreferencesData&&) noexcept = default;
    CGrainAnalysisPreferencesData& operator=(const CGrainAnalysisPreferencesData&) = default;
    CGrainAnalysisPreferencesData& operator=(CGrainAnalysisPreferencesData&&) noexcept = default;
    ~CGrainAnalysisPreferencesData() override;

    using CAnalysisPreferencesData::Load;
    void Init() override;
    bool Save(CInifile& ini) override;
    bool Load(CInifile& ini) override;
    std::unique_ptr<CAnalysisPreferencesData> Clone() const override;
    /// Groups by kind: size, volumes, heights, shape, position, neighbourhood. The catalogue's entry "None"
    /// is in no group.
    std::vector<SParameterGroup> GetGroups(FGetter getter, bool all) const override;
    /// Plain statistics and weighted ones.
    std::vector<SParameterGroup> GetStatisticGroups() const override;
    /// The outputs in the groups of their quantities.
    std::vector<SParameterGroup> GetOutputGroups() const override;
    /// Adds a quantity once more under a new number, to be shown in another unit or format: the choices are
    /// those of `parameter`, the rest is the catalogue's.
    /// @param parent the number of a quantity of the list
    /// @return the new number, or CParameter::c_noParent when there is no such quantity
    int AddParameter(int parent, const CParameter& parameter) override;
    /// Replaces all parameters and puts them into the order of the catalogue.
    bool SetParameters(const std::vector<CParameter>& parameters) override;

    /// The setup of a histogram of a quantity.
    /// @throws EInternal when the list does not have the quantity: "Illegal Parameter ID: %d"
    CParameter::SHistogramSetup GetHistogramSetup(EMeasureParameters quantity,
                                                  EGrainHistograms histogram) const;
    /// @return false when the list does not have the quantity, or the class count is not from 1 to
    ///     c_mostClasses
    bool SetHistogramSetup(EMeasureParameters quantity, EGrainHistograms histogram,
                           const CParameter::SHistogramSetup& setup);

private:
    void InitHistograms();
};

} // namespace CommonUI
