#pragma once

#include "../../export/Export.h"
#include "../surface/Surface.h"

#include <cstddef>

namespace CommonUI::Analysis
{

/// What a plane correction fits its form to.
enum class ECorrectionScope {
    Global,   ///< the whole surface
    Linewise, ///< each line for itself
    Profile   ///< a profile; each line of a surface counts as one
};

/// How a form is found and taken away.
enum class ECorrectionMethod {
    Offset,        ///< moves the mean height to 0
    Polynomial,    ///< removes the least-squares polynomial of the order, and with it the mean height
    StepWizard,    ///< removes the polynomial that the terraces of a stepped surface share, see
                   ///< RemoveTerraceForm
    ZeroBackground ///< moves the background to 0, see FindBackground
};

/// A correction of the position or the form of a surface.
///
/// A global polynomial of order n has all terms x^i y^j with i + j <= n: a plane for 1 (levelling), the full
/// quadratic surface for 2 (bow removal). A linewise one has the terms x^i with i <= n.
struct SPlaneCorrection {
    ECorrectionScope scope = ECorrectionScope::Global;        ///< to what a form is fitted
    ECorrectionMethod method = ECorrectionMethod::Polynomial; ///< which form
    /// 1 to 9 for a polynomial, 1 or 2 for the step wizard; what is beyond counts as the nearest of these.
    /// Other methods do not look at it.
    std::size_t order = 1;
};

/// Corrects a surface in place. Missing points take no part and stay missing; a surface or line without a
/// valid point stays as it is. Where the points do not determine all terms, as in a line of two points, those
/// of high degree are left out.
COMMONUIANALYSIS_API void Correct(SSurface& surface, const SPlaneCorrection& correction);

} // namespace CommonUI::Analysis
