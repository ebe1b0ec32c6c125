#pragma once

#include "programs/surface_report/Columns.h"

#include "analysis/surface/Value.h"
#include "model/Parameter.h"
#include "output/results/GridBaseOutputCtrl.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace SurfaceReport
{

/// What a report is made of.
struct SContent {
    std::string title; ///< UTF-8
    /// Labels and texts of the summary. Control characters in them become blanks.
    std::vector<std::pair<CommonUI::CStr, CommonUI::CStr>> summary{};
    /// One value each; or two, that of the raw surface and that of the processed one.
    std::vector<SColumn> surface{};
    CommonUI::CStr rowName{};       ///< what the rows of the columns are: profiles or grains
    std::vector<SColumn> columns{}; ///< a value for each row
    /// The statistics, of which those are shown that are on and computed.
    std::vector<CommonUI::CParameter> statistics{};
    /// Computes the statistics of a column; their keys are those of GetStatisticsEnum.
    std::function<std::vector<CommonUI::Analysis::SValue>(const SColumn&)> compute{};
};

/// The tables of a report and the forms in which people and programs read them.
class CReport
{
public:
    CReport(const SContent& content, bool transpose);

    /// Tab-separated text for a spreadsheet: UTF-8 with a byte order mark, by which spreadsheet programs know
    /// it.
    std::string GetText() const;
    /// A page of HTML, UTF-8.
    std::string GetHtml() const;
    /// Aligned columns for a terminal: the summary, the surface's parameters, and the statistics; the single
    /// rows are left to the files.
    std::string GetTerminalText() const;

private:
    std::string m_title;
    bool m_transpose;
    CommonUI::CGridBaseOutputCtrl m_summary;
    CommonUI::CGridBaseOutputCtrl m_surface;
    CommonUI::CGridBaseOutputCtrl m_rows;
    CommonUI::CGridBaseOutputCtrl m_statistics;
};

} // namespace SurfaceReport
