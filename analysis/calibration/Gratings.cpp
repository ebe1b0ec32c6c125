#include "analysis/calibration/Gratings.h"

#include "analysis/calibration/detail/GratingSpectrum.h"
#include "analysis/calibration/detail/Sections.h"
#include "analysis/form/Levelling.h"
#include "analysis/numeric/detail/Parallel.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <span>

namespace CommonUI::Analysis
{

namespace
{

constexpr double c_degrees = 180 / std::numbers::pi;
constexpr std::string_view c_noGrating = "there is no grating of three periods or more";

// Sums of a straight line through places over numbers.
struct SLineSums {
    double xx = 0;
    double xy = 0;
};

// The levels at which lines of a grating begin and end.
struct SLevels {
    double mean = 0;
    double up = 0;
    double down = 0;
};

SLevels FindLevels(std::span<const double> heights)
{
    const auto meanOf = [&](const auto& isMeant) {
        double sum = 0;
        std::size_t count = 0;
        for (const double z : heights)
            if (isMeant(z)) { // not NaN
                sum += z;
                ++count;
            }
        return sum / static_cast<double>(count);
    };
    SLevels levels;
    levels.mean = meanOf([](double z) { return !std::isnan(z); });
    levels.up = levels.mean + (meanOf([&](double z) { return z > levels.mean; }) - levels.mean) / 4;
    levels.down = levels.mean - (levels.mean - meanOf([&](double z) { return z < levels.mean; })) / 4;
    return levels;
}

// Integrals of the height above the mean, and of that times the place, over a line of the grating.
struct SMoments {
    double area = 0;
    double moment = 0;

    // From place a to b with the heights there, straight between them.
    void Add(double a, double b, double atA, double atB)
    {
        const double width = b - a;
        area += width * (atA + atB) / 2;
        moment += width * (a * (2 * atA + atB) + b * (atA + 2 * atB)) / 6;
    }
};

// Where the height crosses the mean between a point and the next.
double FindCrossing(std::size_t point, double z, double next)
{
    return static_cast<double>(point) + z / (z - next);
}

// The centres of gravity of the lines of a grating that lie in a section as a whole, in points.
class CCentroids
{
public:
    static std::vector<double> Find(std::span<const double> heights)
    {
        CCentroids finder(heights);
        return std::move(finder.m_places);
    }

private:
    explicit CCentroids(std::span<const double> heights)
        : m_levels(FindLevels(heights))
    {
        for (std::size_t i = 0; i + 1 < heights.size(); ++i) {
            if (std::isnan(heights[i]) || std::isnan(heights[i + 1]))
                Break();
            else
                Advance(i, heights[i] - m_levels.mean, heights[i + 1] - m_levels.mean);
        }
    }

    // What is cut by a missing point is no whole line.
    void Break()
    {
        m_isBelow = false;
        m_isLine = false;
    }

    void Advance(std::size_t point, double z, double next)
    {
        const auto at = static_cast<double>(point);
        if (z + m_levels.mean < m_levels.down) {
            End();
            m_isBelow = true;
        }
        if (m_isBelow && z <= 0 && next > 0) { // the last crossing before the level above is reached
            const double from = FindCrossing(point, z, next);
            m_line = {};
            m_isLine = true;
            m_line.Add(from, at + 1, 0, next);
            m_isHigh = false;
            m_ends = false;
        } else if (m_isLine && !m_ends) {
            m_ends = m_isHigh && z > 0 && next <= 0;
            m_line.Add(at, m_ends ? FindCrossing(point, z, next) : at + 1, z, m_ends ? 0 : next);
        } else if (m_isLine && next > 0) { // it has only dipped
            m_line.Add(at, at + 1, z, next);
            m_ends = false;
        }
        if (m_isLine && next + m_levels.mean > m_levels.up) {
            m_isHigh = true;
            m_isBelow = false;
        }
    }

    void End()
    {
        if (m_isLine && m_isHigh && m_line.area > 0)
            m_places.push_back(m_line.moment / m_line.area);
        m_isLine = false;
    }

