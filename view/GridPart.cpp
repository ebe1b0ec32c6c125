#include "view/GridPart.h"

#include <algorithm>
#include <cmath>

namespace SurfaceView
{

namespace
{

// The points of a part along one side.
struct SStretch {
    std::size_t first = 0;
    std::size_t count = 0;

    std::size_t GetEnd() const { return first + count; }
};

SStretch WidenAlong(const SStretch& part, double share, std::size_t all)
{
    const auto more = static_cast<std::size_t>(std::ceil(static_cast<double>(part.count) * share));
    const std::size_t first = part.first - std::min(part.first, more);
    return {.first = first, .count = std::min(part.GetEnd() + more, all) - first};
}

SStretch MoveAlong(const SStretch& part, std::size_t from, std::size_t to)
{
    const double scale = from < 2 ? 1 : static_cast<double>(to - 1) / static_cast<double>(from - 1);
    const auto first = static_cast<std::size_t>(std::floor(static_cast<double>(part.first) * scale));
    const auto last = static_cast<std::size_t>(std::ceil(static_cast<double>(part.GetEnd() - 1) * scale));
    return {.first = std::min(first, to - 1), .count = std::min(last, to - 1) + 1 - std::min(first, to - 1)};
}

SGridPart MakePart(const SStretch& columns, const SStretch& lines)
{
    return {.column = columns.first, .line = lines.first, .points = columns.count, .lines = lines.count};
}

} // namespace

bool SGridPart::Holds(const SGridPart& other) const noexcept
{
    return column <= other.column && line <= other.line && other.column + other.points <= column + points &&
           other.line + other.lines <= line + lines;
}

SGridPart Widen(const SGridPart& part, double share, const SGridPart& all)
{
    return MakePart(WidenAlong({part.column, part.points}, share, all.points),
                    WidenAlong({part.line, part.lines}, share, all.lines));
}

SGridPart MoveToGrid(const SGridPart& part, const SGridPart& from, const SGridPart& to)
{
    return MakePart(MoveAlong({part.column, part.points}, from.points, to.points),
                    MoveAlong({part.line, part.lines}, from.lines, to.lines));
}

bool Serves(const SGridPart& part, const SGridPart& seen, double share, const SGridPart& all)
{
    constexpr double c_mostLarger = 1.5;
    const SGridPart wanted = Widen(seen, share, all);
    const auto isNear = [](std::size_t is, std::size_t should) {
        return static_cast<double>(is) <= c_mostLarger * static_cast<double>(should);
    };
    return part.Holds(seen) && isNear(part.points, wanted.points) && isNear(part.lines, wanted.lines);
}

} // namespace SurfaceView
