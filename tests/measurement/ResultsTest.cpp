#include "measurement/Results.h"

#include "tests/analysis/TestSurfaces.h"

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
