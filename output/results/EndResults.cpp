#include "output/results/EndResults.h"

#include "common/NumberText.h"
#include "output/results/NumberFormat.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

bool ReadsAsNumber(const CStr& text)
{
    double value = 0;
    return ParseDouble(text, value);
}

void AppendCell(CStr& line, const CStr& value)
{
    if (value.IsEmpty()) {
        line += u"\t \t";
    } else if (ReadsAsNumber(value)) {
        line += TrimView(value);
        line += u'\t';
    } else {
        line += u'\t';
        line += value;
        line += u'\t';
    }
}

} // namespace

void SEndResultItem::AddValue(double value, int digits)
{
    m_values.push_back(FormatResultValue(value, digits, false));
}

CStr SEndResultItem::CreateTokenizableString(std::vector<int> blankColumns, int columnCount) const
{
    if (m_values.empty())
        return {};
    std::ranges::sort(blankColumns);
    auto blank = blankColumns.begin();
    CStr line = m_name + u'\t';
    for (int column = 0; column < columnCount; ++column) {
        const auto index = static_cast<std::size_t>(column);
        while (blank != blankColumns.end() && *blank < column)
            ++blank;
        if (blank != blankColumns.end() && *blank == column) {
            if (column != 0)
                line += u" \t";
        } else if (index < m_values.size()) {
            AppendCell(line, m_values[index]);
        }
    }
    return line;
}

void SEndResultCollection::AddItemToCollection(const SEndResultItem& item, bool append)
{
    if (append)
        m_results.PushBack(item);
    else
        m_results.PushFront(item);
}

} // namespace CommonUI
