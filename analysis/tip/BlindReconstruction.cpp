#include "analysis/numeric/detail/Parallel.h"
#include "analysis/tip/TipShape.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <mutex>
#include <tuple>
#include <utility>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

constexpr std::size_t c_mostSummits = 400;
constexpr std::ptrdiff_t c_mostReach = 10; // points of the tip to each side
constexpr int c_mostRounds = 20;
constexpr double c_infinite = std::numeric_limits<double>::infinity();
constexpr double c_none = -c_infinite;

// The points of a tip along an axis: from -reach to reach, `step` points of the image apart.
struct SAxis {
    std::ptrdiff_t reach = 0;
    std::ptrdiff_t step = 1;

    std::ptrdiff_t GetExtent() const { return reach * step; }
    std::size_t GetCount() const { return static_cast<std::size_t>(2 * reach + 1); }
};

SAxis MakeAxis(double halfWidth, double spacing, std::size_t count)
{
    if (count == 1)
        return {};
    const double points = halfWidth / spacing * (1 - 1e-9); // rounding makes no step of two of one
    SAxis axis{.step = std::max<std::ptrdiff_t>(
                   1, static_cast<std::ptrdiff_t>(std::ceil(points / static_cast<double>(c_mostReach))))};
    axis.reach = std::max<std::ptrdiff_t>(
        1, static_cast<std::ptrdiff_t>(std::lround(points / static_cast<double>(axis.step))));
    return axis;
}

struct SSummit {
    std::ptrdiff_t x;
    std::ptrdiff_t y;
    double rise; // above the points around it
};

// An upper bound of the tip that comes down with each summit of the image.
class CTipBound
{
public:
    CTipBound(const SSurface& image, SAxis alongX, SAxis alongY)
        : m_image(image)
        , m_alongX(alongX)
        , m_alongY(alongY)
        , m_heights(alongX.GetCount() * alongY.GetCount())
    {
    }

    void Lower(double noise)
    {
        const std::vector<SSummit> summits = FindSummits();
        for (int round = 0; round < c_mostRounds; ++round) {
            const std::vector<double> before = m_heights;
            std::mutex mutex;
            ComputeInShares(summits.size(), [&](std::size_t first, std::size_t last) {
                std::vector<double> lowered = before;
                for (std::size_t i = first; i < last; ++i)
                    LowerBy(summits[i], before, noise, lowered);
                const std::lock_guard lock(mutex);
                for (std::size_t i = 0; i < lowered.size(); ++i)
                    m_heights[i] = std::min(m_heights[i], lowered[i]);
            });
            if (m_heights == before)
                break;
        }
    }

    SSurface Take() &&
    {
        return {.points = m_alongX.GetCount(),
                .lines = m_alongY.GetCount(),
                .dx = m_image.dx * static_cast<double>(m_alongX.step),
                .dy = m_image.dy * static_cast<double>(m_alongY.step),
                .heights = std::move(m_heights)};
    }

private:
    double GetHeight(std::ptrdiff_t x, std::ptrdiff_t y) const
    {
        return m_image.heights[static_cast<std::size_t>(y * static_cast<std::ptrdiff_t>(m_image.points) + x)];
    }
    template<class FVisit>
    void VisitTip(const FVisit& visit) const
    {
        std::size_t i = 0;
        for (std::ptrdiff_t y = -m_alongY.reach; y <= m_alongY.reach; ++y)
            for (std::ptrdiff_t x = -m_alongX.reach; x <= m_alongX.reach; ++x, ++i)
                visit(i, x * m_alongX.step, y * m_alongY.step);
    }

