#pragma once

#include "../../export/Export.h"
#include "../Parameter.h"

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace CommonUI
{

/// Why numbers cannot be the inputs of a template.
enum class EInputFault {
    Count,     ///< the template has another count of variables
    NoNumber,  ///< it is infinite or no number
    NoPercent, ///< it is a percentage below 0 or above 100
    Order      ///< it is a percentage that is not above the one in front of it, both of the same kind
};

/// What is wrong with which of the numbers.
struct SInputFault {
    EInputFault kind{};    ///< what is wrong
    std::size_t index = 0; ///< 0 for Count

    bool operator==(const SInputFault& other) const = default;
};

/// Whether numbers can be the values of a template's variables: nothing if they can.
/// @param values in the order of the variables, in m or percent
COMMONUI_API std::optional<SInputFault> CheckInputs(const CParameter& parent, std::span<const double> values);

/// The values of the variables of a template or of a parameter that is made from one.
COMMONUI_API std::vector<double> GetInputs(const CParameter& parameter);

/// The parameter of a list that is made from a template with these values; null if there is none.
COMMONUI_API const CParameter* FindInstance(std::span<const CParameter> list, int parent,
                                            std::span<const double> values);

/// The parameter that a template gives with these values, as many as it has variables, under a number. It has
/// the template's choices, is off, and is called by the values.
COMMONUI_API CParameter MakeInstance(int number, const CParameter& parent, std::span<const double> values);

} // namespace CommonUI
