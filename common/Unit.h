#pragma once

#include "../export/Export.h"
#include "Enum.h"
#include "Str.h"

namespace CommonUI
{

/// A unit of measurement: a kind, named by its symbol without prefix ("m" for lengths), at a unit factor.
///
/// Quantities are kept in the unit at factor 1 ("m"); a unit factor says how they are shown. The empty unit,
/// which has no symbol, belongs to quantities without a unit.
class COMMONDLL_API CUnit
{
public:
    /// The prefixes and the factors that stand in place of one. Their numbers rise with their values.
    enum class EUnitFactor {
        Pico = 0,
        Aangstroem = 1,
        Nano = 2,
        MicroInch = 3,
        Micro = 4,
        MilliInch = 5,
        Milli = 6,
        Centi = 7,
        Inch = 8,
        Unity = 9,
        Kilo = 10,
        Mega = 11,
        Giga = 12,
        Undefined = 13 ///< for quantities that take no prefix, such as angles; its value is 1
    };

    /// The precision in which a value will be shown, by which SuitableFactor rounds.
    struct SShownDigits {
        int significant = 5; ///< significant digits, 1 or more
        /// Digits behind the decimal point; counts instead of `significant` when not negative.
        int decimals = -1;
    };

    /// The empty unit at factor 1.
    CUnit() = default;
    /// @param symbol the unit's symbol without prefix: u"m", u"V", u"°"
    explicit CUnit(EUnitFactor factor, const CStr& symbol = u"m");
    /// The unit that a text names. Lengths are understood in all their spellings (see ParseLength), other
    /// units with a metric prefix in front of a known symbol; any other text is the symbol of a kind of its
    /// own at factor 1. White space at the ends is ignored.
    static CUnit FromText(const CStr& text);
    /// Reads the text of a length: the texts that GetText gives, "um" and the Greek letter mu for the micro
    /// sign, "A" and "Angstrom" for Ångström, "uin", "microinch", "mil", "inch". Prefixes are case-sensitive.
    /// @return false, and `unit` is left alone, when the text names no length
    static bool ParseLength(const CStr& text, CUnit& unit);

    /// What its values are multiples of; Unity for the empty unit.
    EUnitFactor GetFactor() const noexcept { return m_factor; }
    /// The symbol without prefix.
    const CStr& GetSymbol() const noexcept { return m_symbol; }
    /// Whether there is no symbol: the unit of a number without one.
    bool IsEmpty() const noexcept { return m_symbol.IsEmpty(); }
    /// Whether both measure the same kind of quantity, whatever their factors.
    bool IsSameKind(const CUnit& other) const noexcept { return m_symbol == other.m_symbol; }
    bool operator==(const CUnit& other) const noexcept = default;
    /// The same kind of unit at another factor.
    CUnit WithFactor(EUnitFactor factor) const { return CUnit(factor, m_symbol); }

    /// What one unit of the factor is in units of factor 1: 1e-9 for Nano, 0.0254 for Inch, 1 for Undefined.
    static double GetFactorValue(EUnitFactor factor) noexcept;
    /// GetFactorValue of the unit's own factor.
    double GetFactorValue() const noexcept { return GetFactorValue(m_factor); }

    /// Whether the factor is one by a power of a thousand, which units of any kind take as a prefix; the
    /// others (Ångström, centi, inches) are for lengths.
    static bool IsMetricPrefix(EUnitFactor factor) noexcept;

    /// The unit with its prefix: "nm", "Å", "µin", "mil", "mV"; a unit at factor Undefined is shown like one
    /// at factor 1.
    CStr GetText() const;

    /// The factor at which a value of this unit is read best.
    ///
    /// It is the largest at which the value, divided by the factor's value raised to `power`, is at least 1
    /// before and stays below the next factor after rounding to the digits shown: 999.996e-9 with five digits
    /// is shown as "1.0000 µm", never as "1000.0 nm". A unit at a factor of inches is offered factors of
    /// inches, every other one pico, nano, micro, milli, 1, kilo, mega and giga.
    /// @param value the value at factor 1 (in m, m² or m³); its sign does not matter
    /// @param power how often the unit enters the value: 1 length, 2 area, 3 volume
    /// @return this unit's own factor when the value is zero, infinite or no number, or the power is below 1
    EUnitFactor SuitableFactor(double value, int power, SShownDigits shown) const;
    /// The same for the digits that SShownDigits has from the start.
    EUnitFactor SuitableFactor(double value, int power) const
    {
        return SuitableFactor(value, power, SShownDigits());
    }

    /// The factors with the keys under which files store them; an unknown key is Unity.
    static const CEnum<EUnitFactor>& GetUnitFactorEnum();

private:
    EUnitFactor m_factor = EUnitFactor::Unity;
    CStr m_symbol;
};

} // namespace CommonUI
