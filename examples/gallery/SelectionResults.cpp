#include "examples/gallery/SelectionResults.h"

#include "measurement/ApplySteps.h"
#include "measurement/Choices.h"
#include "measurement/GrainLimit.h"
#include "measurement/ReportTables.h"
#include "measurement/Results.h"
#include "measurement/ResultSets.h"
#include "output/results/NumberFormat.h"

#include <cmath>
#include <utility>

namespace Gallery
{

namespace
{

using namespace CommonUI;
using CGrid = CGridBaseOutputCtrl;

// Hills of about a micrometre with a finer texture.
Analysis::SSurface MakeSurface()
{
    Analysis::SSurface surface{.points = 160, .lines = 96, .dx = 1e-6, .dy = 1e-6};
    for (std::size_t line = 0; line < surface.lines; ++line)
        for (std::size_t point = 0; point < surface.points; ++point) {
            const double x = static_cast<double>(point);
            const double y = static_cast<double>(line);
            surface.heights.push_back(4e-7 * std::sin(x / 6) * std::sin(y / 8) + 6e-8 * std::sin(x * 1.7) +
                                      5e-8 * std::sin(y * 2.3 + x) + 1e-9 * x);
        }
    return surface;
}

void CopyTable(const CGrid& from, CGrid& to)
{
    for (const CGrid::SColumn& column : from.GetColumns())
        to.AddColumn(column);
    for (const CGrid::SRow& row : from.GetRows())
        to.AddRow(row);
}

bool IsPlane(const CAnalysisPreferencesData& data)
{
    return data.GetPreprocessingOption() != ERoughnessPreprocessingOptions::None;
}

// Calls use(results) while the surface that these refer to is there.
template<class FUse>
auto Compute(const CAnalysisPreferencesManager& manager, EAnalysis analysis,
             const SGrainThresholdSettings& grains, FUse use)
{
    Measurement::SRequest request{.usesPreferences = true};
    if (IsPlane(manager.GetData(analysis)))
        request.method.levelling = Analysis::ELevelling::Plane;
    if (analysis == EAnalysis::Measure)
        request.method.grainSearch = Measurement::SGrainSearch{u"Gallery", grains};
    Measurement::SChoices choices = Measurement::MakeChoices(manager, request);
    const Measurement::SInput input = Measurement::Process(MakeSurface(), choices.method.levelling, {});
    if (choices.method.MeasuresGrains())
        choices.method.grains = Measurement::FindGrainLimit(choices.method, input.surface);
    return use(Measurement::ComputeResults(input, choices));
}

void FillComputed(const CAnalysisPreferencesManager& manager, EAnalysis analysis,
                  const SGrainThresholdSettings& grains, CGrid& table)
{
    Compute(manager, analysis, grains, [&](Measurement::SResults results) {
        const Measurement::CReportTables tables(std::move(results), false);
        CopyTable(analysis == EAnalysis::Roughness ? tables.GetSurface() : tables.GetRows(), table);
    });
}

void FillMadeUp(const CAnalysisPreferencesData& data, CGrid& table)
{
    const CUnit metre(CUnit::EUnitFactor::Unity);
    table.AddColumn({u"Value", u""});
    table.AddColumn({u"Unit", u""});
    for (const CParameter& parameter : data.GetParameters()) {
        if (!parameter.IsOn())
            continue;
        const bool isLength = parameter.DimensionToPower() == 1;
        const double value = (isLength ? 1.2345678e-6 : 1.2345678) * parameter.CalcFactor();
        table.AddRow({.name = parameter.GetFriendlyString(),
                      .cells = {FormatParameterValue(value, parameter.GetFloatFormat()),
                                parameter.GetScaledUnitStr(metre)}});
    }
}

} // namespace

void FillSelectionResults(const CAnalysisPreferencesManager& manager, EAnalysis analysis,
                          const SGrainThresholdSettings& grains, CGrid& table)
{
    table.Clear();
    if (IsComputed(analysis))
        FillComputed(manager, analysis, grains, table);
    else
        FillMadeUp(manager.GetData(analysis), table);
}

bool IsComputed(EAnalysis analysis)
{
    return IsRoughness(analysis) || analysis == EAnalysis::Measure;
}

SResultSet MakeSelectionResults(const CAnalysisPreferencesManager& manager, EAnalysis analysis,
                                const SGrainThresholdSettings& grains)
{
    return Compute(manager, analysis, grains, [&](const Measurement::SResults& results) {
        const CStr name = CAnalysisPreferencesData::GetININame(analysis);
        SResultSet set = analysis == EAnalysis::Roughness ? Measurement::MakeSurfaceSet(results, name)
                                                          : Measurement::MakeRowSet(results, name);
        set.title = CAnalysisPreferencesData::GetFriendlyName(analysis) + u" of a made-up surface";
        return set;
    });
}

} // namespace Gallery
