#include "common/ini/detail/IniLine.h"

#include "common/ini/detail/IniQuotes.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

constexpr std::size_t c_none = std::string_view::npos;

SIniLine ParseHeader(std::string_view line, std::size_t bracket) noexcept
{
    const std::size_t begin = bracket + 1;
    if (begin < line.size() && line[begin] == '"') {
        const std::size_t close = FindClosingQuote(line, begin);
        if (close != c_none && close + 1 < line.size() && line[close + 1] == ']')
            return {EIniLine::Header, true, begin + 1, close, 0};
    }
    const std::size_t end = line.find(']', begin);
    if (end == c_none)
        return {};
    return {EIniLine::Header, false, begin, end, 0};
}

SIniLine ParseKey(std::string_view line, std::size_t begin) noexcept
{
    if (line[begin] == '"') {
        const std::size_t close = FindClosingQuote(line, begin);
        const std::size_t equals = close == c_none ? line.size() : SkipBlanks(line, close + 1);
        if (equals < line.size() && line[equals] == '=')
            return {EIniLine::Key, true, begin + 1, close, equals + 1};
    }
    const std::size_t equals = line.find('=', begin);
    if (equals == c_none)
        return {};
    const bool ornament = equals + 1 < line.size() && IsBlank(line[equals + 1]);
    const std::string_view name = line.substr(begin, equals - begin);
    return {EIniLine::Key, false, begin, begin + (ornament ? TrimBlanksRight(name) : name).size(),
            equals + 1};
}

} // namespace

SIniLine ParseIniLine(std::string_view line) noexcept
{
    const std::size_t first = SkipBlanks(line, 0);
    if (first == line.size() || line[first] == ';' || line[first] == '#')
        return {EIniLine::Filler, false, 0, 0, 0};
    return line[first] == '[' ? ParseHeader(line, first) : ParseKey(line, first);
}

CLineEnds::SLine CLineEnds::Next(std::size_t begin) noexcept
{
    if (m_feed < begin)
        m_feed = m_text.find('\n', begin);
    if (m_return < begin)
        m_return = m_text.find('\r', begin);
    const std::size_t end = std::min(m_feed, m_return);
    if (end == c_none)
        return {m_text.size(), m_text.size()};
    const bool both = m_return != c_none && m_return + 1 == m_feed;
    return {end, end + (both ? 2 : 1)};
}

} // namespace CommonUI
