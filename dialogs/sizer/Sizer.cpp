#include "dialogs/sizer/Sizer.h"

#include "common/Exceptions.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace CommonUI
{

namespace
{

bool IsRange(int first, int last)
{
    return first >= 0 && first <= last && last <= 100;
}

// Rounded down, so that equal shares give equal edges whatever the sign.
int Share(int growth, int percent)
{
    const std::int64_t product = std::int64_t{growth} * percent;
    return static_cast<int>(product / 100 - (product % 100 < 0 ? 1 : 0));
}

SRect Move(const SRect& place, const SSizerRule& rule, const SSize& growth)
{
    return {place.left + Share(growth.cx, rule.left), place.top + Share(growth.cy, rule.top),
            place.right + Share(growth.cx, rule.right), place.bottom + Share(growth.cy, rule.bottom)};
}

int Scale(int length, double factor)
{
    return static_cast<int>(std::lround(length * std::max(1.0, factor)));
}

// How far the window may shrink as long as a distance of which that goes off by a share is not negative.
void Narrow(int& slack, int distance, int percent)
{
    if (percent > 0)
        slack = std::min(slack, static_cast<int>(std::int64_t{std::max(0, distance)} * 100 / percent));
}

} // namespace

// What is alike in both directions.
class CSizer::CAxis
{
public:
    constexpr CAxis(int SRect::*first, int SRect::*end, int SSizerRule::*firstShare,
                    int SSizerRule::*endShare, int SSize::*size)
        : m_first(first)
        , m_end(end)
        , m_firstShare(firstShare)
        , m_endShare(endShare)
        , m_size(size)
    {
    }

    int GetSize(const SSize& size) const { return size.*m_size; }
    int GetEnd(const SControl& control) const { return control.place.*m_end; }
    bool Grows(const SControl& control) const { return GetGrowth(control) > 0; }
    void KeepMinimum(int& slack, const SControl& control) const
    {
        const int size = control.place.*m_end - control.place.*m_first;
        Narrow(slack, size - control.minimum.*m_size, GetGrowth(control));
    }
    // Neither leaves the window.
    void KeepInside(int& slack, const SControl& control, int room) const
    {
        Narrow(slack, control.place.*m_first, control.rule.*m_firstShare);
        Narrow(slack, room - control.place.*m_end, 100 - control.rule.*m_endShare);
    }
    void KeepApart(int& slack, const SControl& one, const SControl& other) const
    {
        const int gap = other.place.*m_first - one.place.*m_end;
        if (gap >= 0)
            Narrow(slack, gap, other.rule.*m_firstShare - one.rule.*m_endShare);
    }
    bool AreBeside(const SControl& one, const SControl& other) const
    {
        return one.place.*m_first < other.place.*m_end && other.place.*m_first < one.place.*m_end;
    }

private:
    int GetGrowth(const SControl& control) const
    {
        return control.rule.*m_endShare - control.rule.*m_firstShare;
    }

    int SRect::*m_first;
    int SRect::*m_end;
    int SSizerRule::*m_firstShare;
    int SSizerRule::*m_endShare;
    int SSize::*m_size;
};

CSizer::CSizer(const SSize& window)
    : m_size(window)
{
}

std::size_t CSizer::Add(const SRect& place, const SSizerRule& rule, const SSize& minimum)
{
    if (!IsRange(rule.left, rule.right) || !IsRange(rule.top, rule.bottom))
        throw EInternal(u"Sizer", __LINE__, u"CSizer::Add", u"The shares of a control are out of order.");
    m_controls.push_back({place,
                          rule,
                          {std::clamp(minimum.cx, 0, std::max(0, place.GetWidth())),
                           std::clamp(minimum.cy, 0, std::max(0, place.GetHeight()))}});
    return m_controls.size() - 1;
}

int CSizer::GetSlack(const CAxis& axis, const CAxis& across) const
{
    const int size = axis.GetSize(m_size);
    int slack = std::max(0, size);
    int end = 0;
    bool grows = false;
    for (const SControl& control : m_controls) {
        end = std::max(end, axis.GetEnd(control));
        grows = grows || axis.Grows(control);
        axis.KeepMinimum(slack, control);
    }
    for (const SControl& one : m_controls) {
        axis.KeepInside(slack, one, end);
        for (const SControl& other : m_controls)
            if (across.AreBeside(one, other))
                axis.KeepApart(slack, one, other);
    }
    return grows ? slack : 0;
}

SSize CSizer::GetMinimumSize() const
{
    static constexpr CAxis c_across(&SRect::left, &SRect::right, &SSizerRule::left, &SSizerRule::right,
                                    &SSize::cx);
    static constexpr CAxis c_down(&SRect::top, &SRect::bottom, &SSizerRule::top, &SSizerRule::bottom,
                                  &SSize::cy);
    return {m_size.cx - GetSlack(c_across, c_down), m_size.cy - GetSlack(c_down, c_across)};
}

std::vector<SRect> CSizer::Compute(const SSize& window) const
{
    const SSize least = GetMinimumSize();
    const SSize growth{std::max(window.cx, least.cx) - m_size.cx, std::max(window.cy, least.cy) - m_size.cy};
    std::vector<SRect> places;
    places.reserve(m_controls.size());
    for (const SControl& control : m_controls)
        places.push_back(Move(control.place, control.rule, growth));
    return places;
}

CSizer CSizer::Scaled(double horizontal, double vertical) const
{
    CSizer scaled({Scale(m_size.cx, horizontal), Scale(m_size.cy, vertical)});
    for (const auto& [place, rule, minimum] : m_controls)
        scaled.Add({Scale(place.left, horizontal), Scale(place.top, vertical), Scale(place.right, horizontal),
                    Scale(place.bottom, vertical)},
                   rule, {Scale(minimum.cx, horizontal), Scale(minimum.cy, vertical)});
    return scaled;
}

} // namespace CommonUI
