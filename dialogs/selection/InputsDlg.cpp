#include "dialogs/selection/InputsDlg.h"

#include "common/StringTable.h"
#include "dialogs/selection/detail/SelectionTexts.h"
#include "model/selection/TemplateInputs.h"

#include <algorithm>
#include <cfloat>

namespace CommonUI
{

namespace
{

CStr CaptionOf(const CParameter* instance)
{
    return GetString(instance ? SelectionText::c_changeCaption : SelectionText::c_addCaption);
}

SDialogOption MakePercentage(int id, const CStr& label, double percent)
{
    SDialogOption option{.id = id, .kind = SDialogOption::EKind::Number, .unit = u"%"};
    option.label = CStr::Format(GetString(SelectionText::c_labelWithUnit), label, option.unit);
    option.text = ShowOptionNumber(option, percent);
    return option;
}

SDialogOption MakeInput(int id, const CParameter& variable, double value)
{
    const CStr name = variable.GetFriendlyString();
    if (variable.GetDimension() == CParameter::EDimension::Percent)
        return MakePercentage(id, name, value);
    SDialogOption option{.id = id, .kind = SDialogOption::EKind::Number, .lower = -DBL_MAX, .upper = DBL_MAX};
    option.label = name;
    if (variable.GetDimension() == CParameter::EDimension::Length) {
        const CUnit unit(CUnit::EUnitFactor::Micro);
        option.unit = unit.GetText();
        option.factor = unit.GetFactorValue();
        option.label = CStr::Format(GetString(SelectionText::c_labelWithUnit), name, option.unit);
    }
    option.text = ShowOptionNumber(option, value);
    return option;
}

} // namespace

CInputsDlg::CInputsDlg(std::vector<CParameter> list, int parent, const CParameter* instance)
    : COptionsDlg(c_identifier, CaptionOf(instance))
    , m_list(std::move(list))
{
    std::ranges::copy_if(m_list, std::back_inserter(m_templates), &CParameter::IsTemplate);
    const auto found = std::find(m_templates.begin(), m_templates.end(), parent);
    if (found != m_templates.end())
        m_chosen = static_cast<std::size_t>(found - m_templates.begin());
    m_values = GetInputs(instance ? *instance : GetParent());
    if (instance)
        m_instance = instance->GetValue();
    else
        AddTemplates();
    AddInputs();
}

CInputsDlg::CInputsDlg(std::vector<CParameter> list, int parent)
    : CInputsDlg(std::move(list), parent, nullptr)
{
}

CInputsDlg CInputsDlg::ForInstance(std::vector<CParameter> list, const CParameter& instance)
{
    return {std::move(list), instance.GetParentValue(), &instance};
}

CInputsDlg::~CInputsDlg() = default;

int CInputsDlg::GetTemplate() const
{
    return GetParent().GetValue();
}

void CInputsDlg::AddTemplates()
{
    SDialogOption option{.id = c_template, .kind = SDialogOption::EKind::Choice};
    option.label = GetString(SelectionText::c_template);
    for (const CParameter& parent : m_templates)
        option.choices.push_back(parent.GetFriendlyString());
    option.value = static_cast<int>(m_chosen);
    EditOptions().push_back(std::move(option));
}

void CInputsDlg::AddInputs()
{
    for (std::size_t i = 0; i < m_values.size(); ++i)
        EditOptions().push_back(
            MakeInput(c_firstInput + static_cast<int>(i), GetParent().GetVariable(i), m_values[i]));
}

void CInputsDlg::OnOption(int id, double number)
{
    if (id != c_template) {
        m_values[static_cast<std::size_t>(id - c_firstInput)] = number;
        return;
    }
    m_chosen = static_cast<std::size_t>(number);
    m_values = GetInputs(GetParent());
    EditOptions().resize(1);
    AddInputs();
}

CStr CInputsDlg::GetFault() const
{
    if (const auto fault = CheckInputs(GetParent(), m_values); fault && fault->kind == EInputFault::Order)
        return GetString(SelectionText::c_wrongOrder);
    const CParameter* const same = FindInstance(m_list, GetTemplate(), m_values);
    const bool exists = same && same->GetValue() != m_instance;
    return exists ? CStr::Format(GetString(SelectionText::c_exists), same->GetShortFriendlyString()) : CStr();
}

CStr CInputsDlg::GetRemark() const
{
    const CStr name = MakeInstance(CParameter::c_noParent, GetParent(), m_values).GetFriendlyString();
    return CStr::Format(GetString(SelectionText::c_becomes), name);
}

CPercentileDlg::CPercentileDlg(double percent)
    : COptionsDlg(c_identifier, GetString(SelectionText::c_percentile))
    , m_percent(percent)
{
    EditOptions().push_back(MakePercentage(0, GetString(SelectionText::c_percentile), percent));
}

CPercentileDlg::~CPercentileDlg() = default;

void CPercentileDlg::OnOption(int /*id*/, double number)
{
    m_percent = number;
}

} // namespace CommonUI
