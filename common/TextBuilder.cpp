#include "common/TextBuilder.h"

#include <utility>

namespace CommonUI
{

void CTextBuilder::Reserve(std::size_t length)
{
    if (length <= m_capacity)
        return;
    m_text.SetLength(m_length); // only what is written needs to be kept
    m_units = m_text.SetLength(length);
    m_capacity = length;
}

void CTextBuilder::Grow(std::size_t more)
{
    Reserve(std::max(m_length + more, m_capacity + m_capacity / 2 + 64));
}

CStr CTextBuilder::Take()
{
    m_text.SetLength(m_length);
    m_units = nullptr;
    m_length = 0;
    m_capacity = 0;
    return std::exchange(m_text, CStr());
}

} // namespace CommonUI
