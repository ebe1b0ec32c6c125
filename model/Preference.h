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
    std::u16string_view key; ///< under which it is stored, behind the table's prefix
    TValue TObject::*member; ///< that holds it
    TDefault byDefault;      ///< a unit's is its text, see DefaultValue
};
/// Makes a literal's type that of the key.
template<class TObject, class TValue, class TDefault>
SPreference(const char16_t*, TValue TObject::*, TDefault) -> SPreference<TObject, TValue, TDefault>;

/// The names under which an enumeration's values are stored; one specialisation for each that is stored so.
template<class T>
const CEnum<T>& NamesOf();

/// How many values an enumeration has whose numbers, from 0, are stored instead of names; 0 for all others.
template<class T>
inline constexpr int c_storedNumbers = 0;

/// Writes a line to the diagnostics, for a stored value that cannot be used.
inline void WarnOfPreference(const CStr& text)
{
    GetDiagnostics().Write(u"Preferences", EDiagnosticLevel::Warning, text);
}

/// Reads one value, as its type is stored; where the key is missing, `value` stays. Here: see
/// CInifile::ReadBool.
inline void ReadPreference(const CInifile& ini, const CStr& key, bool& value)
{
    value = ini.ReadBool(key, value);
}

/// See CInifile::ReadInt.
inline void ReadPreference(const CInifile& ini, const CStr& key, int& value)
{
    value = ini.ReadInt(key, value);
}

/// A number that is not finite is not taken, with a line in the diagnostics.
inline void ReadPreference(const CInifile& ini, const CStr& key, double& value)
{
    const double read = ini.ReadDouble(key, value);
    if (std::isfinite(read))
        value = read;
    else
        WarnOfPreference(key + u": not a finite number");
}

/// A unit is stored by its text; see CUnit::FromText.
inline void ReadPreference(const CInifile& ini, const CStr& key, CUnit& value)
{
    value = CUnit::FromText(ini.ReadText(key, value.GetText()));
}

/// Reads an enumerator by its number; one that there is not is not taken, with a line in the diagnostics.
template<class T>
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

/// An enumerator that is stored by its number: see ReadNumberOf.
template<class T>
requires(c_storedNumbers<T> != 0) void ReadPreference(const CInifile& ini, const CStr& key, T& value)
{
    ReadNumberOf(ini, key, value);
}

/// An enumerator that is stored by its name: see ReadNameOf.
template<class T>
requires(std::is_enum_v<T>&& c_storedNumbers<T> == 0) void ReadPreference(CInifile& ini, const CStr& key,
                                                                          T& value)
{
    ReadNameOf(ini, key, value);
}

/// Writes one value, as its type is stored, to the current section. Here: see CInifile::WriteBool.
inline void WritePreference(CInifile& ini, const CStr& key, bool value)
{
    ini.WriteBool(key, value);
}

/// See CInifile::WriteInt.
inline void WritePreference(CInifile& ini, const CStr& key, int value)
{
    ini.WriteInt(key, value);
}

/// See CInifile::WriteDouble.
inline void WritePreference(CInifile& ini, const CStr& key, double value)
{
    ini.WriteDouble(key, value);
}

/// A unit is stored by its text.
inline void WritePreference(CInifile& ini, const CStr& key, const CUnit& value)
{
    ini.WriteText(key, value.GetText());
}

/// An enumerator is stored by its number where c_storedNumbers has a count, otherwise by its name.
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

/// Writes every value of the table to the current section, `prefix` in front of its key.
template<class TObject, class TTable>
void SavePreferences(const TObject& object, CInifile& ini, const TTable& table, const CStr& prefix = {})
{
    std::apply(
        [&](const auto&... rows) { (WritePreference(ini, prefix + rows.key, object.*rows.member), ...); },
        table);
}

} // namespace CommonUI
