#pragma once

#include "../common/Base3D.h"
#include "../common/Enum.h"
#include "../common/EnumValue.h"
#include "../common/Range.h"
#include "../common/Unit.h"
#include "../export/Export.h"

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <utility>
#include <vector>

namespace CommonUI
{

/// One selectable quantity of an analysis (a roughness parameter, a grain measure, an output, a statistic): a
/// value of a named enumeration with what the user chooses about it.
///
/// A *template* parameter has variables, numbers that it needs before it can be computed, and is never on by
/// itself. A *dynamic* parameter is an instance of a template: it has a parent and values for the parent's
/// variables. Values are kept at unit factor 1 (m, m², m³, 1/m, 1/m²), angles in degrees, percentages in
/// percent; the unit factor and the number format only say how they are shown.
class COMMONUI_API CParameter : public CEnumValue<int>
{
public:
    /// The physical dimension of a value and the axes whose unit it is shown in.
    enum class EDimension {
        None = 0,
        Length = 1, ///< a length in the common unit of X and Y; roughness heights such as Sa are of this kind
        LengthX = 2, ///< a length in the unit of X
        LengthY = 3, ///< a length in the unit of Y
        LengthZ = 4, ///< a length in the unit of Z
        Area = 5,    ///< an area in the common unit of X and Y
        Volume = 6,  ///< a volume, for which X, Y and Z must share a unit
        InverseLength = 7,
        InverseArea = 8,
        Angle = 9, ///< in degrees
        Percent = 10
    };

    /// How numbers are written.
    enum class EFormatSpecifier : std::int32_t {
        FormatDecimals = 0, ///< a fixed count of decimals
        FormatDigits = 1,   ///< a count of significant digits
        FormatInteger = 2   ///< no decimals
    };

    /// The number format of a parameter.
    struct SFormatSpecifier {
        EFormatSpecifier type = EFormatSpecifier::FormatDigits; ///< see count
        /// Decimals or significant digits, 1 to 12; means nothing for FormatInteger.
        std::int32_t count = 5;

        bool operator==(const SFormatSpecifier& other) const = default;
    };

    /// The histogram that grain analysis draws of the parameter's values.
    struct SHistogramSetup {
        /// The bounds of the histogram, each in force only when its flag is set.
        CRange<double> range{-std::numeric_limits<double>::max(), std::numeric_limits<double>::max()};
        bool lowerOn = false; ///< whether the lower bound of the range is in force
        bool upperOn = false; ///< whether the upper bound of the range is in force
        int classCount = 20;  ///< how many bars the range is divided into
        /// The kind of the histogram, a number that the analysis gives its meaning.
        int kind = 0;

        bool operator==(const SHistogramSetup& other) const = default;
    };

    /// How many histograms a parameter has.
    COMMONUI_CONSTANT std::size_t c_histogramCount = 3;
    /// What a value without a parent has in the parent's place.
    COMMONUI_CONSTANT int c_noParent = -1;
    /// A bound that does not exist: a NaN, to be recognised by IsLimit only.
    COMMONUI_CONSTANT double c_NoLimit = std::bit_cast<double>(std::uint64_t{0x7FF7FFFFFFFFFFF0});
    /// Whether a bound exists.
    static constexpr bool IsLimit(double limit) noexcept { return limit == limit; }

    /// A dimensionless parameter without limits, shown in nano and with five significant digits.
    CParameter(int value, const CStr& iniName, const CStr& friendly, const CStr& shortFriendly, int standard,
               bool on);
    /// The same with a dimension.
    CParameter(int value, const CStr& iniName, const CStr& friendly, const CStr& shortFriendly, int standard,
               bool on, EDimension dimension);
    /// An instance of `parent` under a new number: it takes over texts, standard, choices, limits, dimension
    /// and copies of the variables, but not the histograms and the axis.
    CParameter(int value, const CParameter& parent);

    /// The number of the template, or c_noParent.
    int GetParentValue() const noexcept { return m_parentValue; }
    /// Makes the parameter dynamic, or not with c_noParent; nothing is taken over from the parent.
    void SetParentValue(int parent) noexcept { m_parentValue = parent; }
    /// Whether it is dynamic: made from a template or by a plug-in.
    bool HasParent() const noexcept { return m_parentValue > c_noParent; }
    /// The number of the catalogue entry behind the parameter: the parent's, or the own one where there is no
    /// parent.
    int GetBaseValue() const noexcept { return HasParent() ? m_parentValue : GetValue(); }

