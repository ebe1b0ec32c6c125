#include "common/PathText.h"
#include "settings/factory/SettingsFactory.h"

#include <chrono>
#include <exception>
#include <optional>

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

// The size and time of last change of a file that has stayed as it is for some time. A file that has just
// changed has none: it could change once more without a change of its time, which file systems keep by
// steps of up to two seconds.
std::optional<std::pair<std::uintmax_t, fs::file_time_type>> GetStampAtRest(const CStr& path)
{
    try {
        const fs::path file = ToPath(path);
        const fs::file_time_type changed = fs::last_write_time(file);
        if (fs::file_time_type::clock::now() - changed > std::chrono::seconds(3))
            return std::pair(fs::file_size(file), changed);
    } catch (const std::exception&) {
        // Reading the file tells why.
    }
    return {};
}

} // namespace

bool CSettingsFactory::ReadColorScale(const CStr& path, CInifile& document)
{
    const auto stamp = GetStampAtRest(path);
    const auto cached = m_colorScales.find(path);
    if (cached != m_colorScales.end() && cached->second.stamp == stamp) {
        document = cached->second.document;
        return true;
    }
    m_colorScales.erase(path);
    if (!ReadSettingsFile(path, document))
        return false;
    if (stamp)
        m_colorScales[path] = {document, *stamp};
    return true;
}

} // namespace CommonUI
