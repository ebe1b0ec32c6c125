#pragma once

#include "analysis/surface/Surface.h"
#include "measurement/Columns.h"
#include "measurement/ValueFailure.h"

#include <cstddef>
#include <exception>
#include <new>
#include <utility>
#include <vector>

namespace CommonUI::Measurement
{

inline SValueState FailedFor(const CStr& reason)
{
    return {EValueState::Failed, CStr::FromUtf8(c_failed) + reason};
}

template<class FCompute>
void ComputeApart(std::size_t first, std::size_t last, const FCompute& compute,
                  std::vector<SIndexedState>& failures)
{
    SValueState failure;
    try {
        return compute(first, last);
    } catch (const Analysis::ENoPoints&) {
        throw;
    } catch (const std::bad_alloc&) {
        failure = FailedFor(u"there is not enough memory");
    } catch (const std::exception& error) {
        failure = FailedFor(CStr::FromUtf8(error.what()));
    }
    if (last - first <= 1)
        return failures.push_back({first, std::move(failure)});
    const std::size_t middle = first + (last - first) / 2;
    ComputeApart(first, middle, compute, failures);
    ComputeApart(middle, last, compute, failures);
}

/// Computes all of [0, count) at once by compute(first, last). Where that fails, each half is computed alone,
/// and so on: a quantity that fails does not take the others with it, and less memory is taken at a time.
/// @return what has failed even alone, with EValueState::Failed and the reason
/// @throws Analysis::ENoPoints as the computation does, and whatever it does where count is 0
template<class FCompute>
std::vector<SIndexedState> ComputeApart(std::size_t count, const FCompute& compute)
{
    std::vector<SIndexedState> failures;
    if (count == 0)
        compute(0, 0);
    else
        ComputeApart(std::size_t{0}, count, compute, failures);
    return failures;
}

} // namespace CommonUI::Measurement
