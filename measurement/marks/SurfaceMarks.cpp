#include "measurement/marks/SurfaceMarks.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

using Analysis::SPlace;

namespace
{

// The distance of a place from a line between two others.
double DistanceFrom(const SPlace& place, const SPlace& from, const SPlace& to)
{
    const double dx = to.x - from.x;
    const double dy = to.y - from.y;
    const double square = dx * dx + dy * dy;
    const double along = ((place.x - from.x) * dx + (place.y - from.y) * dy) / square;
    const double share = square > 0 ? std::clamp(along, 0.0, 1.0) : 0;
    return std::hypot(place.x - from.x - share * dx, place.y - from.y - share * dy);
}

} // namespace

void CSurfaceMarks::SetSurface(const Analysis::SSurface& surface)
{
    const auto lengthOf = [](std::size_t points, double spacing) {
        return points > 1 ? static_cast<double>(points - 1) * spacing : 0;
    };
    m_far = {.x = lengthOf(surface.points, surface.dx), .y = lengthOf(surface.lines, surface.dy)};
    for (SMark& mark : m_marks)
        for (SPlace& point : mark.points)
            point = Keep(point);
}

SPlace CSurfaceMarks::Keep(const SPlace& place) const
{
    return {.x = std::clamp(place.x, 0.0, m_far.x), .y = std::clamp(place.y, 0.0, m_far.y)};
}

int CSurfaceMarks::FindFreeNumber(EMark kind) const
{
    int number = 1;
    const auto isTaken = [&](const SMark& mark) { return mark.kind == kind && mark.number == number; };
    while (std::ranges::any_of(m_marks, isTaken))
        ++number;
    return number;
}

std::size_t CSurfaceMarks::Add(EMark kind, const SPlace& place)
{
    const std::size_t points = kind == EMark::Angle ? 3 : 2;
    m_marks.push_back(
        {.number = FindFreeNumber(kind), .kind = kind, .points = std::vector<SPlace>(points, Keep(place))});
    return m_marks.size() - 1;
}

void CSurfaceMarks::Remove(std::size_t mark)
{
    m_marks.erase(m_marks.begin() + static_cast<std::ptrdiff_t>(mark));
}

void CSurfaceMarks::MovePoint(std::size_t mark, std::size_t point, const SPlace& to)
{
    m_marks[mark].points[point] = Keep(to);
}

void CSurfaceMarks::MoveBy(std::size_t mark, double dx, double dy)
{
    auto& points = m_marks[mark].points;
    for (const SPlace& point : points) {
        dx = std::clamp(point.x + dx, 0.0, m_far.x) - point.x;
        dy = std::clamp(point.y + dy, 0.0, m_far.y) - point.y;
    }
    for (SPlace& point : points)
        point = Keep({.x = point.x + dx, .y = point.y + dy});
}

std::optional<CSurfaceMarks::SHit> CSurfaceMarks::Find(const SPlace& place, double reachX,
                                                       double reachY) const
{
    const auto scale = [&](const SPlace& at) { return SPlace{.x = at.x / reachX, .y = at.y / reachY}; };
    const SPlace at = scale(place);
    std::optional<SHit> nearest;
    double least = 1;
    const auto take = [&](const SHit& hit, double distance) {
        if (distance > least)
            return;
        least = distance;
        nearest = hit;
    };
    for (std::size_t i = 0; i < m_marks.size(); ++i)
        for (std::size_t k = 0; k < m_marks[i].points.size(); ++k) {
            const SPlace point = scale(m_marks[i].points[k]);
            take({i, k}, std::hypot(at.x - point.x, at.y - point.y));
        }
    if (nearest)
        return nearest;
    for (std::size_t i = 0; i < m_marks.size(); ++i)
        for (std::size_t k = 1; k < m_marks[i].points.size(); ++k)
            take({i, {}}, DistanceFrom(at, scale(m_marks[i].points[k - 1]), scale(m_marks[i].points[k])));
    return nearest;
}

} // namespace CommonUI::Measurement
