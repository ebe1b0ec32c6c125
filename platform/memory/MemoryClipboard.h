#pragma once

#include "../Clipboard.h"

namespace CommonUI
{

/// A clipboard of the process alone, for programs without a display and for tests.
class COMMONUI_API CMemoryClipboard : public CClipboard
{
public:
    bool Put(const CStr& html, const CStr& text) override;

    /// The HTML that was put last; empty at first.
    const CStr& GetHtml() const noexcept { return m_html; }
    /// The text that was put last; empty at first.
    const CStr& GetText() const noexcept { return m_text; }

private:
    CStr m_html;
    CStr m_text;
};

} // namespace CommonUI
