#pragma once

#include "analysis/numeric/FourierTransform.h"
#include "analysis/surface/Surface.h"

#include <cstddef>
#include <span>
#include <vector>

namespace CommonUI::Analysis
{

/// The lines of a surface, each transformed along x on its own: the first half of the transform of the
/// surface. The heights are counted from a mean; a missing point counts as one of that height.
///
/// As the heights are real, only the frequencies 0 … size/2 are kept. Functions may run in several threads at
/// once on different columns or lines.
class CLineSpectra
{
public:
    using CComplex = CFourierTransform::CComplex;

    /// Whether the heights fade towards the edges of the surface (Hann window in both directions), so that
    /// the edges are not taken for texture.
    enum class ETaper { None, Hann };

    /// @param leastSize of the transform along x, at least the points of a line
    CLineSpectra(const SSurface& surface, double mean, std::size_t leastSize, ETaper taper);
    /// Of a size that holds the points of a line. The heights are counted from their mean with the weights of
    /// the taper, so that no constant part is left.
    CLineSpectra(const SSurface& surface, ETaper taper);

    std::size_t GetSize() const { return m_transform.GetSize(); }
    /// Number of the frequencies along x.
    std::size_t GetWidth() const { return GetSize() / 2 + 1; }
    std::size_t GetLines() const { return m_lines; }

    /// The values of all lines at one frequency; the rest of a longer column becomes 0.
    void GetColumn(std::size_t frequency, std::span<CComplex> column) const;
    /// Replaces the first lines' values at one frequency.
    void SetColumn(std::size_t frequency, std::span<const CComplex> column);
    /// Lets go of the lines behind so many, which nobody asks for any more.
    void KeepLines(std::size_t count);
    /// Transforms two lines back, into the real and the imaginary parts; multiplied by the size.
    /// @param second beyond the last line it counts as 0
    /// @param values as many as the size
    void TransformBack(std::size_t first, std::size_t second, std::span<CComplex> values) const;

private:
    static constexpr std::size_t c_blockLines = 64; // even, as lines are set in pairs

    void SetLines(std::size_t first, std::span<const CComplex> transformed);
    // The values of a line.
    CComplex* At(std::size_t line)
    {
        return &m_blocks[line / c_blockLines][line % c_blockLines * GetWidth()];
    }
    const CComplex* At(std::size_t line) const
    {
        return &m_blocks[line / c_blockLines][line % c_blockLines * GetWidth()];
    }

    std::size_t m_lines;
    CFourierTransform m_transform;
    std::vector<std::vector<CComplex>> m_blocks; // some lines each, line after line
};

} // namespace CommonUI::Analysis
