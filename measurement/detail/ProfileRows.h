#pragma once

#include "analysis/profile/ProfileParameters.h"
#include "analysis/surface/Surface.h"
#include "measurement/RowValues.h"
#include "model/Parameter.h"

#include <string_view>
#include <vector>

namespace CommonUI::Measurement
{

/// Computes parameters of a surface's profiles, any of any lines: of many short lines the values of all
/// parameters would take many times the room of the heights.
class CProfileRows
{
public:
    /// @param surface not owned; it must outlive the object
    /// @param parameters those that plug-ins supply are left out
    CProfileRows(const Analysis::SSurface& surface, std::vector<CParameter> parameters,
                 const Analysis::SProfileMethod& method);

    const std::vector<CParameter>& GetParameters() const { return m_parameters; }
    /// How many parameters of all lines take no more than a few times the room of the heights: 1 at least.
    std::size_t CountColumnsAtOnce() const;
    /// NaN for the parameters that are left out.
    CPartValues Compute(const SPart& part) const;
    /// Has the values of a parameter not computed any more.
    void LeaveOut(std::size_t column) { m_isLeftOut[column] = true; }
    /// Why the value of a parameter, which is NaN, is not defined for a line.
    std::string_view Explain(std::size_t column, std::size_t line) const;

private:
    CPartValues ComputeLines(const Analysis::SSurface& lines, const SPart& part) const;

    const Analysis::SSurface& m_surface;
    std::vector<CParameter> m_parameters;
    std::vector<bool> m_isLeftOut;
    Analysis::SProfileMethod m_method;
};

} // namespace CommonUI::Measurement
