#pragma once

#include "../common/ini/Inifile.h"
#include "../export/Export.h"

#include <string>
#include <string_view>

namespace CommonUI
{

/// What all preference objects share: whether they differ from what is stored, and how they are loaded, saved
/// and given their defaults.
///
/// Preferences live in INI files. An application that keeps a preference object elsewhere as well, as bytes
/// in a measurement file or as text in a database, overrides the functions for bytes and for text; those here
/// know no such form. User-interface thread only, as everything that derives from it.
class COMMONUI_API CBaseData
{
public:
    CBaseData() = default;
    CBaseData(const CBaseData&) = default;
    CBaseData& operator=(const CBaseData&) = default;
    virtual ~CBaseData();

    /// Whether the object was changed since it was last saved, reset or loaded.
    virtual bool IsModified() const noexcept;
    /// Gives everything that is stored its default.
    virtual void Init() = 0;
    /// Notes that the object is what is stored; for who has stored it.
    virtual void ClearModified() noexcept;
    /// ClearModified, then Init; when Init throws, the flag is what it was.
    virtual void Reset();
    /// A hook for applications that have to rewrite a section of an earlier version before it is loaded; does
    /// nothing.
    virtual void Migrate(CInifile& ini, std::u16string_view section, int fromVersion, int toVersion);
    /// Here there is nothing to read: resets and returns true.
    virtual bool LoadBytes(std::string_view bytes);
    /// Here there is nothing to read: resets when asked to and returns true.
    virtual bool Load(CInifile& ini, bool reset);
    /// Here there is nothing to read: resets and returns true.
    virtual bool LoadText(std::u16string_view text);
    /// Here there is nothing to write: clears the modified flag and returns true.
    virtual bool SaveBytes(std::string& bytes);
    /// Writes the object to the current section of `ini`.
    virtual bool Save(CInifile& ini) = 0;
    /// Here there is nothing to write: clears the modified flag and returns true.
    virtual bool SaveText(CStr& text);

protected:
    /// To be called by whatever changes what is stored.
    void SetModified() noexcept { m_modified = true; }

private:
    bool m_modified = false;
};

} // namespace CommonUI
