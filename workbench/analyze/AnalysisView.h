#pragma once

#include "measurement/BackgroundResults.h"
#include "model/AnalysisPreferencesManager.h"
#include "workbench/see/ResultView.h"

namespace Workbench
{

/// The results of an analysis of a surface, at first of its roughness: those that the preferences choose,
/// computed in the background and anew when the preferences change.
class CAnalysisView : public CResultView
{
    Q_OBJECT

public:
    using CAnswer = CommonUI::Measurement::CBackgroundResults::SAnswer;

    /// @param setName under which layouts are kept; analyses besides the roughness add their names
    explicit CAnalysisView(const char16_t* setName);
    ~CAnalysisView() override;

    /// @param input null for none
    void SetSurface(std::shared_ptr<const CommonUI::Measurement::SInput> input);
    const std::shared_ptr<const CommonUI::Measurement::SInput>& GetSurface() const noexcept
    {
        return m_input;
    }
    void SetAnalysis(CommonUI::EAnalysis analysis, CommonUI::Measurement::SFurtherOptions options,
                     CommonUI::Measurement::SMethod method = {});
    /// Opens the dialog in which the parameters are chosen.
    void Choose();
    bool IsBusy() const noexcept { return m_results.IsBusy(); }

Q_SIGNALS:
    /// The user has changed the preferences.
    void Chosen();
    /// Results are shown, or why there are none.
    void Answered(const CommonUI::Measurement::CBackgroundResults::SAnswer& answer);

private:
    CommonUI::EAnalysis GetAnalysis() const;
    CommonUI::CStr GetSetName() const;
    void OnPreferences(const CommonUI::SPreferencesChange& change);
    void Clear();
    void Compute();
    void ShowAnswer(const CAnswer& answer);

    const char16_t* m_setName;
    CommonUI::EAnalysis m_analysis = CommonUI::EAnalysis::Roughness;
    CommonUI::Measurement::SFurtherOptions m_options{};
    CommonUI::Measurement::SMethod m_method{};
    std::shared_ptr<const CommonUI::Measurement::SInput> m_input;
    CommonUI::CClosureConnection m_connection;
    CommonUI::Measurement::CBackgroundResults m_results;
};

} // namespace Workbench
