#include "measurement/data/CsvWriter.h"

#include "measurement/data/ShortestNumber.h"

#include <cmath>
#include <cstddef>
#include <utility>

namespace CommonUI::Measurement
{

namespace
{

constexpr std::string_view c_lineEnd = "\r\n";

} // namespace

CCsvWriter::CCsvWriter(FWriteText write)
    : m_write(std::move(write))
    , m_piece("table,row,key,statistic,value,unit,note")
{
    m_piece += c_lineEnd;
}

CCsvWriter::~CCsvWriter() = default;

void CCsvWriter::Write(const SDataLine& line)
{
    constexpr std::size_t c_pieceSize = std::size_t{1} << 16;
    for (const std::string_view text : {line.table, line.row, line.key, line.statistic}) {
        Put(text);
        m_piece += ',';
    }
    if (std::isfinite(line.value))
        AppendShortest(m_piece, line.value);
    m_piece += ',';
    Put(line.unit);
    m_piece += ',';
    Put(line.note);
    m_piece += c_lineEnd;
    if (m_piece.size() >= c_pieceSize)
        m_write(std::exchange(m_piece, {}));
}

void CCsvWriter::Put(std::string_view utf8)
{
    if (utf8.find_first_of(",\"\r\n") == utf8.npos) {
        m_piece += utf8;
        return;
    }
    m_piece += '"';
    for (const char c : utf8)
        m_piece.append(c == '"' ? 2 : 1, c);
    m_piece += '"';
}

void CCsvWriter::Finish()
{
    m_write(std::exchange(m_piece, {}));
}

} // namespace CommonUI::Measurement
