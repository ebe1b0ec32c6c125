#pragma once

#include "QtClipboard.h"
#include "QtFileDialogService.h"
#include "QtFileManager.h"
#include "QtFolders.h"
#include "QtHttpService.h"
#include "QtMessageBoxService.h"
#include "QtMessageLoop.h"
#include "QtScreenService.h"
#include "QtSystemColors.h"
#include "QtTimerService.h"

namespace CommonUI
{

/// All services of Qt for the library, in use as long as the object lives:
///
///     QApplication application(argc, argv);
///     const CommonUI::CQtServices services;
///
/// It is made after the QApplication, on its thread, and goes before it. While it is made or goes, no timer
/// of the library runs and no other thread posts messages. What was set before is set again afterwards. Help
/// is the application's own business: CServiceScope<CHelpService>.
class COMMONUIQT_API CQtServices
{
public:
    CQtServices();
    ~CQtServices();
    CQtServices(const CQtServices&) = delete;
    CQtServices& operator=(const CQtServices&) = delete;

    /// The dialogs' memory of folders is for the application to load and save.
    CQtFileDialogService& GetFileDialogs() noexcept { return m_fileDialogs; }

private:
    CQtTimerService m_timers;
    CQtMessageLoop m_loop;
    CQtMessageBoxService m_messageBoxes;
    CQtFileDialogService m_fileDialogs;
    CQtClipboard m_clipboard;
    CQtFolders m_folders;
    CQtHttpService m_http;
    CQtScreenService m_screens;
    CQtSystemColors m_systemColors;
    CQtFileManager m_fileManager;
    CServiceScope<CTimerService> m_timersScope{m_timers};
    CServiceScope<CMessageLoop> m_loopScope{m_loop};
    CServiceScope<CMessageBoxService> m_messageBoxesScope{m_messageBoxes};
    CServiceScope<CFileDialogService> m_fileDialogsScope{m_fileDialogs};
    CServiceScope<CClipboard> m_clipboardScope{m_clipboard};
    CServiceScope<CFolders> m_foldersScope{m_folders};
    CServiceScope<CHttpService> m_httpScope{m_http};
    CServiceScope<CScreenService> m_screensScope{m_screens};
    CServiceScope<CSystemColors> m_systemColorsScope{m_systemColors};
    CServiceScope<CFileManager> m_fileManagerScope{m_fileManager};
};

} // namespace CommonUI
