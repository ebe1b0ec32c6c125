#pragma once

#include "../../analysis/form/PlaneCorrection.h"
#include "../../common/Enum.h"
#include "../../export/Export.h"

namespace CommonUI
{

class CInifile;

/// The scopes and methods of corrections, in the order of selection lists. For an unknown key the values are
/// Global and Polynomial.
COMMONUI_API const CEnum<Analysis::ECorrectionScope>& GetPlaneCorrectionScopeEnum();
/// See GetPlaneCorrectionScopeEnum.
COMMONUI_API const CEnum<Analysis::ECorrectionMethod>& GetPlaneCorrectionMethodEnum();

/// What a set of the type PlaneCorr holds. The stored form is described in docs/plane-correction-settings.md.
struct COMMONUI_API SPlaneCorrectionSettings {
    /// To what a form is fitted at a time.
    Analysis::ECorrectionScope scope = Analysis::ECorrectionScope::Global;
    Analysis::ECorrectionMethod method = Analysis::ECorrectionMethod::Polynomial; ///< what is taken off
    /// Of the polynomial: 1 to 9, or 1 to 2 of the step wizard's. The other methods have none and leave it 1.
    int order = 1;

    bool operator==(const SPlaneCorrectionSettings& other) const = default;

    /// Reads the set from a document. What is not said there has its default; only the method has to be said.
    /// @return false, with the reason in the diagnostics (category u"Settings") and this object unchanged,
    ///     when the document holds no set that could be used
    bool Load(CInifile& ini);
    /// Writes the set to a document, in place of one that is there. Does not check it.
    void Save(CInifile& ini) const;
};

} // namespace CommonUI
