#include "platform/memory/FixedFolders.h"

#include <utility>

namespace CommonUI
{

namespace fs = std::filesystem;

CFixedFolders::CFixedFolders(fs::path application, fs::path settings)
    : m_application(std::move(application))
    , m_settings(std::move(settings))
{
}

fs::path CFixedFolders::GetApplicationFolder() const
{
    return m_application;
}

fs::path CFixedFolders::GetSettingsFolder() const
{
    return m_settings;
}

} // namespace CommonUI
