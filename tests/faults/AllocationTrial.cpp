#include "tests/faults/AllocationTrial.h"

#include "tests/common/FailingAllocation.h"
#include "tests/faults/FailingMalloc.h"
#include "tests/faults/Faults.h"

#include <new>
#include <optional>

using namespace CommonUI;

namespace Faults
{

namespace
{

class CFault
{
public:
    CFault(const SOperation& operation, int number, EFailing failing)
    {
        if (operation.isInC && c_canFailMalloc)
            m_inC.emplace(number, failing);
        else
            m_inCpp.emplace(number, failing);
    }
    bool HasFailed() const { return m_inC ? m_inC->HasFailed() : m_inCpp->HasFailed(); }

private:
    std::optional<CFailingMalloc> m_inC{};
    std::optional<CFailingAllocation> m_inCpp{};
};

// Returns whether an allocation has failed.
bool TryRound(const SOperation& operation, const std::string& wanted, int number, EFailing failing)
{
    const std::string place = operation.name + ", allocation " + std::to_string(number) +
                              (failing == EFailing::Once ? "" : " and all after it");
    const long living = CountLivingAllocations();
    bool hasFailed = false;
    {
        const auto state = operation.make();
        const std::string before = state->Look();
        bool isDone = false;
        bool isThrown = false;
        {
            const CFault fault(operation, number, failing);
            try {
                isDone = state->Act();
            } catch (const std::bad_alloc&) {
                isThrown = true;
            }
            hasFailed = fault.HasFailed();
        }
        Expect(!isThrown || !operation.tellsItself || failing != EFailing::Once,
               place + ": there is an exception");
        const std::string after = state->Look();
        if (after != (isDone ? wanted : before) && (isDone || !operation.mayBeInPart))
            Fail(place + (isDone ? ": done in part:\n" : ": something has changed:\n") + after +
                 "\ninstead of\n" + (isDone ? wanted : before));
        state->Use();
    }
    const long lost = CountLivingAllocations() - living;
    Expect(operation.keepsCaches || lost == 0,
           place + ": " + std::to_string(lost) + " pieces of memory are lost");
    return hasFailed;
}

} // namespace

long TryAllocations(const SOperation& operation)
{
    std::string wanted;
    for (int i = 0; i < 2; ++i) { // what is made on first use is there then
        const auto state = operation.make();
        const std::string before = state->Look();
        Expect(state->Act(), operation.name + " is not done at all");
        wanted = state->Look();
        Expect(wanted != before, operation.name + " changes nothing");
        state->Use();
    }
    long faults = 0;
    for (const EFailing failing : {EFailing::Once, EFailing::Onwards})
        for (int number = 1; TryRound(operation, wanted, number, failing); ++number)
            ++faults;
    return faults;
}

} // namespace Faults
