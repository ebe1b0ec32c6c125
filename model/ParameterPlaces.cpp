#include "model/ParameterPlaces.h"

#include <algorithm>
#include <new>

namespace CommonUI::Detail
{

namespace
{

// Below this a look at each is quicker.
constexpr std::size_t c_few = 16;

} // namespace

std::size_t CParameterPlaces::Find(const std::vector<CParameter>& list, int number) noexcept
{
    if (list.size() > c_few) {
        try {
            Update(list);
            const std::uint32_t found = Slot(list, number);
            return found == 0 ? list.size() : found - 1;
        } catch (const std::bad_alloc&) {
            Forget();
        }
    }
    return static_cast<std::size_t>(std::ranges::find(list, number, &CParameter::GetValue) - list.begin());
}

int CParameterPlaces::GetLargest(const std::vector<CParameter>& list)
{
    Update(list);
    return m_largest;
}

void CParameterPlaces::Update(const std::vector<CParameter>& list)
{
    if (m_places.empty() || list.size() < m_count || 2 * list.size() > m_places.size()) {
        std::size_t size = 4 * c_few;
        while (size < 4 * list.size())
            size *= 2;
        m_places.assign(size, 0);
        m_count = 0;
        m_largest = 0;
    }
    for (; m_count < list.size(); ++m_count) {
        const int number = list[m_count].GetValue();
        m_largest = std::max(m_largest, number);
        if (std::uint32_t& slot = Slot(list, number); slot == 0)
            slot = static_cast<std::uint32_t>(m_count + 1);
    }
}

// The slot of the number, or the free one that it would get.
std::uint32_t& CParameterPlaces::Slot(const std::vector<CParameter>& list, int number)
{
    constexpr std::uint32_t c_stretch = 0x9E3779B1;
    const std::size_t mask = m_places.size() - 1;
    const std::uint32_t hash = static_cast<std::uint32_t>(number) * c_stretch;
    std::size_t at = hash & mask;
    while (m_places[at] != 0 && list[m_places[at] - 1].GetValue() != number)
        at = (at + 1) & mask;
    return m_places[at];
}

} // namespace CommonUI::Detail
