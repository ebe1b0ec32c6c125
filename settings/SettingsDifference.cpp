#include "settings/SettingsDifference.h"

#include "common/NumberText.h"
#include "common/Unit.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>

namespace CommonUI
{

namespace
{

using EKind = SSettingsDifference::EKind;

// A number with the unit of a length behind it, in m.
bool ParseLengthValue(std::u16string_view text, double& value)
{
    const std::size_t blank = text.find(u' ');
    CUnit unit;
    if (blank == text.npos || !CUnit::ParseLength(CStr(text.substr(blank)), unit) ||
        !ParseDouble(text.substr(0, blank), value))
        return false;
    value *= unit.GetFactorValue();
    return true;
}

bool IsSameLength(double left, double right)
{
    constexpr double c_rounding = 1e-14; // of the products with the units
    return left == right || std::abs(left - right) <= c_rounding * std::abs(left);
}

bool MeansTheSame(const CStr& left, const CStr& right)
{
    double leftNumber = 0;
    double rightNumber = 0;
    if (left == right)
        return true;
    if (ParseLengthValue(left, leftNumber) && ParseLengthValue(right, rightNumber))
        return IsSameLength(leftNumber, rightNumber);
    if (!ParseDouble(left, leftNumber) || !ParseDouble(right, rightNumber))
        return false;
    return leftNumber == rightNumber || (std::isnan(leftNumber) && std::isnan(rightNumber));
}

// Of the key in the current sections.
EKind Compare(const CInifile& left, const CInifile& right, const CStr& key)
{
    if (!right.HasKey(key))
        return EKind::OnlyLeft;
    if (!left.HasKey(key))
        return EKind::OnlyRight;
    if (left.ReadText(key) == right.ReadText(key))
        return EKind::Same;
    return std::ranges::equal(left.ReadTexts(key), right.ReadTexts(key), MeansTheSame) ? EKind::Same
                                                                                       : EKind::Different;
}

// What is in the first, then what only the second has.
std::vector<CStr> Unite(std::vector<CStr> first, const std::vector<CStr>& second)
{
    std::unordered_set<CStr> known(first.begin(), first.end());
    for (const CStr& text : second)
        if (known.insert(text).second)
            first.push_back(text);
    return first;
}

} // namespace

std::vector<SSettingsDifference> CompareSettings(const CInifile& leftSet, const CInifile& rightSet)
{
    CInifile left = leftSet; // copies, as sections are selected in them
    CInifile right = rightSet;
    std::vector<SSettingsDifference> keys;
    for (const CStr& section : Unite(left.GetSections(), right.GetSections())) {
        left.SelectSection(section);
        right.SelectSection(section);
        for (const CStr& key : Unite(left.GetKeys(), right.GetKeys()))
            keys.push_back(
                {section, key, left.ReadText(key), right.ReadText(key), Compare(left, right, key)});
    }
    return keys;
}

std::size_t CountDifferences(const std::vector<SSettingsDifference>& keys)
{
    return keys.size() -
           static_cast<std::size_t>(std::ranges::count(keys, EKind::Same, &SSettingsDifference::kind));
}

} // namespace CommonUI
