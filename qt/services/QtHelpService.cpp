#include "qt/services/QtHelpService.h"

#include "qt/QtText.h"

#include <QDesktopServices>
#include <QUrl>

namespace CommonUI
{

CQtHelpService::~CQtHelpService() = default;

bool CQtHelpService::Show(const std::filesystem::path& page, const CStr& chapter)
{
    std::error_code error;
    const std::filesystem::path full = std::filesystem::absolute(page, error);
    QUrl url = QUrl::fromLocalFile(ToQString((error ? page : full).u16string()));
    if (!chapter.IsEmpty())
        url.setFragment(ToQString(chapter));
    return OpenUrl(url);
}

bool CQtHelpService::OpenUrl(const QUrl& url)
{
    return QDesktopServices::openUrl(url);
}

} // namespace CommonUI
