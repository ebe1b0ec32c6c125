#include "examples/gallery/SampleResults.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace Gallery
{

namespace
{

using namespace CommonUI;
using CGrid = CGridBaseOutputCtrl;

struct SSampleColumn {
    const char16_t* header;
    const char16_t* group;
    const char16_t* unit;
    const char16_t* format;
};

constexpr SSampleColumn c_columns[] = {
    {u"Ra", u"Height", u"\u00B5m", u"%.3f"},
    {u"Rq", u"Height", u"\u00B5m", u"%.3f"},
    {u"Rz", u"Height", u"\u00B5m", u"%.2f"},
    {u"RSm\r\nmean width", u"Spacing", u"\u00B5m", u"%.1f"},
    {u"Rdq\r\nroot mean square slope", u"Spacing", u"\u00B0", u"%.2f"},
    {u"Cut-off\r\n\u03BBc", u"", u"mm", u"%.1f"},
    {u"Rpk", u"Material ratio", u"\u00B5m", u"%.3f"},
    {u"Rk", u"Material ratio", u"\u00B5m", u"%.3f"},
    {u"Rvk", u"Material ratio", u"\u00B5m", u"%.3f"},
};

using CValues = std::array<double, std::size(c_columns)>;

// Values as a ground surface may have them; heights grow together.
CValues MakeValues(int profile)
{
    const auto about1 = [profile](double spread, double rate) {
        return 1 + spread * std::sin(rate * profile);
    };
    const double ra = 0.31 * about1(0.18, 0.31);
    return {ra,
            ra * 1.26 * about1(0.02, 0.83),
            ra * 7.1 * about1(0.12, 1.7),
            38 * about1(0.15, 0.47),
            4.2 * about1(0.2, 0.59),
            0.8,
            ra * 0.95 * about1(0.2, 2.1),
            ra * 3.1 * about1(0.05, 0.71),
            ra * 1.35 * about1(0.15, 1.3)};
}

CGrid::SRow MakeRow(const CStr& name, const CValues& values)
{
    CGrid::SRow row{.name = name, .cells = {}};
    for (std::size_t i = 0; i < values.size(); ++i)
        row.cells.push_back(CStr::Format(c_columns[i].format, values[i]));
    return row;
}

void AddColumns(CGrid& grid)
{
    grid.Clear();
    grid.SetNameHeader(u"Profile");
    CGrid::SRow units{.name = CStr(), .cells = {}, .subHeader = true};
    for (const SSampleColumn& column : c_columns) {
        grid.AddColumn({column.header, column.group});
        units.cells.emplace_back(column.unit);
    }
    if (grid.GetType() == CGrid::SCellInfo::Results)
        grid.AddRow(units);
}

} // namespace

void FillSampleResults(int profiles, CGrid& results, CGrid& statistics)
{
    AddColumns(results);
    AddColumns(statistics);
    CValues sum{};
    CValues minimum;
    CValues maximum;
    minimum.fill(std::numeric_limits<double>::max());
    maximum.fill(std::numeric_limits<double>::lowest());
    for (int profile = 1; profile <= profiles; ++profile) {
        const CValues values = MakeValues(profile);
        results.AddRow(MakeRow(CStr::Format(u"%d", profile), values));
        for (std::size_t i = 0; i < values.size(); ++i) {
            sum[i] += values[i] / profiles;
            minimum[i] = std::min(minimum[i], values[i]);
            maximum[i] = std::max(maximum[i], values[i]);
        }
    }
    statistics.AddRow(MakeRow(u"Mean", sum));
    statistics.AddRow(MakeRow(u"Minimum", minimum));
    statistics.AddRow(MakeRow(u"Maximum", maximum));
}

} // namespace Gallery
