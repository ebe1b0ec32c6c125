#pragma once

#include "measurement/Batch.h"
#include "measurement/ReportTables.h"
#include "programs/surface_report/Options.h"
#include "programs/surface_report/OutputFiles.h"

#include <filesystem>
#include <optional>

namespace SurfaceReport
{

/// Adds a report that a template lays out.
/// @param tables of the grains, where the method measures some, else of the roughness
/// @param roughness beside those of grains, where the template asks for both
void AddDocument(const std::filesystem::path& path, const CommonUI::SReportTemplateSettings& layout,
                 const CommonUI::Measurement::SInput& input, const CommonUI::Measurement::SMethod& method,
                 const CommonUI::Measurement::CReportTables& tables,
                 std::optional<CommonUI::Measurement::SResults> roughness, const SOptions& options,
                 COutputFiles& files);

/// Adds the report that a step of a batch sequence makes.
void AddStepReport(const std::filesystem::path& path, CommonUI::Measurement::SBatchReport made,
                   const SOptions& options, COutputFiles& files);

} // namespace SurfaceReport
