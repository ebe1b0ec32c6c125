#include "controls/IntEdit.h"

#include "controls/detail/NumberScan.h"
#include "controls/detail/Scalar.h"

#include <limits>

namespace CommonUI
{

CIntEdit::CIntEdit()
    : CScalarEdit(0, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 1)
{
}

CIntEdit::~CIntEdit() = default;

bool CIntEdit::WindowTextToValue(int& value) const
{
    if (!GetView())
        return false;
    const CStr text = GetView()->GetText();
    std::optional<double> typed;
    if (GetScanning() == EScanning::Whole)
        typed = ReadTypedInteger(text);
    else if (long long scanned = 0; ScanInteger(text, scanned))
        typed = static_cast<double>(scanned);
    if (typed)
        value = FromDouble<int>(*typed);
    return typed.has_value();
}

CStr CIntEdit::ValueToText(const int& value) const
{
    return CStr::Format(u"%d", value);
}

} // namespace CommonUI
