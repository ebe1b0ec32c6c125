#include "programs/surface_report/AlignedText.h"

#include "common/NumberText.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace SurfaceReport
{

using namespace CommonUI;
using CGrid = CGridBaseOutputCtrl;
using SCell = CGrid::SCellInfo;

namespace
{

constexpr std::u16string_view c_gap = u"  ";

bool IsNumber(const SCell& cell)
{
    double value = 0;
    return ParseDouble(cell.text, value);
}

bool IsHeader(const CGrid::CRow& row)
{
    return !row.empty() && row.front().Has(SCell::ColumnHeader);
}

// The widths of the columns, and which of them hold nothing but numbers.
struct SLayout {
    std::vector<std::size_t> widths;
    std::vector<bool> toRight;

    explicit SLayout(const CGrid::CCells& cells)
    {
        for (const CGrid::CRow& row : cells) {
            widths.resize(std::max(widths.size(), row.size()));
            toRight.resize(widths.size(), true);
            for (std::size_t i = 0; i < row.size(); ++i) {
                widths[i] = std::max(widths[i], row[i].text.GetLength());
                toRight[i] = toRight[i] && (IsNumber(row[i]) || row[i].text.IsEmpty() || IsHeader(row));
            }
        }
    }
};

CStr LineOf(const CGrid::CRow& row, const SLayout& layout)
{
    CStr line;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const CStr padding(layout.widths[i] - row[i].text.GetLength(), u' ');
        line += i == 0 ? u"" : c_gap;
        line += layout.toRight[i] ? padding + row[i].text : row[i].text + padding;
    }
    return line.TrimRight();
}

} // namespace

CStr AlignedText(const CGrid::CCells& cells)
{
    const SLayout layout(cells);
    CStr text;
    for (std::size_t row = 0; row < cells.size(); ++row) {
        text += LineOf(cells[row], layout) + u'\n';
        if (IsHeader(cells[row]) && (row + 1 == cells.size() || !IsHeader(cells[row + 1]))) {
            const auto width = std::accumulate(layout.widths.begin(), layout.widths.end(), std::size_t{0}) +
                               c_gap.size() * (layout.widths.size() - 1);
            text += CStr(width, u'-') + u'\n';
        }
    }
    return text;
}

} // namespace SurfaceReport
