#pragma once

#include "analysis/surface/Surface.h"
#include "view/View.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace SurfaceView
{

/// The lowest and the highest points of squares of a surface, of small ones and of ever larger ones: what of
/// the surface lies at a place of a view is found without a look at all points.
class CHeightTree
{
public:
    CHeightTree() = default;
    explicit CHeightTree(const CommonUI::Analysis::SSurface& surface);

    /// The smallest part with all of the surface that a view may show, and of the cut below its sides.
    /// @param box in which it is drawn
    SGridPart FindSeen(const SBox& box, const SView& view) const;

    /// Where a ray first meets the surface, on which side it may be.
    struct SHit {
        SPoint place{};         ///< in the block
        bool isOutside = false; ///< whether it comes from above; from below it has entered the block before
    };
    /// @param surface that of the tree
    /// @param box in which it is drawn
    std::optional<SHit> FindHit(const CommonUI::Analysis::SSurface& surface, const SBox& box,
                                const SRay& ray) const;

private:
    struct SSpan {
        double lowest = 0;
        double highest = -1; // below the lowest one where there is no point
        bool IsEmpty() const { return highest < lowest; }
        void Add(const SSpan& other);
    };
    // The squares of one size.
    struct SLevel {
        std::size_t columns = 0;
        std::size_t lines = 0;
        std::vector<SSpan> spans{};
    };
    struct SSquare {
        std::size_t level = 0;
        std::size_t column = 0;
        std::size_t line = 0;
    };
    // The ends of a square, and of its heights.
    struct SExtent {
        std::size_t left = 0;
        std::size_t right = 0; // the last one
        std::size_t first = 0;
        std::size_t last = 0;
        SSpan heights{};
    };

    SLevel MakeSmallest(const CommonUI::Analysis::SSurface& surface) const;
    static SLevel MakeLarger(const SLevel& level);
    SExtent Bound(const SSquare& square) const;
    template<class FIsMeant, class FVisit>
    void Descend(const SSquare& square, FIsMeant& isMeant, FVisit& visit) const;

    std::size_t m_points = 0;
    std::size_t m_lines = 0;
    std::vector<SLevel> m_levels{}; // from the smallest squares to the one of all
};

} // namespace SurfaceView
