#pragma once

#include "../common/Str.h"
#include "../export/Export.h"
#include "Service.h"

#include <string>

namespace CommonUI
{

/// What an application lends the library to put things on the clipboard. Used on the user-interface thread.
class COMMONUI_API CClipboard
{
public:
    CClipboard() = default;
    virtual ~CClipboard();
    CClipboard(const CClipboard&) = delete;
    CClipboard& operator=(const CClipboard&) = delete;

    /// Replaces what is on the clipboard by two forms of the same thing in one step, so that whoever pastes
    /// takes the form it understands best. On Windows the HTML is put there as MakeClipboardHtml gives it.
    /// @param html a document or a part of one
    /// @param text the plain form
    /// @return false, and the clipboard keeps what it has, when another program holds it
    virtual bool Put(const CStr& html, const CStr& text) = 0;

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CClipboard> s_current;
};

/// The clipboard that copy commands use: one of the process alone unless another one was set.
COMMONUI_API CClipboard& GetClipboard();

/// HTML in the form that the clipboard of Windows calls "HTML Format": a header with the places where the
/// document and the copied part of it begin and end, then the document as UTF-8. The places count bytes from
/// the header's beginning, in ten digits each.
/// @param html the copied part; a surrogate without its partner becomes U+FFFD
COMMONUI_API std::string MakeClipboardHtml(const CStr& html);

} // namespace CommonUI
