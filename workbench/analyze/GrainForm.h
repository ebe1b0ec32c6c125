#pragma once

#include "common/Range.h"
#include "measurement/Request.h"
#include "qt/settings/SettingsButton.h"
#include "workbench/analyze/AnalysisChoice.h"

#include <QWidget>

#include <optional>

class QComboBox;
class QSlider;

namespace Workbench
{

class CLengthField;

/// Which grains are measured: a set that finds the threshold on each surface, or a threshold entered for one
/// of them, and the side of it on which grains lie.
class CGrainForm : public QWidget
{
    Q_OBJECT

public:
    CGrainForm();
    ~CGrainForm() override;

    /// A set that is gone is replaced by the first one that there is.
    void SetChoice(const SGrainChoice& choice);
    const SGrainChoice& GetChoice() const noexcept { return m_choice; }
    /// The threshold is found anew.
    void Forget();
    /// @param heights of the surface, m
    void SetHeights(const CommonUI::CRange<double>& heights);
    /// Shows the threshold that was found, m.
    void ShowThreshold(double threshold);
    CommonUI::Measurement::SMethod GetMethod() const;

    CLengthField& GetThreshold() noexcept { return *m_threshold; }
    QSlider& GetSlider() noexcept { return *m_slider; }
    QComboBox& GetKinds() noexcept { return *m_kinds; }
    CommonUI::CSettingsButton& GetSets() noexcept { return *m_sets; }

Q_SIGNALS:
    /// The user has chosen or entered something else.
    void Changed();

private:
    bool Load(const CommonUI::CStr& reference);
    void OnSet(CommonUI::CSettings& settings);
    void OnKind();
    void OnSlider(int value);
    void Enter(double threshold);

    SGrainChoice m_choice;
    CommonUI::SGrainThresholdSettings m_settings{};
    CommonUI::CStr m_name{};           // of the set
    std::optional<double> m_entered{}; // m
    CommonUI::CRange<double> m_heights{0, 1};
    CommonUI::CSettingsButton* m_sets;
    QComboBox* m_kinds;
    CLengthField* m_threshold;
    QSlider* m_slider;
    CommonUI::CClosureConnection m_setConnection;
};

} // namespace Workbench
