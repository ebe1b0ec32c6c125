#pragma once

#include "../common/Diagnostics.h"

#include <functional>
#include <thread>

namespace CommonUI::Measurement
{

/// Keeps what the library's diagnostics say in the thread that made it, while the object lives, to be told as
/// the reason of a failure. Lines of other threads go where they went before.
class CFailureReason
{
public:
    CFailureReason()
        : m_previous(GetDiagnostics().SetSink({}))
    {
        // Not at once: another thread may write before the one that was there is known.
        GetDiagnostics().SetSink([this](const SDiagnosticLine& line) { Take(line); });
    }
    ~CFailureReason() { GetDiagnostics().SetSink(m_previous); }
    CFailureReason(const CFailureReason&) = delete;
    CFailureReason& operator=(const CFailureReason&) = delete;

    /// The last line; empty where nothing was said.
    const CStr& GetText() const noexcept { return m_text; }

private:
    void Take(const SDiagnosticLine& line)
    {
        if (std::this_thread::get_id() == m_thread)
            m_text = line.text;
        else if (m_previous)
            m_previous(line);
    }

    CStr m_text{};
    std::thread::id m_thread = std::this_thread::get_id();
    std::function<void(const SDiagnosticLine&)> m_previous;
};

} // namespace CommonUI::Measurement
