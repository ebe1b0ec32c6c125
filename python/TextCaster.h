#pragma once

#include "common/Str.h"

#include <pybind11/pybind11.h>

#include <string>

namespace pybind11::detail
{

/// Texts of the library are "str" in Python.
template<>
class type_caster<CommonUI::CStr>
{
public:
    PYBIND11_TYPE_CASTER(CommonUI::CStr, const_name("str"));

    // NOLINTBEGIN(readability-identifier-naming): the names are those that pybind11 calls.
    bool load(handle source, bool convert)
    {
        make_caster<std::string> bytes;
        if (!isinstance<str>(source) || !bytes.load(source, convert))
            return false;
        value = CommonUI::CStr::FromUtf8(cast_op<const std::string&>(bytes));
        return true;
    }

    static handle cast(const CommonUI::CStr& text, return_value_policy policy, handle parent)
    {
        return make_caster<std::string>::cast(text.ToUtf8(), policy, parent);
    }
    // NOLINTEND(readability-identifier-naming)
};

} // namespace pybind11::detail
