#pragma once

#include "common/Color.h"
#include "common/Enum.h"
#include "common/ini/Inifile.h"
#include "common/ini/SectionScope.h"
#include "common/Range.h"

#include <optional>
#include <string_view>
#include <type_traits>
#include <vector>

namespace CommonUI
{

/// Reads the values of a set from a section. A missing key leaves the value, its default. What cannot be used
/// has a line in the diagnostics and makes the set unusable; members answer whether their value can be used.
class CSettingsReader
{
public:
    CSettingsReader(CInifile& ini, std::u16string_view section);

    bool IsUsable() const { return m_usable; }

    /// A default that depends on what has been read.
    template<class T>
    void Default(T& value, const std::type_identity_t<T>& byDefault)
    {
        value = byDefault;
    }

    template<class T>
    bool Choice(std::u16string_view key, const CEnum<T>& choices, T& value)
    {
        return !m_ini.HasKey(key) || NeededChoice(key, choices, value);
    }
    /// A choice that has no default.
    template<class T>
    bool NeededChoice(std::u16string_view key, const CEnum<T>& choices, T& value)
    {
        const auto found = choices.FindIniName(m_ini.ReadText(key));
        if (found == choices.end())
            return Refuse(key, u"a choice that is known");
        value = static_cast<T>(found->GetValue());
        return true;
    }
    /// From 1 to `greatest`.
    bool Integer(std::u16string_view key, int& value, int greatest);
    /// Odd, from 1 to `greatest`.
    bool OddInteger(std::u16string_view key, int& value, int greatest);
    /// Above 0 and finite, at most `greatest`.
    bool Positive(std::u16string_view key, double& value, double greatest);
    bool IntegerWithin(std::u16string_view key, int& value, const CRange<int>& allowed);
    bool NumberWithin(std::u16string_view key, double& value, const CRange<double>& allowed);
    /// `count` finite numbers.
    bool Numbers(std::u16string_view key, std::vector<double>& values, int count);
    bool Flag(std::u16string_view key, bool& value);
    bool Text(std::u16string_view key, CStr& value);
    bool OptionalColor(std::u16string_view key, std::optional<SColor>& value);
    template<class T>
    bool Choices(std::u16string_view key, const CEnum<T>& choices, std::vector<T>& values)
    {
        if (!m_ini.HasKey(key))
            return true;
        values.clear();
        // A text that is no list is read as the empty name, which is no choice.
        for (const CStr& name : m_ini.ReadTexts(key, {CStr()})) {
            const auto found = choices.FindIniName(name);
            if (found == choices.end())
                return Refuse(key, u"a list of choices that are known");
            values.push_back(static_cast<T>(found->GetValue()));
        }
        return true;
    }
    /// What several values have to be together.
    bool Require(bool condition, std::u16string_view key, std::u16string_view expected)
    {
        return condition || Refuse(key, expected);
    }
    /// What the section as a whole has to be.
    bool Require(bool condition, std::u16string_view reason);

    const CInifile& GetIni() const { return m_ini; }

private:
    bool Refuse(std::u16string_view key, std::u16string_view expected);

    CInifile& m_ini;
    CSectionScope m_scope;
    bool m_usable = true;
};

} // namespace CommonUI
