#include "settings/readers/FilterSettings.h"

namespace CommonUI
{

using Analysis::EPass;

namespace
{

constexpr SEnumRow c_kinds[] = {
    {.value = 0, .iniName = u"Median", .textId = 10081},
    {.value = 1, .iniName = u"Mean", .textId = 10082},
    {.value = 2, .iniName = u"Gauss", .textId = 10083},
    {.value = 3, .iniName = u"Convolution", .textId = 10084},
    {.value = 4, .iniName = u"Spikes", .textId = 10085},
    {.value = 5, .iniName = u"Streaks", .textId = 10086},
    {.value = 6, .iniName = u"ProfileGaussian", .textId = 10087},
    {.value = 7, .iniName = u"ArealGaussian", .textId = 10088},
};

constexpr SEnumRow c_applications[] = {
    {.value = 0, .iniName = u"Image", .textId = 10091},
    {.value = 1, .iniName = u"Curve", .textId = 10092},
};

constexpr SEnumRow c_strengths[] = {
    {.value = 0, .iniName = u"Full", .textId = 10093},
    {.value = 1, .iniName = u"Weak", .textId = 10094},
};

constexpr SEnumRow c_polarities[] = {
    {.value = 0, .iniName = u"Both", .textId = 10095},
    {.value = 1, .iniName = u"Bright", .textId = 10096},
    {.value = 2, .iniName = u"Dark", .textId = 10097},
};

constexpr SEnumRow c_passes[] = {
    {.value = static_cast<int>(EPass::High), .iniName = u"High", .textId = 10098},
    {.value = static_cast<int>(EPass::Low), .iniName = u"Low", .textId = 10099},
};

constexpr SEnumRow c_profileIndices[] = {
    {.value = 0, .iniName = u"LambdaC", .textId = 10101},
    {.value = 1, .iniName = u"LambdaS", .textId = 10102},
};

constexpr SEnumRow c_arealIndices[] = {
    {.value = 2, .iniName = u"L", .textId = 10103},
    {.value = 3, .iniName = u"S", .textId = 10104},
};

constexpr SEnumRow c_cutoffRules[] = {
    {.value = 0, .iniName = u"Length", .textId = 10105},
    {.value = 1, .iniName = u"Fraction", .textId = 10106},
    {.value = 2, .iniName = u"Automatic", .textId = 10107},
};

} // namespace

const CEnum<EFilterKind>& GetFilterKindEnum()
{
    return GetEnumOfRows<EFilterKind, c_kinds>();
}

const CEnum<EFilterApplication>& GetFilterApplicationEnum()
{
    return GetEnumOfRows<EFilterApplication, c_applications>();
}

const CEnum<EFilterStrength>& GetFilterStrengthEnum()
{
    return GetEnumOfRows<EFilterStrength, c_strengths>();
}

const CEnum<EFilterPolarity>& GetFilterPolarityEnum()
{
    return GetEnumOfRows<EFilterPolarity, c_polarities>();
}

const CEnum<EPass>& GetFilterPassEnum()
{
    return GetEnumOfRows<EPass, c_passes, EPass::High>();
}

const CEnum<ENestingIndex>& GetNestingIndexEnum(EFilterKind kind)
{
    return kind == EFilterKind::ArealGaussian
               ? GetEnumOfRows<ENestingIndex, c_arealIndices, ENestingIndex::L>()
               : GetEnumOfRows<ENestingIndex, c_profileIndices, ENestingIndex::LambdaC>();
}

const CEnum<ECutoffRule>& GetCutoffRuleEnum()
{
    return GetEnumOfRows<ECutoffRule, c_cutoffRules>();
}

} // namespace CommonUI
