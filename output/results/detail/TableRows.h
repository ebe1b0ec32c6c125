#pragma once

#include "common/TextBuilder.h"
#include "output/results/GridBaseOutputCtrl.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace CommonUI
{

/// A cell as it is written, with a view of its text in place of a copy.
struct SWrittenCell {
    std::u16string_view text;
    std::int32_t columnSpan = 1;
    std::int32_t rowSpan = 1;
    std::int32_t indent = 0;
    std::uint32_t flags = 0;

    bool Has(CGridBaseOutputCtrl::SCellInfo::EFlag flag) const noexcept { return (flags & flag) != 0; }
};
using CWrittenRow = std::span<const SWrittenCell>;

/// Cells at hand as rows that are written one by one; they have to outlive it.
class CCellRows
{
public:
    explicit CCellRows(const CGridBaseOutputCtrl::CCells& cells)
        : m_cells(cells)
    {
    }

    std::size_t GetCount() const noexcept { return m_cells.size(); }
    const CGridBaseOutputCtrl::CRow& At(std::size_t index) const { return m_cells[index]; }
    /// Whether a row costs so little that a text may go through all of them first to learn its length.
    static constexpr bool AreCheap() noexcept { return true; }

private:
    const CGridBaseOutputCtrl::CCells& m_cells;
};

/// Rows of grids as they are shown, one grid below the other, under headers. The grids have to outlive the
/// rows, and nothing of them is copied.
class CGridRows
{
public:
    /// The headers that stand on top.
    CGridBaseOutputCtrl::CCells& GetHeaders() noexcept { return m_headers; }
    /// Adds all rows of a grid.
    void Add(const CGridBaseOutputCtrl& grid);
    /// Adds a part of a grid that has all these rows; columns beyond a row are none.
    void Add(const CGridBaseOutputCtrl& grid, const SGridRange& range);

    std::size_t GetCount() const noexcept { return m_headers.size() + m_bodyRows; }
    /// The row at `index`, valid until the next call.
    CWrittenRow At(std::size_t index);
    bool AreCheap() const noexcept { return !m_hasFormats; }

private:
    struct SPart {
        const CGridBaseOutputCtrl* grid;
        SGridRange range;
        std::vector<bool> formatted; // the columns whose texts go through a format; empty where none does
    };

    void ViewBody(const SPart& part, const CGridBaseOutputCtrl::SRow& row);
    std::u16string_view TextAt(const SPart& part, const CGridBaseOutputCtrl::SRow& row, std::size_t column);

    CGridBaseOutputCtrl::CCells m_headers;
    std::vector<SPart> m_parts;
    std::size_t m_bodyRows = 0;
    bool m_hasFormats = false;
    std::vector<SWrittenCell> m_row;
    std::vector<CStr> m_texts; // of the row, which went through a format
};

/// Takes what is appended for its length alone.
class CTextLength
{
public:
    std::size_t GetLength() const noexcept { return m_length; }
    void Append(char16_t /*unit*/, std::u16string_view text) noexcept { m_length += text.size() + 1; }
    CTextLength& operator+=(std::u16string_view text) noexcept
    {
        m_length += text.size();
        return *this;
    }
    template<std::size_t Size>
    CTextLength& operator+=(const char16_t (&/*literal*/)[Size]) noexcept
    {
        m_length += Size - 1;
        return *this;
    }
    CTextLength& operator+=(char16_t /*unit*/) noexcept
    {
        ++m_length;
        return *this;
    }

private:
    std::size_t m_length = 0;
};

} // namespace CommonUI
