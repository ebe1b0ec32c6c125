#include "measurement/detail/ProfileRows.h"

#include "analysis/areal/TemplateParameters.h"
#include "analysis/profile/UndefinedProfile.h"
#include "measurement/detail/Keys.h"
#include "model/RoughnessCatalogue.h"

#include <algorithm>

namespace CommonUI::Measurement
{

namespace
{

// Lines that are computed together where it is not all of them.
constexpr std::size_t c_blockLines = 4096;

// How many values there may be at once: some times as many as heights, and 4 MB of them whatever the surface.
std::size_t CountValuesAtOnce(const Analysis::SSurface& surface)
{
    constexpr std::size_t c_timesHeights = 2;
    constexpr std::size_t c_least = std::size_t{1} << 19;
    return std::max(c_timesHeights * surface.heights.size(), c_least);
}

Analysis::SSurface CutLines(const Analysis::SSurface& surface, std::size_t first, std::size_t last)
{
    const auto heights =
        std::span(surface.heights).subspan(first * surface.points, (last - first) * surface.points);
    return {.points = surface.points,
            .lines = last - first,
            .dx = surface.dx,
            .dy = surface.dy,
            .heights = {heights.begin(), heights.end()}};
}

} // namespace

CProfileRows::CProfileRows(const Analysis::SSurface& surface, std::vector<CParameter> parameters,
                           const Analysis::SProfileMethod& method)
    : m_surface(surface)
    , m_parameters(std::move(parameters))
    , m_isLeftOut(m_parameters.size())
    , m_method(method)
{
    std::transform(m_parameters.begin(), m_parameters.end(), m_isLeftOut.begin(), IsSuppliedByPlugIn);
}

std::size_t CProfileRows::CountColumnsAtOnce() const
{
    return std::max<std::size_t>(CountValuesAtOnce(m_surface) / std::max<std::size_t>(m_surface.lines, 1), 1);
}

CPartValues CProfileRows::ComputeLines(const Analysis::SSurface& lines, const SPart& part) const
{
    std::vector<CParameter> wanted;
    for (std::size_t i = part.firstColumn; i < part.lastColumn; ++i)
        if (!m_isLeftOut[i])
            wanted.push_back(m_parameters[i]);
    auto table = Analysis::ComputeProfiles(lines, CKeys(wanted).Get(), m_method);
    CPartValues values;
    for (std::size_t i = part.firstColumn; i < part.lastColumn; ++i) {
        const CParameter& parameter = m_parameters[i];
        const std::string key = AnalysisKey(parameter);
        if (m_isLeftOut[i])
            values.emplace_back(lines.lines, Analysis::c_undefined);
        else if (parameter.HasParent())
            values.push_back(
                Analysis::ComputeLineTemplates(lines, key, VariableValues(parameter), m_method.cutoff));
        else
            values.push_back(TakeValues(table, key));
    }
    return values;
}

CPartValues CProfileRows::Compute(const SPart& part) const
{
    // The analysis makes a table of all that it knows of some lines before it leaves out what is not wanted.
    const bool isWhole = part.firstRow == 0 && part.lastRow == m_surface.lines;
    if (isWhole && Analysis::GetProfileQuantities().size() <= CountColumnsAtOnce())
        return ComputeLines(m_surface, part);
    CPartValues values(part.lastColumn - part.firstColumn);
    for (std::vector<double>& column : values)
        column.reserve(part.lastRow - part.firstRow);
    for (std::size_t first = part.firstRow; first < part.lastRow; first += c_blockLines) {
        const std::size_t last = std::min(part.lastRow, first + c_blockLines);
        const CPartValues block = ComputeLines(CutLines(m_surface, first, last), part);
        for (std::size_t i = 0; i < values.size(); ++i)
            values[i].insert(values[i].end(), block[i].begin(), block[i].end());
    }
    return values;
}

std::string_view CProfileRows::Explain(std::size_t column, std::size_t line) const
{
    const CParameter& parameter = m_parameters[column];
    const std::string key = AnalysisKey(parameter);
    if (parameter.HasParent()) {
        const std::string_view reason = Analysis::ExplainTemplate(key, VariableValues(parameter));
        if (!reason.empty())
            return reason;
    }
    return Analysis::ExplainProfile(key, m_surface.GetLine(line), m_surface.dx, m_method);
}

} // namespace CommonUI::Measurement
