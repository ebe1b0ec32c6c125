#include "measurement/data/JsonWriter.h"

#include "measurement/data/ShortestNumber.h"

#include <cmath>
#include <utility>

namespace CommonUI::Measurement
{

CJsonWriter::CJsonWriter(FWriteText write)
    : m_write(std::move(write))
{
}

CJsonWriter::~CJsonWriter() = default;

void CJsonWriter::BeginObject()
{
    Begin('{', '}');
}

void CJsonWriter::BeginArray()
{
    Begin('[', ']');
}

void CJsonWriter::Begin(char begin, char end)
{
    PutComma(begin == '{');
    m_piece += begin;
    m_levels.push_back({end, true});
}

void CJsonWriter::End()
{
    const SLevel level = m_levels.back();
    m_levels.pop_back();
    if (level.end == '}' && !level.isEmpty)
        BreakLine();
    m_piece += level.end;
}

CJsonWriter& CJsonWriter::Key(std::string_view key)
{
    PutComma(true);
    PutText(key);
    m_piece += ": ";
    m_isBehindKey = true;
    return *this;
}

void CJsonWriter::Text(std::string_view utf8)
{
    PutComma(false);
    PutText(utf8);
}

void CJsonWriter::Number(double value)
{
    if (!std::isfinite(value))
        return Null();
    PutComma(false);
    AppendShortest(m_piece, value);
}

void CJsonWriter::Count(std::size_t count)
{
    PutComma(false);
    m_piece += std::to_string(count);
}

void CJsonWriter::Null()
{
    PutComma(false);
    m_piece += "null";
}

void CJsonWriter::Finish()
{
    m_piece += '\n';
    m_write(std::exchange(m_piece, {}));
}

// What stands between a value and the one before it.
void CJsonWriter::PutComma(bool breaksLine)
{
    constexpr std::size_t c_pieceSize = std::size_t{1} << 16;
    if (m_piece.size() >= c_pieceSize)
        m_write(std::exchange(m_piece, {}));
    if (std::exchange(m_isBehindKey, false) || m_levels.empty())
        return;
    const bool isFirst = std::exchange(m_levels.back().isEmpty, false);
    if (!isFirst)
        m_piece += ',';
    if (breaksLine)
        BreakLine();
    else if (!isFirst)
        m_piece += ' ';
}

void CJsonWriter::BreakLine()
{
    m_piece += '\n';
    m_piece.append(2 * m_levels.size(), ' ');
}

void CJsonWriter::PutText(std::string_view utf8)
{
    // Bytes that are no UTF-8 become U+FFFD.
    m_piece += '"';
    for (const char c : CStr::FromUtf8(utf8).ToUtf8()) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '"' || c == '\\') {
            m_piece += '\\';
            m_piece += c;
        } else if (byte < 0x20) {
            m_piece += "\\u00";
            m_piece += "0123456789abcdef"[byte >> 4];
            m_piece += "0123456789abcdef"[byte & 15];
        } else {
            m_piece += c;
        }
    }
    m_piece += '"';
}

} // namespace CommonUI::Measurement
