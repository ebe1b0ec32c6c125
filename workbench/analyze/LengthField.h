#pragma once

#include "common/Range.h"
#include "common/Unit.h"
#include "controls/FloatEdit.h"
#include "qt/edits/NumericEditWidget.h"

namespace Workbench
{

/// An edit of a length in a unit.
class CLengthField : public CommonUI::CNumericEditWidget
{
    Q_OBJECT

public:
    CLengthField();
    ~CLengthField() override;

    /// @param range of the lengths that can be entered, m
    void SetUnit(CommonUI::CUnit::EUnitFactor unit, const CommonUI::CRange<double>& range, double step);
    /// Shows a length, m, that the user has not entered.
    void SetLength(double length);
    double GetLength() const;
    CommonUI::CFloatEdit& GetEdit() noexcept { return m_edit; }

Q_SIGNALS:
    /// The user has entered a length, m.
    void Edited(double length);

private:
    void OnValue(float value);

    CommonUI::CFloatEdit m_edit;
    double m_factor = 1; // of the unit
    bool m_isSetting = false;
};

} // namespace Workbench
