#include "view/Layout.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <ranges>
#include <utility>

namespace SurfaceView
{

using CommonUI::CStr;
using CommonUI::SRect;
using CommonUI::SSize;

namespace
{

// An edge of the block along which an axis may stand.
struct SEdge {
    SPoint from{};
    SPoint to{};

    SPoint At(double share) const
    {
        return {from.x + (to.x - from.x) * share, from.y + (to.y - from.y) * share,
                from.z + (to.z - from.z) * share};
    }
};

int Round(double value)
{
    return static_cast<int>(std::lround(value));
}

bool Overlap(const SRect& a, const SRect& b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool IsWithin(const SRect& inner, const SRect& outer)
{
    return inner.left >= outer.left && inner.top >= outer.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

// What a rectangle leaves of a line (Liang and Barsky, 1984).
std::optional<SStroke> Clip(const SStroke& line, const SRect& place)
{
    double first = 0;
    double last = 1;
    const auto clip = [&](double distance, double step) { // to a side that is passed where step is below 0
        if (step == 0)
            return distance >= 0;
        double& end = step > 0 ? first : last;
        end = step > 0 ? std::max(first, -distance / step) : std::min(last, -distance / step);
        return first <= last;
    };
    const SPixel step{.x = line.to.x - line.from.x, .y = line.to.y - line.from.y};
    if (!clip(line.from.x - place.left, step.x) || !clip(place.right - line.from.x, -step.x) ||
        !clip(line.from.y - place.top, step.y) || !clip(place.bottom - line.from.y, -step.y))
        return std::nullopt;
    const auto at = [&](double share) {
        return SPixel{.x = line.from.x + share * step.x, .y = line.from.y + share * step.y};
    };
    return SStroke{.from = at(first), .to = at(last)};
}

// The edges on which the axis of x, y or z may stand, the best first.
std::array<SEdge, 4> EdgesOf(std::size_t axis, const SBox& box, const SPoint& eye)
{
    const double x = eye.x < 0 ? -box.x : box.x;
    const double y = eye.y < 0 ? -box.y : box.y;
    const double z = -box.z;
    if (axis == 0)
        return {SEdge{{-box.x, y, z}, {box.x, y, z}}, SEdge{{-box.x, -y, z}, {box.x, -y, z}},
                SEdge{{-box.x, y, -z}, {box.x, y, -z}}, SEdge{{-box.x, -y, -z}, {box.x, -y, -z}}};
    if (axis == 1)
        return {SEdge{{x, -box.y, z}, {x, box.y, z}}, SEdge{{-x, -box.y, z}, {-x, box.y, z}},
                SEdge{{x, -box.y, -z}, {x, box.y, -z}}, SEdge{{-x, -box.y, -z}, {-x, box.y, -z}}};
    return {SEdge{{-x, y, z}, {-x, y, -z}}, SEdge{{x, -y, z}, {x, -y, -z}}, SEdge{{-x, -y, z}, {-x, -y, -z}},
            SEdge{{x, y, z}, {x, y, -z}}};
}

// An edge as it is seen, and the direction in which its labels stand.
struct SSeenEdge {
    SEdge edge{};
    double length = 0; // pixels
    SPixel outward{};
};

// The edge as it is seen when it is at the outline of the block, so that there is nothing beyond it.
std::optional<SSeenEdge> SeeAtOutline(const SEdge& edge, const SBox& box, const SView& view)
{
    const SPixel from = view.Project(edge.from);
    const SPixel to = view.Project(edge.to);
    const double length = std::hypot(to.x - from.x, to.y - from.y);
    if (!(length >= 1))
        return std::nullopt;
    SPixel outward{.x = (to.y - from.y) / length, .y = (from.x - to.x) / length};
    const auto beyond = [&](const SPoint& point) {
        const SPixel pixel = view.Project(point);
        return (pixel.x - from.x) * outward.x + (pixel.y - from.y) * outward.y;
    };
    if (beyond({}) > 0)
        outward = {.x = -outward.x, .y = -outward.y};
    for (const double x : {-box.x, box.x}) {
        for (const double y : {-box.y, box.y}) {
            if (beyond({x, y, -box.z}) > 1 || beyond({x, y, box.z}) > 1)
                return std::nullopt;
        }
    }
    return SSeenEdge{edge, length, outward};
}

// Lays out one picture.
class CLayoutMaker
{
public:
    CLayoutMaker(const SBox& box, const SDirection& direction, SSize size, int scale, const CFont& font,
                 int fontHeight)
        : m_box(box)
        , m_direction(direction)
        , m_size(size)
        , m_font(font)
        , m_unit(fontHeight > 0 ? fontHeight
                                : std::clamp(std::min(size.cx / 58, size.cy / 42), 9 * scale, 40 * scale))
    {
        m_layout.lineWidth = scale;
    }

    SLayout Make(bool orthographic, const SPictureText& text, const std::optional<SFraming>& framing)
    {
        m_free = {
            .left = m_unit, .top = m_unit, .right = m_size.cx - m_unit, .bottom = m_size.cy - m_unit / 2};
        PlaceTitle(text.title, m_unit * 5 / 4);
        PlaceTitle(text.subtitle, m_unit);
        PlaceLegend();
        if (framing) {
            MakeCentered(orthographic, *framing);
            return std::move(m_layout);
        }
        const auto [labels, strokes] = std::pair(m_layout.labels.size(), m_layout.strokes.size());
        // The labels need room around the block, and where they stand depends on the block: after a few
        // rounds all of it fits.
        SRect viewport = m_free;
        for (int round = 0; round < 4; ++round) {
            m_layout.labels.resize(labels);
            m_layout.strokes.resize(strokes);
            m_layout.view = FitView(m_box, m_direction, orthographic, viewport);
            PlaceAxes();
            viewport = MakeRoom(viewport, labels);
        }
        return std::move(m_layout);
    }

private:
    // The same room for the block in every picture, with a margin for labels.
    void MakeCentered(bool orthographic, const SFraming& framing)
    {
        const int margin = 2 * m_unit;
        SRect room{.left = m_free.left + margin,
                   .top = m_free.top + margin,
                   .right = m_free.right - margin,
                   .bottom = m_free.bottom - margin};
        room.right = std::max(room.right, room.left + m_unit);
        room.bottom = std::max(room.bottom, room.top + m_unit);
        m_layout.view = CenterView(m_box, m_direction, orthographic, room, framing.zoom);
        Pan(m_layout.view, framing.pan);
        const std::size_t first = m_layout.labels.size();
        PlaceAxes();
        const auto leavesRoom = [this](const SLabel& label) { return !IsWithin(label.place, m_free); };
        const auto labels = std::ranges::subrange(
            m_layout.labels.begin() + static_cast<std::ptrdiff_t>(first), m_layout.labels.end());
        m_layout.labels.erase(std::ranges::remove_if(labels, leavesRoom).begin(), m_layout.labels.end());
    }

    SLabel& AddLabel(const CStr& text, int height, int left, int low)
    {
        const SSize size = m_font.Measure(text, height);
        return m_layout.labels.emplace_back(text, height, SRect{left, low, left + size.cx, low + size.cy});
    }

    // A line of text at the top of what is still free, cut where it is too long.
    void PlaceTitle(const CStr& text, int height)
    {
        if (text.IsEmpty())
            return;
        const auto fits = [&](const CStr& line) {
            return m_font.Measure(line, height).cx <= m_free.right - m_free.left;
        };
        const auto cutAt = [&](std::size_t length) { return text.Left(length) + u"…"; };
        CStr shown = text;
        if (!fits(text)) {
            const auto lengths = std::views::iota(std::size_t{1}, text.GetLength());
            const auto tooLong = std::ranges::partition_point(
                lengths, [&](std::size_t length) { return fits(cutAt(length)); });
            shown = cutAt(static_cast<std::size_t>(tooLong - lengths.begin()));
        }
        m_free.bottom -= m_font.Measure(shown, height).cy;
        AddLabel(shown, height, m_free.left, m_free.bottom);
    }

    void PlaceLegend()
    {
        const int line = m_font.Measure(u"0", m_unit).cy;
        const int low = m_free.top + line / 2;
        const int high = m_free.bottom - line * 5 / 2;
        const SAxis axis = MakeAxis(m_box.heights, std::max(2, (high - low) / (3 * line)));
        int width = 0;
        for (const STick& tick : axis.ticks)
            width = std::max(width, m_font.Measure(tick.text, m_unit).cx);
        const CStr name = u"z / " + axis.unit;
        const int nameWidth = m_font.Measure(name, m_unit).cx;
        const int needed = std::max(m_unit * 2 + width, nameWidth);

        SRect& bar = m_layout.legend;
        bar = {.left = m_free.right - needed,
               .top = low,
               .right = m_free.right - needed + m_unit,
               .bottom = high};
        AddLabel(name, m_unit, bar.left, high + line / 2);
        for (const STick& tick : axis.ticks) {
            const double y = low + m_box.ShareOf(tick.value) * (high - low);
            m_layout.strokes.push_back({{bar.right + 0.0, y}, {bar.right + m_unit * 0.4, y}});
            AddLabel(tick.text, m_unit, bar.right + m_unit * 3 / 4, Round(y) - line / 2);
        }
        m_free.right = bar.left - m_unit;
    }

    void PlaceAxes()
    {
        PlaceAxis(0, {0, m_box.width}, u"x / ", 5 * m_unit);
        PlaceAxis(1, {0, m_box.depth}, u"y / ", 5 * m_unit);
        PlaceAxis(2, m_box.heights, u"", 2 * m_unit);
    }

    // The edge for an axis: for heights the one furthest to the left, for lengths the first that is seen at
    // the outline.
    std::optional<SSeenEdge> ChooseEdge(std::size_t axis) const
    {
        std::optional<SSeenEdge> chosen;
        for (const SEdge& edge : EdgesOf(axis, m_box, m_direction.ToEye())) {
            const auto seen = SeeAtOutline(edge, m_box, m_layout.view);
            if (!seen)
                continue;
            if (axis != 2)
                return seen;
            if (!chosen || m_layout.view.Project(edge.from).x < m_layout.view.Project(chosen->edge.from).x)
                chosen = seen;
        }
        return chosen;
    }

    // @param distance between marks, at least, pixels
    void PlaceAxis(std::size_t index, CommonUI::CRange<double> range, const CStr& name, int distance)
    {
        SAxis& axis = m_layout.axes[index];
        axis = {};
        const auto seen = ChooseEdge(index);
        if (!seen || seen->length < 3 * m_unit)
            return;
        axis = MakeAxis(range, std::max(2, Round(seen->length) / distance));
        const auto line =
            Clip({m_layout.view.Project(seen->edge.from), m_layout.view.Project(seen->edge.to)}, Shown());
        if (!line)
            return;
        m_layout.strokes.push_back(*line);
        double reach = 0; // of the labels, away from the edge
        for (const STick& tick : axis.ticks) {
            const SPixel at =
                m_layout.view.Project(seen->edge.At((tick.value - range.GetLower()) / range.GetLength()));
            if (!Clip({at, at}, Shown()))
                continue;
            const SPixel end{at.x + seen->outward.x * m_unit * 0.4, at.y + seen->outward.y * m_unit * 0.4};
            m_layout.strokes.push_back({at, end});
            const double extent = 2 * Support(tick.text, seen->outward);
            reach = std::max(reach, extent);
            PlaceBeyond(tick.text, at, seen->outward, 0.7 * m_unit);
        }
        if (name.IsEmpty())
            return;
        for (const double share : {0.5, 0.4, 0.6, 0.3, 0.7, 0.2, 0.8}) {
            const SPixel at = m_layout.view.Project(seen->edge.At(share));
            if (Clip({at, at}, Shown()) &&
                PlaceBeyond(name + axis.unit, at, seen->outward, 1.3 * m_unit + reach))
                return;
        }
    }

    // What the view shows of the block, with a pixel around it for what is rounded.
    SRect Shown() const
    {
        const SRect& viewport = m_layout.view.viewport;
        return {viewport.left - 1, viewport.top - 1, viewport.right + 1, viewport.bottom + 1};
    }

    // How far a text's picture reaches from its middle in a direction.
    double Support(const CStr& text, const SPixel& outward) const
    {
        const SSize size = m_font.Measure(text, m_unit);
        return (std::abs(outward.x) * size.cx + std::abs(outward.y) * size.cy) / 2;
    }

    // Puts a text at a distance from a place, unless another one is there.
    bool PlaceBeyond(const CStr& text, const SPixel& at, const SPixel& outward, double distance)
    {
        const SSize size = m_font.Measure(text, m_unit);
        const double away = distance + Support(text, outward);
        const int left = Round(at.x + outward.x * away - size.cx / 2.0);
        const int low = Round(at.y + outward.y * away - size.cy / 2.0);
        const int gap = m_unit / 4;
        const SRect wanted{left - gap, low, left + size.cx + gap, low + size.cy};
        if (std::ranges::any_of(m_layout.labels,
                                [&wanted](const SLabel& label) { return Overlap(label.place, wanted); }))
            return false;
        AddLabel(text, m_unit, left, low);
        return true;
    }

    // The viewport moved by as much as labels stand out over the free place, or leave of it.
    SRect MakeRoom(const SRect& viewport, std::size_t first) const
    {
        SRect used = viewport;
        for (std::size_t i = first; i < m_layout.labels.size(); ++i) {
            const SRect& place = m_layout.labels[i].place;
            used = {.left = std::min(used.left, place.left),
                    .top = std::min(used.top, place.top),
                    .right = std::max(used.right, place.right),
                    .bottom = std::max(used.bottom, place.bottom)};
        }
        SRect room{.left = std::max(m_free.left, viewport.left + m_free.left - used.left),
                   .top = std::max(m_free.top, viewport.top + m_free.top - used.top),
                   .right = std::min(m_free.right, viewport.right + m_free.right - used.right),
                   .bottom = std::min(m_free.bottom, viewport.bottom + m_free.bottom - used.bottom)};
        room.right = std::max(room.right, room.left + m_unit);
        room.bottom = std::max(room.bottom, room.top + m_unit);
        return room;
    }

    const SBox& m_box;
    SDirection m_direction;
    SSize m_size;
    const CFont& m_font;
    int m_unit;     // the height of the font, which all distances go by
    SRect m_free{}; // what the title and the legend leave
    SLayout m_layout;
};

} // namespace

SLayout MakeLayout(const SBox& box, const SDirection& direction, bool orthographic, const SPictureText& text,
                   SSize size, int scale, const CFont& font, const std::optional<SFraming>& framing)
{
    return CLayoutMaker(box, direction, size, scale, font, framing ? framing->fontHeight : 0)
        .Make(orthographic, text, framing);
}

} // namespace SurfaceView
