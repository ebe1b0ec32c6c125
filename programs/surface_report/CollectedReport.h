#pragma once

#include "measurement/ApplySteps.h"
#include "measurement/Choices.h"
#include "programs/surface_report/FileTable.h"
#include "programs/surface_report/Options.h"
#include "programs/surface_report/OutputFiles.h"
#include "programs/surface_report/Plan.h"
#include "programs/surface_report/RunHead.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <vector>

namespace SurfaceReport
{

/// A report on all of many files that a template lays out, put together while they are worked on.
class CCollectedReport
{
public:
    /// @param layout has to live as long as this
    /// @param choices its surface parameters are the columns
    CCollectedReport(const CommonUI::SReportTemplateSettings& layout, std::filesystem::path path,
                     CommonUI::Measurement::SChoices choices, std::size_t fileCount);

    const CommonUI::Measurement::SChoices& GetChoices() const { return m_choices; }

    /// Takes a file over; different files from different threads at the same time.
    /// @param row with the values of the choices
    void Add(std::size_t index, SFileRow row, const CommonUI::Analysis::SSurface& surface, bool hasPictures);
    /// Whether a file has been taken over.
    bool HasAny() const;
    /// Adds the files of the report.
    /// @param rows what has come of the files in the end; those without a value are not finished
    void Write(const std::vector<std::optional<SFileRow>>& rows, const std::vector<SRunFact>& facts,
               const SOptions& options, COutputFiles& files) const;

private:
    const CommonUI::SReportTemplateSettings& m_layout;
    std::filesystem::path m_path; // without extension
    CommonUI::Measurement::SChoices m_choices;
    std::vector<std::optional<SFileRow>> m_rows;
    std::vector<CommonUI::Measurement::SPicturedMeasurement> m_measurements; // the first files
};

/// The reports on all files that a run has, by the number of the step of the batch sequence, or 0.
std::map<std::size_t, CCollectedReport>
MakeCollectedReports(const SOptions& options, const SPlan& plan,
                     const CommonUI::Measurement::SChoices& choices,
                     const CommonUI::CAnalysisPreferencesManager& manager, std::size_t fileCount);

} // namespace SurfaceReport
