#pragma once

#include <pybind11/numpy.h>

#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace Python
{

/// An array that takes over values without a copy. @param shape one dimension of all values without it
template<class T>
pybind11::array_t<T> OwnArray(std::vector<T> values, std::vector<std::size_t> shape = {})
{
    if (shape.empty())
        shape = {values.size()};
    auto kept = std::make_unique<std::vector<T>>(std::move(values));
    const T* const data = kept->data();
    const pybind11::capsule owner(kept.get(), [](void* held) { delete static_cast<std::vector<T>*>(held); });
    static_cast<void>(kept.release()); // now the capsule's
    return pybind11::array_t<T>(std::move(shape), data, owner);
}

} // namespace Python
