#include "view/Mesh.h"

#include "analysis/surface/Decimate.h"
#include "view/Axis.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <stdexcept>
#include <utility>

namespace SurfaceView
{

using CommonUI::Analysis::SSurface;

namespace
{

std::optional<CommonUI::CRange<double>> RangeOf(const SSurface& surface)
{
    std::optional<CommonUI::CRange<double>> range;
    for (const double height : surface.heights) {
        if (!std::isnan(height))
            range = range ? range->Including(height) : CommonUI::CRange(height, height);
    }
    return range;
}

// A range around a flat surface, whose own has no length that a mark's text could tell.
CommonUI::CRange<double> Widened(CommonUI::CRange<double> range, double length)
{
    const double middle = (range.GetLower() + range.GetUpper()) / 2;
    const double least = std::max(1e-15, 1e-6 * std::abs(middle));
    return range.GetLength() >= least ? range : CommonUI::CRange(middle - length / 2, middle + length / 2);
}

// Where the points of a mesh lie along a side of the block.
struct SSide {
    double first = -1; // in coordinates of the block
    double step = 0;
    bool hasStart = true; // whether it begins where the block does
    bool hasEnd = true;

    // @param half of the block's length
    static SSide Of(double half, std::size_t points)
    {
        return {.first = -half, .step = 2 * half / static_cast<double>(points - 1)};
    }
    // @param shown points of the mesh, over so many of the block's
    SSide GetPart(std::size_t begin, std::size_t count, std::size_t all, std::size_t shown) const
    {
        return {.first = first + static_cast<double>(begin) * step,
                .step = step * static_cast<double>(count - 1) / static_cast<double>(shown - 1),
                .hasStart = begin == 0,
                .hasEnd = begin + count == all};
    }
    double Get(std::size_t point) const { return first + static_cast<double>(point) * step; }
};

SSurface Cut(const SSurface& surface, const SGridPart& part)
{
    SSurface cut{.points = part.points, .lines = part.lines, .dx = surface.dx, .dy = surface.dy};
    cut.heights.reserve(part.points * part.lines);
    for (std::size_t line = part.line; line < part.line + part.lines; ++line) {
        const auto taken = surface.GetLine(line).subspan(part.column, part.points);
        cut.heights.insert(cut.heights.end(), taken.begin(), taken.end());
    }
    return cut;
}

// Makes the mesh of one surface.
class CMeshMaker
{
public:
    CMeshMaker(const SSurface& surface, const SBox& box, const SSide& x, const SSide& y)
        : m_surface(surface)
        , m_box(box)
        , m_x(x)
        , m_y(y)
    {
        m_mesh.z = box.z;
    }

    SMesh Make()
    {
        m_mesh.vertices.reserve(m_surface.heights.size());
        for (std::size_t line = 0; line < m_surface.lines; ++line) {
            for (std::size_t column = 0; column < m_surface.points; ++column)
                m_mesh.vertices.push_back(MakeVertex(column, line));
        }
        for (std::size_t line = 0; line + 1 < m_surface.lines; ++line) {
            for (std::size_t column = 0; column + 1 < m_surface.points; ++column)
                AddSquare(column, line);
        }
        AddRim();
        return std::move(m_mesh);
    }

private:
    double HeightAt(std::size_t column, std::size_t line) const
    {
        return m_surface.heights[line * m_surface.points + column];
    }
    std::uint32_t IndexOf(std::size_t column, std::size_t line) const
    {
        return static_cast<std::uint32_t>(line * m_surface.points + column);
    }
    bool IsPresent(std::uint32_t index) const { return !std::isnan(m_surface.heights[index]); }

    // The slope in the block between the neighbours that are there.
    double Slope(double before, double here, double after, double step) const
    {
        const double scale = 2 * m_box.z / m_box.heights.GetLength() / step;
        if (std::isnan(before))
            return std::isnan(after) ? 0 : (after - here) * scale;
        return std::isnan(after) ? (here - before) * scale : (after - before) / 2 * scale;
    }

