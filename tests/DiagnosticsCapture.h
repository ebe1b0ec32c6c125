#pragma once

#include "common/Diagnostics.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

/// Keeps the lines of the diagnostics while it lives, so that they are not in the test's output.
class CDiagnosticsCapture
{
public:
    /// Drops the lines of one category, if it is given.
    explicit CDiagnosticsCapture(const char16_t* ignored = nullptr)
        : m_before(CommonUI::GetDiagnostics().SetSink([this, ignored](const CommonUI::SDiagnosticLine& line) {
            if (!ignored || line.category != ignored)
                m_lines.push_back(CommonUI::CStr::Format(u"%s: %s", line.category, line.text));
        }))
    {
    }
    ~CDiagnosticsCapture() { CommonUI::GetDiagnostics().SetSink(std::move(m_before)); }
    CDiagnosticsCapture(const CDiagnosticsCapture&) = delete;
    CDiagnosticsCapture& operator=(const CDiagnosticsCapture&) = delete;

    int GetCount() const { return static_cast<int>(m_lines.size()); }
    /// The lines since the last call, as "category: text".
    std::vector<CommonUI::CStr> Take() { return std::exchange(m_lines, {}); }

private:
    std::vector<CommonUI::CStr> m_lines;
    CommonUI::CDiagnostics::FSink m_before;
};
