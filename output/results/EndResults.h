#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"
#include "FrontVector.h"

#include <vector>

namespace CommonUI
{

/// One row of end results: a name, such as a parameter or a statistic, and one text for each result column.
class COMMONUI_API SEndResultItem
{
public:
    /// A row without values.
    explicit SEndResultItem(const CStr& name)
        : m_name(name)
    {
    }

    /// Appends a value as FormatResultValue writes it with that many digits, leading blanks included.
    void AddValue(double value, int digits);
    /// Appends a blank cell.
    void AddBlank() { m_values.emplace_back(); }
    /// Appends a text as it stands.
    void AddText(const CStr& text) { m_values.push_back(text); }

    /// How many cells the row has, blank ones included.
    unsigned int GetCount() const noexcept { return static_cast<unsigned int>(m_values.size()); }
    /// What the row stands for, as it is shown.
    const CStr& GetName() const noexcept { return m_name; }
    /// The values in column order; an empty text is a blank cell.
    const std::vector<CStr>& GetValues() const noexcept { return m_values; }

    /// The row as one line for a tokenizer that skips runs of tabs and never yields an empty token: the name,
    /// then the cells, numbers trimmed, a blank cell as a single blank. Empty for a row without values. The
    /// name must not be empty, or the tokenizer takes the first cell for it.
    /// @param blankColumns the columns that are written as blank cells whatever their values; the first
    ///     column cannot be blanked, it is left out
    /// @param columnCount how many columns are written; those beyond the values are left out
    CStr CreateTokenizableString(std::vector<int> blankColumns, int columnCount) const;

private:
    std::vector<CStr> m_values;
    CStr m_name;
};

/// The rows of one result table in display order. A row costs the same at either end, also of a long table.
/// The first reading after rows were put in front sets them in place: collections are read by one thread at a
/// time.
class COMMONUI_API SEndResultCollection
{
public:
    /// Puts a row behind all others, or with `append` false in front of them: a producer that passes false
    /// builds its table bottom-up.
    void AddItemToCollection(const SEndResultItem& item, bool append);

    /// The rows, to be read and edited in place.
    std::vector<SEndResultItem>& GetResultsVector() { return m_results.Get(); }
    /// The rows, to be read. Not at the same time as another thread: see the class.
    const std::vector<SEndResultItem>& GetResultsVector() const { return m_results.Get(); }

private:
    Detail::CFrontVector<SEndResultItem> m_results;
};

} // namespace CommonUI
