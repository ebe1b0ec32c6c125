#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <string_view>

namespace CommonUI
{

/// The type of a grid item's value; the numbers are the type codes of variants.
enum class EGridValueType : int {
    Empty = 0,  ///< no value
    I2 = 2,     ///< integer of 16 bits
    I4 = 3,     ///< integer of 32 bits
    R8 = 5,     ///< double
    String = 8, ///< text
    Bool = 11,  ///< a number of 16 bits: all bits set is true, 0 false; check states use 2 for indeterminate
    I1 = 16,    ///< integer of 8 bits
    UI1 = 17,   ///< unsigned, 8 bits
    UI2 = 18,   ///< unsigned, 16 bits
    UI4 = 19,   ///< unsigned, 32 bits
    Int = 22,   ///< integer of 32 bits, as I4
    UInt = 23   ///< unsigned, 32 bits, as UI4
};

/// What a grid item holds: nothing, a number or a text, with the type that says how it is read and shown.
class COMMONUI_API CGridValue
{
public:
    CGridValue() = default;
    /// An R8.
    CGridValue(double value)
        : m_type(EGridValueType::R8)
        , m_real(value)
    {
    }
    /// An Int.
    CGridValue(int value)
        : CGridValue(EGridValueType::Int, value)
    {
    }
    /// A UInt.
    CGridValue(unsigned int value)
        : CGridValue(EGridValueType::UInt, value)
    {
    }
    /// A Bool: all bits set for true.
    CGridValue(bool value)
        : CGridValue(EGridValueType::Bool, value ? -1 : 0)
    {
    }
    /// A String.
    CGridValue(const CStr& value)
        : m_type(EGridValueType::String)
        , m_text(value)
    {
    }
    /// A String. @param value not null
    CGridValue(const char16_t* value)
        : CGridValue(CStr(value))
    {
    }
    /// A number of a type. Integers are cut to the range of the type; types that hold no number give what
    /// they make of its text, which is nothing for Empty.
    CGridValue(EGridValueType type, long long number);

    /// Decides how the value is read and shown; ReadText keeps it.
    EGridValueType GetType() const noexcept { return m_type; }
    /// Whether the value is a whole number, as a Bool is, too.
    bool IsInteger() const noexcept
    {
        return m_type != EGridValueType::Empty && m_type != EGridValueType::R8 &&
               m_type != EGridValueType::String;
    }
    /// The number without its fraction, cut to the range of the result; 0 for a text, nothing and a NaN.
    long long GetInteger() const noexcept;
    /// The number; 0 for a text and nothing.
    double GetReal() const noexcept;
    /// The text of a String, otherwise an empty one.
    const CStr& GetString() const noexcept { return m_text; }

    /// The value as a text: numbers in their plain form, a real one with as many digits as it needs; a Bool
    /// in words.
    CStr ToText() const;
    /// Takes over the value that a text stands for, in the type that the value has; nothing becomes a String.
    /// @return false, with the value unchanged, when the text is not of the type: no number, an infinite one,
    ///     one beyond the range; a Bool reads no text
    bool ReadText(std::u16string_view text);

    bool operator==(const CGridValue& other) const = default;

private:
    EGridValueType m_type = EGridValueType::Empty;
    // Only the one that belongs to the type is set.
    long long m_integer = 0;
    double m_real = 0;
    CStr m_text;
};

} // namespace CommonUI
