#include "programs/make_sample/SampleSurface.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>

namespace MakeSample
{

namespace
{

constexpr int c_points = 128;
constexpr int c_lines = 96;
constexpr std::size_t c_width = 5; // of the smoothing, in points

// Whole numbers only, so that no rounding differs from one machine to the next. Generator: Park and Miller,
// 1988.
class CRandom
{
public:
    // -range … range
    int Get(int range)
    {
        m_state = m_state * 48271 % 2147483647;
        return static_cast<int>(m_state % static_cast<std::uint64_t>(2 * range + 1)) - range;
    }

private:
    std::uint64_t m_state = 20130529;
};

// Marks of the grains, in nm: noise along x, smoothed.
std::array<int, c_points> MakeGrooves(CRandom& random, int range)
{
    std::array<int, c_points + c_width - 1> noise;
    for (int& value : noise)
        value = random.Get(range);
    std::array<int, c_points> grooves{};
    for (std::size_t i = 0; i < c_points; ++i)
        for (std::size_t j = 0; j < c_width; ++j)
            grooves[i] += noise[i + j] / static_cast<int>(c_width);
    return grooves;
}

// A scratch of V section along a slanting line.
int GetScratchDepth(int x, int y, int start, int slope, int depth)
{
    const int distance = std::abs(8 * (x - start) - slope * y); // in eighths of a point
    return std::max(0, depth - depth * distance / 20);
}

int GetForm(int x, int y)
{
    const int fromMiddle = x - c_points / 2;
    return 4 * x - 3 * y - fromMiddle * fromMiddle / 16; // nm: tilted and slightly bulged
}

bool IsMissing(int x, int y)
{
    return (x - 90) * (x - 90) + (y - 30) * (y - 30) < 10 || (x * 37 + y * 101) % 1999 == 5;
}

} // namespace

std::string MakeSampleSurface()
{
    std::string text = "aISO-1.0\n"
                       "ManufacID   = Made up\n"
                       "CreateDate  = 010120250000\n"
                       "ModDate     = 010120250000\n"
                       "NumPoints   = 128\n"
                       "NumProfiles = 96\n"
                       "Xscale      = 5.0E-7\n"
                       "Yscale      = 5.0E-7\n"
                       "Zscale      = 1.0E-9\n"
                       "Zresolution = -1\n"
                       "Compression = 0\n"
                       "DataType    = 5\n"
                       "CheckType   = 0\n"
                       "*\n";
    CRandom random;
    const auto lasting = MakeGrooves(random, 900);
    for (int y = 0; y < c_lines; ++y) {
        const auto passing = MakeGrooves(random, 120);
        for (int x = 0; x < c_points; ++x) {
            const auto i = static_cast<std::size_t>(x);
            const int z = lasting[i] + passing[i] + random.Get(8) + GetForm(x, y) -
                          GetScratchDepth(x, y, 20, 5, 1400) - GetScratchDepth(x, y, 110, -3, 900);
            text += IsMissing(x, y) ? "BAD" : std::to_string(z);
            text += x + 1 == c_points ? '\n' : ' ';
        }
    }
    return text + "*\n";
}

} // namespace MakeSample
