#pragma once

#include "../../export/Export.h"
#include "../../settings/readers/ReportTemplateSettings.h"
#include "../ApplySteps.h"
#include "../ReportTables.h"
#include "../Request.h"
#include "Document.h"

#include <functional>
#include <initializer_list>
#include <vector>

namespace CommonUI::Measurement
{

/// What a document is made of.
struct SDocumentSource {
    const SInput& input;   ///< the surface as it was analysed
    const SMethod& method; ///< of the analysis; with the limit of the grains in force, if there is one
    const CReportTables* roughness = nullptr; ///< null where no block asks for it
    const CReportTables* grains = nullptr;    ///< null without a limit
    bool hasPictures = true;                  ///< otherwise blocks that are pictures are left out
};

/// @param tables of the grains, where the method measures some, else of the roughness
/// @param roughness beside those of grains; null without
COMMONUIMEASUREMENT_API SDocumentSource MakeDocumentSource(const SInput& input, const SMethod& method,
                                                           const CReportTables& tables,
                                                           const CReportTables* roughness, bool hasPictures);

/// Whether a template has one of some blocks.
COMMONUIMEASUREMENT_API bool HasAny(const SReportTemplateSettings& layout,
                                    std::initializer_list<EReportBlock> blocks);
/// Whether a template has blocks of grains, of roughness results.
COMMONUIMEASUREMENT_API bool IsAboutGrains(const SReportTemplateSettings& layout);
/// Whether a template has blocks of roughness results.
COMMONUIMEASUREMENT_API bool IsAboutRoughness(const SReportTemplateSettings& layout);

/// What is asked for the blocks of grains: with the quantities of the template where no others are asked for.
COMMONUIMEASUREMENT_API SRequest RequestGrains(SRequest request, const SReportTemplateSettings& layout);
/// What is asked for those of roughness: without grains and their quantities.
COMMONUIMEASUREMENT_API SRequest RequestRoughness(SRequest request);

/// Why a block shows nothing of a surface, a clause such as "the measurement is a profile"; empty where it
/// does.
COMMONUIMEASUREMENT_API CStr ExplainEmptyBlock(EReportBlock block, const Analysis::SSurface& surface,
                                               const SMethod& method);
/// The same of all blocks of a template, a sentence for each reason; empty where all show something.
COMMONUIMEASUREMENT_API CStr ExplainEmptyBlocks(const SReportTemplateSettings& layout,
                                                const Analysis::SSurface& surface, const SMethod& method);
/// Whether a block of the template, other than those that every measurement has, shows something.
COMMONUIMEASUREMENT_API bool ShowsAnything(const SReportTemplateSettings& layout,
                                           const Analysis::SSurface& surface, const SMethod& method);

/// Whether a block is a picture of one measurement, without its grains.
COMMONUIMEASUREMENT_API bool IsPictureOfOne(EReportBlock block);
/// The pictures of a template's blocks, one for each block, of which those that are none, or show nothing of
/// this measurement, are empty.
COMMONUIMEASUREMENT_API std::vector<SPicture>
DrawBlocks(const SReportTemplateSettings& layout, const Analysis::SSurface& surface, const SMethod& method);

/// The most rows of a table in a document. A text program takes long for more; the others are in the text
/// file beside it.
inline constexpr std::size_t c_mostDocumentRows = 1000;

/// Makes the document of a template, block by block. A block that shows nothing of this source becomes a
/// sentence that says why.
COMMONUIMEASUREMENT_API void MakeReportDocument(const SReportTemplateSettings& layout,
                                                const SDocumentSource& source, CDocumentWriter& document);

/// A report in the format that its template asks for.
struct SDocumentFile {
    const char* extension = ".html";                ///< of the file's name, with the dot
    std::function<void(const FWriteText&)> write{}; ///< refers to what the file was made of
};

/// @param layout, source have to live as long as the file is written
/// @return a page of HTML for a template of a word processor's document where the library is built without
///     them; see HasOdt
COMMONUIMEASUREMENT_API SDocumentFile GetDocumentFile(const SReportTemplateSettings& layout,
                                                      const SDocumentSource& source);

} // namespace CommonUI::Measurement
