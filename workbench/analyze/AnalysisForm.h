#pragma once

#include "measurement/ApplySteps.h"
#include "workbench/analyze/AnalysisChoice.h"

#include <QWidget>

#include <vector>

class QComboBox;
class QFormLayout;

namespace Workbench
{

class CLengthField;

/// A surface that is open beside the one that is analysed.
struct SOtherSurface {
    CommonUI::CStr path{};
    CommonUI::CStr name{};
    std::shared_ptr<const CommonUI::Measurement::SInput> input{};
};

/// In which an analysis is chosen, with the surface and the lengths that it compares with.
class CAnalysisForm : public QWidget
{
    Q_OBJECT

public:
    CAnalysisForm();
    ~CAnalysisForm() override;

    /// What is analysed, and what it may be compared with.
    /// @param input null for none
    void SetSurfaces(const CommonUI::Measurement::SInput* input, std::vector<SOtherSurface> others);
    void SetChoice(const SAnalysisChoice& choice);
    void SetGrains(const SGrainChoice& grains) { m_choice.grains = grains; }
    const SAnalysisChoice& GetChoice() const noexcept { return m_choice; }
    /// Null where none is chosen.
    std::shared_ptr<const CommonUI::Analysis::SSurface> GetSecond() const;
    QComboBox& GetAnalyses() noexcept { return *m_analyses; }
    QComboBox& GetOthers() noexcept { return *m_seconds; }
    CLengthField& GetPitch() noexcept { return *m_pitch; }
    CLengthField& GetPitchY() noexcept { return *m_pitchY; }
    CLengthField& GetStep() noexcept { return *m_step; }
    QComboBox& GetPitchMethods() noexcept { return *m_pitchMethods; }
    QComboBox& GetTipAreas() noexcept { return *m_tipAreas; }
    CLengthField& GetTipWidth() noexcept { return *m_tipWidth; }
    CLengthField& GetTipNoise() noexcept { return *m_tipNoise; }

Q_SIGNALS:
    /// The user has chosen something else.
    void Changed();

private:
    QComboBox* AddList(const QString& label);
    CLengthField* AddLength(const QString& label, double SAnalysisChoice::*length, double shortest = 0);
    CLengthField* AddReference(const QString& label, double SAnalysisChoice::*length);
    void FillAnalyses();
    void OnAnalysis();
    void OnSecond();
    void OnPitchMethod();
    void OnTipArea();
    void ShowFields();

    SAnalysisChoice m_choice;
    std::vector<SOtherSurface> m_others;
    CommonUI::CStr m_second; // the path of the one that was chosen last
    QFormLayout* m_form;
    QComboBox* m_analyses;
    QComboBox* m_seconds;
    CLengthField* m_pitch;
    CLengthField* m_pitchY;
    CLengthField* m_step;
    QComboBox* m_pitchMethods;
    QComboBox* m_tipAreas;
    CLengthField* m_tipWidth;
    CLengthField* m_tipNoise;
};

} // namespace Workbench
