#pragma once

#include "../../export/Export.h"
#include "../WriteText.h"

#include <string>
#include <string_view>

namespace CommonUI::Measurement
{

/// A line of data: one value, or one text about where values come from. UTF-8.
struct SDataLine {
    std::string_view table{}; ///< "surface", "profile", "provenance" ...
    std::string_view row{};   ///< which of the table's rows; empty where it has one, and for statistics
    std::string_view key{};   ///< of the parameter
    std::string_view
        statistic{};         ///< the key of what was made of the parameter in all rows; empty for a value
    double value;            ///< NaN for none
    std::string_view unit{}; ///< in which the value is kept; empty for none
    std::string_view note{}; ///< why there is no value; or the text
};

/// Writes lines of data as CSV (RFC 4180), UTF-8, with the shortest digits that give the same numbers back:
/// table, row, key, statistic, value, unit, note.
class COMMONUIMEASUREMENT_API CCsvWriter
{
public:
    /// Begins with the line of headers. @param write takes the pieces, from Write and Finish
    explicit CCsvWriter(FWriteText write);
    ~CCsvWriter();
    CCsvWriter(const CCsvWriter&) = delete;
    CCsvWriter& operator=(const CCsvWriter&) = delete;

    /// Adds a line; a number that is not finite leaves its field empty.
    void Write(const SDataLine& line);
    /// Writes the last piece.
    void Finish();

private:
    void Put(std::string_view utf8);

    FWriteText m_write;
    std::string m_piece;
};

} // namespace CommonUI::Measurement
