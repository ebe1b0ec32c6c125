#pragma once

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

} // namespace CommonUI
