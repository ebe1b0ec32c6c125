#pragma once

#include "Export.h"
#include "Str.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace CommonUI
{

/// Builds one long text from many short pieces, at the cost of copying them once. For single appends CStr does as well.
class COMMONDLL_API CTextBuilder
{
public:
    CTextBuilder() = default;
    CTextBuilder(const CTextBuilder&) = delete;
    CTextBuilder& operator=(const CTextBuilder&) = delete;

    /// Makes room for a text of `length` code units in all.
    void Reserve(std::size_t length);
    std::size_t GetLength() const noexcept { return m_length; }

    CTextBuilder& operator+=(std::u16string_view text)
    {
        if (m_capacity - m_length < text.size())
            Grow(text.size());
        std::copy_n(text.data(), text.size(), m_units + m_length);
        m_length += text.size();
        return *this;
    }
    CTextBuilder& operator+=(char16_t unit) { return *this += std::u16string_view(&unit, 1); }

    /// The text built so far; the builder is empty after it.
    CStr Take();

private:
    void Grow(std::size_t more);

    CStr m_text; ///< owns the units, of which the first m_length are written
    char16_t* m_units = nullptr;
    std::size_t m_length = 0;
    std::size_t m_capacity = 0;
};

} // namespace CommonUI
