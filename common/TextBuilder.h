#pragma once

#include "../export/Export.h"
#include "Str.h"

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <string_view>

namespace CommonUI
{

/// Builds one long text from many short pieces, at the cost of copying them once. For single appends CStr
/// does as well.
class COMMONDLL_API CTextBuilder
{
public:
    CTextBuilder() = default;
    CTextBuilder(const CTextBuilder&) = delete;
    CTextBuilder& operator=(const CTextBuilder&) = delete;

    /// Makes room for a text of `length` code units in all.
    void Reserve(std::size_t length);
    /// In code units, so far.
    std::size_t GetLength() const noexcept { return m_length; }

    /// Appends a code unit and a text behind it.
    void Append(char16_t unit, std::u16string_view text)
    {
        if (m_capacity - m_length <= text.size())
            Grow(text.size() + 1);
        m_units[m_length] = unit;
        Copy(m_units + m_length + 1, text.data(), text.size());
        m_length += text.size() + 1;
    }
    /// Appends a text.
    CTextBuilder& operator+=(std::u16string_view text)
    {
        if (m_capacity - m_length < text.size())
            Grow(text.size());
        Copy(m_units + m_length, text.data(), text.size());
        m_length += text.size();
        return *this;
    }
    /// A literal, whose length is known at compile time.
    template<std::size_t Size>
    CTextBuilder& operator+=(const char16_t (&literal)[Size])
    {
        if (m_capacity - m_length < Size - 1)
            Grow(Size - 1);
        std::memcpy(m_units + m_length, literal, (Size - 1) * sizeof(char16_t));
        m_length += Size - 1;
        return *this;
    }
    /// Appends a code unit.
    CTextBuilder& operator+=(char16_t unit)
    {
        if (m_capacity == m_length)
            Grow(1);
        m_units[m_length++] = unit;
        return *this;
    }

    /// The text built so far; the builder is empty after it.
    CStr Take();

private:
    // Two copies of a fixed size that overlap cost less than one of a size known only at run time.
    template<std::size_t Half>
    static void CopyEnds(char16_t* to, const char16_t* from, std::size_t count) noexcept
    {
        char16_t first[Half];
        char16_t last[Half];
        std::memcpy(first, from, sizeof first);
        std::memcpy(last, from + count - Half, sizeof last);
        std::memcpy(to, first, sizeof first);
        std::memcpy(to + count - Half, last, sizeof last);
    }
    static void Copy(char16_t* to, const char16_t* from, std::size_t count) noexcept
    {
        if (count > 16)
            std::memcpy(to, from, count * sizeof(char16_t));
        else if (count >= 8)
            CopyEnds<8>(to, from, count);
        else if (count >= 4)
            CopyEnds<4>(to, from, count);
        else if (count >= 2)
            CopyEnds<2>(to, from, count);
        else if (count == 1)
            *to = *from;
    }
    void Grow(std::size_t more);

    CStr m_text; // owns the units, of which the first m_length are written
    char16_t* m_units = nullptr;
    std::size_t m_length = 0;
    std::size_t m_capacity = 0;
};

} // namespace CommonUI
