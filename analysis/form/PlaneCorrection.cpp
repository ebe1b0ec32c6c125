#include "analysis/form/PlaneCorrection.h"

#include "analysis/filter/MedianFilter.h"
#include "analysis/form/Background.h"
#include "analysis/form/detail/PolynomialFit.h"
#include "analysis/form/detail/TerraceForm.h"
#include "analysis/numeric/detail/Parallel.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace CommonUI::Analysis
{

namespace
{

SGrid GetAll(SSurface& surface)
{
    return {.heights = surface.heights, .points = surface.points, .lines = surface.lines};
}

SGrid GetLine(SSurface& surface, std::size_t line)
{
    return {.heights = GetAll(surface).GetLine(line), .points = surface.points, .lines = 1};
}

// Calls correct for the parts of the surface that are corrected each for itself.
template<class FCorrect>
void ForEachPart(SSurface& surface, ECorrectionScope scope, const FCorrect& correct)
{
    if (scope == ECorrectionScope::Global)
        correct(GetAll(surface), 0);
    else
        ComputeInShares(surface.lines, [&](std::size_t first, std::size_t last) {
            for (std::size_t line = first; line < last; ++line)
                correct(GetLine(surface, line), line);
        });
}

void RemovePolynomials(SSurface& surface, ECorrectionScope scope, std::size_t order)
{
    ForEachPart(surface, scope, [&](const SGrid& grid, std::size_t) { RemovePolynomial(grid, order); });
}

void MoveBackgrounds(SSurface& surface, ECorrectionScope scope)
{
    ForEachPart(surface, scope, [](const SGrid& grid, std::size_t) {
        const double background = FindBackground(grid.heights);
        for (double& height : grid.heights)
            height -= background;
    });
}

void LevelTerraces(SSurface& surface, ECorrectionScope scope, std::size_t order)
{
    constexpr std::size_t c_window = 5;
    const bool isGlobal = scope == ECorrectionScope::Global;
    const auto makeSmooth = [&] {
        return SmoothInside(surface, surface.points < c_window ? 1 : c_window,
                            !isGlobal || surface.lines < c_window ? 1 : c_window);
    };
    SSurface smooth = makeSmooth();
    const auto getSmooth = [&](std::size_t line) {
        return isGlobal ? GetAll(smooth) : GetLine(smooth, line);
    };
    std::vector<SPairing> pairings(isGlobal ? 1 : surface.lines);
    ForEachPart(surface, scope,
                [&](const SGrid&, std::size_t line) { pairings[line] = ChoosePairing(getSmooth(line)); });
    // Twice over a surface: on a steep one, the median of a square window moves the flanks of steps.
    for (int pass = isGlobal ? 0 : 1; pass < 2; ++pass) {
        ForEachPart(surface, scope, [&](const SGrid& grid, std::size_t line) {
            RemoveSlopes(grid, getSmooth(line), pairings[line], order);
        });
        smooth = makeSmooth();
    }
    ForEachPart(surface, scope, [&](const SGrid& grid, std::size_t line) {
        RemoveTerraceForm(grid, getSmooth(line), pairings[line], order);
    });
}

} // namespace

void Correct(SSurface& surface, const SPlaneCorrection& correction)
{
    switch (correction.method) {
    case ECorrectionMethod::Offset:
        return RemovePolynomials(surface, correction.scope, 0);
    case ECorrectionMethod::Polynomial:
        return RemovePolynomials(surface, correction.scope, std::clamp<std::size_t>(correction.order, 1, 9));
    case ECorrectionMethod::StepWizard:
        return LevelTerraces(surface, correction.scope, std::clamp<std::size_t>(correction.order, 1, 2));
    case ECorrectionMethod::ZeroBackground:
        return MoveBackgrounds(surface, correction.scope);
    }
}

} // namespace CommonUI::Analysis
