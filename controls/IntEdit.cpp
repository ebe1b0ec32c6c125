#include "controls/IntEdit.h"

#include "controls/detail/NumberScan.h"
#include "controls/detail/Scalar.h"

namespace CommonUI
{

CIntEdit::CIntEdit()
    : CScalarEdit(0, std::numeric_limits<int>::min(), std::numeric_limits<int>::max(), 1)
{
}

CIntEdit::~CIntEdit() = default;

bool CIntEdit::WindowTextToValue(int& value) const
{
    long long typed = 0;
    if (!GetView() || !ScanInteger(GetView()->GetText(), typed))
        return false;
    using CLimits = std::numeric_limits<int>;
    value = static_cast<int>(std::clamp<long long>(typed, CLimits::min(), CLimits::max()));
    return true;
}

CStr CIntEdit::ValueToText(const int& value) const
{
    return CStr::Format(u"%d", value);
}

} // namespace CommonUI
