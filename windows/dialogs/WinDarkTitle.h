#pragma once

#include "../../export/Export.h"

#include <memory>

struct HWND__;

namespace CommonUI
{

/// Has the title of a window dark while the user wants programs to be dark, as long as the object lives, and
/// where the system has such titles: since Windows 10, 1809. What is in the window stays as it is. The
/// windows of the library's dialogs have it. User-interface thread only.
class COMMONUIWIN_API CWinDarkTitle
{
public:
    /// Throws std::system_error where there is no such window.
    /// @param window with a title; either may go first
    explicit CWinDarkTitle(HWND__* window);
    ~CWinDarkTitle();
    CWinDarkTitle(const CWinDarkTitle&) = delete;
    CWinDarkTitle& operator=(const CWinDarkTitle&) = delete;

private:
    class CTitle;

    std::unique_ptr<CTitle> m_title;
};

} // namespace CommonUI