    /// Whether the user has chosen it.
    bool IsOn() const noexcept { return m_on; }
    /// Chooses it or not; callers keep templates off.
    void SetOn(bool on) noexcept { m_on = on; }
    /// The lower and upper bound of accepted values; c_NoLimit where there is none.
    double GetLowerLimit() const noexcept { return m_lowerLimit; }
    /// The upper bound; see GetLowerLimit.
    double GetUpperLimit() const noexcept { return m_upperLimit; }
    /// Sets both bounds as they are, with c_NoLimit for one that does not exist.
    void SetLimits(double lower, double upper) noexcept;
    /// The prefix in front of the unit in which values are shown: nano from the start.
    CUnit::EUnitFactor GetUnitFactor() const noexcept { return m_unitFactor; }
    /// Changes how values are shown; the values themselves stay at factor 1.
    void SetUnitFactor(CUnit::EUnitFactor factor) noexcept { m_unitFactor = factor; }
    /// What kind of value it has, and so in which unit; see EDimension.
    EDimension GetDimension() const noexcept { return m_dimension; }
    /// Changes the dimension; unit factor, format and limits stay.
    void SetDimension(EDimension dimension) noexcept { m_dimension = dimension; }
    /// How values are written; five significant digits from the start.
    const SFormatSpecifier& GetFloatFormat() const noexcept { return m_floatFormat; }
    /// Changes how values are written; the count is not checked.
    void SetFloatFormat(const SFormatSpecifier& format) noexcept { m_floatFormat = format; }
    /// @param index below c_histogramCount
    const SHistogramSetup& GetHistogramSetup(std::size_t index) const { return m_histograms.at(index); }
    /// Replaces one histogram. @param index below c_histogramCount @throws std::out_of_range for another one
    void SetHistogramSetup(std::size_t index, const SHistogramSetup& setup)
    {
        m_histograms.at(index) = setup;
    }

    /// The positions of an axis's ticks and a number that goes with them, as the analysis that draws the axis
    /// has computed them. They belong to the parameter's identity (see IsEqual).
    const std::vector<double>& GetAxisTicks() const noexcept { return m_axisTicks; }
    /// Replaces the positions of the ticks.
    void SetAxisTicks(std::vector<double> ticks) { m_axisTicks = std::move(ticks); }
    /// The number that goes with the ticks.
    int GetAxisTickKind() const noexcept { return m_axisTickKind; }
    /// Changes the number that goes with the ticks.
    void SetAxisTickKind(int kind) noexcept { m_axisTickKind = kind; }
    /// How the axis is scaled (1 from the start) and its range; kept for the analysis, not compared by
    /// IsEqual.
    int GetAxisMode() const noexcept { return m_axisMode; }
    /// Changes how the axis is scaled; see GetAxisMode.
    void SetAxisMode(int mode) noexcept { m_axisMode = mode; }
    /// The range of the axis; see GetAxisMode.
    CRange<double> GetAxisRange() const noexcept { return m_axisRange; }
    /// Changes the range of the axis; see GetAxisMode.
    void SetAxisRange(const CRange<double>& range) noexcept { m_axisRange = range; }

    /// The value of a parameter that is a variable of another one, and of statistics such as a percentile.
    double GetVariableValue() const noexcept { return m_variableValue; }
    /// Changes the value of GetVariableValue; the limits are not asked.
    void SetVariableValue(double value) noexcept { m_variableValue = value; }
    /// How many variables it has: those of a template, or the copies of a dynamic parameter.
    std::size_t GetVariableCount() const noexcept { return m_variables.size(); }
    /// Whether it is a template: a parameter of its own with variables. A template is never on.
    bool IsTemplate() const noexcept { return !HasParent() && !m_variables.empty(); }
    /// @param index below GetVariableCount, which is not checked
    const CParameter& GetVariable(std::size_t index) const { return m_variables[index]; }
    /// The same, to be changed in place.
    CParameter& GetVariable(std::size_t index) { return m_variables[index]; }
    /// All variables in their order, as copies.
    std::vector<CParameter> GetVariables() const { return m_variables; }
    /// Gives the parameter one more variable: a copy of `variable`, whose parent becomes this parameter, in
    /// the original as well. A parameter without a parent becomes a template by it and is switched off.
    void AddVariable(CParameter& variable);

