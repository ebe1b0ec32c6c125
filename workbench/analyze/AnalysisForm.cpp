#include "workbench/analyze/AnalysisForm.h"

#include "model/AnalysisPreferencesData.h"
#include "workbench/analyze/AnalyzeTexts.h"
#include "workbench/analyze/LengthField.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QStandardItemModel>

#include <algorithm>
#include <utility>

namespace Workbench
{

using namespace CommonUI;

namespace
{

constexpr EAnalysis c_analyses[] = {EAnalysis::Roughness,     EAnalysis::RoughnessProfile,
                                    EAnalysis::Measure,       EAnalysis::PlaneCorrection,
                                    EAnalysis::Calibration1D, EAnalysis::CalibrationXY,
                                    EAnalysis::CalibrationZ,  EAnalysis::Linearity,
                                    EAnalysis::Tip,           EAnalysis::CrossCorrelation};
constexpr double c_longest = 0.1;       // m
constexpr double c_narrowestTip = 1e-9; // m

} // namespace

CAnalysisForm::CAnalysisForm()
    : m_form(new QFormLayout(this))
{
    m_form->setContentsMargins(0, 0, 0, 0);
    m_form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    m_analyses = AddList(QText(EAnalyzeText::Analysis));
    m_seconds = AddList(QText(EAnalyzeText::SecondSurface));
    m_pitch = AddReference(QText(EAnalyzeText::Pitch), &SAnalysisChoice::pitch);
    m_pitchY = AddReference(QText(EAnalyzeText::PitchY), &SAnalysisChoice::pitchY);
    m_step = AddReference(QText(EAnalyzeText::Step), &SAnalysisChoice::step);
    m_pitchMethods = AddList(QText(EAnalyzeText::PitchMethod));
    m_tipAreas = AddList(QText(EAnalyzeText::TipArea));
    m_tipWidth = AddLength(QText(EAnalyzeText::TipWidth), &SAnalysisChoice::tipWidth, c_narrowestTip);
    m_tipNoise = AddLength(QText(EAnalyzeText::TipNoise), &SAnalysisChoice::tipNoise);
    FillAnalyses();
    SetSurfaces(nullptr, {});
    SetChoice({});
    connect(m_analyses, &QComboBox::currentIndexChanged, this, &CAnalysisForm::OnAnalysis);
    connect(m_seconds, &QComboBox::currentIndexChanged, this, &CAnalysisForm::OnSecond);
    connect(m_pitchMethods, &QComboBox::currentIndexChanged, this, &CAnalysisForm::OnPitchMethod);
    connect(m_tipAreas, &QComboBox::currentIndexChanged, this, &CAnalysisForm::OnTipArea);
}

CAnalysisForm::~CAnalysisForm() = default;

// No wider than the pane: long names are cut in the field and whole in the list.
QComboBox* CAnalysisForm::AddList(const QString& label)
{
    auto* const list = new QComboBox;
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(12);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    m_form->addRow(label, list);
    list->setAccessibleName(QString(label).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
    return list;
}

CLengthField* CAnalysisForm::AddReference(const QString& label, double SAnalysisChoice::*length)
{
    CLengthField* const field = AddLength(label, length);
    field->setToolTip(QText(EAnalyzeText::NoReference));
    field->setAccessibleDescription(field->toolTip());
    return field;
}

CLengthField* CAnalysisForm::AddLength(const QString& label, double SAnalysisChoice::*length, double shortest)
{
    auto* const field = new CLengthField;
    field->SetUnit(CUnit::EUnitFactor::Micro, {shortest, c_longest}, 1e-7);
    m_form->addRow(label, field);
    connect(field, &CLengthField::Edited, this, [this, length](double value) {
        m_choice.*length = value;
        Q_EMIT Changed();
    });
    return field;
}

void CAnalysisForm::FillAnalyses()
{
    for (const EAnalysis analysis : c_analyses)
        m_analyses->addItem(ToQString(CAnalysisPreferencesData::GetFriendlyName(analysis)),
                            static_cast<int>(analysis));
    m_pitchMethods->addItem(QText(EAnalyzeText::Fourier),
                            static_cast<int>(Measurement::EPitchMethod::Fourier));
    m_pitchMethods->addItem(QText(EAnalyzeText::Centroid),
                            static_cast<int>(Measurement::EPitchMethod::Centroid));
    for (const auto& area : GetTipEstimationAreaEnum())
        m_tipAreas->addItem(ToQString(area.GetFriendlyString()), area.GetValue());
}

void CAnalysisForm::OnPitchMethod()
{
    m_choice.pitchMethod = static_cast<Measurement::EPitchMethod>(m_pitchMethods->currentData().toInt());
    Q_EMIT Changed();
}

void CAnalysisForm::OnTipArea()
{
    m_choice.tipArea = static_cast<ETipEstimationArea>(m_tipAreas->currentData().toInt());
    ShowFields();
    Q_EMIT Changed();
}

// An analysis that does not apply stays chosen, so that it is there for the next surface.
void CAnalysisForm::SetSurfaces(const Measurement::SInput* input, std::vector<SOtherSurface> others)
{
    const auto* const model = qobject_cast<QStandardItemModel*>(m_analyses->model());
    for (int row = 0; row < m_analyses->count(); ++row) {
        const auto analysis = static_cast<EAnalysis>(m_analyses->itemData(row).toInt());
        model->item(row)->setEnabled(!input || CanAnalyze(analysis, input->surface));
    }
    m_others = std::move(others);
    const QSignalBlocker blocker(m_seconds);
    m_seconds->clear();
    m_seconds->addItem(QText(EAnalyzeText::NoSurface));
    for (const SOtherSurface& other : m_others) {
        m_seconds->addItem(ToQString(other.name));
        m_seconds->setItemData(m_seconds->count() - 1, ToQString(other.path), Qt::ToolTipRole);
        if (other.path == m_second)
            m_seconds->setCurrentIndex(m_seconds->count() - 1);
    }
    ShowFields();
}

void CAnalysisForm::SetChoice(const SAnalysisChoice& choice)
{
    m_choice = choice;
    const auto choose = [](QComboBox& list, auto value) {
        const QSignalBlocker blocker(list);
        list.setCurrentIndex(list.findData(static_cast<int>(value)));
    };
    choose(*m_analyses, choice.analysis);
    choose(*m_pitchMethods, choice.pitchMethod);
    choose(*m_tipAreas, choice.tipArea);
    m_tipWidth->SetLength(choice.tipWidth);
    m_tipNoise->SetLength(choice.tipNoise);
    m_pitch->SetLength(choice.pitch);
    m_pitchY->SetLength(choice.pitchY);
    m_step->SetLength(choice.step);
    ShowFields();
}

std::shared_ptr<const Analysis::SSurface> CAnalysisForm::GetSecond() const
{
    const int index = m_seconds->currentIndex() - 1;
    if (index < 0)
        return nullptr;
    const auto& input = m_others[static_cast<std::size_t>(index)].input;
    return {input, &input->surface};
}

void CAnalysisForm::OnAnalysis()
{
    m_choice.analysis = static_cast<EAnalysis>(m_analyses->currentData().toInt());
    ShowFields();
    Q_EMIT Changed();
}

void CAnalysisForm::OnSecond()
{
    const int index = m_seconds->currentIndex() - 1;
    m_second = index < 0 ? CStr() : m_others[static_cast<std::size_t>(index)].path;
    Q_EMIT Changed();
}

void CAnalysisForm::ShowFields()
{
    const EAnalysis analysis = m_choice.analysis;
    const bool isAreal = analysis == EAnalysis::CalibrationXY;
    m_form->setRowVisible(m_seconds,
                          analysis == EAnalysis::CrossCorrelation || analysis == EAnalysis::Linearity);
    m_form->setRowVisible(m_pitch, isAreal || analysis == EAnalysis::Calibration1D);
    m_form->setRowVisible(m_pitchY, isAreal);
    m_form->setRowVisible(m_step, analysis == EAnalysis::CalibrationZ);
    m_form->setRowVisible(m_pitchMethods, analysis == EAnalysis::Calibration1D);
    const bool isTip = analysis == EAnalysis::Tip;
    m_form->setRowVisible(m_tipAreas, isTip);
    m_form->setRowVisible(m_tipWidth, isTip && m_choice.tipArea == ETipEstimationArea::Width);
    m_form->setRowVisible(m_tipNoise, isTip);
    if (auto* const label = qobject_cast<QLabel*>(m_form->labelForField(m_pitch)))
        label->setText(QText(isAreal ? EAnalyzeText::PitchX : EAnalyzeText::Pitch));
}

} // namespace Workbench
