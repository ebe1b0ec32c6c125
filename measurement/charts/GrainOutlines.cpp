#include "measurement/charts/GrainOutlines.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace CommonUI::Measurement
{

using Analysis::SGrainMap;

namespace
{

constexpr std::size_t c_mostCells = 512;   // along a side
constexpr std::size_t c_fewestCells = 128; // no grains of so many have more than c_mostCorners
constexpr std::size_t c_mostCorners = 40'000;

SGrainMap Sample(const SGrainMap& map, std::size_t most)
{
    SGrainMap small{
        .points = std::min(map.points, most), .lines = std::min(map.lines, most), .count = map.count};
    small.labels.reserve(small.points * small.lines);
    for (std::size_t row = 0; row < small.lines; ++row) {
        const std::size_t line = (2 * row + 1) * map.lines / (2 * small.lines);
        for (std::size_t column = 0; column < small.points; ++column)
            small.labels.push_back(
                map.labels[line * map.points + (2 * column + 1) * map.points / (2 * small.points)]);
    }
    return small;
}

// Walks along the edges of the grains' cells with the grain on the side to which x turns into y.
class COutliner
{
public:
    explicit COutliner(const SGrainMap& map)
        : m_map(map)
        , m_isDone(map.labels.size())
    {
    }

    // The path; none if it had too many corners.
    std::optional<std::string> Run()
    {
        for (std::size_t i = 0; i < m_map.labels.size(); ++i) {
            const auto x = static_cast<std::ptrdiff_t>(i % m_map.points);
            const auto y = static_cast<std::ptrdiff_t>(i / m_map.points);
            if (m_map.labels[i] == 0 || m_isDone[i] || Get(x, y - 1) == m_map.labels[i])
                continue;
            Follow(x, y, m_map.labels[i]);
            if (m_corners > c_mostCorners)
                return std::nullopt;
        }
        return std::move(m_path);
    }

private:
    static constexpr std::ptrdiff_t c_stepX[] = {1, 0, -1, 0};
    static constexpr std::ptrdiff_t c_stepY[] = {0, 1, 0, -1};
    // The cell ahead on the grain's side, from the corner where the walk stands.
    static constexpr std::ptrdiff_t c_cellX[] = {0, -1, -1, 0};
    static constexpr std::ptrdiff_t c_cellY[] = {0, 0, -1, -1};

    std::uint32_t Get(std::ptrdiff_t x, std::ptrdiff_t y) const
    {
        const auto column = static_cast<std::size_t>(x); // what is below 0 becomes large
        const auto row = static_cast<std::size_t>(y);
        return column < m_map.points && row < m_map.lines ? m_map.labels[row * m_map.points + column] : 0;
    }

    // One closed line. Every one has an edge towards greater x, by which it is found once.
    void Follow(std::ptrdiff_t startX, std::ptrdiff_t startY, std::uint32_t label)
    {
        m_path += 'M' + std::to_string(startX) + ' ' +
                  std::to_string(static_cast<std::ptrdiff_t>(m_map.lines) - startY);
        std::ptrdiff_t x = startX;
        std::ptrdiff_t y = startY;
        std::size_t direction = 0;
        std::ptrdiff_t length = 0;
        do {
            if (direction == 0)
                m_isDone[static_cast<std::size_t>(y) * m_map.points + static_cast<std::size_t>(x)] = true;
            x += c_stepX[direction];
            y += c_stepY[direction];
            ++length;
            const std::size_t next = Turn(x, y, direction, label);
            if (next == direction)
                continue;
            AppendRun(direction, length);
            direction = next;
            length = 0;
        } while (x != startX || y != startY || direction != 0);
        m_path += 'z';
    }

    // Grains are connected by edges, so that the walk turns towards the grain where cells meet in a corner.
    std::size_t Turn(std::ptrdiff_t x, std::ptrdiff_t y, std::size_t direction, std::uint32_t label) const
    {
        const std::ptrdiff_t cellX = x + c_cellX[direction];
        const std::ptrdiff_t cellY = y + c_cellY[direction];
        if (Get(cellX, cellY) != label)
            return (direction + 1) % 4;
        const std::size_t left = (direction + 3) % 4;
        return Get(cellX + c_stepX[left], cellY + c_stepY[left]) == label ? left : direction;
    }

    void AppendRun(std::size_t direction, std::ptrdiff_t length)
    {
        ++m_corners;
        m_path += c_stepX[direction] != 0 ? 'h' : 'v';
        m_path += std::to_string((c_stepX[direction] - c_stepY[direction]) * length);
    }

    const SGrainMap& m_map;
    std::vector<bool> m_isDone; // the edges towards greater x, by their cells
    std::string m_path{};
    std::size_t m_corners = 0;
};

struct SGrainCells {
    std::uint32_t label = 0;
    double count = 0;
    double sumX = 0;
    double sumY = 0;
    double distance = std::numeric_limits<double>::infinity(); // of the number from the centre
    SGrainNumber number{};
};

// Calls with the label and the middle of each cell of a grain.
template<class FVisit>
void ForEachCell(const SGrainMap& map, const FVisit& visit)
{
    for (std::size_t i = 0; i < map.labels.size(); ++i) {
        const std::size_t line = i / map.points;
        if (map.labels[i] > 0)
            visit(map.labels[i], static_cast<double>(i % map.points) + 0.5,
                  static_cast<double>(map.lines - 1 - line) + 0.5);
    }
}

std::vector<SGrainNumber> PlaceNumbers(const SGrainMap& map, std::size_t most)
{
    std::vector<SGrainCells> grains(map.count + std::size_t{1});
    ForEachCell(map, [&](std::uint32_t label, double x, double y) {
        SGrainCells& grain = grains[label];
        grain.label = label;
        ++grain.count;
        grain.sumX += x;
        grain.sumY += y;
    });
    ForEachCell(map, [&](std::uint32_t label, double x, double y) {
        SGrainCells& grain = grains[label];
        const double fromX = x - grain.sumX / grain.count;
        const double fromY = y - grain.sumY / grain.count;
        const double distance = fromX * fromX + fromY * fromY;
        if (distance >= grain.distance)
            return;
        grain.distance = distance;
        grain.number = {label, x, y};
    });
    std::erase_if(grains, [](const SGrainCells& grain) { return grain.count == 0; });
    const auto shown = std::min(most, grains.size());
    std::ranges::partial_sort(grains, grains.begin() + static_cast<std::ptrdiff_t>(shown),
                              [](const SGrainCells& a, const SGrainCells& b) {
                                  return a.count != b.count ? a.count > b.count : a.label < b.label;
                              });
    std::vector<SGrainNumber> numbers;
    for (std::size_t i = 0; i < shown; ++i)
        numbers.push_back(grains[i].number);
    return numbers;
}

} // namespace

SGrainOutlines MakeGrainOutlines(const SGrainMap& map, std::size_t mostNumbers)
{
    for (std::size_t most = c_mostCells; most >= c_fewestCells; most /= 2) {
        const SGrainMap small = Sample(map, most);
        if (auto path = COutliner(small).Run())
            return {.columns = small.points,
                    .rows = small.lines,
                    .path = std::move(*path),
                    .numbers = PlaceNumbers(small, mostNumbers)};
    }
    return {};
}

} // namespace CommonUI::Measurement