    bool IsSummit(std::ptrdiff_t x, std::ptrdiff_t y) const
    {
        const double z = GetHeight(x, y);
        const std::ptrdiff_t stepY = m_image.IsProfile() ? 0 : 1;
        for (std::ptrdiff_t j = -stepY; j <= stepY; ++j)
            for (std::ptrdiff_t i = -1; i <= 1; ++i)
                if (!(GetHeight(x + i, y + j) <= z))
                    return false;
        return true;
    }
    double GetRise(std::ptrdiff_t x, std::ptrdiff_t y) const
    {
        double sum = 0;
        double count = 0;
        for (const std::ptrdiff_t j : {-1, 0, 1})
            for (const std::ptrdiff_t i : {-1, 0, 1}) {
                sum += GetHeight(x + i * m_alongX.GetExtent(), y + j * m_alongY.GetExtent());
                ++count;
            }
        return GetHeight(x, y) - sum / count;
    }
    // Those around which the tip has room wherever it touches them.
    std::vector<SSummit> FindSummits() const
    {
        std::vector<SSummit> summits;
        const std::ptrdiff_t marginX = 2 * m_alongX.GetExtent();
        const std::ptrdiff_t marginY = 2 * m_alongY.GetExtent();
        for (std::ptrdiff_t y = marginY; y < static_cast<std::ptrdiff_t>(m_image.lines) - marginY; ++y)
            for (std::ptrdiff_t x = marginX; x < static_cast<std::ptrdiff_t>(m_image.points) - marginX; ++x)
                if (IsSummit(x, y))
                    if (const double rise = GetRise(x, y); rise > 0)
                        summits.push_back({x, y, rise});
        const std::size_t count = std::min(summits.size(), c_mostSummits);
        std::ranges::partial_sort(summits, summits.begin() + static_cast<std::ptrdiff_t>(count),
                                  [](const SSummit& a, const SSummit& b) {
                                      return std::tuple(-a.rise, a.y, a.x) < std::tuple(-b.rise, b.y, b.x);
                                  });
        summits.resize(count);
        return summits;
    }

    // The tip touches at one of the offsets d where its apex would not be above the image at the summit;
    // of that, P(e) is at most I(x + d - e) - I(x) + P(d).
    void LowerBy(const SSummit& summit, const std::vector<double>& bound, double noise,
                 std::vector<double>& lowered) const
    {
        const double top = GetHeight(summit.x, summit.y);
        std::vector<double> most(m_heights.size(), c_none);
        VisitTip([&](std::size_t d, std::ptrdiff_t dx, std::ptrdiff_t dy) {
            const double raised = bound[d] - top;
            if (GetHeight(summit.x + dx, summit.y + dy) + raised < -noise)
                return;
            VisitTip([&](std::size_t e, std::ptrdiff_t ex, std::ptrdiff_t ey) {
                const double z = GetHeight(summit.x + dx - ex, summit.y + dy - ey) + raised;
                if (!(z <= most[e])) // NaN says nothing of the tip
                    most[e] = std::isnan(z) ? std::numeric_limits<double>::max() : z;
            });
        });
        for (std::size_t e = 0; e < most.size(); ++e)
            lowered[e] = std::min(lowered[e], most[e] + noise);
    }

    const SSurface& m_image;
    SAxis m_alongX;
    SAxis m_alongY;
    std::vector<double> m_heights; // line after line
};

SSurface ReconstructTip(const SSurface& image, double width, double noise)
{
    CTipBound bound(image, MakeAxis(width / 2, image.dx, image.points),
                    MakeAxis(width / 2, image.dy, image.lines));
    bound.Lower(noise);
    SSurface tip = std::move(bound).Take();
    tip.heights[tip.heights.size() / 2] = 0; // the apex, whatever the noise is
    return tip;
}

// The widest tip that leaves room around it.
double GetMostWidth(const SSurface& image)
{
    const double x = static_cast<double>(image.points) * image.dx;
    const double y = static_cast<double>(image.lines) * image.dy;
    return (image.IsProfile() ? x : std::min(x, y)) / 3;
}

} // namespace

STip EstimateTip(const SSurface& image, const STipExtent& extent)
{
    const double most = GetMostWidth(image);
    const double least = 2 * (image.IsProfile() ? image.dx : std::max(image.dx, image.dy));
    if (most < 2 * least)
        return {.reason = "the surface is too small for a tip of three points"};
    if (extent.width) {
        if (*extent.width > most)
            return {.reason = "the tip is wider than a third of the surface"};
        return MeasureTip(ReconstructTip(image, std::max(*extent.width, least), extent.noise), c_infinite);
    }
    STip tip;
    double width = 4 * least;
    while (true) {
        STip wider = MeasureTip(ReconstructTip(image, std::min(width, most), extent.noise), extent.depth);
        const bool isDeepEnough = wider.height >= extent.depth;
        if (!(tip.height > wider.height))
            tip = std::move(wider);
        if (isDeepEnough || width >= most)
            return tip;
        width *= 2;
    }
}

} // namespace CommonUI::Analysis
