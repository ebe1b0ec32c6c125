#include "qt/services/QtFolders.h"

#include <QCoreApplication>
#include <QStandardPaths>

namespace CommonUI
{

namespace
{

std::filesystem::path ToPath(const QString& path)
{
    return path.toStdU16String();
}

} // namespace

CQtFolders::~CQtFolders() = default;

std::filesystem::path CQtFolders::GetApplicationFolder() const
{
    return ToPath(QCoreApplication::applicationDirPath());
}

std::filesystem::path CQtFolders::GetSettingsFolder() const
{
    return ToPath(QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation));
}

} // namespace CommonUI
