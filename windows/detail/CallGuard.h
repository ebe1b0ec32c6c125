#pragma once

#include <exception>

namespace CommonUI
{

/// Who takes the exceptions of callbacks that a window procedure has called, as exceptions must not pass
/// through the system: a loop that throws them on behind it. The innermost one that lives gets them, and
/// keeps the first. User-interface thread only.
class CCallGuard
{
public:
    CCallGuard();
    ~CCallGuard();
    CCallGuard(const CCallGuard&) = delete;
    CCallGuard& operator=(const CCallGuard&) = delete;

    bool HasFailed() const noexcept { return m_exception != nullptr; }
    /// Throws the exception that it has, if it has one.
    void Rethrow() const;

    /// Gives it to the innermost guard. Without one it becomes an error in the diagnostics.
    static void Report(std::exception_ptr exception);

private:
    CCallGuard* m_outer;
    std::exception_ptr m_exception;
};

/// Calls a callback from a window procedure.
template<class FCallback>
void GuardedCall(FCallback callback)
{
    try {
        callback();
    } catch (...) {
        CCallGuard::Report(std::current_exception());
    }
}

} // namespace CommonUI
