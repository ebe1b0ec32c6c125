#pragma once

#include "../../common/Color.h"
#include "../../common/Enum.h"
#include "../../common/Inifile.h"
#include "../../common/Range.h"
#include "../SettingTypes.h"

#include <optional>
#include <string_view>
#include <vector>

namespace CommonUI::Detail
{

/// @file
/// A type of settings lists its fields once, in a function that gives each to a visitor: key, value, and what
/// is allowed. The reader and the writer are such visitors, so that both always know the same keys.

/// Reads the keys of one section. What the section does not say stays as it is; what is not allowed makes the
/// set unusable, with a line in the diagnostics under the key of the settings type.
class CSettingReader
{
public:
    /// Selects the section until the object goes. A document without the section is unusable.
    CSettingReader(CInifile& ini, ESettingType type, const CStr& section);
    ~CSettingReader() { m_ini.SelectSection(m_previous); }
    CSettingReader(const CSettingReader&) = delete;
    CSettingReader& operator=(const CSettingReader&) = delete;

    void operator()(std::u16string_view key, bool& value);
    void operator()(std::u16string_view key, int& value, const CRange<int>& allowed);
    /// Also refuses what is not finite.
    void operator()(std::u16string_view key, double& value, const CRange<double>& allowed);
    void operator()(std::u16string_view key, CStr& value);
    void operator()(std::u16string_view key, std::optional<SColor>& value);
    template<class E>
    void operator()(std::u16string_view key, E& value, const CEnum<E>& names)
    {
        if (m_ini.HasKey(key))
            value = ValueOf(key, m_ini.ReadText(key), names);
    }
    template<class E>
    void operator()(std::u16string_view key, std::vector<E>& values, const CEnum<E>& names)
    {
        if (!m_ini.HasKey(key))
            return;
        values.clear();
        // A text that is no list is read as the empty name, which no enumeration has.
        for (const CStr& name : m_ini.ReadTexts(key, {CStr()}))
            values.push_back(ValueOf(key, name, names));
    }

    bool IsUsable() const noexcept { return m_usable; }
    void Refuse(const CStr& reason);
    const CInifile& GetIni() const noexcept { return m_ini; }

private:
    template<class E>
    E ValueOf(std::u16string_view key, const CStr& name, const CEnum<E>& names)
    {
        const auto found = names.FindIniName(name);
        if (found != names.end())
            return static_cast<E>(found->GetValue());
        Refuse(CStr::Format(u"%s: there is no \"%s\"", key, name));
        return E();
    }

    CInifile& m_ini;
    ESettingType m_type;
    CStr m_previous;
    CStr m_section;
    bool m_usable = true;
};

/// Writes the keys of one section, those with default values, too.
class CSettingWriter
{
public:
    /// Selects the section until the object goes, and removes all its keys.
    CSettingWriter(CInifile& ini, const CStr& section);
    ~CSettingWriter() { m_ini.SelectSection(m_previous); }
    CSettingWriter(const CSettingWriter&) = delete;
    CSettingWriter& operator=(const CSettingWriter&) = delete;

    void operator()(std::u16string_view key, bool value) { m_ini.WriteBool(key, value); }
    void operator()(std::u16string_view key, int value, const CRange<int>&) { m_ini.WriteInt(key, value); }
    void operator()(std::u16string_view key, double value, const CRange<double>&)
    {
        m_ini.WriteDouble(key, value);
    }
    void operator()(std::u16string_view key, const CStr& value) { m_ini.WriteText(key, value); }
    void operator()(std::u16string_view key, const std::optional<SColor>& value)
    {
        if (value)
            m_ini.WriteColor(key, *value);
    }
    template<class E>
    void operator()(std::u16string_view key, E value, const CEnum<E>& names)
    {
        m_ini.WriteText(key, names.GetIniName(static_cast<int>(value)));
    }
    template<class E>
    void operator()(std::u16string_view key, const std::vector<E>& values, const CEnum<E>& names)
    {
        std::vector<CStr> texts;
        texts.reserve(values.size());
        for (const E value : values)
            texts.push_back(names.GetIniName(static_cast<int>(value)));
        m_ini.WriteTexts(key, texts);
    }

private:
    CInifile& m_ini;
    CStr m_previous;
};

} // namespace CommonUI::Detail
