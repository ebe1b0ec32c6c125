#pragma once

#include "formats/SurfaceReader.h"

#include <string>
#include <string_view>

namespace CommonUI::Formats
{

/// Walks through the text of a file and knows how to say what is wrong where. For the readers of this
/// folder only.
class CTextScanner
{
public:
    /// @param name how messages call the file
    /// @param text must outlive the scanner
    CTextScanner(std::string name, std::string_view text, const FProgress& progress);

    /// Has numbers end at a character, too, besides blanks and ends of lines.
    void SetSeparator(char separator) { m_separator = separator; }

    bool IsAtEnd() const { return m_position == m_end; }
    /// The character to come; 0 at the end.
    char Peek() const { return IsAtEnd() ? '\0' : *m_position; }
    std::size_t GetRemaining() const { return static_cast<std::size_t>(m_end - m_position); }
    const char* GetPosition() const { return m_position; }

    void SkipByte() { ++m_position; }
    void SkipSpace();
    /// Skips blanks as far as the end of the line, which stays.
    void SkipBlanks();
    /// The rest of the line without leading and trailing blanks. Its end is skipped.
    std::string_view ReadLine();
    /// A number at the position, which must not be a blank, times the scale. NaN for a missing point.
    double ReadHeight(double scale);

    /// Throws EReadError with the line that holds the place.
    [[noreturn]] void Fail(const char* place, const std::string& message) const;

private:
    double ReadUnusualNumber();
    bool IsDelimiter(const char* place) const;
    void Report();

    std::string m_name;
    const char* m_begin;
    const char* m_position;
    const char* m_end;
    const char* m_nextReport;
    const FProgress& m_progress;
    char m_separator = ' ';
};

/// Whether text is a finite decimal number as a whole, with a decimal point or comma.
bool ParseNumber(std::string_view text, double& value);
/// Whether a length can be a spacing or a scale: 1e-18 m to 1e9 m.
bool IsPlausibleLength(double length);
bool EqualsNoCase(std::string_view left, std::string_view right);
std::string_view Trim(std::string_view text);
/// Text that is not UTF-8 is taken to be Latin-1.
std::string ToUtf8(std::string_view text);
/// UTF-8 with a question mark for each control character, those from U+007F to U+009F included.
std::string ReplaceControls(std::string_view text);
/// Text of a file for a message: in quotes, short and printable.
std::string Quote(std::string_view text);

} // namespace CommonUI::Formats
