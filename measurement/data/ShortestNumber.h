#pragma once

#include <array>
#include <charconv>
#include <string>

namespace CommonUI::Measurement
{

/// Appends the shortest digits that give the same finite number back.
inline void AppendShortest(std::string& text, double value)
{
    std::array<char, 32> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value);
    text.append(digits.data(), end);
}

} // namespace CommonUI::Measurement