    SVertex MakeVertex(std::size_t column, std::size_t line) const
    {
        const double missing = CommonUI::Analysis::c_missing;
        const double height = HeightAt(column, line);
        if (std::isnan(height))
            return {};
        const double slopeX =
            Slope(column > 0 ? HeightAt(column - 1, line) : missing, height,
                  column + 1 < m_surface.points ? HeightAt(column + 1, line) : missing, m_x.step);
        const double slopeY =
            Slope(line > 0 ? HeightAt(column, line - 1) : missing, height,
                  line + 1 < m_surface.lines ? HeightAt(column, line + 1) : missing, m_y.step);
        const double length = std::hypot(slopeX, slopeY, 1.0);
        const auto real = [](double value) { return static_cast<float>(value); };
        return {.position = {real(m_x.Get(column)), real(m_y.Get(line)), real(m_box.PlaceHeight(height))},
                .normal = {real(-slopeX / length), real(-slopeY / length), real(1 / length)},
                .share = real(std::clamp(m_box.ShareOf(height), 0.0, 1.0))};
    }

    // Two triangles; one where a corner is missing; none where more are.
    void AddSquare(std::size_t column, std::size_t line)
    {
        const std::array<std::uint32_t, 4> corners{IndexOf(column, line), IndexOf(column + 1, line),
                                                   IndexOf(column + 1, line + 1), IndexOf(column, line + 1)};
        std::array<std::uint32_t, 4> present{};
        const auto end = std::ranges::copy_if(corners, present.begin(), [this](std::uint32_t index) {
                             return IsPresent(index);
                         }).out;
        for (auto last = present.begin() + 2; last < end; ++last)
            m_mesh.triangles.push_back({present[0], *(last - 1), *last});
    }

    void AddRim()
    {
        for (const auto& [line, isThere] :
             {std::pair(std::size_t{0}, m_y.hasStart), {m_surface.lines - 1, m_y.hasEnd}}) {
            for (std::size_t column = 0; isThere && column + 1 < m_surface.points; ++column)
                AddRimPiece(IndexOf(column, line), IndexOf(column + 1, line));
        }
        for (const auto& [column, isThere] :
             {std::pair(std::size_t{0}, m_x.hasStart), {m_surface.points - 1, m_x.hasEnd}}) {
            for (std::size_t line = 0; isThere && line + 1 < m_surface.lines; ++line)
                AddRimPiece(IndexOf(column, line), IndexOf(column, line + 1));
        }
    }

    void AddRimPiece(std::uint32_t from, std::uint32_t to)
    {
        if (IsPresent(from) && IsPresent(to))
            m_mesh.rim.push_back({from, to});
    }

    const SSurface& m_surface;
    const SBox& m_box;
    SSide m_x;
    SSide m_y;
    SMesh m_mesh;
};

} // namespace

double SBox::PlaceHeight(double height) const
{
    return (2 * ShareOf(height) - 1) * z;
}

SBox MakeBox(const SSurface& surface, double zScale)
{
    if (surface.points < 2 || surface.lines < 2)
        throw std::runtime_error("a picture needs at least two lines of two points");
    const auto heights = RangeOf(surface);
    if (!heights)
        throw std::runtime_error("all points are missing");
    SBox box{.width = static_cast<double>(surface.points - 1) * surface.dx,
             .depth = static_cast<double>(surface.lines - 1) * surface.dy};
    const double longest = std::max(box.width, box.depth);
    box.heights = Widened(*heights, longest / 4);
    box.exaggeration = zScale > 0 ? zScale : RoundedFactor(longest / 4 / box.heights.GetLength());
    box.x = box.width / longest;
    box.y = box.depth / longest;
    box.z = box.heights.GetLength() * box.exaggeration / longest;
    return box;
}

SMesh MakeMesh(const SSurface& surface, const SBox& box)
{
    return CMeshMaker(surface, box, SSide::Of(box.x, surface.points), SSide::Of(box.y, surface.lines)).Make();
}

SMesh MakeMesh(const SSurface& surface, const SBox& box, const SGridPart& part, std::size_t most)
{
    const SSurface shown = CommonUI::Analysis::Decimate(Cut(surface, part), most);
    const SSide x =
        SSide::Of(box.x, surface.points).GetPart(part.column, part.points, surface.points, shown.points);
    const SSide y =
        SSide::Of(box.y, surface.lines).GetPart(part.line, part.lines, surface.lines, shown.lines);
    return CMeshMaker(shown, box, x, y).Make();
}

} // namespace SurfaceView
