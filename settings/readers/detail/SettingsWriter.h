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

/// Writes the values of a set to a section, whose earlier keys go. What cannot be used is written all the
/// same.
class CSettingsWriter
{
public:
    CSettingsWriter(CInifile& ini, std::u16string_view section);

    template<class T>
    void Default(const T&, const std::type_identity_t<T>&)
    {
    }

    template<class T>
    bool Choice(std::u16string_view key, const CEnum<T>& choices, T value)
    {
        m_ini.WriteText(key, choices.GetIniName(static_cast<int>(value)));
        return true;
    }
    template<class T>
    bool NeededChoice(std::u16string_view key, const CEnum<T>& choices, T value)
    {
        return Choice(key, choices, value);
    }
    bool Integer(std::u16string_view key, int value, int greatest);
    bool OddInteger(std::u16string_view key, int value, int greatest);
    bool Positive(std::u16string_view key, double value, double greatest);
    bool IntegerWithin(std::u16string_view key, int value, const CRange<int>& allowed);
    bool NumberWithin(std::u16string_view key, double value, const CRange<double>& allowed);
    bool Numbers(std::u16string_view key, const std::vector<double>& values, int count);
    bool Flag(std::u16string_view key, bool value);
    bool Text(std::u16string_view key, const CStr& value);
    bool OptionalColor(std::u16string_view key, const std::optional<SColor>& value);
    template<class T>
    bool Choices(std::u16string_view key, const CEnum<T>& choices, const std::vector<T>& values)
    {
        std::vector<CStr> names;
        names.reserve(values.size());
        for (const T value : values)
            names.push_back(choices.GetIniName(static_cast<int>(value)));
        m_ini.WriteTexts(key, names);
        return true;
    }
    static bool Require(bool condition, std::u16string_view, std::u16string_view) { return condition; }

private:
    CInifile& m_ini;
    CSectionScope m_scope;
};

} // namespace CommonUI
