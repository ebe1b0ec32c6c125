#pragma once

#include "Str.h"

#include <string_view>

namespace CommonUI
{

/// One value of a named enumeration: a number with the key that files store, its display texts and the
/// standard it belongs to. `T` is int in all of this library.
template<class T>
class CEnumValue
{
public:
    /// @param value the enumerator's number, the identity of the value
    /// @param iniName the key under which files store the value; it may end in a blank
    /// @param friendlyString the display text
    /// @param shortFriendlyString the short display text; empty where the display text serves
    /// @param standard the EAnalysisStandards number; 0 where the enumeration knows no standards
    CEnumValue(T value, const CStr& iniName, const CStr& friendlyString, const CStr& shortFriendlyString,
               int standard)
        : m_value(value)
        , m_iniName(iniName)
        , m_friendlyString(friendlyString)
        , m_shortFriendlyString(shortFriendlyString)
        , m_standard(standard)
    {
    }

    /// The key, texts and standard of `other` under another number.
    CEnumValue(T value, const CEnumValue& other)
        : CEnumValue(other)
    {
        m_value = value;
    }

    /// The enumerator's number, by which values are compared.
    T GetValue() const noexcept { return m_value; }
    /// The same as GetValue.
    operator T() const noexcept { return m_value; }
    /// Compares the number only.
    bool operator==(T value) const noexcept { return m_value == value; }
    bool operator==(const CEnumValue& other) const noexcept { return m_value == other.m_value; }

    /// The key under which files store the value.
    CStr GetIniName() const { return m_iniName; }
    /// Whether files store the value under this key.
    bool HasIniName(std::u16string_view iniName) const noexcept { return m_iniName == iniName; }
    /// The display text, in the language that was chosen when the enumeration was built.
    CStr GetFriendlyString() const { return m_friendlyString; }
    /// The short display text, or the display text where there is no short one.
    CStr GetShortFriendlyString() const
    {
        return m_shortFriendlyString.IsEmpty() ? m_friendlyString : m_shortFriendlyString;
    }
    /// The EAnalysisStandards number; 0 where the enumeration knows no standards.
    int GetStandard() const noexcept { return m_standard; }

    /// Changes what files store: for a value before it is used.
    void SetIniName(const CStr& iniName) { m_iniName = iniName; }
    /// Changes the display text of this object only.
    void SetFriendlyString(const CStr& text) { m_friendlyString = text; }
    /// Changes the short display text of this object only; with an empty one the display text serves.
    void SetShortFriendlyString(const CStr& text) { m_shortFriendlyString = text; }
    /// See GetStandard.
    void SetStandard(int standard) noexcept { m_standard = standard; }

private:
    T m_value;
    CStr m_iniName;
    CStr m_friendlyString;
    CStr m_shortFriendlyString;
    int m_standard;
};

} // namespace CommonUI
