#include "workbench/StepForm.h"

#include "settings/SetReference.h"
#include "workbench/NumberRow.h"
#include "workbench/Texts.h"

#include <QFormLayout>
#include <QLabel>

#include <algorithm>

namespace Workbench
{

using namespace CommonUI;
using namespace CommonUI::Measurement;

namespace
{

EText TextOf(EStepNumber number)
{
    switch (number) {
    case EStepNumber::Order:
        return EText::NumberOrder;
    case EStepNumber::Columns:
        return EText::NumberColumns;
    case EStepNumber::Rows:
        return EText::NumberRows;
    case EStepNumber::StandardDeviation:
        return EText::NumberDeviation;
    case EStepNumber::Threshold:
        return EText::NumberThreshold;
    case EStepNumber::MaximumWidth:
        return EText::NumberWidth;
    case EStepNumber::Cutoff:
        return EText::NumberCutoff;
    default:
        return EText::NumberShare;
    }
}

SSettingsEntry EntryOf(const SBatchStep& source)
{
    if (const auto builtIn = FindBuiltIn(source.settings, source.type))
        return {*builtIn, source.type};
    return {CStr(GetReferredPath(source.settings)), source.type};
}

} // namespace

CStepForm::CStepForm()
    : m_form(new QFormLayout(this))
{
    m_form->setContentsMargins(0, 0, 0, 0);
    m_form->setRowWrapPolicy(QFormLayout::WrapLongRows);
}

CStepForm::~CStepForm() = default;

void CStepForm::SetStep(const SProcessStep* step)
{
    const auto numbers = step ? GetNumbers(step->work) : std::vector<SStepNumber>();
    if (!step || step->id != m_id || step->source != m_source || numbers.size() != m_rows.size()) {
        m_setConnection.Disconnect();
        m_sets = nullptr;
        m_rows.clear();
        while (m_form->rowCount() > 0)
            m_form->removeRow(0);
        m_id = step ? step->id : 0;
        m_source = step ? step->source : SBatchStep();
        if (step)
            Build(*step);
        return;
    }
    for (std::size_t i = 0; i < numbers.size(); ++i)
        m_rows[i]->SetValue(numbers[i].value);
}

void CStepForm::Build(const SProcessStep& step)
{
    if (step.source.type == ESettingType::PlaneCorr || step.source.type == ESettingType::Filter)
        AddSets(step);
    for (const SStepNumber& number : GetNumbers(step.work)) {
        // The field goes with the row of the form, and its object with the field's parent or before.
        auto* const place = new QWidget;
        auto* const layout = new QHBoxLayout(place);
        layout->setContentsMargins(0, 0, 0, 0);
        auto* const row = new CNumberRow(
            *place, number, [this](EStepNumber edited, double value) { Q_EMIT NumberEdited(edited, value); });
        layout->addWidget(&row->GetField());
        place->setFocusProxy(&row->GetField());
        auto* const label = new QLabel(QText(TextOf(number.number)));
        label->setBuddy(&row->GetField());
        m_form->addRow(label, place);
        m_rows.push_back(row);
    }
}

void CStepForm::AddSets(const SProcessStep& step)
{
    m_sets = new CSettingsButton(step.source.type, nullptr, false);
    m_sets->GetMenu().SetCurrent(EntryOf(step.source));
    m_sets->GetMenu().GetChosen().Subscribe(*this, &CStepForm::OnSet, m_setConnection);
    auto* const label = new QLabel(QText(EText::StepSet));
    label->setBuddy(m_sets);
    m_sets->setAccessibleName(label->text().remove(QLatin1Char('&')));
    m_form->addRow(label, m_sets);
}

QWidget* CStepForm::FindField(EStepNumber number) const
{
    const auto row = std::ranges::find(m_rows, number, &CNumberRow::GetNumber);
    return row == m_rows.end() ? nullptr : &(*row)->GetField();
}

// The form is built anew for another set, which must not happen while its menu tells of it.
void CStepForm::OnSet(CSettings& settings)
{
    QMetaObject::invokeMethod(
        this, [this, entry = settings.GetEntryInfo()] { Q_EMIT SetChosen(entry); }, Qt::QueuedConnection);
}

} // namespace Workbench
