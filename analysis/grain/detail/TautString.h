#pragma once

#include "analysis/grain/detail/Corner.h"

#include <cstddef>
#include <vector>

namespace CommonUI::Analysis
{

/// The shortest way through a winding band, found while the band is followed: the "funnel" of Lee and
/// Preparata (1984). The band is given by gates across it, one after the other, that do not overlap. Takes
/// time proportional to the number of gates.
class CTautString
{
public:
    /// @param unitX, unitY lengths of one step of the lattice
    CTautString(SCorner start, double unitX, double unitY);

    /// The way goes between two points of the band's walls, `right` being on the side to which x turns into
    /// y.
    void AddGate(SCorner right, SCorner left);
    /// The way goes through this point, as it does at its end.
    void PassThrough(SCorner point);

    /// Length of the way to the last point that it has passed through.
    double GetLength() const { return m_length; }

private:
    // The shortest way from the apex to a wall point: a chain of corners that bends to one side only.
    struct SChain {
        std::vector<SCorner> corners;
        std::size_t first = 0;

        bool IsEmpty() const { return first == corners.size(); }
        void Clear();
    };

    void Narrow(SChain& chain, SChain& opposite, std::int64_t side, SCorner point);
    bool LeadsPast(SCorner corner, std::int64_t side, SCorner point) const;
    void MoveAlong(SChain& chain);

    SChain m_right;
    SChain m_left;
    SCorner m_apex; // up to here the way is known
    double m_unitX;
    double m_unitY;
    double m_length = 0;
};

} // namespace CommonUI::Analysis
