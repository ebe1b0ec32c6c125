#include "model/detail/ParameterGroups.h"

#include "common/StringTable.h"
#include "model/MeasureParameters.h"
#include "model/RoughnessAnalysisPreferencesData.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

template<class T>
constexpr SGroupRow Row(T first, T last, int textId)
{
    return {static_cast<int>(first), static_cast<int>(last), textId};
}

template<class T>
constexpr SGroupRow Row(T only, int textId)
{
    return Row(only, only, textId);
}

constexpr int c_height = 9771;
constexpr int c_spatial = 9772;
constexpr int c_hybrid = 9773;
constexpr int c_functional = 9774;
constexpr int c_feature = 9775;

using ERough = ERoughnessParameters;
constexpr SGroupRow c_roughnessKinds[] = {
    Row(ERough::Sa, ERough::Smax, c_height),
    Row(ERough::ProfileRa, ERough::ProfileRmax, c_height),
    Row(ERough::Sal, ERough::Sfd, c_spatial),
    Row(ERough::ProfileRSm, c_spatial),
    Row(ERough::Sdq, ERough::S3A, c_hybrid),
    Row(ERough::ProfileRdq, c_hybrid),
    Row(ERough::Sk, ERough::Sdc50_95, c_functional),
    Row(ERough::Smr, ERough::Sch, c_functional),
    Row(ERough::ProfileRdc, ERough::ProfileRmr2, c_functional),
    Row(ERough::Spd, ERough::Shv, c_feature),
    Row(ERough::Iso4287Ra, ERough::Iso4287Rmr2, 9776),
    Row(ERough::Iso4287Wa, ERough::Iso4287Wmr2, 9777),
    Row(ERough::Iso4287Pa, ERough::Iso4287Pmr2, 9778),
};

using EOut = ERoughnessOutputs;
constexpr SGroupRow c_curveKinds[] = {
    Row(EOut::AbbottCurve, 9779),
    Row(EOut::HeightDistribution, 9779),
    Row(EOut::RadialSpectrum, 9780),
    Row(EOut::IntegratedRadialSpectrum, 9780),
    Row(EOut::PowerSpectrum, EOut::Autocorrelation, 9780),
    Row(EOut::AngularSpectrum, 9781),
    Row(EOut::FractalDimensionAngle, EOut::CorrelationLength37, 9781),
};

using EMeasure = EMeasureParameters;
constexpr SGroupRow c_measureKinds[] = {
    Row(EMeasure::Type, EMeasure::PlateauIndex, 9783),
    Row(EMeasure::ID, 9783),
    Row(EMeasure::Length, EMeasure::AreaExHoles, 9784),
    Row(EMeasure::AreaPixel, 9784),
    Row(EMeasure::MatVoidVolume, EMeasure::NettoVolume, 9785),
    Row(EMeasure::AbsMatVoidVolume, EMeasure::AbsNetVolume, 9785),
    Row(EMeasure::MaxHeight, EMeasure::SDDepth, 9786),
    Row(EMeasure::MinAbsHeight, EMeasure::SdAbsHeight, 9787),
    Row(EMeasure::MinCntrHeight, EMeasure::AveCntrHeight, 9787),
    Row(EMeasure::AspectRatio, EMeasure::Solidity, 9788),
    Row(EMeasure::Angle, 9788),
    Row(EMeasure::CGPolygonX, EMeasure::BoundRectMaxY, 9789),
    Row(EMeasure::CGAreaX, EMeasure::CGAreaY, 9789),
    Row(EMeasure::NearestNeighbourID, EMeasure::NearestNeighbourAngle, 9790),
};

constexpr SGroupRow c_statisticKinds[] = {
    Row(EStatistics::Minimum, EStatistics::Mode, 9791),
    Row(EStatistics::Count, EStatistics::Total, 9791),
    Row(EStatistics::MeanWeightArea, EStatistics::SDWeightVolume, 9792),
};

const SGroupRow* FindRow(std::span<const SGroupRow> rows, int value)
{
    const auto found = std::ranges::find_if(
        rows, [value](const SGroupRow& row) { return row.first <= value && value <= row.last; });
    return found == rows.end() ? nullptr : &*found;
}

} // namespace

std::span<const SGroupRow> GetRoughnessKinds()
{
    return c_roughnessKinds;
}

std::span<const SGroupRow> GetRoughnessCurveKinds()
{
    return c_curveKinds;
}

std::span<const SGroupRow> GetMeasureKinds()
{
    return c_measureKinds;
}

std::span<const SGroupRow> GetStatisticKinds()
{
    return c_statisticKinds;
}

std::vector<SParameterGroup> GroupByKind(const std::vector<CParameter>& entries,
                                         std::span<const SGroupRow> rows, int standard)
{
    std::vector<int> texts;
    std::vector<SParameterGroup> groups;
    for (const SGroupRow& row : rows) {
        if (texts.empty() || texts.back() != row.textId) {
            texts.push_back(row.textId);
            groups.push_back({GetString(row.textId), standard, false, {}, {}});
        }
    }
    for (const CParameter& entry : entries) {
        const SGroupRow* const row = FindRow(rows, entry.GetBaseValue());
        if (row)
            groups[static_cast<std::size_t>(std::ranges::find(texts, row->textId) - texts.begin())]
                .parameters.push_back(entry);
    }
    std::erase_if(groups, [](const SParameterGroup& group) { return group.parameters.empty(); });
    return groups;
}

} // namespace CommonUI
