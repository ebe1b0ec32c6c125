#pragma once

#include "measurement/BackgroundResults.h"
#include "model/AnalysisPreferencesManager.h"
#include "workbench/see/ResultView.h"

namespace Workbench
{

/// The roughness parameters of a surface, of one line those of profiles: those that the preferences choose,
/// computed in the background and anew when the preferences change.
class CRoughnessView : public CResultView
{
    Q_OBJECT

public:
    /// @param setName see CResultView
    explicit CRoughnessView(const char16_t* setName);
    ~CRoughnessView() override;

    /// @param input null for none
    void SetSurface(std::shared_ptr<const CommonUI::Measurement::SInput> input);
    /// Opens the dialog in which the parameters are chosen.
    void Choose();
    bool IsBusy() const noexcept { return m_results.IsBusy(); }

Q_SIGNALS:
    /// The user has changed the preferences.
    void Chosen();

private:
    CommonUI::EAnalysis GetAnalysis() const;
    void OnPreferences(const CommonUI::SPreferencesChange& change);
    void Compute();
    void ShowAnswer(const CommonUI::Measurement::CBackgroundResults::SAnswer& answer);

    const char16_t* m_setName;
    std::shared_ptr<const CommonUI::Measurement::SInput> m_input;
    CommonUI::CClosureConnection m_connection;
    CommonUI::Measurement::CBackgroundResults m_results;
};

} // namespace Workbench
