#pragma once

#include "../common/Diagnostics.h"
#include "../common/Enum.h"
#include "../common/ini/Inifile.h"
#include "../common/Unit.h"

#include <cmath>
#include <string_view>
#include <tuple>
#include <type_traits>

namespace CommonUI
{

/// All that there is to know of one stored value: its key, the member that holds it and its default. A class
/// has a tuple of them, from which the functions below take defaults, loading and saving.
template<class TObject, class T, class TDefault>
struct SPreference {
    std::u16string_view key;
    T TObject::*member;
    TDefault byDefault;
};
template<class TObject, class T, class TDefault>
SPreference(const char16_t*, T TObject::*, TDefault) -> SPreference<TObject, T, TDefault>;

/// The names under which an enumeration's values are stored; one specialisation for each that is stored so.
template<class E>
const CEnum<E>& NamesOf();

/// How many values an enumeration has whose numbers, from 0, are stored instead of names; 0 for all others.
template<class E>
inline constexpr int c_storedNumbers = 0;

inline void WarnOfPreference(const CStr& text)
{
    GetDiagnostics().Write(u"Preferences", EDiagnosticLevel::Warning, text);
}

inline void ReadPreference(const CInifile& ini, const CStr& key, bool& value)
{
    value = ini.ReadBool(key, value);
}

inline void ReadPreference(const CInifile& ini, const CStr& key, int& value)
{
    value = ini.ReadInt(key, value);
}

inline void ReadPreference(const CInifile& ini, const CStr& key, double& value)
{
    const double read = ini.ReadDouble(key, value);
    if (std::isfinite(read))
        value = read;
    else
        WarnOfPreference(key + u": not a finite number");
}

inline void ReadPreference(const CInifile& ini, const CStr& key, CUnit& value)
{
    value = CUnit::FromText(ini.ReadText(key, value.GetText()));
}

template<class E>
void ReadNumberOf(const CInifile& ini, const CStr& key, E& value)
{
    const int number = ini.ReadInt(key, static_cast<int>(value));
    if (number >= 0 && number < c_storedNumbers<E>)
        value = static_cast<E>(number);
    else
        WarnOfPreference(CStr::Format(u"%s: there is no %d", key, number));
}

template<class E>
void ReadNameOf(const CInifile& ini, const CStr& key, E& value)
{
    if (!ini.HasKey(key))
        return;
    const CStr name = ini.ReadText(key);
    const auto found = NamesOf<E>().FindIniName(name);
    if (found == NamesOf<E>().end())
        WarnOfPreference(CStr::Format(u"%s: there is no \"%s\"", key, name));
    else
        value = static_cast<E>(found->GetValue());
}

template<class E>
requires std::is_enum_v<E>
void ReadPreference(const CInifile& ini, const CStr& key, E& value)
{
    if constexpr (c_storedNumbers<E> != 0)
        ReadNumberOf(ini, key, value);
    else
        ReadNameOf(ini, key, value);
}

inline void WritePreference(CInifile& ini, const CStr& key, bool value)
{
    ini.WriteBool(key, value);
}

inline void WritePreference(CInifile& ini, const CStr& key, int value)
{
    ini.WriteInt(key, value);
}

inline void WritePreference(CInifile& ini, const CStr& key, double value)
{
    ini.WriteDouble(key, value);
}

inline void WritePreference(CInifile& ini, const CStr& key, const CUnit& value)
{
    ini.WriteText(key, value.GetText());
}

template<class E>
requires std::is_enum_v<E>
void WritePreference(CInifile& ini, const CStr& key, E value)
{
    if constexpr (c_storedNumbers<E> != 0)
        ini.WriteInt(key, static_cast<int>(value));
    else
        ini.WriteText(key, NamesOf<E>().GetIniName(static_cast<int>(value)));
}

/// The value that a descriptor's default stands for: a unit is given by its text, which can be a constant.
template<class T, class TDefault>
T DefaultValue(const TDefault& byDefault)
{
    if constexpr (std::is_same_v<T, CUnit>)
        return CUnit::FromText(byDefault);
    else
        return byDefault;
}

template<class TObject, class TTable>
void InitPreferences(TObject& object, const TTable& table)
{
    const auto init = [&object]<class T, class TDefault>(const SPreference<TObject, T, TDefault>& row) {
        object.*row.member = DefaultValue<T>(row.byDefault);
    };
    std::apply([&init](const auto&... rows) { (init(rows), ...); }, table);
}

/// Reads every value of the table whose key the current section has, `prefix` in front of it; a value that is
/// missing or cannot be read stays.
template<class TObject, class TTable>
void LoadPreferences(TObject& object, const CInifile& ini, const TTable& table, const CStr& prefix = {})
{
    std::apply(
        [&](const auto&... rows) { (ReadPreference(ini, prefix + rows.key, object.*rows.member), ...); },
        table);
}

template<class TObject, class TTable>
void SavePreferences(const TObject& object, CInifile& ini, const TTable& table, const CStr& prefix = {})
{
    std::apply(
        [&](const auto&... rows) { (WritePreference(ini, prefix + rows.key, object.*rows.member), ...); },
        table);
}

} // namespace CommonUI
