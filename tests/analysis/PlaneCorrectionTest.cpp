#include "analysis/form/PlaneCorrection.h"

#include "analysis/form/Background.h"
#include "tests/analysis/TestSurfaces.h"

#include <random>

using namespace CommonUI::Analysis;

namespace
{

constexpr auto c_global = ECorrectionScope::Global;
constexpr auto c_linewise = ECorrectionScope::Linewise;
constexpr auto c_offset = ECorrectionMethod::Offset;
constexpr auto c_polynomial = ECorrectionMethod::Polynomial;
constexpr auto c_wizard = ECorrectionMethod::StepWizard;
constexpr auto c_background = ECorrectionMethod::ZeroBackground;

SSurface Corrected(SSurface surface, const SPlaneCorrection& correction)
{
    Correct(surface, correction);
    return surface;
}

double GetLargest(const SSurface& surface)
{
    double largest = 0;
    for (const double z : surface.heights)
        largest = std::max(largest, std::fabs(z));
    return largest;
}

// A full polynomial of the order with coefficients of about 1 on the unit square.
double GetPolynomial(double x, double y, int order)
{
    double z = 0.3;
    for (int i = 0; i <= order; ++i)
        for (int j = 0; i + j <= order; ++j)
            z += std::cos(7 * i + 3 * j) * std::pow(x, i) * std::pow(y, j);
    return z;
}

// Noise of the standard deviation 1.
class CNoise
{
public:
    double operator()() { return m_normal(m_random); }

private:
    std::mt19937 m_random{5};
    std::normal_distribution<double> m_normal{};
};

} // namespace

TEST(PlaneCorrection, RemovesAPolynomialOfItsOrderOnly)
{
    struct SRow {
        const char* what; // is left of the unit square
        bool (*isHole)(double x, double y);
        // Along a narrow strip the terms of high order are almost sums of others, and left out.
        double tolerance = 1e-12;
    };
    const SRow rows[] = {
        {"all", [](double, double) { return false; }},
        {"scattered points", [](double x, double y) { return std::fmod(1e4 * x * y, 3) < 1; }},
        {"a corner", [](double x, double y) { return x > 0.3 || y > 0.2; }},
        {"a disc", [](double x, double y) { return std::hypot(x - 0.5, y - 0.5) > 0.4; }},
        {"a strip", [](double x, double y) { return std::fabs(x - y) > 0.1; }, 1e-8},
    };
    for (const SRow& row : rows)
        for (std::size_t order = 1; order <= 9; ++order) {
            const SSurface surface = MakeSurface(150, 120, [&](double column, double line) {
                const double x = column / 150;
                const double y = line / 120;
                return row.isHole(x, y) ? c_missing : GetPolynomial(x, y, static_cast<int>(order));
            });
            const auto getLeft = [&](ECorrectionScope scope, std::size_t by) {
                return GetLargest(Corrected(surface, {scope, c_polynomial, by}));
            };
            EXPECT_LT(getLeft(c_global, order), row.tolerance) << row.what << " " << order;
            EXPECT_LT(getLeft(c_linewise, order), 1e-12) << row.what << " " << order;
            if (order > 1 && &row == rows) {
                EXPECT_GT(getLeft(c_global, order - 1), 1e-8) << order;
                EXPECT_GT(getLeft(c_linewise, order - 1), 1e-8) << order;
            }
        }
}

TEST(PlaneCorrection, LeavesWhatTheFitDoesNotExplain)
{
    // At right angles to all polynomials in x of less than the third order, at nine points.
    const double cubic[] = {-14, 7, 13, 9, 0, -9, -13, -7, 14};
    SSurface surface = MakeSurface(9, 2, [&](double x, double y) {
        return cubic[static_cast<std::size_t>(x)] + 1e3 * x * x - 70 * x + 5 * y;
    });
    for (const ECorrectionScope scope : {c_global, c_linewise}) {
        const SSurface bow = Corrected(surface, {scope, c_polynomial, 2});
        for (std::size_t i = 0; i < 9; ++i)
            EXPECT_NEAR(bow.heights[i], cubic[i], 1e-10) << i;
    }
    const SSurface offset = Corrected(surface, {c_linewise, c_offset});
    for (std::size_t i = 0; i < 9; ++i)
        EXPECT_NEAR(offset.heights[i], offset.heights[i + 9], 1e-10);
    EXPECT_NEAR(offset.heights[4] - offset.heights[0], 16 * 1e3 - 70 * 4 + 14, 1e-9);
}

TEST(PlaneCorrection, LeavesAnExactFormAtZero)
{
    SSurface plane = MakeSurface(64, 48, [](double x, double y) { return 1e-3 + 1e-8 * x - 3e-8 * y; });
    plane.heights[70] = c_missing;
    for (const SPlaneCorrection& correction : {SPlaneCorrection{c_global, c_polynomial, 1},
                                               {c_global, c_polynomial, 9},
                                               {c_linewise, c_polynomial, 2}}) {
        const SSurface flat = Corrected(plane, correction);
        EXPECT_TRUE(std::isnan(flat.heights[70]));
        EXPECT_EQ(GetLargest(flat), 0);
    }
}

