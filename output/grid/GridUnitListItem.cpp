#include "output/grid/GridUnitListItem.h"

#include "output/grid/GridRow.h"

#include <algorithm>

namespace CommonUI
{

CGridUnitListItem::CGridUnitListItem(CParameter::EDimension dimension, CUnit::EUnitFactor factor,
                                     const SBase3D<CUnit>& units)
    : m_dimension(dimension)
    , m_factor(factor)
    , m_units(units)
    , m_scalings(CParameter::GetScalingsList(dimension, units))
{
    const auto inches = CParameter::GetUSMetricScalingsList(dimension, units);
    m_scalings.insert(m_scalings.end(), inches.begin(), inches.end());
    std::vector<CStr> options;
    options.reserve(m_scalings.size());
    for (const auto& [offered, text] : m_scalings)
        options.push_back(text);
    SetOptions(options);
    SetFlag(HasOptions, !options.empty());
    SetValue(GetUnitText());
}

CGridUnitListItem::~CGridUnitListItem() = default;

CStr CGridUnitListItem::GetUnitText() const
{
    CParameter parameter(0, {}, {}, {}, 0, false, m_dimension);
    parameter.SetUnitFactor(m_factor);
    return parameter.GetScaledUnitStr(m_units);
}

void CGridUnitListItem::SetUnitFactor(CUnit::EUnitFactor factor, bool redraw)
{
    m_factor = factor;
    SetValue(GetUnitText(), redraw);
}

void CGridUnitListItem::SetAutoHide(bool autoHide)
{
    m_autoHide = autoHide;
    Redraw();
}

bool CGridUnitListItem::IsHidden() const
{
    return m_autoHide && !(GetRow() && GetRow()->HasSubRows());
}

CStr CGridUnitListItem::GetSpokenText() const
{
    return IsHidden() ? CStr() : CGridListItem::GetSpokenText();
}

void CGridUnitListItem::OnDrawValue(CGridPainter& painter, const SRect& rect) const
{
    if (IsHidden())
        DrawBackground(painter, rect);
    else
        CGridListItem::OnDrawValue(painter, rect);
}

bool CGridUnitListItem::CreateInPlaceEdit(SGridEdit& edit) const
{
    return !IsHidden() && CGridListItem::CreateInPlaceEdit(edit);
}

bool CGridUnitListItem::OnEndEdit(const CStr& text)
{
    const auto chosen = std::ranges::find(m_scalings, text, &CParameter::CScaling::second);
    if (chosen == m_scalings.end())
        return false;
    SetUnitFactor(chosen->first);
    return true;
}

} // namespace CommonUI
