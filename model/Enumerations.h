#pragma once

#include "../common/Enum.h"
#include "../platform/Export.h"

namespace CommonUI
{

/// The standard to which a roughness parameter belongs.
enum class EAnalysisStandards {
    None = 0,
    VORNLegacy = 1, ///< the parameters of earlier versions: the areal ones, and profile ones without filters
    ISO4287 = 2,
    ISO12085 = 3,
    ISO13565 = 4,
    MUFU = 5,
    RoughnessPlugIns = 6 ///< parameters that plug-ins compute
};

COMMONUI_API const CEnum<EAnalysisStandards>& GetAnalysisStandardsEnum();

} // namespace CommonUI
