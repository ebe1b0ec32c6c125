#include "windows/edits/detail/EditProvider.h"

#include "windows/detail/Automation.h"
#include "windows/edits/detail/WinEditField.h"

#include <charconv>
#include <optional>
#include <string_view>
#include <utility>

namespace CommonUI
{

namespace
{

using CSource = std::shared_ptr<CEditAutomation::SSource>;

constexpr auto c_notAllowed = static_cast<HRESULT>(0x80131509L); // an operation that is not valid now

// Screen readers have keys for large steps, the field has none.
constexpr double c_largeSteps = 10;

std::optional<SEditNumber> NumberOf(const CEditAutomation::SSource& source)
{
    const CExEdit* const edit = source.field ? source.field->GetControl() : nullptr;
    return edit ? edit->GetNumber() : std::nullopt;
}

// Without an exponent, which a field for integers would not read.
CStr ToFixedText(double value)
{
    char text[400]; // the longest has 309 digits in front of the point, the smallest 324 zeros behind it
    const std::to_chars_result end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed);
    return CStr::FromAscii({text, end.ptr});
}

// Calls come on the thread of the window.
class CNumberElement final : public CComObject<IRawElementProviderSimple, IRangeValueProvider>
{
public:
    explicit CNumberElement(CSource source)
        : m_source(std::move(source))
    {
    }

    HRESULT STDMETHODCALLTYPE get_ProviderOptions(ProviderOptions* result) override
    {
        *result =
            static_cast<ProviderOptions>(ProviderOptions_ServerSideProvider |
                                         ProviderOptions_OverrideProvider | ProviderOptions_UseComThreading);
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetPatternProvider(PATTERNID pattern, IUnknown** result) override
    {
        *result = nullptr;
        if (pattern == UIA_RangeValuePatternId && NumberOf(*m_source))
            return QueryInterface(__uuidof(IRangeValueProvider), reinterpret_cast<void**>(result));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetPropertyValue(PROPERTYID, VARIANT* result) override
    {
        *result = {}; // what the system says
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_HostRawElementProvider(IRawElementProviderSimple** result) override
    {
        return GetHostProvider(m_source->field ? m_source->field->GetHandle() : nullptr, result);
    }

    HRESULT STDMETHODCALLTYPE SetValue(double value) override
    {
        const std::optional<SEditNumber> number = NumberOf(*m_source);
        if (!number)
            return c_elementGone;
        if (IsReadOnly())
            return c_notAllowed;
        if (!(value >= number->minimum && value <= number->maximum))
            return E_INVALIDARG;
        m_source->field->EnterText(ToFixedText(value));
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE get_Value(double* result) override { return Give(&SEditNumber::value, result); }
    HRESULT STDMETHODCALLTYPE get_IsReadOnly(BOOL* result) override
    {
        *result = NumberOf(*m_source) && IsReadOnly();
        return NumberOf(*m_source) ? S_OK : c_elementGone;
    }
    HRESULT STDMETHODCALLTYPE get_Maximum(double* result) override
    {
        return Give(&SEditNumber::maximum, result);
    }
    HRESULT STDMETHODCALLTYPE get_Minimum(double* result) override
    {
        return Give(&SEditNumber::minimum, result);
    }
    HRESULT STDMETHODCALLTYPE get_LargeChange(double* result) override
    {
        const HRESULT answer = Give(&SEditNumber::step, result);
        *result *= c_largeSteps;
        return answer;
    }
    HRESULT STDMETHODCALLTYPE get_SmallChange(double* result) override
    {
        return Give(&SEditNumber::step, result);
    }

private:
    bool IsReadOnly() const
    {
        return m_source->field->GetControl()->IsReadOnly() || !IsWindowEnabled(m_source->field->GetHandle());
    }
    HRESULT Give(double SEditNumber::*part, double* result) const
    {
        const std::optional<SEditNumber> number = NumberOf(*m_source);
        *result = number ? *number.*part : 0;
        return number ? S_OK : c_elementGone;
    }

    CSource m_source;
};

} // namespace

CEditAutomation::CEditAutomation(CWinEditField& field)
    : m_source(std::make_shared<SSource>(SSource{&field}))
{
}

LRESULT CEditAutomation::Answer(WPARAM wide, LPARAM longer)
{
    if (static_cast<LONG>(longer) != c_rootObject || !NumberOf(*m_source))
        return 0;
    auto* const number = new CNumberElement(m_source);
    const LRESULT result = GiveProvider(m_source->field->GetHandle(), wide, longer, number);
    number->Release();
    m_isAsked = m_isAsked || result != 0;
    return result;
}

void CEditAutomation::End()
{
    CWinEditField* const field = std::exchange(m_source->field, nullptr);
    if (std::exchange(m_isAsked, false) && field && field->GetHandle())
        EndProviders(field->GetHandle());
}

} // namespace CommonUI
