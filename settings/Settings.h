#pragma once

#include "../common/ini/Inifile.h"
#include "SettingsEntry.h"

namespace CommonUI
{

/// A settings set: the parameters of a tool under a name. A tool reads and writes them with the functions of
/// the INI store, wherever the set comes from; the entry says where that is.
///
/// Sets are loaded and saved through CSettingsFactory.
class COMMONUI_API CSettings : public CInifile
{
public:
    /// An empty set without an identifier.
    CSettings() = default;
    /// The set of an entry. For one that lives in a file, nothing is read: the set has the name of that file
    /// and is empty.
    /// @param text what a built-in set holds, as the text of an INI file; it is taken as if it had been read
    ///     from a file, whose name is "BuiltInSetting_" and the set's key. With an empty text the set is
    ///     empty and has no file name.
    CSettings(const SSettingsEntry& entry, const CStr& text);
    CSettings(const CSettings& other) = default;
    CSettings(CSettings&& other) noexcept = default;
    CSettings& operator=(const CSettings& other) = default;
    CSettings& operator=(CSettings&& other) noexcept = default;
    ~CSettings() override;

    /// Where the set comes from, as it was given; the content may have been changed since.
    SSettingsEntry GetEntryInfo() const { return m_entry; }
    /// Replaces the entry. The content and the file name stay: saving through the factory goes by the entry.
    void SetEntryInfo(SSettingsEntry entry);

protected:
    friend class CSettingsFactory;

    /// Writes the content to the file of the document, and nothing more.
    bool Save() override;

private:
    SSettingsEntry m_entry;
};

} // namespace CommonUI
