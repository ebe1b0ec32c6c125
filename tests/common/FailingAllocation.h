#pragma once

namespace CommonUI
{

/// While it is positive, allocations count it down; the one that makes it 0 fails.
extern thread_local int t_allocationsLeft;

/// While it lives, one allocation of its thread fails: the one of that number, counted from 1.
class CFailingAllocation
{
public:
    explicit CFailingAllocation(int number) { t_allocationsLeft = number; }
    ~CFailingAllocation() { t_allocationsLeft = 0; }
    CFailingAllocation(const CFailingAllocation&) = delete;
    CFailingAllocation& operator=(const CFailingAllocation&) = delete;

    bool HasFailed() const { return t_allocationsLeft == 0; }
};

} // namespace CommonUI
