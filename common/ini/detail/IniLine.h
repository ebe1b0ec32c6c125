#pragma once

#include <cstddef>
#include <string_view>

namespace CommonUI
{

/// What a line of an INI file is.
enum class EIniLine {
    Filler,    ///< blank, or a comment
    Malformed, ///< none of the others
    Header,
    Key
};

/// The parts of one line as positions in it.
struct SIniLine {
    EIniLine kind = EIniLine::Malformed;
    bool quoted = false;   ///< whether the name stands in quotes; begin and end are then what is between them
    std::size_t begin = 0; ///< of the name of the section or key
    std::size_t end = 0;   ///< blanks on both sides of an equals sign are ornament, no part of the name
    std::size_t value = 0; ///< what follows the equals sign
};

/// Takes a line without its line end apart.
SIniLine ParseIniLine(std::string_view line) noexcept;

/// The line ends of a text from left to right, in time proportional to its length whichever of the two
/// characters is rare.
class CLineEnds
{
public:
    explicit CLineEnds(std::string_view text) noexcept
        : m_text(text)
        , m_feed(text.find('\n'))
        , m_return(text.find('\r'))
    {
    }

    struct SLine {
        std::size_t end;  ///< of the line without its line end
        std::size_t next; ///< where the next line begins
    };
    /// The line that begins at `begin`, which must not decrease from call to call.
    SLine Next(std::size_t begin) noexcept;

private:
    std::string_view m_text;
    std::size_t m_feed;   // the first line feed at or after the line, npos for none
    std::size_t m_return; // the first carriage return at or after the line, npos for none
};

} // namespace CommonUI
