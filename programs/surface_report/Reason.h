#pragma once

#include "common/Diagnostics.h"

#include <stdexcept>
#include <string>

namespace SurfaceReport
{

/// Keeps what the library's diagnostics say while the object lives, to be told as the reason of a failure.
class CReason
{
public:
    CReason()
        : m_previous(CommonUI::GetDiagnostics().SetSink(
              [this](const CommonUI::SDiagnosticLine& line) { m_text = line.text; }))
    {
    }
    ~CReason() { CommonUI::GetDiagnostics().SetSink(m_previous); }
    CReason(const CReason&) = delete;
    CReason& operator=(const CReason&) = delete;

    /// @param context what comes in front of the reason
    [[noreturn]] void Fail(const std::string& context = {}) const
    {
        throw std::runtime_error(context + m_text.ToUtf8());
    }

private:
    CommonUI::CStr m_text; ///< the last line
    CommonUI::CDiagnostics::FSink m_previous;
};

} // namespace SurfaceReport
