#pragma once

#include "formats/detail/InputFile.h"
#include "formats/detail/TextScanner.h"

#include <optional>

/// @file
/// The readers of the formats. Those of text get a scanner at the beginning of the first line.

namespace CommonUI::Formats
{

Analysis::SSurface ReadSdf(CTextScanner& scanner);
Analysis::SSurface ReadMatrix(CTextScanner& scanner);
Analysis::SSurface ReadBinarySdf(CInputFile& file, const FProgress& progress);

/// Whether a line, a leading "#" aside, names columns with units of length behind: "x [mm] z [um]".
bool IsProfileHead(std::string_view line);
/// @param spacing of a file that has none of its own, m; none for one that has
Analysis::SSurface ReadProfile(CTextScanner& scanner, std::optional<double> spacing);

Analysis::SSurface ReadX3p(CInputFile& file, const FProgress& progress);

} // namespace CommonUI::Formats
