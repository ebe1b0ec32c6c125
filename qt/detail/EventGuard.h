#pragma once

#include <exception>

namespace CommonUI
{

/// Who takes the exceptions of callbacks that Qt has called, as exceptions must not pass through Qt: a loop
/// that hands them to its caller when it has ended. The innermost one that lives gets them. User-interface
/// thread only.
class CEventGuard
{
public:
    CEventGuard();
    virtual ~CEventGuard();
    CEventGuard(const CEventGuard&) = delete;
    CEventGuard& operator=(const CEventGuard&) = delete;

    /// A callback has returned or thrown.
    virtual void OnHandled(std::exception_ptr exception) = 0;

    /// Passes it to the innermost guard. Without one an exception becomes an error in the diagnostics.
    static void Report(std::exception_ptr exception);

private:
    CEventGuard* m_outer;
};

/// Calls a callback for an event of Qt.
template<class FCallback>
void Guarded(FCallback callback)
{
    std::exception_ptr exception;
    try {
        callback();
    } catch (...) {
        exception = std::current_exception();
    }
    CEventGuard::Report(exception);
}

} // namespace CommonUI
