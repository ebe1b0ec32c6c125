#pragma once

#include "QtClipboard.h"
#include "QtFileDialogService.h"
#include "QtMessageBoxService.h"
#include "QtMessageLoop.h"
#include "QtTimerService.h"

#include <memory>

namespace CommonUI
{

class CFolders;

/// All services of Qt for the library, in use as long as the object lives:
///
///     QApplication application(argc, argv);
///     const CommonUI::CQtServices services;
///
/// It is made after the QApplication, on its thread, and goes before it. While it is made or goes, no timer
/// of the library runs and no other thread posts messages. What was set before is set again afterwards. Help
/// is the application's own business: SetHelpService.
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
    CTimerService* m_oldTimers;
    CMessageLoop* m_oldLoop;
    CMessageBoxService* m_oldMessageBoxes;
    CFileDialogService* m_oldFileDialogs;
    CClipboard* m_oldClipboard;
    std::unique_ptr<CFolders> m_oldFolders;
};

} // namespace CommonUI
