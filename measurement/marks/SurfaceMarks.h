#pragma once

#include "../../analysis/profile/LineProfile.h"
#include "../../export/Export.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace CommonUI::Measurement
{

/// What somebody draws over a surface.
enum class EMark {
    Profile,  ///< a line along which the heights are looked at
    Distance, ///< between two places
    Angle     ///< at the second of three places
};

/// Something drawn over a surface.
struct SMark {
    int number = 0;              ///< by which people tell it, from 1; one that has gone may come again
    EMark kind = EMark::Profile; ///< what it measures
    std::vector<Analysis::SPlace> points{}; ///< two, of an angle three

    friend bool operator==(const SMark&, const SMark&) = default;
};

/// What has been drawn over a surface. All places stay on it.
class COMMONUIMEASUREMENT_API CSurfaceMarks
{
public:
    /// No marks yet. @param surface of which only the size is kept
    explicit CSurfaceMarks(const Analysis::SSurface& surface) { SetSurface(surface); }

    /// Another surface for the same marks, which are moved onto it where they are beside.
    void SetSurface(const Analysis::SSurface& surface);
    /// In the order of drawing; valid until the marks change. Indices count these.
    const std::vector<SMark>& GetAll() const noexcept { return m_marks; }
    /// Draws something whose places are all one for now.
    /// @return its index
    std::size_t Add(EMark kind, const Analysis::SPlace& place);
    /// Those behind it move up. @param mark index of one that there is, which is not checked
    void Remove(std::size_t mark);
    /// Moves a point, as far as the surface goes. @param mark, point indices that are not checked
    void MovePoint(std::size_t mark, std::size_t point, const Analysis::SPlace& to);
    /// Moves all of it, as far as it stays on the surface.
    void MoveBy(std::size_t mark, double dx, double dy);

    /// What there is at a place: a point of a mark, or one of its lines.
    struct SHit {
        std::size_t mark = 0;               ///< index of the mark
        std::optional<std::size_t> point{}; ///< index of its point; nothing for a line

        friend bool operator==(const SHit&, const SHit&) = default;
    };
    /// The nearest within a distance, which may differ along x and y; points come before lines, and what was
    /// drawn last before the others.
    std::optional<SHit> Find(const Analysis::SPlace& place, double reachX, double reachY) const;

private:
    Analysis::SPlace Keep(const Analysis::SPlace& place) const;
    int FindFreeNumber(EMark kind) const;

    Analysis::SPlace m_far{}; // the last point of the surface
    std::vector<SMark> m_marks{};
};

} // namespace CommonUI::Measurement
