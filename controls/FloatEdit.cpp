#include "controls/FloatEdit.h"

#include "common/Diagnostics.h"
#include "common/NumberText.h"
#include "controls/detail/NumberScan.h"
#include "controls/detail/Scalar.h"

namespace CommonUI
{

namespace
{

// Whether the text is one conversion of a real number, and text after it.
bool IsEditFormat(std::u16string_view format)
{
    format = TrimView(format);
    const std::size_t letter = format.find_first_of(u"fFeEgG");
    SNumberFormat parsed;
    if (letter == std::u16string_view::npos || !ParseNumberFormat(format.substr(0, letter + 1), parsed))
        return false;
    const CStr rest = format.substr(letter + 1);
    // What follows must not read as a part of the number.
    return rest.FindOneOf(u"0123456789.eE") != 0 && !rest.Replace(u"%%", u"").Contains(u"%");
}

} // namespace

CFloatEdit::CFloatEdit()
    : CScalarEdit(0, std::numeric_limits<float>::lowest(), std::numeric_limits<float>::max(), 1)
{
}

CFloatEdit::~CFloatEdit() = default;

bool CFloatEdit::SetFormatString(const CStr& format)
{
    if (!IsEditFormat(format)) {
        GetDiagnostics().Write(u"NumericEdit", EDiagnosticLevel::Warning,
                               CStr::Format(u"\"%s\" is no format of one real number", format));
        return false;
    }
    m_format = format;
    RefreshDisplay();
    return true;
}

bool CFloatEdit::WindowTextToValue(float& value) const
{
    double typed = 0;
    if (!GetView() || !ScanReal(GetView()->GetText(), typed) || std::isnan(typed))
        return false;
    value = FromDouble<float>(typed);
    return true;
}

CStr CFloatEdit::ValueToText(const float& value) const
{
    return CStr::Format(m_format, static_cast<double>(value));
}

} // namespace CommonUI
