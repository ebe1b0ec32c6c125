#pragma once

#include "common/ini/Inifile.h"
#include "common/Str.h"

#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace Fuzz
{

/// Takes an input apart from its beginning. Where it ends, numbers are 0 and texts empty.
class CFuzzBytes
{
public:
    explicit CFuzzBytes(std::string_view bytes)
        : m_rest(bytes)
    {
    }

    /// The bits of a number.
    template<class T>
    T Number()
    {
        T value{};
        const std::string_view bytes = Take(sizeof value);
        std::memcpy(&value, bytes.data(), bytes.size());
        return value;
    }
    /// As many bytes as the first one says.
    std::string_view Piece() { return Take(Number<std::uint8_t>()); }
    std::string_view Rest() { return Take(m_rest.size()); }

    /// The bytes in pairs, so that every code unit can occur.
    static CommonUI::CStr Units(std::string_view bytes)
    {
        CommonUI::CStr text;
        std::memcpy(text.SetLength(bytes.size() / 2), bytes.data(), bytes.size() / 2 * 2);
        return text;
    }

private:
    std::string_view Take(std::size_t count)
    {
        const std::string_view taken = m_rest.substr(0, count);
        m_rest.remove_prefix(taken.size());
        return taken;
    }

    std::string_view m_rest;
};

/// The document of a file that has these bytes.
inline CommonUI::CInifile IniOf(std::string_view bytes)
{
    CommonUI::CInifile ini;
    ini.LoadBytes(std::string(bytes));
    return ini;
}

/// Whether two numbers have the same bits, or both are none.
inline bool IsSame(double a, double b)
{
    return std::isnan(a) ? std::isnan(b) : std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

} // namespace Fuzz