    SLevels m_levels;
    std::vector<double> m_places{};
    SMoments m_line{};
    bool m_isLine = false;  // whether a line has begun
    bool m_isBelow = false; // whether a line may begin
    bool m_isHigh = false;  // whether the line has reached the level above
    bool m_ends = false;    // whether the line has fallen to the mean
};

// The single pitches of a section.
std::vector<double> FindPitches(std::span<const double> places, double pitch, SLineSums& sums)
{
    std::vector<double> pitches;
    std::vector<double> numbers(places.size());
    double meanNumber = 0;
    double meanPlace = 0;
    for (std::size_t i = 0; i < places.size(); ++i) {
        numbers[i] = std::round((places[i] - places.front()) / pitch);
        meanNumber += numbers[i] / static_cast<double>(places.size());
        meanPlace += places[i] / static_cast<double>(places.size());
        if (i == 0)
            continue;
        const double single = places[i] - places[i - 1];
        if (std::fabs(single - pitch) <= pitch / 2)
            pitches.push_back(single);
    }
    for (std::size_t i = 0; i < places.size(); ++i) {
        sums.xx += std::pow(numbers[i] - meanNumber, 2);
        sums.xy += (numbers[i] - meanNumber) * (places[i] - meanPlace);
    }
    return pitches;
}

// @param alongSection the pitch along the sections, m
// @param factor from there to across the lines
void AddSections(const SSurface& surface, double alongSection, double factor, SGrating& grating)
{
    const CSections sections(surface, grating.isAlongY);
    grating.sections.resize(sections.GetCount());
    std::vector<SLineSums> sums(sections.GetCount());
    ComputeInShares(sections.GetCount(), [&](std::size_t first, std::size_t last) {
        for (std::size_t i = first; i < last; ++i) {
            std::vector<double> places = CCentroids::Find(sections.Get(i));
            for (double& place : places)
                place *= sections.GetSpacing();
            grating.sections[i] = FindPitches(places, alongSection, sums[i]);
            for (double& pitch : grating.sections[i])
                pitch *= factor;
        }
    });
    SLineSums all;
    for (const SLineSums& sum : sums) {
        all.xx += sum.xx;
        all.xy += sum.xy;
    }
    if (all.xx > 0)
        grating.centroidPitch = all.xy / all.xx * factor;
}

// Of two opposite directions the one to the right, in degrees.
double FoldAngle(double angle)
{
    if (angle > 90)
        return angle - 180;
    return angle <= -90 ? angle + 180 : angle;
}

struct SVector {
    double x;
    double y;

    double GetLength() const { return std::hypot(x, y); }
    double GetAngle() const { return FoldAngle(std::atan2(y, x) * c_degrees); }
};

} // namespace

std::vector<double> SGrating::GetPitches() const
{
    std::vector<double> pitches;
    for (const auto& section : sections)
        pitches.insert(pitches.end(), section.begin(), section.end());
    return pitches;
}

SGrating MeasureGrating(const SSurface& surface)
{
    const std::optional<SWave> wave = CGratingSpectrum(surface).FindWave();
    if (!wave)
        return {.reason = c_noGrating};
    SGrating grating;
    const double frequency = std::hypot(wave->x, wave->y);
    grating.pitch = 1 / frequency;
    grating.direction = FoldAngle(std::atan2(wave->y, wave->x) * c_degrees);
    const double extentX = static_cast<double>(surface.points) * surface.dx;
    const double extentY = static_cast<double>(surface.lines) * surface.dy;
    grating.isAlongY = std::fabs(wave->y) * extentY > std::fabs(wave->x) * extentX;
    const double along = std::fabs(grating.isAlongY ? wave->y : wave->x);
    SSurface level = surface;
    Level(level, ELevelling::Plane);
    AddSections(level, 1 / along, along / frequency, grating);
    return grating;
}

SLattice MeasureLattice(const SSurface& surface)
{
    if (surface.IsProfile())
        return {.reason = "a profile has no second direction"};
    const CGratingSpectrum spectrum(surface);
    const std::optional<SWave> first = spectrum.FindWave();
    if (!first)
        return {.reason = c_noGrating};
    const std::optional<SWave> second = spectrum.FindWave(first);
    if (!second)
        return {.reason = "the grating has one direction only"};
    const bool isFirstX = std::fabs(first->x) * std::hypot(second->x, second->y) >=
                          std::fabs(second->x) * std::hypot(first->x, first->y);
    const SWave& x = isFirstX ? *first : *second;
    const SWave& y = isFirstX ? *second : *first;
    // The lattice is what the waves are the reciprocal of.
    const double determinant = x.x * y.y - x.y * y.x;
    const SVector alongX{y.y / determinant, -y.x / determinant};
    const SVector alongY{-x.y / determinant, x.x / determinant};
    SLattice lattice{.pitchX = alongX.GetLength(), .pitchY = alongY.GetLength()};
    lattice.rotation = alongX.GetAngle();
    double angle = alongY.GetAngle() - lattice.rotation;
    angle += angle <= 0 ? 180 : 0;
    lattice.orthogonality = angle - 90;
    return lattice;
}

} // namespace CommonUI::Analysis
