#pragma once

#include "measurement/process/ProcessStep.h"
#include "qt/settings/SettingsButton.h"

#include <QWidget>

#include <memory>
#include <vector>

class QFormLayout;

namespace Workbench
{

class CNumberRow;

/// The set of a step and the numbers of it that can be edited. One without a step is empty.
class CStepForm : public QWidget
{
    Q_OBJECT

public:
    CStepForm();
    ~CStepForm() override;

    /// @param step null for none
    void SetStep(const CommonUI::Measurement::SProcessStep* step);
    /// The field of a number; null where the step has none.
    QWidget* FindField(CommonUI::Measurement::EStepNumber number) const;
    /// Null where the step has no set.
    CommonUI::CSettingsButton* GetSets() const noexcept { return m_sets; }

Q_SIGNALS:
    /// The user has entered a number.
    void NumberEdited(CommonUI::Measurement::EStepNumber number, double value);
    /// The user has chosen another set.
    void SetChosen(const CommonUI::SSettingsEntry& entry);

private:
    void Build(const CommonUI::Measurement::SProcessStep& step);
    void AddSets(const CommonUI::Measurement::SProcessStep& step);
    void OnSet(CommonUI::CSettings& settings);

    QFormLayout* m_form;
    CommonUI::CSettingsButton* m_sets = nullptr;
    CommonUI::CClosureConnection m_setConnection;
    std::vector<CNumberRow*> m_rows; // owned by the form
    unsigned m_id = 0;               // of the step
    CommonUI::SBatchStep m_source{};
};

} // namespace Workbench
