#pragma once

#include "programs/surface_report/FileTable.h"
#include "programs/surface_report/OutputFiles.h"

#include <filesystem>
#include <ostream>

namespace SurfaceReport
{

/// Adds the files that the table of many files is written to.
/// @param path without extension
/// @param document in place of the HTML; without it that of the table is written
void AddTable(const std::filesystem::path& path, const CFileTable& table, const SReportForms& forms,
              COutputFiles& files, const CommonUI::Measurement::SDocumentFile& document = {});

/// Says how many files of a table failed, as a whole or in some values. @return whether some have
bool TellOfFailures(const std::vector<SFileRow>& rows, std::size_t fileCount, std::ostream& err);

} // namespace SurfaceReport
