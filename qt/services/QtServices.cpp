#include "qt/services/QtServices.h"

#include "qt/services/QtFolders.h"

#include <utility>

namespace CommonUI
{

CQtServices::CQtServices()
    : m_oldTimers(SetTimerService(&m_timers))
    , m_oldLoop(SetMessageLoop(&m_loop))
    , m_oldMessageBoxes(SetMessageBoxService(&m_messageBoxes))
    , m_oldFileDialogs(SetFileDialogService(&m_fileDialogs))
    , m_oldClipboard(SetClipboard(&m_clipboard))
    , m_oldFolders(SetFolders(std::make_unique<CQtFolders>()))
{
}

CQtServices::~CQtServices()
{
    SetFolders(std::move(m_oldFolders));
    SetClipboard(m_oldClipboard);
    SetFileDialogService(m_oldFileDialogs);
    SetMessageBoxService(m_oldMessageBoxes);
    SetMessageLoop(m_oldLoop);
    SetTimerService(m_oldTimers);
}

} // namespace CommonUI
