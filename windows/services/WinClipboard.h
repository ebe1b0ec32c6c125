#pragma once

#include "../../export/Export.h"
#include "../../platform/Clipboard.h"

#include <memory>

namespace CommonUI
{

class CMessageWindow;

/// The clipboard of the system: "HTML Format" and `CF_UNICODETEXT` together. Lines of the text end there as
/// Windows has them, with both characters.
///
/// Another program that holds the clipboard is waited for: a third of a second at most.
class COMMONUIWIN_API CWinClipboard : public CClipboard
{
public:
    /// Throws std::system_error where the system has no window left for it.
    CWinClipboard();
    ~CWinClipboard() override;

    /// A character U+0000 ends the text for programs that paste it.
    /// @return false, and the clipboard keeps what it has, also when there is no memory for the content. Only
    /// where the system refuses content that is ready for it the clipboard is empty then; it never has one
    /// form of the content without the other.
    bool Put(const CStr& html, const CStr& text) override;

private:
    std::unique_ptr<CMessageWindow> m_owner; // without one nothing can be put there
};

} // namespace CommonUI
