#pragma once

#include "WinClipboard.h"
#include "WinFileDialogService.h"
#include "WinFileManager.h"
#include "WinFolders.h"
#include "WinHttpService.h"
#include "WinMessageBoxService.h"
#include "WinMessageLoop.h"
#include "WinScreenService.h"
#include "WinSystemColors.h"
#include "WinThreadService.h"
#include "WinTimerService.h"

namespace CommonUI
{

/// All services of the system for the library, in use as long as the object lives:
///
///     const CommonUI::CWinServices services;
///
/// It is made on the thread of the application's windows. While it is made or goes, no timer of the library
/// runs and no other thread posts messages. What was set before is set again afterwards. Help is the
/// application's own business: CServiceScope<CHelpService>.
class COMMONUIWIN_API CWinServices
{
public:
    /// Throws std::system_error where the system has no windows left for them.
    /// @param title of message boxes; when empty, the name of the program's file
    explicit CWinServices(const CStr& title = {});
    ~CWinServices();
    CWinServices(const CWinServices&) = delete;
    CWinServices& operator=(const CWinServices&) = delete;

    /// The dialogs' memory of folders is for the application to load and save.
    CWinFileDialogService& GetFileDialogs() noexcept { return m_fileDialogs; }
    /// For a filter of accelerators and dialogs.
    CWinMessageLoop& GetLoop() noexcept { return m_loop; }

private:
    CWinTimerService m_timers;
    CWinMessageLoop m_loop;
    CWinMessageBoxService m_messageBoxes;
    CWinFileDialogService m_fileDialogs;
    CWinClipboard m_clipboard;
    CWinFolders m_folders;
    CWinScreenService m_screens;
    CWinSystemColors m_systemColors;
    CWinFileManager m_fileManager;
    CWinThreadService m_threads;
    CWinHttpService m_http;
    CServiceScope<CTimerService> m_timersScope{m_timers};
    CServiceScope<CMessageLoop> m_loopScope{m_loop};
    CServiceScope<CMessageBoxService> m_messageBoxesScope{m_messageBoxes};
    CServiceScope<CFileDialogService> m_fileDialogsScope{m_fileDialogs};
    CServiceScope<CClipboard> m_clipboardScope{m_clipboard};
    CServiceScope<CFolders> m_foldersScope{m_folders};
    CServiceScope<CScreenService> m_screensScope{m_screens};
    CServiceScope<CSystemColors> m_systemColorsScope{m_systemColors};
    CServiceScope<CFileManager> m_fileManagerScope{m_fileManager};
    CServiceScope<CThreadService> m_threadsScope{m_threads};
    CServiceScope<CHttpService> m_httpScope{m_http};
};

} // namespace CommonUI
