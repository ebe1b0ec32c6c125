#pragma once

#include "../../export/Export.h"
#include "../../output/results/GridBaseOutputCtrl.h"
#include "ReportDocument.h"

#include <cstddef>
#include <utility>
#include <vector>

namespace CommonUI::Measurement
{

/// Of how many measurements a document has pictures at the most: of more it would be too large to open.
inline constexpr std::size_t c_mostPictured = 100;

/// One of the measurements that a document is about.
struct SPicturedMeasurement {
    CStr name{};                      ///< as the document has it
    std::vector<SPicture> pictures{}; ///< as DrawBlocks makes them for the template; empty without any
};

/// What a document about several measurements is made of, one row of the table for each of them.
struct SCollectionSource {
    const std::vector<SPicturedMeasurement>& measurements; ///< not more than c_mostPictured
    const CGridBaseOutputCtrl& summary;                    ///< what stands above all measurements
    CGridBaseOutputCtrl rows;                              ///< below a row of units
    const CGridBaseOutputCtrl& statistics;                 ///< of the rows, one for each statistic
    const std::vector<SColumn>& columns;                   ///< of the rows
    std::vector<CStr> notes{};                             ///< lines below the rows
    bool hasPictures = true; ///< otherwise blocks that are pictures are left out
};

/// Whether one document of a template is about several measurements.
COMMONUIMEASUREMENT_API bool IsAboutSeveral(const SReportTemplateSettings& layout);

/// Makes the document, block by block: pictures of each measurement; parameters, statistics and chart over
/// the measurements. A block that a document about several measurements cannot show becomes a sentence that
/// says why.
COMMONUIMEASUREMENT_API void MakeCollectionDocument(const SReportTemplateSettings& layout,
                                                    const SCollectionSource& source,
                                                    CDocumentWriter& document);

/// @param layout, source have to live as long as the file is written
/// @return as the other GetDocumentFile
COMMONUIMEASUREMENT_API SDocumentFile GetDocumentFile(const SReportTemplateSettings& layout,
                                                      const SCollectionSource& source);

} // namespace CommonUI::Measurement
