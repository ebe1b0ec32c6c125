#include "common/FileBytes.h"
#include "settings/factory/detail/SettingsFiles.h"
#include "settings/factory/SettingsFactory.h"

#include <chrono>
#include <new>
#include <optional>

namespace CommonUI
{

namespace
{

namespace fs = std::filesystem;

bool ReadSettingsFile(const CStr& path, CInifile& document)
{
    CStr reason;
    try {
        std::string bytes;
        if (ReadFileBytes(path, bytes, CSettingsFactory::c_maximumFileSize, reason)) {
            document.LoadBytes(std::move(bytes));
            return true;
        }
    } catch (const std::bad_alloc&) {
        reason = u"not enough memory";
    }
    WarnOfSettings(u"Cannot load \"" + path + u"\": " + reason);
    return false;
}

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

CSettings CSettingsFactory::LoadSettings(ESettingType type, const CStr& path, bool addToRecent)
{
    return LoadEntry({path.EndsWith(u"\\") ? path.Left(path.GetLength() - 1) : path, type}, addToRecent);
}

CSettings CSettingsFactory::LoadEntry(SSettingsEntry entry, bool addToRecent)
{
    CInifile document;
    const bool isRead = entry.m_Type == ESettingType::ColorScale ? ReadColorScale(entry.m_File, document)
                                                                 : ReadSettingsFile(entry.m_File, document);
    if (!isRead)
        return {};
    NewDynamicItem(entry, addToRecent);
    CSettings settings;
    // All of the document, comments included: a set that is saved again has lost nothing.
    static_cast<CInifile&>(settings) = std::move(document);
    settings.SetFileName(entry.m_File);
    settings.SetEntryInfo(std::move(entry));
    return settings;
}

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

bool CSettingsFactory::SaveSettings(CSettings& settings, bool addToRecent)
{
    SSettingsEntry entry = settings.GetEntryInfo();
    if (!entry.m_IsFile) {
        WarnOfSettings(u"Cannot save \"" + entry.m_Name + u"\", which has no file");
        return false;
    }
    settings.SetFileName(entry.m_File);
    if (!settings.Save())
        return false;
    NewDynamicItem(entry, addToRecent);
    settings.SetEntryInfo(std::move(entry));
    return true;
}

} // namespace CommonUI
