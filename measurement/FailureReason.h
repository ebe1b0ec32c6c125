#pragma once

#include "../common/Diagnostics.h"

#include <functional>
#include <utility>

namespace CommonUI::Measurement
{

/// Keeps what the library's diagnostics say while the object lives, to be told as the reason of a failure.
class CFailureReason
{
public:
    CFailureReason()
        : m_previous(GetDiagnostics().SetSink([this](const SDiagnosticLine& line) { m_text = line.text; }))
    {
    }
    ~CFailureReason() { GetDiagnostics().SetSink(std::move(m_previous)); }
    CFailureReason(const CFailureReason&) = delete;
    CFailureReason& operator=(const CFailureReason&) = delete;

    /// The last line; empty where nothing was said.
    const CStr& GetText() const noexcept { return m_text; }

private:
    CStr m_text;
    std::function<void(const SDiagnosticLine&)> m_previous;
};

} // namespace CommonUI::Measurement
