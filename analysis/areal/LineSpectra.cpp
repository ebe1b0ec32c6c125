#include "analysis/areal/detail/LineSpectra.h"

#include "analysis/numeric/detail/Parallel.h"
#include "analysis/numeric/detail/Summation.h"
#include "analysis/numeric/HannWindow.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Analysis
{

namespace
{

using CComplex = CLineSpectra::CComplex;

// How much of the size of a transform a taper takes. What is left at 0 keeps the transform fine enough for
// the power of a wave to be summed up between its frequencies.
constexpr double c_tapered = 0.8;

// @param size of the transform
std::vector<double> MakeTaper(std::size_t count, std::size_t size, CLineSpectra::ETaper taper)
{
    if (taper == CLineSpectra::ETaper::None)
        return std::vector<double>(count, 1.0);
    return MakeHannWindow(count, std::min(static_cast<double>(count), c_tapered * static_cast<double>(size)));
}

double ComputeWeightedMean(const SSurface& surface, CLineSpectra::ETaper taper)
{
    const auto alongX = MakeTaper(surface.points, CFourierTransform(surface.points).GetSize(), taper);
    const auto alongY = MakeTaper(surface.lines, CFourierTransform(surface.lines).GetSize(), taper);
    const auto [sum, weights] = PairwiseSum(0, surface.lines, [&](std::size_t line) {
                                    return PairwiseSum(0, surface.points, [&](std::size_t i) {
                                        const double z = surface.heights[line * surface.points + i];
                                        const double weight = alongX[i] * alongY[line];
                                        return std::isnan(z) ? SSums<2>{} : SSums<2>{weight * z, weight};
                                    });
                                }).values;
    return sum / weights;
}

CComplex TurnLeft(CComplex value)
{
    return {-value.imag(), value.real()}; // times i
}

} // namespace

CLineSpectra::CLineSpectra(const SSurface& surface, double mean, std::size_t leastSize, ETaper taper)
    : m_lines(surface.lines)
    , m_transform(leastSize)
    , m_blocks((surface.lines + c_blockLines - 1) / c_blockLines)
{
    for (std::size_t i = 0; i < m_blocks.size(); ++i)
        m_blocks[i].resize(std::min(c_blockLines, m_lines - i * c_blockLines) * GetWidth());
    const auto alongX = MakeTaper(surface.points, GetSize(), taper);
    const auto alongY = MakeTaper(surface.lines, CFourierTransform(surface.lines).GetSize(), taper);
    const auto getHeight = [&](std::size_t line, std::size_t i) {
        const double z = line < m_lines ? surface.heights[line * surface.points + i] : c_missing;
        return std::isnan(z) ? 0 : (z - mean) * alongX[i] * alongY[line];
    };
    ComputeInShares((m_lines + 1) / 2, [&](std::size_t first, std::size_t last) {
        std::vector<CComplex> pair(GetSize());
        for (std::size_t line = 2 * first; line < 2 * last; line += 2) {
            std::fill(pair.begin(), pair.end(), CComplex());
            for (std::size_t i = 0; i < surface.points; ++i)
                pair[i] = {getHeight(line, i), getHeight(line + 1, i)};
            m_transform.Forward(pair);
            SetLines(line, pair);
        }
    });
}

CLineSpectra::CLineSpectra(const SSurface& surface, ETaper taper)
    : CLineSpectra(surface, ComputeWeightedMean(surface, taper), surface.points, taper)
{
}

// The transform of a real sequence is its own mirror image, conjugate, which parts the two lines.
void CLineSpectra::SetLines(std::size_t first, std::span<const CComplex> transformed)
{
    CComplex* const values = At(first);
    const bool hasSecond = first + 1 < m_lines;
    for (std::size_t k = 0; k < GetWidth(); ++k) {
        const CComplex mirrored = std::conj(transformed[(GetSize() - k) % GetSize()]);
        values[k] = (transformed[k] + mirrored) / 2.0;
        if (hasSecond)
            values[GetWidth() + k] = TurnLeft(mirrored - transformed[k]) / 2.0;
    }
}

void CLineSpectra::GetColumn(std::size_t frequency, std::span<CComplex> column) const
{
    for (std::size_t line = 0; line < m_lines; ++line)
        column[line] = At(line)[frequency];
    std::fill(column.begin() + static_cast<std::ptrdiff_t>(m_lines), column.end(), CComplex());
}

void CLineSpectra::SetColumn(std::size_t frequency, std::span<const CComplex> column)
{
    for (std::size_t line = 0; line < column.size(); ++line)
        At(line)[frequency] = column[line];
}

void CLineSpectra::KeepLines(std::size_t count)
{
    m_lines = std::min(m_lines, count);
    m_blocks.resize((m_lines + c_blockLines - 1) / c_blockLines);
}

void CLineSpectra::TransformBack(std::size_t first, std::size_t second, std::span<CComplex> values) const
{
    const CComplex* const firstLine = At(first);
    const CComplex* const secondLine = second < m_lines ? At(second) : nullptr;
    for (std::size_t k = 0; k < GetWidth(); ++k) {
        const CComplex a = firstLine[k];
        const CComplex b = secondLine ? secondLine[k] : CComplex();
        values[(GetSize() - k) % GetSize()] = std::conj(a) + TurnLeft(std::conj(b));
        values[k] = a + TurnLeft(b);
    }
    m_transform.Inverse(values);
}

} // namespace CommonUI::Analysis