TEST(PlaneCorrection, FallsBackWherePointsAreFew)
{
    const auto make = [](std::size_t points, std::size_t lines) {
        return MakeSurface(points, lines, [](double x, double y) { return 3 + x * x * x - 2 * x * y + y; });
    };
    SSurface few = make(5, 4);
    for (std::size_t i = 0; i < few.heights.size(); ++i)
        if (i % 7 != 0)
            few.heights[i] = c_missing;
    SSurface none = few;
    none.heights.assign(20, c_missing);
    const SSurface surfaces[] = {make(1, 1), make(2, 2), make(1, 7), make(7, 1), few, none, make(0, 0)};
    for (const SSurface& surface : surfaces)
        for (const ECorrectionScope scope : {c_global, c_linewise})
            for (const ECorrectionMethod method : {c_offset, c_polynomial, c_wizard, c_background})
                for (const std::size_t order : {1U, 2U, 9U}) {
                    const SSurface corrected = Corrected(surface, {scope, method, order});
                    for (std::size_t i = 0; i < surface.heights.size(); ++i)
                        EXPECT_EQ(std::isnan(corrected.heights[i]), std::isnan(surface.heights[i]));
                    EXPECT_LE(GetLargest(corrected), 2 * GetLargest(surface));
                    if (method == c_polynomial && order == 9 && surface.heights.size() < 8) {
                        EXPECT_LT(GetLargest(corrected), 1e-12); // as many terms as points
                    }
                }
}

TEST(PlaneCorrection, LevelsTerraces)
{
    struct SRow {
        ECorrectionScope scope;
        std::size_t order;
        double bow;
        double noise;
        double quantum;   // to which heights are rounded, 0 for not
        double slope = 1; // as a multiple of the noise, about
    };
    const double steps[] = {0, 100, 150};
    // The reference is the terrace that takes up half of each line.
    const auto getTerrace = [](double x, double y) {
        const double at = x + (y > 100 ? 5 : 0);
        return at < 60 ? 1U : at < 140 ? 0U : 2U;
    };
    for (const SRow& row :
         {SRow{c_global, 1, 0, 1, 0}, SRow{c_global, 1, 0, 0, 0}, SRow{c_global, 2, 300, 1, 0},
          SRow{c_linewise, 1, 0, 1, 0}, SRow{c_linewise, 2, 300, 1, 0}, SRow{c_global, 1, 0, 0.2, 2},
          SRow{c_linewise, 1, 0, 0, 2}, SRow{c_global, 1, 0, 1, 0, 8}}) {
        CNoise noise;
        const SSurface surface = MakeSurface(200, 150, [&](double x, double y) {
            if (x + y < 20 || (x == 100 && y < 90))
                return c_missing;
            const double form = 4000 + row.slope * (1.1 * x - 0.7 * y) + row.bow * (x - 90) * (x - 70) / 1e4;
            const double z = form + steps[getTerrace(x, y)] + row.noise * noise();
            return row.quantum > 0 ? row.quantum * std::round(z / row.quantum) : z;
        });
        const auto worst = [&](const SPlaneCorrection& correction) {
            const SSurface corrected = Corrected(surface, correction);
            double sum = 0;
            for (std::size_t i = 0; i < corrected.heights.size(); ++i) {
                const double step =
                    steps[getTerrace(static_cast<double>(i % 200), static_cast<double>(i / 200))];
                if (!std::isnan(corrected.heights[i]))
                    sum = std::max(sum, std::fabs(corrected.heights[i] - step));
            }
            return sum;
        };
        const testing::Message what = testing::Message()
                                      << static_cast<int>(row.scope) << " " << row.order << " " << row.noise
                                      << " " << row.quantum << " " << row.slope;
        EXPECT_LT(worst({row.scope, c_wizard, row.order}), 5.5 * row.noise + row.quantum + 1e-9) << what;
        EXPECT_GT(worst({row.scope, c_polynomial, row.order}), 30) << what;
    }
}

TEST(PlaneCorrection, WithoutTerracesTheWizardFitsAllPoints)
{
    const SSurface waves = MakeSurface(150, 100, [](double x, double y) {
        return 50 * std::sin(x / 25) * std::cos(y / 30) + 0.3 * x - 0.1 * y;
    });
    for (const ECorrectionScope scope : {c_global, c_linewise}) {
        const SSurface wizard = Corrected(waves, {scope, c_wizard, 1});
        const SSurface plain = Corrected(waves, {scope, c_polynomial, 1});
        double furthest = 0;
        for (std::size_t i = 0; i < waves.heights.size(); ++i)
            furthest = std::max(furthest, std::fabs(wizard.heights[i] - plain.heights[i]));
        EXPECT_LT(furthest, 1e-11);
    }
}

TEST(PlaneCorrection, MovesTheLowestPeakOfTheDistributionToZero)
{
    CNoise noise;
    const SSurface surface = MakeSurface(100, 100, [&](double x, double y) {
        const double particle = x < 70 ? 0 : 500; // most points in half the lines
        return 1000 + 20 * y + particle + noise() - (x == y && x < 5 ? 300 : 0);
    });
    const SSurface lines = Corrected(surface, {c_linewise, c_background});
    for (std::size_t y = 0; y < 100; ++y)
        EXPECT_NEAR(lines.heights[y * 100 + 50], 0, 4.5);

    std::vector<double> heights;
    for (int i = 0; i < 10000; ++i)
        heights.push_back(i < 3 ? -1e4 : (i < 3000 ? 10 : 50) + noise());
    EXPECT_NEAR(FindBackground(heights), 10, 0.1);
    EXPECT_EQ(FindBackground(std::vector{c_missing, 2.5, 2.5}), 2.5);
    EXPECT_TRUE(std::isnan(FindBackground({})));
}
