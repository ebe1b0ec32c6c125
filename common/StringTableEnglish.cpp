#include "common/StringTable.h"

#include <algorithm>
#include <iterator>

namespace CommonUI
{

namespace
{

// Rising ids. 7000 to 8999 are the ids that other parts of the application know; 9000 upward are this
// library's own.
constexpr SStringTableRow c_english[] = {
    {7219, u"1D Calibration"},
    {7220, u"X/Y Calibration"},
    {7221, u"Z Calibration"},
    {7222, u"Cross Correlation"},
    {7223, u"Linearity"},
    {7224, u"Plane Correction"},
    {7225, u"Profile Roughness Analysis"},
    {7226, u"Tip Analysis"},
    {7331, u"None"},
    {7332, u"X Center of Gravity, Area"},
    {7333, u"Y Center of Gravity, Area"},
    {7334, u"X Geometric Center"},
    {7335, u"Y Geometric Center"},
    {7336, u"X Center of Gravity, Material"},
    {7337, u"Y Center of Gravity, Material"},
    {7339, u"Perimeter"},
    {7340, u"Length"},
    {7341, u"Breadth"},
    {7342, u"Aspect Ratio"},
    {7343, u"Maximum Caliber"},
    {7344, u"Material Volume"},
    {7346, u"Maximum Height"},
    {7347, u"Mean Height"},
    {7348, u"Std. Dev. of Height"},
    {7349, u"Compactness"},
    {7350, u"Convexity"},
    {7351, u"Form Factor"},
    {7352, u"Roundness"},
    {7353, u"Elongation"},
    {7354, u"Diameter"},
    {7355, u"Solidity"},
    {7356, u"Pixel Area"},
    {7358, u"Radius"},
    {7359, u"Z Minimum"},
    {7360, u"Z Maximum"},
    {7361, u"Z Range"},
    {7362, u"Minimum Contour Height"},
    {7363, u"Maximum Contour Height"},
    {7364, u"Mean Contour Height"},
    {7372, u"Particle & Pore Analysis and Measure Shapes"},
    {7374, u"Void Volume"},
    {7375, u"X Center of Gravity, Void"},
    {7376, u"Y Center of Gravity, Void"},
    {7377, u"Orientation"},
    {7378, u"Net Volume"},
    {7380, u"Maximum Depth"},
    {7382, u"Mean Depth"},
    {7383, u"Std. Dev. of Depth"},
    {7389, u"Type"},
    {7390, u"Plateau Index"},
    {7391, u"Z Median"},
    {7392, u"Z Mean"},
    {7393, u"Z Std. Dev."},
    {7394, u"Z Material Volume"},
    {7395, u"Z Void Volume"},
    {7396, u"Z Net Volume"},
    {7397, u"X Extent"},
    {7398, u"Y Extent"},
    {7399, u"Area"},
    {7400, u"Volume"},
    {7401, u"X Position, Z Min"},
    {7402, u"Y Position, Z Min"},
    {7403, u"X Position, Z Max"},
    {7404, u"Y Position, Z Max"},
    {7405, u"X Min"},
    {7406, u"Y Min"},
    {7407, u"X Max"},
    {7408, u"Y Max"},
    {7409, u"Neighbour Id"},
    {7410, u"Neighbour Distance"},
    {7411, u"Neighbour Angle"},
    {7412, u"All Parameters"},
    {7413, u"Z Volume"},
    {7441, u"Fiber Length"},
    {7443, u"Skeleton Length"},
    {7444, u"Fiber Width"},
    {7446, u"Total"},
    {7447, u"Minimum"},
    {7448, u"Maximum"},
    {7449, u"Mean"},
    {7450, u"Std. Dev."},
    {7451, u"Median"},
    {7452, u"Percentile"},
    {7453, u"Mode"},
    {7454, u"Area Weighted Mean"},
    {7455, u"Area Weighted Std. Dev."},
    {7456, u"Volume Weighted Mean"},
    {7457, u"Volume Weighted Std. Dev."},
    {7467, u"Count"},
    {7468, u"User Defined Width"},
    {7469, u"10 nm Depth"},
    {7470, u"20 nm Depth"},
    {7471, u"50 nm Depth"},
    {7472, u"100 nm Depth"},
    {7473, u"150 nm Depth"},
    {7475, u"Particle & Pore Analysis Settings"},
    {7476, u"Particle & Pore Analysis Time"},
    {7477, u"Particle & Pore Analysis Status"},
    {7478, u"Coverage"},
    {7479, u"Shape Count"},
    {7480, u"Mode Normalized Shape Count"},
    {7481, u"File Name"},
    {7484, u"ID"},
    {7485, u"Median Height"},
    {7486, u"Median Depth"},
    {7733, u"Angle"},
    {7768, u"RGR2 with closing"},
    {7769, u"Closing"},
    {7770, u"Line"},
    {7771, u"Parabola"},
    {7784, u"Image Roughness Analysis"},
    {7799, u"RGR0 with closing"},
    {7807, u"Std. Dev. %"},
    {7808, u"No Standard"},
    {7810, u"VORN Classic"},
    {7812, u"ISO 4287"},
    {7814, u"ISO 13565-2"},
    {7816, u"ISO 12085"},
    {7818, u"Plug-in Parameters"},
    {7821, u"Decimals"},
    {7822, u"Decimals"},
    {7823, u"Digits"},
    {7824, u"Digits"},
    {7959, u"No Report"},
    {7960, u"To Word"},
    {7961, u"To HTML"},
    {7962, u"Sum"},
    {7963, u"Integer"},
    {7964, u"Integer"},
};

constexpr bool IsRising()
{
    return std::adjacent_find(std::begin(c_english), std::end(c_english), [](const auto& a, const auto& b) {
               return a.id >= b.id;
           }) == std::end(c_english);
}
static_assert(IsRising(), "the rows are looked up by bisection");

} // namespace

std::span<const SStringTableRow> GetEnglishStringTable()
{
    return c_english;
}

} // namespace CommonUI
