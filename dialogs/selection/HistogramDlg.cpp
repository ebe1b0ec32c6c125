#include "dialogs/selection/HistogramDlg.h"

#include "common/StringTable.h"
#include "dialogs/selection/detail/SelectionTexts.h"

#include <cfloat>
#include <cmath>

namespace CommonUI
{

namespace
{

using EKind = SDialogOption::EKind;
using SSetup = CParameter::SHistogramSetup;

SDialogOption MakeCheck(int id, int label, bool on)
{
    return {.id = id, .kind = EKind::Check, .label = GetString(label), .value = on ? 1 : 0};
}

SDialogOption MakeClasses(int count)
{
    SDialogOption option{.id = CHistogramDlg::c_classes, .kind = EKind::Number};
    option.label = GetString(SelectionText::c_classes);
    option.lower = 1;
    option.upper = CGrainAnalysisPreferencesData::c_mostClasses;
    option.whole = true;
    option.text = ShowOptionNumber(option, count);
    return option;
}

} // namespace

CHistogramDlg::CHistogramDlg(const CParameter& quantity, const SBase3D<CUnit>& units)
    : COptionsDlg(c_identifier,
                  CStr::Format(GetString(SelectionText::c_histogramCaption), quantity.GetFriendlyString()))
    , m_quantity(quantity)
    , m_units(units)
{
    Fill();
}

CHistogramDlg::~CHistogramDlg() = default;

SDialogOption CHistogramDlg::MakeBound(int id, int label, double bound, bool on) const
{
    SDialogOption option{.id = id, .kind = EKind::Number, .enabled = on};
    option.lower = -DBL_MAX;
    option.upper = DBL_MAX;
    option.factor = 1 / m_quantity.CalcFactor();
    option.unit = m_quantity.GetScaledUnitStr(m_units);
    option.label = GetString(label);
    if (!option.unit.IsEmpty())
        option.label = CStr::Format(GetString(SelectionText::c_labelWithUnit), option.label, option.unit);
    // A bound that has never been set is the largest number there is.
    option.text = ShowOptionNumber(option, std::abs(bound) == DBL_MAX ? 0 : bound);
    return option;
}

void CHistogramDlg::Fill()
{
    const SSetup& setup = m_quantity.GetHistogramSetup(static_cast<std::size_t>(m_shown));
    SDialogOption which{.id = c_histogram, .kind = EKind::Choice, .value = m_shown};
    which.label = GetString(SelectionText::c_histogram);
    for (int i = 0; i < static_cast<int>(CParameter::c_histogramCount); ++i)
        which.choices.push_back(GetString(SelectionText::c_firstHistogram + i));
    EditOptions() = {which,
                     MakeClasses(setup.classCount),
                     MakeCheck(c_lowerOn, SelectionText::c_lowerOn, setup.lowerOn),
                     MakeBound(c_lower, SelectionText::c_lower, setup.range.GetLower(), setup.lowerOn),
                     MakeCheck(c_upperOn, SelectionText::c_upperOn, setup.upperOn),
                     MakeBound(c_upper, SelectionText::c_upper, setup.range.GetUpper(), setup.upperOn)};
}

void CHistogramDlg::OnOption(int id, double number)
{
    const auto index = static_cast<std::size_t>(m_shown);
    SSetup setup = m_quantity.GetHistogramSetup(index);
    const auto bound = [](double before) { return std::abs(before) == DBL_MAX ? 0 : before; };
    const double lower = setup.range.GetLower();
    const double upper = setup.range.GetUpper();
    switch (id) {
    case c_histogram:
        m_shown = static_cast<int>(number);
        return Fill();
    case c_classes:
        setup.classCount = static_cast<int>(number);
        break;
    case c_lowerOn:
        setup.lowerOn = number != 0;
        setup.range = {bound(lower), upper};
        break;
    case c_upperOn:
        setup.upperOn = number != 0;
        setup.range = {lower, bound(upper)};
        break;
    case c_lower:
        setup.range = {number, upper};
        break;
    default:
        setup.range = {lower, number};
    }
    m_quantity.SetHistogramSetup(index, setup);
    FindOption(EditOptions(), c_lower)->enabled = setup.lowerOn;
    FindOption(EditOptions(), c_upper)->enabled = setup.upperOn;
}

CStr CHistogramDlg::GetFault() const
{
    for (std::size_t i = 0; i < CParameter::c_histogramCount; ++i) {
        const SSetup& setup = m_quantity.GetHistogramSetup(i);
        if (setup.lowerOn && setup.upperOn && setup.range.GetLower() >= setup.range.GetUpper())
            return GetString(SelectionText::c_wrongBounds);
    }
    return {};
}

} // namespace CommonUI
