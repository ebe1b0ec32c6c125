#include "measurement/ResultSets.h"

#include "common/Language.h"
#include "dialogs/results/ResultPanel.h"
#include "tests/analysis/TestSurfaces.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iostream>

using namespace CommonUI;
using namespace CommonUI::Measurement;
using CommonUI::Analysis::EGrainKind;
using CommonUI::Analysis::MakeSurface;

namespace
{

SInput MakeInput()
{
    SInput input{.surface = MakeSurface(400, 20, [](double x, double y) {
                     return x > 10 && x < 20 && y > 5 && y < 15 ? 5e-8 : 1e-9 * x;
                 })};
    input.levelling = Analysis::ELevelling::Plane;
    input.surface.channel = "none"; // as the user has called it
    input.steps = {u"none"};
    input.cutoffs = {{1, 8e-6}};
    return input;
}

std::vector<SResultSet> MakeSets(const SInput& input)
{
    const CAnalysisPreferencesManager manager;
    std::vector<SResultSet> sets;
    const SResults surface = ComputeResults(input, MakeChoices(manager, {.keys = {u"Sq", u"4287Ra"}}));
    sets.push_back(MakeSurfaceSet(surface, u"Surface"));
    sets.push_back(MakeRowSet(surface, u"Profiles"));
    const SGrainLimit limit{.threshold = 4e-8,
                            .kind = EGrainKind::Particle,
                            .rule = u"the height below which 95 % of the points lie"};
    sets.push_back(MakeRowSet(
        ComputeResults(input, MakeChoices(manager, {.method = {.grains = limit}, .keys = {u"AreaExHoles"}})),
        u"Grains"));
    return sets;
}

// Summaries, names of rows and the headers that machines get, a line each.
std::vector<std::string> Tell()
{
    const SInput input = MakeInput();
    std::vector<std::string> lines;
    for (const SResultSet& set : MakeSets(input)) {
        lines.push_back(set.provenance.ToUtf8());
        for (const auto& [label, text] : set.summary)
            lines.push_back(label.ToUtf8() + ": " + text.ToUtf8());
        lines.push_back(set.rowHeader.ToUtf8() + " " + set.rowNames.front().ToUtf8());
        CResultLayoutManager layouts;
        CResultPanel panel(layouts);
        panel.SetResults(std::make_shared<SResultSet>(set));
        const std::string file = panel.MakeFile(EResultFile::MachineCsv);
        lines.push_back(file.substr(0, file.find("\r\n")));
    }
    return lines;
}

// In a process of its own, in which no text has been asked for.
[[noreturn]] void TellInGerman()
{
    UseLanguage("de");
    const std::vector<std::string> told = Tell();
    bool isRight = true;
    for (const char* const line :
         {"400 × 20 Punkte, Ebene der kleinsten Quadrate abgezogen, none", "Kanal: none", "Punkte: 400 × 20",
          "Abstand: 1 µm × 1 µm", "Fehlende Punkte: 0", "Ausrichtung: Ebene der kleinsten Quadrate abgezogen",
          "Schritt 1: none", "Grenzwellenlänge von Schritt 1: 8 µm", "Grenzwellenlänge: 80 µm",
          "Profilelemente: Spitzen und Täler über 5 % der Höhe beiderseits der mittleren Linie, mindestens "
          "800 nm breit (1 % der Grenzwellenlänge)",
          "Enden der Filter: Gewichte der Punkte, die da sind", "Parameter der Oberfläche Wert", "Profil 1",
          "Einstellungen der Partikel- und Porenanalyse: Partikel ab 40 nm, die Höhe, unter der 95 % der "
          "Punkte liegen",
          "Partikel 1", "Surface parameter,Unit,Value", "Profile,4287Ra", "Particle,AreaExHoles"})
        if (std::ranges::find(told, line) == told.end()) {
            std::cerr << "not told: " << line << "\n";
            isRight = false;
        }
    for (const std::string& line : told)
        std::cerr << line << "\n";
    std::exit(isRight ? 0 : 1);
}

} // namespace

TEST(ResultSets, SpeakTheLanguageOfTheInterface)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(TellInGerman(), testing::ExitedWithCode(0), "");
}
