#include "measurement/documents/detail/TableColumns.h"

#include <algorithm>

namespace CommonUI::Measurement
{

using CGrid = CGridBaseOutputCtrl;

namespace
{

constexpr double c_shortest = 5;
constexpr double c_gap = 2; // between columns

// The columns of a part, the end not included, behind that of the names.
struct SColumnRange {
    std::size_t first;
    std::size_t last;
};

std::vector<SColumnRange> FindParts(const std::vector<double>& lengths, double most)
{
    std::vector<SColumnRange> parts;
    double room = 0;
    for (std::size_t i = 1; i < lengths.size(); ++i) {
        const double length = lengths[i] + c_gap;
        if (parts.empty() || room < length) {
            parts.push_back({i, i});
            room = most - lengths.front() - c_gap;
        }
        parts.back().last = i + 1;
        room -= length;
    }
    return parts;
}

} // namespace

std::vector<double> GetColumnLengths(const CGrid::CCells& cells)
{
    std::vector<double> lengths;
    for (const CGrid::CRow& row : cells) {
        lengths.resize(std::max(lengths.size(), row.size()), c_shortest);
        for (std::size_t i = 0; i < row.size(); ++i) {
            for (const CStr& line : row[i].text.Split(u"\r\n"))
                lengths[i] = std::max(lengths[i], static_cast<double>(line.GetLength()));
        }
    }
    return lengths;
}

std::vector<CGrid::CCells> SplitColumns(CGrid::CCells cells, double most)
{
    const std::vector<double> lengths = GetColumnLengths(cells);
    std::vector<SColumnRange> ranges = FindParts(lengths, most);
    // As many parts as it takes, of about the same width.
    for (auto next = ranges; next.size() == ranges.size() && most > 0; next = FindParts(lengths, --most))
        ranges = next;
    std::vector<CGrid::CCells> parts;
    if (ranges.size() < 2) {
        parts.push_back(std::move(cells));
        return parts;
    }
    for (const auto& [first, last] : ranges) {
        CGrid::CCells& part = parts.emplace_back();
        for (const CGrid::CRow& row : cells) {
            CGrid::CRow& cut = part.emplace_back(row.begin(), row.begin() + 1);
            cut.insert(cut.end(), row.begin() + static_cast<std::ptrdiff_t>(std::min(first, row.size())),
                       row.begin() + static_cast<std::ptrdiff_t>(std::min(last, row.size())));
        }
    }
    return parts;
}

} // namespace CommonUI::Measurement
