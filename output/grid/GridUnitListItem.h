#pragma once

#include "../../common/Base3D.h"
#include "../../common/Unit.h"
#include "../../export/Export.h"
#include "../../model/Parameter.h"
#include "GridListItem.h"

#include <vector>

namespace CommonUI
{

/// A cell that edits the unit in which values of a dimension are shown. It offers the metric units, then
/// those of inches; its value is the text of the chosen one.
class COMMONUI_API CGridUnitListItem : public CGridListItem
{
public:
    /// @param dimension of the values
    /// @param factor the one that is chosen at first, which need not be among those that are offered
    /// @param units those of the surface's axes
    CGridUnitListItem(CParameter::EDimension dimension, CUnit::EUnitFactor factor,
                      const SBase3D<CUnit>& units);
    ~CGridUnitListItem() override;

    /// What the values are, which decides about the units that are offered.
    CParameter::EDimension GetDimension() const noexcept { return m_dimension; }
    /// The one that was chosen last, by the user or by the program; it need not be among those offered.
    CUnit::EUnitFactor GetUnitFactor() const noexcept { return m_factor; }
    /// Shows another unit, which need not be among those that are offered. The grid's listener is not told.
    void SetUnitFactor(CUnit::EUnitFactor factor, bool redraw = true);

    /// Whether the unit is hidden in a row that has no rows below it.
    bool IsAutoHide() const noexcept { return m_autoHide; }
    /// An item that hides shows its unit only in rows with rows below them.
    void SetAutoHide(bool autoHide);

    CStr GetSpokenText() const override;
    void OnDrawValue(CGridPainter& painter, const SRect& rect) const override;
    bool CreateInPlaceEdit(SGridEdit& edit) const override;
    bool OnEndEdit(const CStr& text) override;

private:
    bool IsHidden() const;
    CStr GetUnitText() const;

    CParameter::EDimension m_dimension;
    CUnit::EUnitFactor m_factor;
    SBase3D<CUnit> m_units;
    std::vector<CParameter::CScaling> m_scalings; // one for each option
    bool m_autoHide = false;
};

} // namespace CommonUI
