#include "qt/services/QtFolders.h"

#include "common/PathText.h"
#include "qt/QtText.h"

#include <QCoreApplication>
#include <QStandardPaths>

namespace CommonUI
{

CQtFolders::~CQtFolders() = default;

std::filesystem::path CQtFolders::GetApplicationFolder() const
{
    return ToPath(FromQString(QCoreApplication::applicationDirPath()));
}

std::filesystem::path CQtFolders::GetSettingsFolder() const
{
    return ToPath(FromQString(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation)));
}

} // namespace CommonUI
