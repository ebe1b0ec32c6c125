#include "dialogs/help/DocumentationHelp.h"

#include "common/Diagnostics.h"
#include "common/PathText.h"

#include <system_error>

namespace CommonUI
{

namespace
{

void Warn(const CStr& text)
{
    GetDiagnostics().Write(u"Help", EDiagnosticLevel::Warning, text);
}

bool IsFile(const std::filesystem::path& path)
{
    std::error_code error;
    return std::filesystem::is_regular_file(path, error);
}

} // namespace

CDocumentationHelp::CDocumentationHelp(const std::filesystem::path& folder)
{
    AddTopics(GetHelpTopics(), folder);
}

CDocumentationHelp::~CDocumentationHelp() = default;

void CDocumentationHelp::AddTopics(std::span<const SHelpTopic> topics, const std::filesystem::path& folder)
{
    for (const SHelpTopic& topic : topics)
        m_pages[topic.topic] = {folder / ToPath(topic.page), CStr(topic.chapter)};
}

bool CDocumentationHelp::Open(unsigned int topic)
{
    const auto found = m_pages.find(topic);
    if (found != m_pages.end())
        return Show(found->second);
    Warn(CStr::Format(u"There is no help for topic %u.", topic));
    return false;
}

bool CDocumentationHelp::Show(const SPage& page)
{
    CStr name;
    ToText(page.path, name);
    const std::filesystem::path html = std::filesystem::path(page.path).replace_extension(".html");
    // Without a folder there are no pages, whatever lies in the current one.
    const bool hasFolder = page.path.has_parent_path();
    const bool hasHtml = hasFolder && IsFile(html);
    if (!hasHtml && !(hasFolder && IsFile(page.path))) {
        Warn(CStr::Format(u"The page of help \"%s\" is not installed.", name));
        return false;
    }
    if (Show(hasHtml ? html : page.path, page.chapter))
        return true;
    Warn(CStr::Format(u"The page of help \"%s\" cannot be shown.", name));
    return false;
}

std::filesystem::path FindDocumentation(const std::filesystem::path& application)
{
    for (const char* const place : {"docs", "../share/doc/CommonUI"}) {
        std::error_code error;
        const std::filesystem::path folder = application / place;
        if (std::filesystem::is_directory(folder, error))
            return folder.lexically_normal();
    }
    return {};
}

} // namespace CommonUI
