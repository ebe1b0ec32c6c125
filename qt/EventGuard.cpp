#include "qt/detail/EventGuard.h"

#include "common/Diagnostics.h"
#include "common/Str.h"

#include <utility>

namespace CommonUI
{

namespace
{

CEventGuard* s_innermost = nullptr;

CStr Describe(const std::exception_ptr& exception)
{
    try {
        std::rethrow_exception(exception);
    } catch (const std::exception& known) {
        return CStr::FromUtf8(known.what());
    } catch (...) {
        return u"of a type that does not tell";
    }
}

} // namespace

CEventGuard::CEventGuard()
    : m_outer(std::exchange(s_innermost, this))
{
}

CEventGuard::~CEventGuard()
{
    s_innermost = m_outer;
}

void CEventGuard::Report(std::exception_ptr exception)
{
    if (s_innermost)
        return s_innermost->OnHandled(std::move(exception));
    if (!exception)
        return;
    CStr text = u"an exception left a callback: ";
    text += Describe(exception);
    GetDiagnostics().Write(u"Qt", EDiagnosticLevel::Error, text);
}

} // namespace CommonUI
