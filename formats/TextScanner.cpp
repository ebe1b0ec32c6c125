#include "formats/detail/TextScanner.h"

#include "export/FromChars.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace CommonUI::Formats
{

namespace
{

constexpr double c_greatestLength = 1e9;
constexpr double c_leastLength = 1e-18;
constexpr std::ptrdiff_t c_reportBytes = 1 << 20;

bool IsSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool IsBlank(char c)
{
    return c != '\n' && IsSpace(c);
}

char ToLower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool IsCharacter(char32_t code)
{
    return code < 0xD800 || (code > 0xDFFF && code <= 0x10FFFF);
}

bool IsUtf8(std::string_view text)
{
    char32_t code = 0;
    char32_t least = 0; // that needs a sequence of this length
    int pending = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (pending > 0) {
            code = code << 6 | (byte & 0x3F);
            --pending;
            if ((byte & 0xC0) != 0x80 || (pending == 0 && (code < least || !IsCharacter(code))))
                return false;
        } else if (byte >= 0x80) {
            if (byte < 0xC2 || byte > 0xF4)
                return false;
            pending = byte < 0xE0 ? 1 : byte < 0xF0 ? 2 : 3;
            least = pending == 1 ? 0x80 : pending == 2 ? 0x800 : 0x10000;
            code = byte & (0x3F >> pending);
        }
    }
    return pending == 0;
}

} // namespace

CTextScanner::CTextScanner(std::string name, std::string_view text, const FProgress& progress)
    : m_name(std::move(name))
    , m_begin(text.data())
    , m_position(m_begin)
    , m_end(m_begin + text.size())
    , m_nextReport(m_begin)
    , m_progress(progress)
{
}

void CTextScanner::SkipSpace()
{
    while (m_position != m_end && IsSpace(*m_position))
        ++m_position;
}

void CTextScanner::SkipBlanks()
{
    while (m_position != m_end && IsBlank(*m_position))
        ++m_position;
}

std::string_view CTextScanner::ReadLine()
{
    const char* const start = m_position;
    const char* const lineEnd = std::find(start, m_end, '\n');
    m_position = lineEnd == m_end ? m_end : lineEnd + 1;
    return Trim(std::string_view(start, static_cast<std::size_t>(lineEnd - start)));
}

double CTextScanner::ReadHeight(double scale)
{
    const char* const start = m_position;
    double value = 0;
    const auto [end, error] = FromChars(start, m_end, value);
    if (error == std::errc() && std::isfinite(value) && IsDelimiter(end))
        m_position = end;
    else
        value = ReadUnusualNumber();
    value *= scale;
    if (std::fabs(value) > c_greatestLength)
        Fail(start, "a length of " + Quote(std::string_view(start, m_position)) +
                        " times the scale is beyond 1e9 m");
    if (m_position >= m_nextReport)
        Report();
    return value;
}

double CTextScanner::ReadUnusualNumber()
{
    const char* const start = m_position;
    while (!IsDelimiter(m_position))
        ++m_position;
    const std::string_view text(start, m_position);
    double value = Analysis::c_missing;
    if (!EqualsNoCase(text, "BAD") && !EqualsNoCase(text, "NaN") && !ParseNumber(text, value))
        Fail(start, "a finite number expected where " + Quote(text) + " stands");
    return value;
}

bool CTextScanner::IsDelimiter(const char* place) const
{
    return place == m_end || IsSpace(*place) || *place == m_separator;
}

void CTextScanner::Report()
{
    m_nextReport = m_end - m_position > c_reportBytes ? m_position + c_reportBytes : m_end;
    if (m_progress)
        m_progress(static_cast<double>(m_position - m_begin) / static_cast<double>(m_end - m_begin));
}

void CTextScanner::Fail(const char* place, const std::string& message) const
{
    throw EReadError(m_name + ':' + std::to_string(1 + std::count(m_begin, place, '\n')) + ": " + message);
}

bool ParseNumber(std::string_view text, double& value)
{
    std::array<char, 64> buffer;
    if (text.starts_with('+') && !text.starts_with("+-"))
        text.remove_prefix(1);
    if (text.empty() || text.size() > buffer.size())
        return false;
    const auto end = std::copy(text.begin(), text.end(), buffer.begin());
    if (const auto comma = std::find(buffer.begin(), end, ','); comma != end && text.find('.') == text.npos)
        *comma = '.';
    const char* const last = buffer.data() + text.size();
    const auto [stop, error] = FromChars(buffer.data(), last, value);
    return error == std::errc() && stop == last && std::isfinite(value);
}

bool IsPlausibleLength(double length)
{
    return length >= c_leastLength && length <= c_greatestLength;
}

bool EqualsNoCase(std::string_view left, std::string_view right)
{
    return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                      [](char a, char b) { return ToLower(a) == ToLower(b); });
}

std::string_view Trim(std::string_view text)
{
    while (!text.empty() && IsSpace(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsSpace(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string ToUtf8(std::string_view text)
{
    if (IsUtf8(text))
        return std::string(text);
    std::string result;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        if (code < 0x80) {
            result += c;
        } else {
            result += static_cast<char>(0xC0 | (code >> 6));
            result += static_cast<char>(0x80 | (code & 0x3F));
        }
    }
    return result;
}

std::string ReplaceControls(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<unsigned char>(text[i]);
        const auto next = i + 1 < text.size() ? static_cast<unsigned char>(text[i + 1]) : 0;
        const bool isPair = byte == 0xC2 && next >= 0x80 && next < 0xA0; // U+0080 to U+009F
        result += byte < ' ' || byte == 0x7F || isPair ? '?' : text[i];
        i += isPair;
    }
    return result;
}

std::string Quote(std::string_view text)
{
    constexpr std::size_t c_longest = 24;
    std::string result = "'";
    for (const char c : text.substr(0, c_longest))
        result += c >= ' ' && c <= '~' ? c : '?';
    return result + (text.size() > c_longest ? "...'" : "'");
}

} // namespace CommonUI::Formats
