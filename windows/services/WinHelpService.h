#pragma once

#include "../../dialogs/help/DocumentationHelp.h"
#include "../../export/Export.h"

namespace CommonUI
{

/// Help by the program that the user has for such pages. Not among CWinServices, as help is the application's
/// own business:
///
///     CWinHelpService help(FindDocumentation(GetFolders().GetApplicationFolder()));
///     const CServiceScope<CHelpService> helpScope(help);
class COMMONUIWIN_API CWinHelpService : public CDocumentationHelp
{
public:
    using CDocumentationHelp::CDocumentationHelp;
    ~CWinHelpService() override;

protected:
    bool Show(const std::filesystem::path& page, const CStr& chapter) override;
    /// Has the program for a page open it.
    /// @param address of the page, with its chapter: "file:///C:/docs/dialogs.html#help"
    /// @return false if it cannot
    virtual bool OpenPage(const std::filesystem::path& page, const CStr& address);
};

} // namespace CommonUI
