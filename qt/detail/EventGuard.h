#pragma once

#include <exception>
#include <type_traits>

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

/// Calls a callback for an event of Qt. @return what it returned; a value like 0 or false if it threw
template<class FCallback>
auto Guarded(FCallback callback) -> decltype(callback())
{
    std::exception_ptr exception;
    if constexpr (std::is_void_v<decltype(callback())>) {
        try {
            callback();
        } catch (...) {
            exception = std::current_exception();
        }
        CEventGuard::Report(exception);
    } else {
        decltype(callback()) result{};
        try {
            result = callback();
        } catch (...) {
            exception = std::current_exception();
        }
        CEventGuard::Report(exception);
        return result;
    }
}

} // namespace CommonUI
