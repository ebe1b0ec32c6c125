#pragma once

#include "../../export/Export.h"

#include <cstddef>

namespace CommonUI::Measurement
{

/// Chooses how many points along a side a preview has, by the times that the last ones took: powers of two,
/// so that a smaller surface serves many previews.
class COMMONUIMEASUREMENT_API CPreviewSize
{
public:
    /// The fewest points along a side.
    COMMONUI_CONSTANT std::size_t c_smallest = 64;
    /// The most points along a side.
    COMMONUI_CONSTANT std::size_t c_largest = 1024;

    /// The time in seconds that a preview should take.
    void SetTarget(double seconds) noexcept { m_target = seconds; }
    /// The time in seconds that a preview should take; 0.05 from the start.
    double GetTarget() const noexcept { return m_target; }
    /// At first 128.
    std::size_t Get() const noexcept { return m_size; }
    /// A preview of this size took so long.
    void AddTime(double seconds) noexcept;

private:
    double m_target = 0.05;
    std::size_t m_size = 128;
};

} // namespace CommonUI::Measurement
