#include "settings/readers/FilterSettings.h"

#include "settings/readers/detail/SettingsExchange.h"

#include <cmath>
#include <limits>
#include <utility>

namespace CommonUI
{

using Analysis::EPass;

namespace
{

constexpr std::u16string_view c_section = u"Filter";
constexpr int c_greatestKernel = 255;
constexpr int c_leastWindow = 5; // fewer heights have no spread that an outlier does not change
constexpr int c_greatestWidth = 127;
constexpr double c_greatestThreshold = 1000;
constexpr double c_greatestDeviation = 40; // the kernel reaches three of them to either side

int GaussKernelSize(double standardDeviation)
{
    return 2 * static_cast<int>(std::ceil(3 * standardDeviation)) + 1;
}

EPass UsualPass(ENestingIndex nestingIndex)
{
    return nestingIndex == ENestingIndex::LambdaS || nestingIndex == ENestingIndex::S ? EPass::Low
                                                                                      : EPass::High;
}

template<class TStore, class TSettings>
bool ExchangeKernel(TStore& store, TSettings& set, int usualSize = 3)
{
    if (!store.Choice(u"Application", GetFilterApplicationEnum(), set.application))
        return false;
    const bool isCurve = set.application == EFilterApplication::Curve;
    store.Default(set.rows, isCurve ? 1 : usualSize);
    store.Default(set.columns, usualSize);
    const bool hasRows = store.OddInteger(u"Rows", set.rows, isCurve ? 1 : c_greatestKernel);
    return store.OddInteger(u"Columns", set.columns, c_greatestKernel) && hasRows;
}

template<class TStore, class TSettings>
void ExchangeThreshold(TStore& store, TSettings& set)
{
    store.Positive(u"Threshold", set.threshold, c_greatestThreshold);
}

// Of a filter that compares a point with its window.
template<class TStore, class TSettings>
void ExchangeWindowThreshold(TStore& store, TSettings& set, bool hasKernel)
{
    ExchangeThreshold(store, set);
    if (hasKernel && set.application == EFilterApplication::Image)
        store.Require(set.rows * set.columns >= c_leastWindow, u"Columns",
                      u"enough for a threshold, which takes a window of 5 points");
}

template<class TStore, class TSettings>
void ExchangeMedian(TStore& store, TSettings& set)
{
    const bool hasKernel = ExchangeKernel(store, set);
    store.Choice(u"Strength", GetFilterStrengthEnum(), set.strength);
    if (set.strength == EFilterStrength::Weak)
        ExchangeWindowThreshold(store, set, hasKernel);
}

template<class TStore, class TSettings>
void ExchangeGauss(TStore& store, TSettings& set)
{
    if (store.Positive(u"StandardDeviation", set.standardDeviation, c_greatestDeviation))
        ExchangeKernel(store, set, GaussKernelSize(set.standardDeviation));
}

template<class TStore, class TSettings>
void ExchangeConvolution(TStore& store, TSettings& set)
{
    if (ExchangeKernel(store, set))
        store.Numbers(u"Weights", set.weights, set.rows * set.columns);
}

template<class TStore, class TSettings>
void ExchangeSpikes(TStore& store, TSettings& set)
{
    const bool hasKernel = ExchangeKernel(store, set);
    ExchangeWindowThreshold(store, set, hasKernel);
}

template<class TStore, class TSettings>
void ExchangeStreaks(TStore& store, TSettings& set)
{
    store.Integer(u"MaximumWidth", set.maximumWidth, c_greatestWidth);
    ExchangeThreshold(store, set);
    store.Choice(u"Polarity", GetFilterPolarityEnum(), set.polarity);
}

template<class TStore, class TCutoff>
void ExchangeCutoff(TStore& store, TCutoff& cutoff, EFilterKind kind)
{
    store.Default(cutoff.nestingIndex, GetNestingIndexEnum(kind).GetValue({}));
    store.Choice(u"NestingIndex", GetNestingIndexEnum(kind), cutoff.nestingIndex);
    store.Default(cutoff.pass, UsualPass(cutoff.nestingIndex));
    store.Choice(u"Pass", GetFilterPassEnum(), cutoff.pass);
    if (!store.Choice(u"CutoffRule", GetCutoffRuleEnum(), cutoff.rule))
        return;
    if (cutoff.rule == ECutoffRule::Length)
        store.Positive(u"Cutoff", cutoff.length, std::numeric_limits<double>::max());
    if (cutoff.rule == ECutoffRule::Fraction)
        store.Positive(u"CutoffFraction", cutoff.fraction, 1);
}

template<class TStore, class TSettings>
void Exchange(TStore& store, TSettings& set)
{
    if (!store.NeededChoice(u"Kind", GetFilterKindEnum(), set.kind))
        return;
    switch (set.kind) {
    case EFilterKind::Median:
        return ExchangeMedian(store, set);
    case EFilterKind::Mean:
        return static_cast<void>(ExchangeKernel(store, set));
    case EFilterKind::Gauss:
        return ExchangeGauss(store, set);
    case EFilterKind::Convolution:
        return ExchangeConvolution(store, set);
    case EFilterKind::Spikes:
        return ExchangeSpikes(store, set);
    case EFilterKind::Streaks:
        return ExchangeStreaks(store, set);
    case EFilterKind::ProfileGaussian:
    case EFilterKind::ArealGaussian:
        return ExchangeCutoff(store, set.cutoff, set.kind);
    }
}

// The greatest length of the series 1, 2, 2.5, 5, 8, 10, ... that is not above `limit`, which is positive.
double SeriesLengthUpTo(double limit)
{
    // A limit that fell short of a length by rounding reaches it.
    const double reach = limit * (1 + 1e-9);
    const double decade = std::floor(std::log10(reach));
    double greatest = 0;
    // Divided where it can be, which rounds as the decimal number in a file does. The first length is that of
    // the decade below, should the logarithm have been rounded up to a whole number.
    for (const double tenths : {8., 10., 20., 25., 50., 80.}) {
        const double length =
            decade < 1 ? tenths / std::pow(10, 1 - decade) : tenths * std::pow(10, decade - 1);
        if (length <= reach)
            greatest = length;
    }
    return greatest;
}

} // namespace

double SFilterCutoff::GetLength(double evaluationLength) const
{
    if (rule == ECutoffRule::Length)
        return length;
    if (!(evaluationLength > 0 && std::isfinite(evaluationLength)))
        return 0;
    return rule == ECutoffRule::Fraction ? fraction * evaluationLength
                                         : SeriesLengthUpTo(evaluationLength / 5);
}

bool SFilterSettings::Load(CInifile& ini)
{
    SFilterSettings read;
    CSettingsReader reader(ini, c_section);
    Exchange(reader, read);
    if (!reader.IsUsable())
        return false;
    *this = std::move(read);
    return true;
}

void SFilterSettings::Save(CInifile& ini) const
{
    CSettingsWriter writer(ini, c_section);
    Exchange(writer, *this);
}

} // namespace CommonUI
