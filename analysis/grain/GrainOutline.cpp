#include "analysis/grain/detail/GrainOutline.h"

#include "analysis/grain/detail/TautString.h"

#include <algorithm>

namespace CommonUI::Analysis
{

namespace
{

// Each is a turn to the right of the one before.
constexpr SCorner c_steps[] = {{1, 0}, {0, 1}, {-1, 0}, {0, -1}};

// Walks along the edges of a grain's cells with the grain on the right. A cell has the lattice point of its
// lowest x and y.
class CWalk
{
public:
    CWalk(const SGrainMap& map, std::size_t first)
        : m_map(map)
        , m_label(map.labels[first])
        , m_at{static_cast<std::int64_t>(first % map.points), static_cast<std::int64_t>(first / map.points)}
    {
    }

    SCorner GetPosition() const { return m_at; }
    SCorner GetStep() const { return c_steps[m_direction]; }
    SCorner GetStepLeft() const { return c_steps[(m_direction + 3) % 4]; }
    // The cells to the sides of the edge ahead.
    SCorner GetRightCell() const { return m_at + c_rightCells[m_direction]; }
    SCorner GetLeftCell() const { return GetRightCell() + GetStepLeft(); }

    void Advance() { m_at = m_at + GetStep(); }
    void TurnRight() { m_direction = (m_direction + 1) % 4; }
    void TurnLeft() { m_direction = (m_direction + 3) % 4; }

    bool IsGrain(SCorner cell) const
    {
        const auto x = static_cast<std::size_t>(cell.x); // what is below 0 becomes large
        const auto y = static_cast<std::size_t>(cell.y);
        return x < m_map.points && y < m_map.lines && m_map.labels[y * m_map.points + x] == m_label;
    }

private:
    static constexpr SCorner c_rightCells[] = {{0, 0}, {-1, 0}, {-1, -1}, {0, -1}};

    const SGrainMap& m_map;
    std::uint32_t m_label;
    SCorner m_at;
    std::size_t m_direction = 0;
};

SCorner Doubled(SCorner corner)
{
    return corner + corner;
}

// Turns the walk where the grain does, and lays the string around the corner. Its unit is half a cell.
void FollowTurn(CWalk& walk, CTautString& string)
{
    const SCorner corner = Doubled(walk.GetPosition());
    const SCorner step = Doubled(walk.GetStep());
    const SCorner left = Doubled(walk.GetStepLeft());
    const bool isLeftGrain = walk.IsGrain(walk.GetLeftCell());
    if (!walk.IsGrain(walk.GetRightCell())) {
        if (isLeftGrain) // cells that meet in a corner: no way round it
            string.PassThrough(corner);
        else
            string.AddGate(corner, corner + step + left);
        walk.TurnRight();
    } else if (isLeftGrain) {
        const SCorner notch = walk.GetLeftCell() - walk.GetStep();
        const bool isNarrow =
            walk.IsGrain(notch - walk.GetStep()) || walk.IsGrain(notch + walk.GetStepLeft());
        const SCorner centre = Doubled(notch) + SCorner{1, 1};
        string.AddGate(corner, isNarrow ? centre : corner - step + left);
        walk.TurnLeft();
    }
}

// Sums over the edges of an outline, lengths in cells.
struct SEdgeSums {
    double area = 0;
    double momentX = 0;
    double momentY = 0;
    double heights = 0;
    double edges = 0;

    // Green's theorem
    void Add(SCorner at, SCorner step, double height)
    {
        const auto x = static_cast<double>(at.x);
        const auto y = static_cast<double>(at.y);
        area += static_cast<double>(step.y) * x;
        momentX += static_cast<double>(step.y) * x * x / 2;
        momentY -= static_cast<double>(step.x) * y * y / 2;
        heights += height;
        edges += 1;
    }
};

} // namespace

SGrainOutline TraceOutline(const SSurface& surface, const SGrainMap& map, std::size_t first)
{
    CWalk walk(map, first);
    const SCorner start = walk.GetPosition();
    CTautString string(Doubled(start), surface.dx / 2, surface.dy / 2);
    const double height = surface.heights[first];
    SGrainOutline outline{.lowest = height, .highest = height};
    SEdgeSums sums; // with positions from the start, heights from that of the first point
    do {
        const SCorner cell = walk.GetRightCell();
        const double z =
            surface.heights[static_cast<std::size_t>(cell.y) * map.points + static_cast<std::size_t>(cell.x)];
        outline.lowest = std::min(outline.lowest, z);
        outline.highest = std::max(outline.highest, z);
        sums.Add(walk.GetPosition() - start, walk.GetStep(), z - height);
        walk.Advance();
        if (walk.GetPosition() != start)
            FollowTurn(walk, string);
    } while (walk.GetPosition() != start);
    string.PassThrough(Doubled(start));

    outline.perimeter = string.GetLength();
    outline.area = sums.area * surface.dx * surface.dy;
    outline.centreX = (static_cast<double>(start.x) + sums.momentX / sums.area) * surface.dx;
    outline.centreY = (static_cast<double>(start.y) + sums.momentY / sums.area) * surface.dy;
    outline.mean = std::clamp(height + sums.heights / sums.edges, outline.lowest, outline.highest);
    return outline;
}

} // namespace CommonUI::Analysis
