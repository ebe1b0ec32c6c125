#include "analysis/grain/detail/TautString.h"

#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

constexpr std::int64_t c_right = 1; // sign of a turn to this side
constexpr std::int64_t c_left = -1;

} // namespace

void CTautString::SChain::Clear()
{
    corners.clear();
    first = 0;
}

CTautString::CTautString(SCorner start, double unitX, double unitY)
    : m_apex(start)
    , m_unitX(unitX)
    , m_unitY(unitY)
{
}

void CTautString::AddGate(SCorner right, SCorner left)
{
    Narrow(m_right, m_left, c_right, right);
    Narrow(m_left, m_right, c_left, left);
}

void CTautString::PassThrough(SCorner point)
{
    Narrow(m_right, m_left, c_right, point);
    while (!m_right.IsEmpty())
        MoveAlong(m_right);
    m_right.Clear();
    m_left.Clear();
}

// The way to the new point of a wall drops the corners that it need not go round any more; when it has
// dropped all, it may have to go round some of the other wall's, and so has every way from then on.
void CTautString::Narrow(SChain& chain, SChain& opposite, std::int64_t side, SCorner point)
{
    while (!chain.IsEmpty()) {
        const bool isOnly = chain.first + 1 == chain.corners.size();
        const SCorner before = isOnly ? m_apex : chain.corners[chain.corners.size() - 2];
        if (side * Cross(before, chain.corners.back(), point) > 0)
            break;
        chain.corners.pop_back();
    }
    while (chain.IsEmpty() && !opposite.IsEmpty() && LeadsPast(opposite.corners[opposite.first], side, point))
        MoveAlong(opposite);
    chain.corners.push_back(point);
}

// Whether the way from the apex to a point of the wall on a side leads past a corner of the other wall. One
// straight behind the point is not reached.
bool CTautString::LeadsPast(SCorner corner, std::int64_t side, SCorner point) const
{
    const std::int64_t turn = side * Cross(m_apex, corner, point);
    const SCorner toCorner = corner - m_apex;
    const SCorner toPoint = point - corner;
    return turn < 0 || (turn == 0 && toCorner.x * toPoint.x + toCorner.y * toPoint.y >= 0);
}

void CTautString::MoveAlong(SChain& chain)
{
    const SCorner next = chain.corners[chain.first++];
    m_length += std::hypot(static_cast<double>(next.x - m_apex.x) * m_unitX,
                           static_cast<double>(next.y - m_apex.y) * m_unitY);
    m_apex = next;
}

} // namespace CommonUI::Analysis
