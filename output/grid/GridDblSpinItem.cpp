#include "output/grid/GridDblSpinItem.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

bool TakesSpin(EGridValueType type)
{
    switch (type) {
    case EGridValueType::I2:
    case EGridValueType::I4:
    case EGridValueType::R8:
    case EGridValueType::UI1:
    case EGridValueType::UI2:
    case EGridValueType::Int:
    case EGridValueType::UInt:
        return true;
    default:
        return false;
    }
}

} // namespace

CGridDblSpinItem::CGridDblSpinItem(double value)
    : CGridItem(value)
{
}

CGridDblSpinItem::~CGridDblSpinItem() = default;

void CGridDblSpinItem::EnableSpinControl(bool enable, int minimum, int maximum)
{
    if (!TakesSpin(GetValue().GetType()))
        return;
    SetRange(minimum, maximum);
    SetFlag(HasSpin, enable);
}

bool CGridDblSpinItem::OnEndEdit(const CStr& text)
{
    if (!CGridItem::OnEndEdit(text))
        return false;
    if (!HasFlag(HasSpin))
        return true;
    if (GetValue().GetType() == EGridValueType::R8) {
        const double value = GetValue().GetReal();
        SetValue(std::clamp(value, static_cast<double>(GetMinimum()), static_cast<double>(GetMaximum())));
    } else if (GetValue().IsInteger()) {
        SetValue(CGridValue(GetValue().GetType(),
                            std::clamp<long long>(GetValue().GetInteger(), GetMinimum(), GetMaximum())));
    }
    return true;
}

} // namespace CommonUI
