#pragma once

#include "EnumValue.h"
#include "StringTable.h"

#include <algorithm>
#include <span>
#include <string_view>
#include <vector>

namespace CommonUI
{

/// One row of a catalogue: what a table in the code says of an enumeration's value. The display text comes
/// from the string table by `textId`, or is `literal` where `textId` is 0; `shortTextId` 0 means no short
/// text.
struct SEnumRow {
    int value;                        ///< the enumerator's number
    std::u16string_view iniName;      ///< the key under which files store it; never to be changed
    int textId;                       ///< of the display text in the string table; 0 for `literal`
    std::u16string_view literal = {}; ///< the display text where `textId` is 0, the same in all languages
    int shortTextId = 0;              ///< of the short text in the string table; 0 for none
    int standard = 0;                 ///< the number of the standard it belongs to; 0 for none
};

/// A named enumeration for the enumeration type `T`: its values in the order of selection lists, and what the
/// look-ups answer for a number that it does not have. Not changed after it is built, so any thread may read
/// it.
template<class T>
class CEnum
{
public:
    /// A value with its key and texts.
    using CValue = CEnumValue<int>;

    /// The three texts are what the look-ups by number answer for an unknown number.
    /// @param fallback what GetValue answers for an unknown key
    explicit CEnum(T fallback = T(), const CStr& iniName = {}, const CStr& friendlyString = {},
                   const CStr& shortFriendlyString = {})
        : m_fallback(fallback)
        , m_fallbackIniName(iniName)
        , m_fallbackFriendlyString(friendlyString)
        , m_fallbackShortFriendlyString(shortFriendlyString)
    {
    }

    /// An enumeration of the rows, with their texts in the language of the string table.
    static CEnum FromRows(std::span<const SEnumRow> rows, CEnum built = CEnum())
    {
        built.m_values.reserve(rows.size());
        for (const SEnumRow& row : rows)
            built.Add({row.value, row.iniName, row.textId != 0 ? GetString(row.textId) : CStr(row.literal),
                       row.shortTextId != 0 ? GetString(row.shortTextId) : CStr(), row.standard});
        return built;
    }

    /// Appends a copy and returns the stored element, which stays where it is until the next Add.
    CValue& Add(const CValue& value) { return m_values.emplace_back(value); }

    /// The values in the order of selection lists. Add ends what iterators refer to.
    auto begin() const noexcept { return m_values.begin(); }
    /// Behind the last value; what Find and FindIniName return for an unknown one.
    auto end() const noexcept { return m_values.end(); }
    /// How many values there are, those of equal numbers or keys included.
    std::size_t GetCount() const noexcept { return m_values.size(); }

    /// The first value of that number, or end().
    auto Find(int number) const noexcept { return std::find(begin(), end(), number); }
    /// The first value of that key, compared exactly, or end().
    auto FindIniName(std::u16string_view iniName) const noexcept
    {
        return std::find_if(begin(), end(), [&](const CValue& value) { return value.HasIniName(iniName); });
    }
    /// The number of the key, or the fallback's number for an unknown key.
    T GetValue(std::u16string_view iniName) const { return GetValue(iniName, m_fallback); }
    /// The number of the key, or `unknown` for an unknown key.
    T GetValue(std::u16string_view iniName, T unknown) const
    {
        const auto found = FindIniName(iniName);
        return found == end() ? unknown : static_cast<T>(found->GetValue());
    }

    /// The key of the first value of that number, or the fallback's key for an unknown number.
    CStr GetIniName(int number) const
    {
        const auto found = Find(number);
        return found == end() ? m_fallbackIniName : found->GetIniName();
    }
    /// The display text of the first value of that number, or the fallback's text for an unknown number.
    CStr GetFriendlyString(int number) const
    {
        const auto found = Find(number);
        return found == end() ? m_fallbackFriendlyString : found->GetFriendlyString();
    }
    /// The value's short text, or its display text where it has none; for an unknown number the fallback's
    /// short text, even when that is empty.
    CStr GetShortFriendlyString(int number) const
    {
        const auto found = Find(number);
        return found == end() ? m_fallbackShortFriendlyString : found->GetShortFriendlyString();
    }

private:
    std::vector<CValue> m_values;
    T m_fallback;
    CStr m_fallbackIniName;
    CStr m_fallbackFriendlyString;
    CStr m_fallbackShortFriendlyString;
};

/// The enumeration of a table of rows with static storage: built on the first call, in the language of the
/// string table at that moment, and never destroyed, so that destructors of static objects may still save
/// what they hold.
template<class T, const auto& Rows, T Fallback = T()>
const CEnum<T>& GetEnumOfRows()
{
    static const CEnum<T>& values = *new CEnum<T>(CEnum<T>::FromRows(Rows, CEnum<T>(Fallback)));
    return values;
}

} // namespace CommonUI
