#pragma once

#include "settings/SetReference.h"

namespace Workbench
{

/// How reports are made; it is kept from one start to the next.
struct SReportChoice {
    /// A reference of settings/SetReference.h to the template.
    CommonUI::CStr set =
        CommonUI::MakeReference(CommonUI::EBuiltInSetting::bisActiveReportQuickLaunchRoughnessHTML);
    bool hasPictures = true;
    bool opens = true; ///< the document when it is saved
};

} // namespace Workbench
