#include "controls/labels/FontFit.h"

#include <cmath>

namespace CommonUI
{

double FitFont(const SSize& room, const SFontRange& range, const FMeasureFont& measure)
{
    const auto sizeOf = [&](long step) { return range.least + static_cast<double>(step) * range.step; };
    const auto fits = [&](long step) {
        const SSize size = measure(sizeOf(step));
        return size.cx <= room.cx && size.cy <= room.cy;
    };
    long least = 0;
    // A step more than less than the whole is lost to rounding.
    long greatest = std::lround(std::floor((range.greatest - range.least) / range.step + 1e-9));
    while (least < greatest) {
        const long middle = (least + greatest + 1) / 2;
        if (fits(middle))
            least = middle;
        else
            greatest = middle - 1;
    }
    return sizeOf(least);
}

} // namespace CommonUI
