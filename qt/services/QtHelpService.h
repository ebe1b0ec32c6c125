#pragma once

#include "../../dialogs/help/DocumentationHelp.h"
#include "../../export/Export.h"

class QUrl;

namespace CommonUI
{

/// Help by the program that the desktop opens such pages with. Not among CQtServices, as help is the
/// application's own business:
///
///     CQtHelpService help(FindDocumentation(GetFolders().GetApplicationFolder()));
///     const CServiceScope<CHelpService> helpScope(help);
class COMMONUIQT_API CQtHelpService : public CDocumentationHelp
{
public:
    using CDocumentationHelp::CDocumentationHelp;
    ~CQtHelpService() override;

protected:
    bool Show(const std::filesystem::path& page, const CStr& chapter) override;
    /// Has the desktop open an address. @return false if it cannot
    virtual bool OpenUrl(const QUrl& url);
};

} // namespace CommonUI
