#pragma once

#include "measurement/Choices.h"
#include "output/results/GridBaseOutputCtrl.h"

#include <string>
#include <vector>

namespace SurfaceReport
{

/// What has come of one of many files.
struct SFileRow {
    CommonUI::CStr name{}; ///< its path
    std::vector<double>
        values{}; ///< of the parameters at unit factor 1, NaN where not defined; empty if it failed
    CommonUI::CStr remark{}; ///< why it failed
};

/// The table of many files: a row for each, with the parameters of the surfaces as columns, and statistics.
class CFileTable
{
public:
    /// @param choices its surface parameters are the columns
    CFileTable(const std::vector<SFileRow>& rows, const CommonUI::Measurement::SChoices& choices);

    /// Tab-separated, UTF-8 with a byte order mark.
    std::string GetText() const;
    /// A page of HTML, UTF-8.
    std::string GetHtml() const;
    /// The statistics of each parameter as aligned columns for a terminal, UTF-8.
    std::string GetTerminalText() const;

private:
    CommonUI::CGridBaseOutputCtrl m_summary;
    CommonUI::CGridBaseOutputCtrl m_rows;
    CommonUI::CGridBaseOutputCtrl m_statistics;
};

} // namespace SurfaceReport
