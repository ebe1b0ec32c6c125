#pragma once

#include "../../common/Str.h"
#include "../../platform/HelpService.h"
#include "HelpTopics.h"

#include <filesystem>
#include <map>

namespace CommonUI
{

/// Help that opens pages of the documentation: those of the library's dialogs, and those that the application
/// adds for its own. A derived class shows a page.
class COMMONUI_API CDocumentationHelp : public CHelpService
{
public:
    /// @param folder where the pages lie; see FindDocumentation. Without one none is found
    explicit CDocumentationHelp(const std::filesystem::path& folder);
    ~CDocumentationHelp() override;

    /// Adds topics, or gives topics of the library another page.
    /// @param folder where these pages lie; the texts of the topics are copied
    void AddTopics(std::span<const SHelpTopic> topics, const std::filesystem::path& folder);

    /// Opens the page of a topic: the HTML of the same name where the application has made one of it.
    /// @return false, with a line in the diagnostics, where there is no such topic, its page is not
    ///     installed, or it cannot be shown
    bool Open(unsigned int topic) override;

protected:
    /// @param page an existing file
    /// @param chapter the anchor in it; may be empty
    virtual bool Show(const std::filesystem::path& page, const CStr& chapter) = 0;

private:
    struct SPage {
        std::filesystem::path path;
        CStr chapter;
    };

    bool Show(const SPage& page);

    std::map<unsigned int, SPage> m_pages; // by their topics
};

/// Where the documentation of the library lies for a program: in the folder `docs` beside it, or in
/// `../share/doc/CommonUI`, where it is installed. Empty where there is none.
/// @param application the folder of the program, that of GetFolders
COMMONUI_API std::filesystem::path FindDocumentation(const std::filesystem::path& application);

} // namespace CommonUI
