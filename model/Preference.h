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
template<class TObject, class TValue, class TDefault>
struct SPreference {
    std::u16string_view key; ///< under which the INI file has it
    TValue TObject::*member; ///< of the object that holds the value
    TDefault byDefault;      ///< what an object starts with; of a unit its text
};
template<class TObject, class TValue, class TDefault>
SPreference(const char16_t*, TValue TObject::*, TDefault) -> SPreference<TObject, TValue, TDefault>;

/// The names under which an enumeration's values are stored; one specialisation for each that is stored so.
template<class T>
const CEnum<T>& NamesOf();

/// How many values an enumeration has whose numbers, from 0, are stored instead of names; 0 for all others.
template<class T>
inline constexpr int c_storedNumbers = 0;

/// Writes a warning of a stored value to the diagnostics; the value stays what it was.
inline void WarnOfPreference(const CStr& text)
{
    GetDiagnostics().Write(u"Preferences", EDiagnosticLevel::Warning, text);
}

/// Reads a value, which stays what it is where the current section does not have the key.
inline void ReadPreference(const CInifile& ini, const CStr& key, bool& value)
{
    value = ini.ReadBool(key, value);
}

/// The same of an integer.
inline void ReadPreference(const CInifile& ini, const CStr& key, int& value)
{
    value = ini.ReadInt(key, value);
}

/// The same of a number, which also stays what it is, with a warning, where the file has an infinite one or
/// NaN.
inline void ReadPreference(const CInifile& ini, const CStr& key, double& value)
{
    const double read = ini.ReadDouble(key, value);
    if (std::isfinite(read))
        value = read;
    else
        WarnOfPreference(key + u": not a finite number");
}

/// The same of a unit, stored as its text.
inline void ReadPreference(const CInifile& ini, const CStr& key, CUnit& value)
{
    value = CUnit::FromText(ini.ReadText(key, value.GetText()));
}

template<class T>
/// Reads the number of an enumerator; one that the enumeration does not have leaves the value, with a
/// warning.
void ReadNumberOf(const CInifile& ini, const CStr& key, T& value)
{
    const int number = ini.ReadInt(key, static_cast<int>(value));
    if (number >= 0 && number < c_storedNumbers<T>)
        value = static_cast<T>(number);
    else
        WarnOfPreference(CStr::Format(u"%s: there is no %d", key, number));
}

/// An unknown name stays in the file until another value is written than the one that is used instead.
template<class T>
void ReadNameOf(CInifile& ini, const CStr& key, T& value)
{
    if (!ini.HasKey(key))
        return;
    const CStr name = ini.ReadText(key);
    const auto found = NamesOf<T>().FindIniName(name);
    if (found != NamesOf<T>().end()) {
        value = static_cast<T>(found->GetValue());
        return;
    }
    WarnOfPreference(CStr::Format(u"%s: there is no \"%s\"", key, name));
    ini.KeepUnknown(key, NamesOf<T>().GetIniName(static_cast<int>(value)));
}

/// Reads an enumeration that is stored by its numbers; see ReadNumberOf.
template<class T>
requires(c_storedNumbers<T> != 0) void ReadPreference(const CInifile& ini, const CStr& key, T& value)
{
    ReadNumberOf(ini, key, value);
}

/// Reads an enumeration that is stored by its names; see ReadNameOf.
template<class T>
requires(std::is_enum_v<T>&& c_storedNumbers<T> == 0) void ReadPreference(CInifile& ini, const CStr& key,
                                                                          T& value)
{
    ReadNameOf(ini, key, value);
}

/// Writes a value to the current section.
inline void WritePreference(CInifile& ini, const CStr& key, bool value)
{
    ini.WriteBool(key, value);
}

/// The same of an integer.
inline void WritePreference(CInifile& ini, const CStr& key, int value)
{
    ini.WriteInt(key, value);
}

/// The same of a number.
inline void WritePreference(CInifile& ini, const CStr& key, double value)
{
    ini.WriteDouble(key, value);
}

/// The same of a unit, by its text.
inline void WritePreference(CInifile& ini, const CStr& key, const CUnit& value)
{
    ini.WriteText(key, value.GetText());
}

/// The same of an enumeration, by number or name as c_storedNumbers says.
template<class T>
requires std::is_enum_v<T>
void WritePreference(CInifile& ini, const CStr& key, T value)
{
    if constexpr (c_storedNumbers<T> != 0)
        ini.WriteInt(key, static_cast<int>(value));
    else
        ini.WriteText(key, NamesOf<T>().GetIniName(static_cast<int>(value)));
}

/// The value that a descriptor's default stands for: a unit is given by its text, which can be a constant.
template<class TValue, class TDefault>
TValue DefaultValue(const TDefault& byDefault)
{
    if constexpr (std::is_same_v<TValue, CUnit>)
        return CUnit::FromText(byDefault);
    else
        return byDefault;
}

/// Gives every value of the table its default.
template<class TObject, class TTable>
void InitPreferences(TObject& object, const TTable& table)
{
    const auto init =
        [&object]<class TValue, class TDefault>(const SPreference<TObject, TValue, TDefault>& row) {
            object.*row.member = DefaultValue<TValue>(row.byDefault);
        };
    std::apply([&init](const auto&... rows) { (init(rows), ...); }, table);
}

/// Reads every value of the table whose key the current section has, `prefix` in front of it; a value that is
/// missing or cannot be read stays.
template<class TObject, class TTable>
void LoadPreferences(TObject& object, CInifile& ini, const TTable& table, const CStr& prefix = {})
{
    std::apply(
        [&](const auto&... rows) { (ReadPreference(ini, prefix + rows.key, object.*rows.member), ...); },
        table);
}

/// Writes every value of the table to the current section, under its key with `prefix` in front.
template<class TObject, class TTable>
void SavePreferences(const TObject& object, CInifile& ini, const TTable& table, const CStr& prefix = {})
{
    std::apply(
        [&](const auto&... rows) { (WritePreference(ini, prefix + rows.key, object.*rows.member), ...); },
        table);
}

} // namespace CommonUI
