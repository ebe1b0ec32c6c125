#pragma once

#include "common/Diagnostics.h"

#include <deque>
#include <mutex>
#include <vector>

namespace Workbench
{

/// Keeps the last messages of the library's diagnostics, and passes them on as before. Any thread may write
/// them.
class CMessageJournal
{
public:
    static constexpr std::size_t c_mostMessages = 1000;

    CMessageJournal();
    ~CMessageJournal();
    CMessageJournal(const CMessageJournal&) = delete;
    CMessageJournal& operator=(const CMessageJournal&) = delete;

    /// From the oldest to the newest, each with time, level and category.
    std::vector<CommonUI::CStr> GetMessages() const;

private:
    void Keep(const CommonUI::SDiagnosticLine& line);

    mutable std::mutex m_mutex;
    std::deque<CommonUI::CStr> m_messages;
    CommonUI::CDiagnostics::FSink m_before;
};

/// The lines that a report of the library writes into the diagnostics.
template<class FReport>
std::vector<CommonUI::CStr> TakeReport(const FReport& report)
{
    std::vector<CommonUI::CStr> lines;
    CommonUI::CDiagnostics& diagnostics = CommonUI::GetDiagnostics();
    auto before = diagnostics.SetSink(
        [&lines](const CommonUI::SDiagnosticLine& line) { lines.emplace_back(line.text); });
    report();
    diagnostics.SetSink(std::move(before));
    return lines;
}

} // namespace Workbench
