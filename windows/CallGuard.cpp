#include "windows/detail/CallGuard.h"

#include "common/Diagnostics.h"
#include "common/Str.h"

#include <utility>

namespace CommonUI
{

namespace
{

CCallGuard* s_innermost = nullptr;

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

CCallGuard::CCallGuard()
    : m_outer(std::exchange(s_innermost, this))
{
}

CCallGuard::~CCallGuard()
{
    s_innermost = m_outer;
}

void CCallGuard::Rethrow() const
{
    if (m_exception)
        std::rethrow_exception(m_exception);
}

void CCallGuard::Report(std::exception_ptr exception)
{
    if (!s_innermost)
        GetDiagnostics().Write(u"Windows", EDiagnosticLevel::Error,
                               u"an exception left a callback: " + Describe(exception));
    else if (!s_innermost->HasFailed())
        s_innermost->m_exception = std::move(exception);
}

} // namespace CommonUI
