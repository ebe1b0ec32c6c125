#pragma once

#include "examples/surface_report/Columns.h"

#include "examples/analysis/Surface.h"
#include "output/GridBaseOutputCtrl.h"

#include <string>

namespace SurfaceReport
{

/// The tables of a report and the forms in which people and programs read them.
class CReport
{
public:
    CReport(const SurfaceAnalysis::SSurface& surface, const SColumns& columns, const SOptions& options);

    /// Tab-separated text for a spreadsheet: UTF-8 with a byte order mark, by which spreadsheet programs know
    /// it.
    std::string GetText() const;
    /// A page of HTML, UTF-8.
    std::string GetHtml() const;
    /// Aligned columns for a terminal: the summary, the surface's parameters, and the statistics of the
    /// profiles; the single profiles are left to the files.
    std::string GetTerminalText() const;

private:
    std::string m_title;
    bool m_transpose;
    CommonUI::CGridBaseOutputCtrl m_summary;
    CommonUI::CGridBaseOutputCtrl m_surface;
    CommonUI::CGridBaseOutputCtrl m_profiles;
    CommonUI::CGridBaseOutputCtrl m_statistics;
};

} // namespace SurfaceReport