    /// How often a length unit enters a value of the dimension. Inverse quantities are not rescaled through
    /// the power: theirs is 0, and that of an angle is 1.
    static int DimensionToPower(EDimension dimension) noexcept;
    /// The same of the parameter's own dimension.
    int DimensionToPower() const noexcept { return DimensionToPower(m_dimension); }
    /// By what a value at factor 1 is multiplied to be shown at the unit factor.
    static double CalcFactor(EDimension dimension, CUnit::EUnitFactor unitFactor) noexcept;
    /// The same of the parameter's own dimension and unit factor.
    double CalcFactor() const noexcept { return CalcFactor(m_dimension, m_unitFactor); }

    /// The unit of the dimension on a surface with these units, and the power at which it enters. The empty
    /// unit and power 0 when the dimension has none or the units of the axes that it needs are of different
    /// kinds.
    static void GetUnitAndPower(EDimension dimension, const SBase3D<CUnit>& units, CUnit& unit, int& power);

    /// The unit text to show behind a value, with `unit` at this parameter's unit factor: "nm", "µm²",
    /// "1/mm", "°". Empty for a dimensionless parameter.
    CStr GetScaledUnitStr(const CUnit& unit) const;
    /// The same with the unit of those axes that the dimension needs; empty when they are of different kinds.
    CStr GetScaledUnitStr(const CUnit& x, const CUnit& y, const CUnit& z) const;
    /// The same with the units of a surface.
    CStr GetScaledUnitStr(const SBase3D<CUnit>& units) const
    {
        return GetScaledUnitStr(units.x, units.y, units.z);
    }

    /// Chooses the unit factor at which a value, in the parameter's number format, is read best, and keeps
    /// it.
    /// @return by what values at factor 1 are multiplied at the new factor
    double SetupFactor(const SBase3D<CUnit>& units, double value);

    /// A choice of a unit: the factor and the text that it gives.
    using CScaling = std::pair<CUnit::EUnitFactor, CStr>;
    /// The metric unit factors that a chooser offers for a dimension on a surface with these units. Empty
    /// where there is nothing to choose: dimensionless values, angles, percentages, and axes of different
    /// kinds.
    static std::vector<CScaling> GetScalingsList(EDimension dimension, const SBase3D<CUnit>& units);
    /// The same in factors of inches; empty for units that are not lengths.
    static std::vector<CScaling> GetUSMetricScalingsList(EDimension dimension, const SBase3D<CUnit>& units);

    /// Whether the choices of two parameters of the same catalogue entry agree: number, On, format,
    /// dimension, unit factor, limits and variable value (two NaNs agree), axis ticks, histograms, and the
    /// values of the variables that `a` has (where a NaN agrees with nothing; `b` must not have fewer, and
    /// what it has beyond them does not count). Texts, standard and parent are not compared.
    static bool IsEqual(const CParameter& a, const CParameter& b);
    /// Whether two parameters agree in everything, as a parameter and its copy do: two NaNs agree.
    static bool IsSame(const CParameter& a, const CParameter& b);

private:
    int m_parentValue = c_noParent;
    bool m_on;
    double m_lowerLimit = c_NoLimit;
    double m_upperLimit = c_NoLimit;
    CUnit::EUnitFactor m_unitFactor = CUnit::EUnitFactor::Nano;
    EDimension m_dimension = EDimension::None;
    SFormatSpecifier m_floatFormat;
    std::vector<double> m_axisTicks;
    int m_axisTickKind = 0;
    std::array<SHistogramSetup, c_histogramCount> m_histograms;
    std::vector<CParameter> m_variables;
    int m_axisMode = 1;
    CRange<double> m_axisRange;
    double m_variableValue = 0;
};

/// Parameters under a heading of the selection dialogs, with groups below it. Copies are deep.
struct SParameterGroup {
    CStr name;             ///< the heading
    int standard = 0;      ///< the EAnalysisStandards number that the group stands for; 0 for none
    bool expanded = false; ///< whether a tree shows the group opened
    std::vector<CParameter> parameters;     ///< those of the group itself, in the order shown
    std::vector<SParameterGroup> subGroups; ///< the groups below it, behind its parameters
};

/// The kinds of number format, with the keys under which files store them.
COMMONUI_API const CEnum<CParameter::EFormatSpecifier>& GetFormatSpecifierEnum();

} // namespace CommonUI
