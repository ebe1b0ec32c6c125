#include "programs/surface_view/Palette.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace SurfaceView
{

namespace
{

constexpr std::size_t c_mostColors = 256;
constexpr unsigned int c_lostBits = 2; // of a primary: colours that are so near are one

// Colours that are not told apart.
struct SColorCell {
    std::uint32_t number = 0;
    double count = 0; // of pixels
    std::array<double, 3> sums{};

    double Mean(std::size_t primary) const { return sums[primary] / count; }
};

std::uint32_t CellNumber(const std::uint8_t* color)
{
    const auto part = [&](int primary) { return static_cast<std::uint32_t>(color[primary] >> c_lostBits); };
    return (part(0) << 12) | (part(1) << 6) | part(2);
}

constexpr std::size_t c_cellNumbers = std::size_t{1} << 18;

std::vector<SColorCell> CountColors(const SPicture& picture)
{
    std::vector<SColorCell> all(c_cellNumbers);
    for (std::size_t i = 0; i + 2 < picture.bytes.size(); i += 3) {
        SColorCell& cell = all[CellNumber(&picture.bytes[i])];
        cell.number = CellNumber(&picture.bytes[i]);
        ++cell.count;
        for (std::size_t primary = 0; primary < 3; ++primary)
            cell.sums[primary] += picture.bytes[i + primary];
    }
    std::erase_if(all, [](const SColorCell& cell) { return cell.count == 0; });
    return all;
}

// Neighbouring cells that become one colour.
class CBox
{
public:
    CBox(std::vector<SColorCell>::iterator begin, std::vector<SColorCell>::iterator end)
        : m_begin(begin)
        , m_end(end)
    {
        double count = 0;
        for (auto cell = begin; cell != end; ++cell) {
            count += cell->count;
            for (std::size_t primary = 0; primary < 3; ++primary)
                m_mean[primary] += cell->sums[primary];
        }
        for (double& mean : m_mean)
            mean /= count;
        for (std::size_t primary = 0; primary < 3; ++primary) {
            const double error = DeviationOf(primary);
            if (error <= m_error)
                continue;
            m_error = error;
            m_primary = primary;
        }
    }

    // The sum of squared deviations in the primary that deviates most; 0 for a single cell.
    double GetError() const { return m_error; }

    // Keeps what lies below the mean. @return the rest
    CBox Split()
    {
        const auto middle = std::partition(m_begin, m_end, [this](const SColorCell& cell) {
            return cell.Mean(m_primary) < m_mean[m_primary];
        });
        const CBox rest(middle, m_end);
        *this = CBox(m_begin, middle);
        return rest;
    }

    std::array<std::uint8_t, 3> GetColor() const
    {
        const auto round = [this](std::size_t i) {
            return static_cast<std::uint8_t>(std::lround(m_mean[i]));
        };
        return {round(0), round(1), round(2)};
    }
    auto begin() const { return m_begin; }
    auto end() const { return m_end; }

private:
    double DeviationOf(std::size_t primary) const
    {
        double sum = 0;
        for (auto cell = m_begin; cell != m_end; ++cell) {
            const double difference = cell->Mean(primary) - m_mean[primary];
            sum += cell->count * difference * difference;
        }
        // Less than this is what the rounding of the mean leaves.
        return m_end - m_begin > 1 && sum > 1e-6 ? sum : 0;
    }

    std::vector<SColorCell>::iterator m_begin;
    std::vector<SColorCell>::iterator m_end;
    std::array<double, 3> m_mean{};
    double m_error = 0;
    std::size_t m_primary = 0;
};

} // namespace

SIndexed ReduceColors(const SPicture& picture)
{
    std::vector<SColorCell> cells = CountColors(picture);
    std::vector<CBox> boxes{CBox(cells.begin(), cells.end())};
    while (boxes.size() < c_mostColors) {
        const auto worst = std::ranges::max_element(boxes, {}, &CBox::GetError);
        if (worst->GetError() == 0)
            break;
        boxes.push_back(worst->Split());
    }
    SIndexed indexed;
    std::vector<std::uint8_t> indexOfCell(c_cellNumbers);
    for (const CBox& box : boxes) {
        for (const SColorCell& cell : box)
            indexOfCell[cell.number] = static_cast<std::uint8_t>(indexed.colors.size());
        indexed.colors.push_back(box.GetColor());
    }
    indexed.indices.reserve(picture.bytes.size() / 3);
    for (std::size_t i = 0; i + 2 < picture.bytes.size(); i += 3)
        indexed.indices.push_back(indexOfCell[CellNumber(&picture.bytes[i])]);
    return indexed;
}

} // namespace SurfaceView
