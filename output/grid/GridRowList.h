#pragma once

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <memory>
#include <utility>
#include <vector>

namespace CommonUI
{

class CGridCtrl;
class CGridRow;

namespace Detail
{

// What a row knows of the part of a list that it is in.
struct SGridRowPart {
    std::size_t number = 0;
};

} // namespace Detail

/// Rows of a grid in their order. They lie in parts, so that a row comes and goes anywhere in about the same
/// time, however many there are. Only the grid changes the list; iterators end with the next change.
/// @tparam TRow CGridRow*, or the std::unique_ptr that owns it
template<class TRow>
class CGridRowList
{
    struct SPart : Detail::SGridRowPart {
        std::vector<TRow> rows;
    };

public:
    /// A place in the list, for loops and the algorithms of the standard library.
    class CIterator
    {
    public:
        using value_type = TRow;                             ///< as the standard library asks for
        using reference = const TRow&;                       ///< likewise
        using pointer = const TRow*;                         ///< likewise
        using difference_type = std::ptrdiff_t;              ///< likewise
        using iterator_category = std::forward_iterator_tag; ///< goes forward only

        /// A place in no list.
        CIterator() = default;
        /// The row there. The place must not be the end.
        reference operator*() const { return (*m_part)->rows[m_row]; }
        /// Likewise.
        pointer operator->() const { return &**this; }
        /// Goes to the next row, or to the end.
        CIterator& operator++()
        {
            if (++m_row == (*m_part)->rows.size()) {
                ++m_part;
                m_row = 0;
            }
            return *this;
        }
        /// Likewise. @return the place before
        CIterator operator++(int)
        {
            CIterator before = *this;
            ++*this;
            return before;
        }
        bool operator==(const CIterator&) const = default;

    private:
        friend class CGridRowList;
        explicit CIterator(const std::unique_ptr<SPart>* part)
            : m_part(part)
        {
        }

        const std::unique_ptr<SPart>* m_part = nullptr;
        std::size_t m_row = 0;
    };

    /// Whether there is no row.
    bool empty() const noexcept { return m_size == 0; }
    /// How many rows there are, without those below them.
    std::size_t size() const noexcept { return m_size; }
    /// The row at a place. @param place below size(), which is not checked
    const TRow& operator[](std::size_t place) const
    {
        const SPart& part = PartAt(place);
        return part.rows[place - m_starts[part.number]];
    }
    /// The first row; there must be one.
    const TRow& front() const { return m_parts.front()->rows.front(); }
    /// The last row; there must be one.
    const TRow& back() const { return m_parts.back()->rows.back(); }
    /// The place of the first row.
    CIterator begin() const { return CIterator(m_parts.data()); }
    /// The place behind the last row.
    CIterator end() const { return CIterator(m_parts.data() + m_parts.size()); }

private:
    friend CGridCtrl;
    friend CGridRow;

    static constexpr std::size_t c_most = 1024; // rows of a part

    // Where a row of the list is.
    std::size_t PlaceOf(const CGridRow& row) const;
    void Append(TRow row) { Insert(m_size, std::move(row)); }
    void Insert(std::size_t place, TRow row);
    TRow Take(std::size_t place);
    void Erase(std::size_t place, std::size_t count);
    void Clear();

    // The part of the row at the place; the last one for the place behind all rows.
    SPart& PartAt(std::size_t place) const
    {
        const auto behind = std::ranges::upper_bound(m_starts, place);
        return *m_parts[static_cast<std::size_t>(behind - m_starts.begin()) - 1];
    }
    void Cut(std::size_t place, std::size_t count);
    void Split(SPart& part);
    void MakeRoom();
    void AddPart(std::size_t number, std::unique_ptr<SPart> part);
    void CountFrom(std::size_t number);
    // Tells the rows in which parts they are.
    void TellRows();

    std::vector<std::unique_ptr<SPart>> m_parts; // none is empty
    std::vector<std::size_t> m_starts;           // of each part the place of its first row
    std::size_t m_size = 0;
};

} // namespace CommonUI
