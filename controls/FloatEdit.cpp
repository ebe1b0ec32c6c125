#include "controls/FloatEdit.h"

#include "common/Diagnostics.h"
#include "common/NumberText.h"
#include "controls/detail/NumberScan.h"
#include "controls/detail/Scalar.h"

namespace CommonUI
{

namespace
{

// The text after the number, if the format is one conversion of a real number and such a text.
std::optional<CStr> GetTextBehind(std::u16string_view format)
{
    format = TrimView(format);
    const std::size_t letter = format.find_first_of(u"fFeEgG");
    SNumberFormat parsed;
    if (letter == std::u16string_view::npos || !ParseNumberFormat(format.substr(0, letter + 1), parsed))
        return std::nullopt;
    const CStr rest = format.substr(letter + 1);
    // What follows must not read as a part of the number.
    if (rest.FindOneOf(u"0123456789.eE") == 0 || rest.Replace(u"%%", u"").Contains(u"%"))
        return std::nullopt;
    return rest.Replace(u"%%", u"%");
}

} // namespace

CFloatEdit::CFloatEdit()
    : CScalarEdit(0, std::numeric_limits<float>::lowest(), std::numeric_limits<float>::max(), 1)
{
}

CFloatEdit::~CFloatEdit() = default;

bool CFloatEdit::SetFormatString(const CStr& format)
{
    const auto unit = GetTextBehind(format);
    if (!unit) {
        GetDiagnostics().Write(u"NumericEdit", EDiagnosticLevel::Warning,
                               CStr::Format(u"\"%s\" is no format of one real number", format));
        return false;
    }
    m_format = format;
    m_unit = *unit;
    RefreshDisplay();
    return true;
}

bool CFloatEdit::WindowTextToValue(float& value) const
{
    if (!GetView())
        return false;
    const CStr text = GetView()->GetText();
    std::optional<double> typed;
    if (GetScanning() == EScanning::Whole)
        typed = ReadTypedReal(text, m_unit);
    else if (double scanned = 0; ScanReal(text, scanned) && !std::isnan(scanned))
        typed = scanned;
    if (typed)
        value = FromDouble<float>(*typed);
    return typed.has_value();
}

CStr CFloatEdit::ValueToText(const float& value) const
{
    return CStr::Format(m_format, static_cast<double>(value));
}

} // namespace CommonUI
