#include "view/Mesh.h"

#include "view/Axis.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <stdexcept>

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

// Makes the mesh of one surface.
class CMeshMaker
{
public:
    CMeshMaker(const SSurface& surface, const SBox& box)
        : m_surface(surface)
        , m_box(box)
        , m_stepX(2 * box.x / static_cast<double>(surface.points - 1))
        , m_stepY(2 * box.y / static_cast<double>(surface.lines - 1))
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
                  column + 1 < m_surface.points ? HeightAt(column + 1, line) : missing, m_stepX);
        const double slopeY =
            Slope(line > 0 ? HeightAt(column, line - 1) : missing, height,
                  line + 1 < m_surface.lines ? HeightAt(column, line + 1) : missing, m_stepY);
        const double length = std::hypot(slopeX, slopeY, 1.0);
        const auto real = [](double value) { return static_cast<float>(value); };
        return {.position = {real(static_cast<double>(column) * m_stepX - m_box.x),
                             real(static_cast<double>(line) * m_stepY - m_box.y),
                             real(m_box.PlaceHeight(height))},
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
        for (const std::size_t line : {std::size_t{0}, m_surface.lines - 1}) {
            for (std::size_t column = 0; column + 1 < m_surface.points; ++column)
                AddRimPiece(IndexOf(column, line), IndexOf(column + 1, line));
        }
        for (const std::size_t column : {std::size_t{0}, m_surface.points - 1}) {
            for (std::size_t line = 0; line + 1 < m_surface.lines; ++line)
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
    double m_stepX; // in coordinates of the block
    double m_stepY;
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
    return CMeshMaker(surface, box).Make();
}

} // namespace SurfaceView
