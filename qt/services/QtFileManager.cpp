#include "qt/services/QtFileManager.h"

#include "qt/QtText.h"

#include <QDesktopServices>
#include <QFile>
#include <QUrl>

namespace CommonUI
{

CQtFileManager::~CQtFileManager() = default;

bool CQtFileManager::MoveToTrash(const CStr& path)
{
    return QFile::moveToTrash(ToQString(path));
}

bool CQtFileManager::OpenFolder(const CStr& folder)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(ToQString(folder)));
}

bool CQtFileManager::OpenFile(const CStr& path)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(ToQString(path)));
}

} // namespace CommonUI
