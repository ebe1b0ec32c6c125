#pragma once

#include "common/TextBuilder.h"
#include "output/results/detail/TableRows.h"
#include "output/results/GridBaseOutputCtrl.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>
#include <string_view>

namespace CommonUI
{

/// What separates the lines of a text and the pieces of a cell of several lines.
constexpr std::u16string_view c_lineEnd = u"\r\n";

/// What HTML on the clipboard and in reports begins with.
constexpr std::u16string_view c_metaLine =
    u"<meta content=\"text/html; charset=utf-8\" http-equiv=\"Content-Type\" />\n";

/// Whether a text holds a carriage return, without which it is of one piece. Looks at four units at once:
/// nearly all cells of a large table are short and of one piece.
inline bool HasReturn(std::u16string_view text)
{
    if (text.size() < 4)
        return text.find(u'\r') != std::u16string_view::npos;
    // Zero in one of the four lanes, where the lane was a carriage return, borrows into the lane's highest
    // bit.
    const auto inFour = [text](std::size_t at) {
        constexpr std::uint64_t c_ones = 0x0001000100010001;
        std::uint64_t units = 0;
        std::memcpy(&units, text.data() + at, sizeof units);
        units ^= c_ones * u'\r';
        return ((units - c_ones) & ~units & (c_ones << 15)) != 0;
    };
    for (std::size_t at = 0; at + 4 < text.size(); at += 4) {
        if (inFour(at))
            return true;
    }
    return inFour(text.size() - 4);
}

/// Calls `visit` with every piece of a text between its line ends: at least one, which may be empty.
template<class FVisit>
void ForEachPiece(std::u16string_view text, FVisit visit)
{
    for (;;) {
        const std::size_t found = HasReturn(text) ? text.find(c_lineEnd) : std::u16string_view::npos;
        visit(text.substr(0, found));
        if (found == std::u16string_view::npos)
            return;
        text.remove_prefix(found + c_lineEnd.size());
    }
}

/// Makes room where there is some; the text may do with less.
inline void TryReserve(CTextBuilder& text, std::size_t length)
{
    try {
        text.Reserve(length);
    } catch (const std::bad_alloc&) {
        return;
    }
}

/// Makes room for a text of many rows, judging by those that have been written, but never for more than a few
/// times what is there: the first rows may be much longer than the others.
class CRowRoom
{
public:
    /// @param text to which the rows are appended
    CRowRoom(CTextBuilder& text, std::size_t rowCount)
        : m_text(text)
        , m_start(text.GetLength())
        , m_rowCount(rowCount)
    {
    }

    /// To be called after every row.
    void RowDone()
    {
        if (++m_done != m_next)
            return;
        m_next *= c_step;
        const std::size_t written = m_text.GetLength() - m_start;
        const std::size_t rows = std::min(m_rowCount - m_done, m_next - m_done);
        TryReserve(m_text, m_text.GetLength() + written / m_done * rows / 4 * 5);
    }

private:
    static constexpr std::size_t c_step = 4;

    CTextBuilder& m_text;
    std::size_t m_start;
    std::size_t m_rowCount;
    std::size_t m_done = 0;
    std::size_t m_next = 8; // when to judge again
};

/// Appends all rows, with room judged by the rows so far.
/// @param append takes what is appended to, a row and its index
template<class TRows, class FAppend>
void AppendRows(CTextBuilder& text, TRows& rows, FAppend append)
{
    const std::size_t count = rows.GetCount();
    CRowRoom room(text, count);
    for (std::size_t row = 0; row < count; ++row) {
        append(text, rows.At(row), row);
        room.RowDone();
    }
}

/// The same for rows that are much longer than their texts: counting first what they need then costs less
/// than room that is too small or too large.
/// @param behind how much else is to come behind the rows
template<class TRows, class FAppend>
void AppendLongRows(CTextBuilder& text, TRows& rows, std::size_t behind, FAppend append)
{
    if (!rows.AreCheap()) {
        AppendRows(text, rows, append);
        return;
    }
    const std::size_t count = rows.GetCount();
    CTextLength length;
    for (std::size_t row = 0; row < count; ++row)
        append(length, rows.At(row), row);
    TryReserve(text, text.GetLength() + length.GetLength() + behind);
    for (std::size_t row = 0; row < count; ++row)
        append(text, rows.At(row), row);
}

/// The rows of a report: those of the summary, and those of the results with the statistics below them. The
/// grids have to outlive it.
class CReportRows
{
public:
    /// Collects from up to three grids, each of which may be null.
    CReportRows(const CGridBaseOutputCtrl* summary, const CGridBaseOutputCtrl* results,
                const CGridBaseOutputCtrl* statistics, bool transpose, const SNumberProfile& profile = {});
    CStr MakeText(const SNumberProfile& profile = {});
    CStr MakeHtml(bool omitColumnGroup);
    bool HasNone() const { return m_summary.empty() && !HasResults(); }

private:
    bool HasResults() const { return !m_cells.empty() || m_rows.GetCount() != 0; }

    CGridBaseOutputCtrl::CCells m_summary;
    CGridRows m_rows;                    // empty where the grids' rows cannot be written as they stand
    CGridBaseOutputCtrl::CCells m_cells; // then made of them
};

} // namespace CommonUI
