#pragma once

#include "../export/Export.h"
#include "Parameter.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace CommonUI::Detail
{

/// Where in a list of parameters each number first is. Entries that have been appended are found without
/// further ado; after any other change of numbers Forget has to be called.
class COMMONUI_API CParameterPlaces
{
public:
    void Forget() noexcept { m_places.clear(); }
    /// The first entry of that number; the size of the list when there is none.
    std::size_t Find(const std::vector<CParameter>& list, int number) noexcept;
    /// The largest number of the list, at least 0.
    int GetLargest(const std::vector<CParameter>& list);

private:
    void Update(const std::vector<CParameter>& list);
    std::uint32_t& Slot(const std::vector<CParameter>& list, int number);

    std::vector<std::uint32_t> m_places; // by hash: a place and 1, or 0; a power of two of them
    std::size_t m_count = 0;             // how many entries of the list are in there
    int m_largest = 0;
};

} // namespace CommonUI::Detail
