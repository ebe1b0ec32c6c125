#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <cstddef>
#include <string>
#include <vector>

namespace CommonUI
{

/// What is said below a table about its empty cells: each reason once, with the symbols that it holds for, in
/// the order in which they appear.
class COMMONUI_API CFootnotes
{
public:
    /// @param symbol of the parameter, or the name of the statistic, that has no value
    /// @param reason nothing is added where it is empty
    /// @return the reason, as one text that all its cells can share
    CStr Add(const CStr& symbol, const CStr& reason);

    /// A line each: "1 Sal, Str: the surface is flat".
    std::vector<CStr> GetLines() const;
    /// The same as a piece of HTML, UTF-8, for the place behind the table; empty without notes.
    std::string GetHtml() const;

private:
    struct SNote {
        CStr reason;
        std::vector<CStr> symbols;
    };

    std::vector<SNote> m_notes{};
};

} // namespace CommonUI
