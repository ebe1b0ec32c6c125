#include "measurement/Results.h"
#include "measurement/ResultSets.h"

#include "tests/analysis/TestSurfaces.h"

#include <algorithm>
#include <cmath>

using namespace CommonUI;
using namespace CommonUI::Measurement;
using CommonUI::Analysis::EGrainKind;
using CommonUI::Analysis::MakeSurface;

namespace
{

std::string KeysOf(const std::vector<SColumn>& columns)
{
    std::string keys;
    for (const SColumn& column : columns)
        keys += column.parameter.GetIniName().ToUtf8() + ' ';
    return keys;
}

} // namespace

TEST(Results, HaveWhatWasChosenAndNoMore)
{
    const SInput input{
        .surface = MakeSurface(30, 20, [](double x, double y) { return x > 10 && y > 5 ? 5e-8 : 1e-9 * x; })};
    const CAnalysisPreferencesManager manager;
    const std::tuple<SRequest, const char*, const char*> rows[] = {
        {{.keys = {u"Sq", u"4287Ra", u"Sa"}}, "Sa Sq ", "4287Ra "}, // in the order of the catalogue
        {{.method = {.grains = SGrainLimit{4e-8, EGrainKind::Particle}}, .keys = {u"AreaExHoles"}},
         "",
         "AreaExHoles "},
        // No grain is so high: there are no rows, which is no fault of the key.
        {{.method = {.grains = SGrainLimit{1, EGrainKind::Particle}}, .keys = {u"AreaExHoles"}}, "", ""},
    };
    for (const auto& [request, surface, columns] : rows) {
        const SResults results = ComputeResults(input, MakeChoices(manager, request));
        EXPECT_EQ(KeysOf(results.surface), surface);
        EXPECT_EQ(KeysOf(results.columns), columns);
    }
    const SChoices inMicrometres = MakeChoices(manager, {.keys = {u"Sz"}, .unit = CUnit::EUnitFactor::Micro});
    EXPECT_EQ(ComputeResults(input, inMicrometres).surface.at(0).GetText(5e-8), u"0.05");
    EXPECT_THROW(MakeChoices(manager, {.method = std::get<0>(rows[1]).method, .keys = {u"Sa"}}), ERequest);
    EXPECT_GT(MakeChoices(manager, {}).surface.size(), 30u);
}

// Of grains not every statistic is computed.
TEST(Results, EachStatisticOfASetHasAValueOrAReason)
{
    const SInput input{.surface = MakeSurface(30, 20, [](double x, double y) {
                           return x > 10 && x < 20 && y > 5 && y < 15 ? 5e-8 : 1e-9;
                       })};
    SChoices choices = MakeChoices(
        CAnalysisPreferencesManager(),
        {.method = {.grains = SGrainLimit{4e-8, EGrainKind::Particle}}, .keys = {u"AreaExHoles"}});
    for (CParameter& statistic : choices.statistics)
        statistic.SetOn(true);
    const SResultSet set = MakeRowSet(ComputeResults(input, choices), u"Grains");
    EXPECT_FALSE(set.statistics.empty());
    ASSERT_EQ(set.quantities.size(), 1U);
    const SResultQuantity& quantity = set.quantities[0];
    for (std::size_t i = 0; i < set.statistics.size(); ++i)
        EXPECT_NE(std::isnan(quantity.statistics[i]),
                  std::ranges::none_of(quantity.statisticStates,
                                       [&](const SResultState& state) { return state.index == i; }))
            << set.statistics[i].key.ToUtf8();
}
