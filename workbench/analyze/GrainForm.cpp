#include "workbench/analyze/GrainForm.h"

#include "measurement/NamedSet.h"
#include "platform/MessageBoxService.h"
#include "settings/SetReference.h"
#include "workbench/analyze/AnalyzeTexts.h"
#include "workbench/analyze/LengthField.h"

#include <QComboBox>
#include <QFormLayout>
#include <QSignalBlocker>
#include <QSlider>

#include <algorithm>
#include <cmath>

namespace Workbench
{

using namespace CommonUI;
using Analysis::EGrainKind;

namespace
{

constexpr int c_steps = 1000; // of the slider

CStr ReferenceOf(const SSettingsEntry& entry)
{
    return entry.m_IsFile ? CStr(c_filePrefix) + entry.m_File : MakeReference(entry.m_BuiltIn);
}

QString WithoutMark(QString text)
{
    return text.remove(QLatin1Char('&')).remove(QLatin1Char(':'));
}

} // namespace

CGrainForm::CGrainForm()
    : m_sets(new CSettingsButton(ESettingType::PnP, nullptr, false))
    , m_kinds(new QComboBox)
    , m_threshold(new CLengthField)
    , m_slider(new QSlider(Qt::Horizontal))
{
    auto* const form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->addRow(QText(EAnalyzeText::GrainSet), m_sets);
    form->addRow(QText(EAnalyzeText::GrainKind), m_kinds);
    form->addRow(QText(EAnalyzeText::Threshold), m_threshold);
    form->addRow(QString(), m_slider);
    m_sets->setAccessibleName(WithoutMark(QText(EAnalyzeText::GrainSet)));
    m_kinds->setAccessibleName(WithoutMark(QText(EAnalyzeText::GrainKind)));
    m_slider->setAccessibleName(WithoutMark(QText(EAnalyzeText::Threshold)));
    m_kinds->addItem(QText(EAnalyzeText::Particles), static_cast<int>(EGrainKind::Particle));
    m_kinds->addItem(QText(EAnalyzeText::Pores), static_cast<int>(EGrainKind::Pore));
    m_slider->setRange(0, c_steps);
    m_slider->setPageStep(c_steps / 20);
    m_sets->GetMenu().GetChosen().Subscribe(*this, &CGrainForm::OnSet, m_setConnection);
    connect(m_kinds, &QComboBox::currentIndexChanged, this, &CGrainForm::OnKind);
    connect(m_threshold, &CLengthField::Edited, this, &CGrainForm::Enter);
    connect(m_slider, &QSlider::valueChanged, this, &CGrainForm::OnSlider);
    SetChoice({});
}

CGrainForm::~CGrainForm() = default;

bool CGrainForm::Load(const CStr& reference)
{
    try {
        auto set = Measurement::LoadReferredSet(GetSettingsFactory(), ESettingType::PnP, reference);
        m_settings = Measurement::ReadNamedSet<SGrainThresholdSettings>(set, reference);
        m_name = set.name;
        m_sets->GetMenu().SetCurrent(set.settings.GetEntryInfo());
        return true;
    } catch (const Measurement::ERequest&) {
        return false; // a file that is gone
    }
}

void CGrainForm::SetChoice(const SGrainChoice& choice)
{
    m_choice = choice;
    if (!Load(choice.set))
        Load(SGrainChoice().set);
    m_settings.kind = choice.kind;
    const QSignalBlocker blocker(m_kinds);
    m_kinds->setCurrentIndex(m_kinds->findData(static_cast<int>(choice.kind)));
}

void CGrainForm::Forget()
{
    m_entered.reset();
}

// A threshold may lie beyond the heights that are seen, where those that are analysed are levelled.
void CGrainForm::SetHeights(const CRange<double>& heights)
{
    m_heights = heights;
    const double length = heights.GetLength();
    const double greatest = std::max(std::abs(heights.GetLower()), std::abs(heights.GetUpper()));
    m_threshold->SetUnit(CUnit(CUnit::EUnitFactor::Unity).SuitableFactor(greatest, 1),
                         {heights.GetLower() - length, heights.GetUpper() + length}, length / 100);
}

void CGrainForm::ShowThreshold(double threshold)
{
    m_threshold->SetLength(threshold);
    if (m_slider->isSliderDown())
        return;
    const QSignalBlocker blocker(m_slider);
    const double share = (threshold - m_heights.GetLower()) / m_heights.GetLength();
    m_slider->setValue(static_cast<int>(std::lround(std::clamp(share, 0.0, 1.0) * c_steps)));
}

Measurement::SMethod CGrainForm::GetMethod() const
{
    Measurement::SMethod method;
    method.grainSearch = Measurement::SGrainSearch{.name = m_name, .settings = m_settings};
    if (m_entered)
        method.grains = Measurement::SGrainLimit{
            .threshold = *m_entered,
            .kind = m_settings.kind,
            .selection = {.minimumArea = m_settings.minimumArea,
                          .minimumPoints = static_cast<std::size_t>(m_settings.minimumPoints),
                          .includesEdge = m_settings.includeEdgeGrains}};
    return method;
}

void CGrainForm::OnSet(CSettings& settings)
{
    const CStr reference = ReferenceOf(settings.GetEntryInfo());
    if (!Load(reference)) {
        GetMessageBoxService().Show(
            {.text = CStr::Format(Text(EAnalyzeText::NoGrainSet), settings.GetEntryInfo().m_Name),
             .style = MessageBoxStyle::c_ok | MessageBoxStyle::c_warning});
        return;
    }
    Forget();
    SetChoice({.set = reference, .kind = m_settings.kind});
    Q_EMIT Changed();
}

void CGrainForm::OnKind()
{
    m_choice.kind = static_cast<EGrainKind>(m_kinds->currentData().toInt());
    m_settings.kind = m_choice.kind;
    Q_EMIT Changed();
}

void CGrainForm::OnSlider(int value)
{
    Enter(m_heights.GetLower() + m_heights.GetLength() * value / c_steps);
}

void CGrainForm::Enter(double threshold)
{
    m_entered = threshold;
    ShowThreshold(threshold);
    Q_EMIT Changed();
}

} // namespace Workbench
