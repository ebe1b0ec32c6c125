#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <string_view>

namespace CommonUI
{

/// A text that a field edits whose lines end in a line feed alone. What the user has not touched comes back
/// unit by unit, whatever ends its lines: carriage return and line feed, either of them, a paragraph
/// separator (U+2029), or one of the noncharacters that fields of texts take for ends (U+FDD0, U+FDD1). New
/// lines end like most of the others.
class COMMONUI_API CEditedText
{
public:
    /// Takes a text to be edited. @param text with line ends of any kind
    explicit CEditedText(const CStr& text = {});

    /// The text as it was given, with its own line ends.
    const CStr& GetText() const noexcept { return m_text; }
    /// What the field shows.
    const CStr& GetPlain() const noexcept { return m_plain; }
    /// The text after the field has been edited: what lies between the first change and the last one gets
    /// the usual line ends, the rest is as it was.
    CStr Restore(std::u16string_view edited) const;

private:
    std::u16string_view GetUsualEnd() const;

    CStr m_text;
    CStr m_plain;
};

} // namespace CommonUI
