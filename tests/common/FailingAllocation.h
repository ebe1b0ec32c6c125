#pragma once

#include <cstddef>

namespace CommonUI
{

/// While it lives, one allocation of its thread fails: the one of that number, counted from 1.
class CFailingAllocation
{
public:
    explicit CFailingAllocation(int number);
    ~CFailingAllocation();
    CFailingAllocation(const CFailingAllocation&) = delete;
    CFailingAllocation& operator=(const CFailingAllocation&) = delete;

    bool HasFailed() const;
};

/// How many bytes its thread has allocated since it was made, whether they were given back or not.
class CAllocatedBytes
{
public:
    CAllocatedBytes();

    std::size_t Get() const;

private:
    std::size_t m_before;
};

} // namespace CommonUI
