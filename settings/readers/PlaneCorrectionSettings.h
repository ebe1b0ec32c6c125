#pragma once

#include "../../common/Enum.h"
#include "../../export/Export.h"

namespace CommonUI
{

class CInifile;

/// What a plane correction looks at as one piece.
enum class EPlaneCorrectionScope : int {
    Global = 0,   ///< the whole image
    Linewise = 1, ///< each line of an image by itself
    Profile = 2,  ///< a profile
};

/// How a plane correction finds what it subtracts.
enum class EPlaneCorrectionMethod : int {
    /// The least-squares polynomial of an order. For the whole image it has the terms x^i y^j with i + j up
    /// to
    /// the order, so that order 1 is a plane and order 2 a bow in any direction.
    Polynomial = 0,
    /// As Polynomial, for stepped heights: the terraces share one polynomial but for its constant, which each
    /// terrace has for itself, so that steps keep their heights.
    StepWizard = 1,
    /// The height of the background: the lowest level on which a good part of the points lies.
    ZeroBackground = 2,
    /// The mean height.
    Offset = 3,
};

/// The enumerations, in the order of selection lists.
COMMONUI_API const CEnum<EPlaneCorrectionScope>& GetPlaneCorrectionScopeEnum();
COMMONUI_API const CEnum<EPlaneCorrectionMethod>& GetPlaneCorrectionMethodEnum();

/// What a set of the type PlaneCorr holds. The stored form is described in docs/plane-correction-settings.md.
struct COMMONUI_API SPlaneCorrectionSettings {
    EPlaneCorrectionScope scope = EPlaneCorrectionScope::Global;
    EPlaneCorrectionMethod method = EPlaneCorrectionMethod::Polynomial;
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
