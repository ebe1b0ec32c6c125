#include "dialogs/placement/WindowPlacement.h"

#include <algorithm>
#include <cstdint>
#include <tuple>
#include <vector>

namespace CommonUI
{

namespace
{

// Stored numbers may be any: their sums need more than an int.
struct SArea {
    std::int64_t left = 0;
    std::int64_t top = 0;
    std::int64_t right = 0;
    std::int64_t bottom = 0;

    SArea() = default;
    explicit SArea(const SRect& rect)
        : left(rect.left)
        , top(rect.top)
        , right(rect.right)
        , bottom(rect.bottom)
    {
    }
    SArea(const SWindowPlacement& placement, const SSize& frame)
        : left(placement.position.x)
        , top(placement.position.y)
        , right(left + placement.size.cx + frame.cx)
        , bottom(top + placement.size.cy + frame.cy)
    {
    }

    bool IsEmpty() const { return right <= left || bottom <= top; }
    std::int64_t GetWidth() const { return right - left; }
    std::int64_t GetHeight() const { return bottom - top; }
    SArea Cut(const SArea& other) const
    {
        SArea common = *this;
        common.left = std::max(left, other.left);
        common.top = std::max(top, other.top);
        common.right = std::min(right, other.right);
        common.bottom = std::min(bottom, other.bottom);
        return common;
    }
};

using CScreens = std::span<const SScreen>;

// Whether the monitors together show all of an area: what the first leaves, the others have to.
bool IsCovered(const SArea& area, CScreens screens)
{
    if (area.IsEmpty())
        return true;
    if (screens.empty())
        return false;
    const SArea seen = area.Cut(SArea(screens.front().workArea));
    const CScreens others = screens.subspan(1);
    if (seen.IsEmpty())
        return IsCovered(area, others);
    SArea above = area, below = area, before = seen, behind = seen;
    above.bottom = seen.top;
    below.top = seen.bottom;
    before.left = area.left;
    before.right = seen.left;
    behind.left = seen.right;
    behind.right = area.right;
    return IsCovered(above, others) && IsCovered(below, others) && IsCovered(before, others) &&
           IsCovered(behind, others);
}

// By the part that lies on the monitor, and then by the distance. Numbers of any size have to be compared.
bool IsBetter(const SArea& area, const SRect& one, const SRect& other)
{
    const auto rate = [&area](const SRect& rect) {
        const SArea seen = area.Cut(SArea(rect));
        const auto gapX = static_cast<double>(std::max<std::int64_t>(0, seen.left - seen.right));
        const auto gapY = static_cast<double>(std::max<std::int64_t>(0, seen.top - seen.bottom));
        const double part =
            seen.IsEmpty() ? 0 : static_cast<double>(seen.GetWidth()) * static_cast<double>(seen.GetHeight());
        return std::pair(part, -(gapX * gapX + gapY * gapY));
    };
    return rate(one) > rate(other);
}

int Limit(std::int64_t size, std::int64_t room)
{
    return static_cast<int>(std::max<std::int64_t>(1, std::min(size, room)));
}

// The place nearest to the wanted one that has room for the length; the beginning where there is none.
int MoveIn(std::int64_t place, std::int64_t length, std::int64_t first, std::int64_t end)
{
    return static_cast<int>(std::max(first, std::min(place, end - length)));
}

} // namespace

SWindowPlacement FitToScreens(const SWindowPlacement& placement, const SSize& frame, CScreens screens)
{
    SWindowPlacement fitted = placement;
    fitted.size = {std::max(1, placement.size.cx), std::max(1, placement.size.cy)};
    std::vector<SScreen> usable(screens.begin(), screens.end());
    std::erase_if(usable, [](const SScreen& screen) { return screen.workArea.IsEmpty(); });
    if (usable.empty())
        return fitted;
    const SArea wanted(fitted, frame);
    const auto best = std::min_element(usable.begin(), usable.end(), [&](const auto& one, const auto& other) {
        return IsBetter(wanted, one.workArea, other.workArea);
    });
    const SArea room(best->workArea);
    fitted.size.cx = Limit(fitted.size.cx, room.GetWidth() - frame.cx);
    fitted.size.cy = Limit(fitted.size.cy, room.GetHeight() - frame.cy);
    const SArea area(fitted, frame);
    if (IsCovered(area, usable))
        return fitted;
    fitted.position.x = MoveIn(area.left, area.GetWidth(), room.left, room.right);
    fitted.position.y = MoveIn(area.top, area.GetHeight(), room.top, room.bottom);
    return fitted;
}

CStr GetSetUpName(CScreens screens)
{
    std::vector<SScreen> sorted(screens.begin(), screens.end());
    const auto order = [](const SScreen& screen) {
        const SRect& area = screen.area;
        return std::tuple(area.left, area.top, area.right, area.bottom, screen.scale);
    };
    std::sort(sorted.begin(), sorted.end(),
              [&](const SScreen& one, const SScreen& other) { return order(one) < order(other); });
    const auto isSame = [](const SScreen& one, const SScreen& other) { return one.area == other.area; };
    sorted.erase(std::unique(sorted.begin(), sorted.end(), isSame), sorted.end());
    CStr name;
    for (const SScreen& screen : sorted) {
        const SRect& area = screen.area;
        name += name.IsEmpty() ? u"" : u" ";
        name += CStr::Format(u"%dx%d%+d%+d", area.GetWidth(), area.GetHeight(), area.left, area.top);
        if (screen.scale != 100)
            name += CStr::Format(u"@%d", screen.scale);
    }
    return name;
}

CStr GetCurrentSetUpName()
{
    return GetSetUpName(GetScreenService().GetScreens());
}

} // namespace CommonUI
