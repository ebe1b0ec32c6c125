#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace CommonUI::Formats
{

/// The number that little-endian bytes are.
template<class T>
T LoadLittle(const char* bytes)
{
    char swapped[sizeof(T)];
    if constexpr (std::endian::native == std::endian::big) {
        for (std::size_t i = 0; i < sizeof(T); ++i)
            swapped[i] = bytes[sizeof(T) - 1 - i];
        bytes = swapped;
    }
    T value;
    std::memcpy(&value, bytes, sizeof(T));
    return value;
}

/// Appends a number as little-endian bytes.
template<class T>
void AppendLittle(std::string& bytes, T value)
{
    char native[sizeof(T)];
    std::memcpy(native, &value, sizeof(T));
    if constexpr (std::endian::native == std::endian::big)
        std::reverse(native, native + sizeof(T));
    bytes.append(native, sizeof(T));
}

/// What stands in binary files.
enum class ENumber { UInt8, UInt16, UInt32, Float, Int8, Int16, Int32, Double };

/// Calls a function with a zero of the type.
template<class FVisit>
decltype(auto) VisitNumber(ENumber type, FVisit&& visit)
{
    switch (type) {
    case ENumber::UInt8:
        return visit(std::uint8_t{});
    case ENumber::UInt16:
        return visit(std::uint16_t{});
    case ENumber::UInt32:
        return visit(std::uint32_t{});
    case ENumber::Float:
        return visit(float{});
    case ENumber::Int8:
        return visit(std::int8_t{});
    case ENumber::Int16:
        return visit(std::int16_t{});
    case ENumber::Int32:
        return visit(std::int32_t{});
    default:
        return visit(double{});
    }
}

inline std::size_t SizeOf(ENumber type)
{
    return VisitNumber(type, [](auto zero) { return sizeof zero; });
}

/// What numbers of a file are in metres.
struct SScale {
    double factor = 1;
    double offset = 0;

    /// Without an offset the sign of a zero stays.
    double Apply(double value) const { return offset == 0 ? value * factor : value * factor + offset; }
};

/// Whether a height is too large to be one, infinite ones among them. A missing point is none.
inline bool IsBeyondHeights(double height)
{
    constexpr double c_greatest = 1e9;
    return std::fabs(height) > c_greatest;
}

} // namespace CommonUI::Formats
