#pragma once

#include "../../common/Rect.h"
#include "../../export/Export.h"

#include <cstddef>
#include <vector>

namespace CommonUI
{

/// How far each edge of a control goes with the window: the percent of the window's growth that are added to
/// it. {0, 0, 0, 0} stays, {100, 100, 100, 100} keeps its distance from the lower right corner,
/// {0, 0, 100, 0} grows in width; two controls side by side that share the width have {0, 0, 50, 0} and
/// {50, 0, 100, 0}.
struct SSizerRule {
    int left = 0;   ///< of the growth in width
    int top = 0;    ///< of the growth in height
    int right = 0;  ///< of the growth in width; at least that of the left edge
    int bottom = 0; ///< of the growth in height; at least that of the top edge

    friend bool operator==(const SSizerRule&, const SSizerRule&) = default;
};

/// The rules most controls have.
namespace SizerRules
{
constexpr SSizerRule c_stay{0, 0, 0, 0};               ///< keeps place and size
constexpr SSizerRule c_growWidth{0, 0, 100, 0};        ///< keeps its distances at the left and right
constexpr SSizerRule c_growHeight{0, 0, 0, 100};       ///< keeps its distances above and below
constexpr SSizerRule c_grow{0, 0, 100, 100};           ///< keeps its distances from all edges of the window
constexpr SSizerRule c_moveRight{100, 0, 100, 0};      ///< keeps its size and the distance at the right
constexpr SSizerRule c_moveDown{0, 100, 0, 100};       ///< keeps its size and the distance below
constexpr SSizerRule c_moveCorner{100, 100, 100, 100}; ///< keeps its size, moves with the corner
constexpr SSizerRule c_moveDownGrowWidth{0, 100, 100, 100}; ///< keeps its height, moves down, grows in width
} // namespace SizerRules

/// Computes where the controls of a window lie when the window is larger or smaller than its template. It
/// knows no window: any unit will do. Controls that touch in the template do so at every size, as each edge
/// is rounded alike.
class COMMONUI_API CSizer
{
public:
    /// @param window the size of the window in the template
    explicit CSizer(const SSize& window);

    /// Adds a control. Throws EInternal for shares that are not between 0 and 100, or that are greater for
    /// the left edge than for the right one, or for the upper than for the lower.
    /// @param place its place in the template
    /// @param minimum the least size that it may shrink to; what is larger than the place counts as the place
    /// @return the number of the control: they are counted from 0
    std::size_t Add(const SRect& place, const SSizerRule& rule, const SSize& minimum = {});

    /// How many controls were added; their numbers are below it.
    std::size_t GetCount() const noexcept { return m_controls.size(); }
    /// The size of the window in the template.
    const SSize& GetSize() const noexcept { return m_size; }
    /// The least size of the window at which every control has its minimum, keeps the margin of the template
    /// and covers none that it stood beside. Along a direction in which no control grows that is the size in
    /// the template.
    SSize GetMinimumSize() const;
    /// The places of all controls, by their numbers. A window that is smaller than its minimum gets the
    /// places of its minimum, which it cuts off.
    std::vector<SRect> Compute(const SSize& window) const;
    /// The same rules for a template that is larger by a factor in each direction, such as for a larger font
    /// or longer texts. Minimum sizes grow along.
    /// @param horizontal, vertical at least 1; less counts as 1
    CSizer Scaled(double horizontal, double vertical) const;

private:
    class CAxis;
    struct SControl {
        SRect place;
        SSizerRule rule;
        SSize minimum;
    };

    int GetSlack(const CAxis& axis, const CAxis& across) const;

    SSize m_size;
    std::vector<SControl> m_controls;
};

} // namespace CommonUI
