#pragma once

#include "../common/ini/Inifile.h"
#include "../export/Export.h"
#include "Analysis.h"
#include "Parameter.h"

#include <string_view>
#include <vector>

namespace CommonUI
{

/// Writes the choices of a list of parameters to the current section of `ini`, and its dynamic parameters to
/// a section of their own, which is that section's name followed by "_DynamicParameters". The stored keys are
/// described in docs/parameter-list.md. The section that was current is current again afterwards. Without
/// memory, std::bad_alloc is thrown, and file and list are what they were.
/// @param parameters templates among them are switched off, in the caller's list as well
/// @param analysis whose catalogue names the parents of dynamic parameters
COMMONUI_API void SaveParameterList(std::vector<CParameter>& parameters, CInifile& ini, EAnalysis analysis);

/// Reads what SaveParameterList wrote. Static parameters are those that `parameters` already has; what the
/// file does not say about them stays. All dynamic parameters are replaced by those of the file, under new
/// numbers behind the catalogue's: upward from the largest in use, or the least that are free where no number
/// is larger. One whose parent is unknown or has another count of variables is left out, with a line in the
/// diagnostics (category u"Parameters"). A count of entries that cannot be read stands for those that are
/// there, with a line, too. Values that cannot be read keep their default.
COMMONUI_API void LoadParameterList(std::vector<CParameter>& parameters, CInifile& ini, EAnalysis analysis);

/// Whether a section is one of dynamic parameters, whose keys are numbered and change together: for
/// CInifile::SaveMerged.
COMMONUI_API bool IsDynamicParametersSection(std::u16string_view section);

} // namespace CommonUI
