#include "model/selection/AnalysisSelection.h"

#include "model/RoughnessAnalysisPreferencesData.h"
#include "model/selection/TemplateInputs.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <string>
#include <vector>

using namespace CommonUI;

namespace
{

using EFactor = CUnit::EUnitFactor;
using EFormat = CParameter::EFormatSpecifier;
using EList = ESelectionList;
using EMark = ESelectionMark;
using EOption = ESelectionOption;
using ERough = ERoughnessParameters;

constexpr int c_sa = static_cast<int>(ERough::Sa);
constexpr int c_sch = static_cast<int>(ERough::Sch);
constexpr int c_smc = static_cast<int>(ERough::Smc);
constexpr int c_first = 144; // the first number above the catalogue's

// A manager whose listener notes what it is told.
class CHeard
{
public:
    CHeard() { manager.GetChangeList().Subscribe(*this, &CHeard::OnChange, m_connection); }
    std::string Take() { return std::exchange(m_heard, {}); }

    CAnalysisPreferencesManager manager;

private:
    void OnChange(const SPreferencesChange& change) { m_heard += "PSO"[static_cast<int>(change.kind)]; }

    CClosureConnection m_connection;
    std::string m_heard;
};

std::string NamesOf(const CAnalysisPreferencesData& data)
{
    std::string names;
    for (const CParameter& parameter : data.GetParameters())
        if (parameter.HasParent())
            names += CStr::Format(u"%d %s%s; ", parameter.GetValue(), parameter.GetShortFriendlyString(),
                                  parameter.IsOn() ? u"" : u" off")
                         .ToUtf8();
    return names;
}

int Add(CAnalysisSelection& selection, int parent, double value)
{
    return selection.AddInstance(parent, std::vector{value});
}

bool Change(CAnalysisSelection& selection, int id, double value)
{
    return selection.ChangeInstance(id, std::vector{value});
}

} // namespace

TEST(AnalysisSelection, ChecksTheInputsOfTemplates)
{
    const struct {
        ERough parent;
        std::vector<double> values;
        std::optional<SInputFault> fault;
    } rows[] = {
        {ERough::Sch, {95}, {}},
        {ERough::Sch, {0}, {}},
        {ERough::Sch, {100.5}, SInputFault{EInputFault::NoPercent, 0}},
        {ERough::Sch, {}, SInputFault{EInputFault::Count, 0}},
        {ERough::Smr, {-1e-6}, {}},
        {ERough::Smr, {std::nan("")}, SInputFault{EInputFault::NoNumber, 0}},
        {ERough::Sdc, {10, 50}, {}},
        {ERough::Sdc, {50, 10}, SInputFault{EInputFault::Order, 1}},
        {ERough::Sdc, {10, -1}, SInputFault{EInputFault::NoPercent, 1}},
        {ERough::Iso4287Rmr2, {5, 1e-6}, {}},
    };
    for (const auto& row : rows)
        EXPECT_EQ(CheckInputs(MakeRoughnessParameter(row.parent), row.values), row.fault)
            << static_cast<int>(row.parent);
}

TEST(AnalysisSelection, TellsListenersOfRealChangesOnly)
{
    const struct {
        std::function<void(CAnalysisSelection&)> change;
        const char* heard;
    } rows[] = {
        {[](auto&) {}, ""},
        {[](auto& s) { s.SetOn(EList::Parameters, c_sa, true); }, ""},
        {[](auto& s) { s.SetOn(EList::Parameters, c_sa, false); }, "P"},
        {[](auto& s) { s.SetOn(EList::Parameters, c_sch, true); }, ""},
        {[](auto& s) { s.SetUnitFactor(c_sa, EFactor::MicroInch); }, "P"},
        {[](auto& s) {
             s.SetFormat(c_sa, {EFormat::FormatDigits, 13});
         },
         ""},
        {[](auto& s) { s.SetStatisticValue(static_cast<int>(EStatistics::Fractile), 90); }, "S"},
        {[](auto& s) { s.SetOption(EOption::WriteToFile, 1); }, "O"},
        {[](auto& s) { s.SetOption(EOption::Preprocessing, 3); }, "P"},
        {[](auto& s) { s.SetOption(EOption::BarCount, 7); }, "O"},
        {[](auto& s) { s.Remove(Add(s, c_sch, 5)); }, ""},
        {[](auto& s) { s.Remove(c_sa); }, ""},
        {[](auto& s) {
             Add(s, c_sch, 5);
             s.SetOn(EList::Statistics, static_cast<int>(EStatistics::Mean), false);
             s.SetOn(EList::Outputs, 1, false);
         },
         "PSO"},
    };
    int number = 0;
    for (const auto& row : rows) {
        CHeard heard;
        CAnalysisSelection selection(heard.manager, EAnalysis::Roughness);
        row.change(selection);
        EXPECT_EQ(heard.Take(), "") << number << " before it is handed back";
        EXPECT_EQ(selection.IsChanged(), *row.heard != 0) << number;
        selection.Commit();
        EXPECT_EQ(heard.Take(), row.heard) << number;
        EXPECT_FALSE(selection.IsChanged()) << number;
        ++number;
    }
}

TEST(AnalysisSelection, GivesNoNumberTwice)
{
    CHeard heard;
    CAnalysisSelection selection(heard.manager, EAnalysis::Roughness);
    EXPECT_EQ(Add(selection, c_sch, 10), c_first);
    selection.Commit();
    heard.Take();
    // With the number of the one that goes, the new one would look like it: its value and unit are the same.
    selection.Remove(c_first);
    EXPECT_EQ(Add(selection, c_smc, 10), c_first + 1);
    EXPECT_EQ(Add(selection, c_smc, 10), c_first + 1) << "there already";
    selection.Commit();
    EXPECT_EQ(heard.Take(), "P");
    EXPECT_EQ(NamesOf(heard.manager.GetData(EAnalysis::Roughness)), "145 Smc(10 %); ");
}

TEST(AnalysisSelection, MergesWhatAnotherWindowChangesPartByPart)
{
    const auto off = [](CAnalysisSelection& s) { s.SetOn(EList::Parameters, c_sa, false); };
    const auto unit = [](CAnalysisSelection& s) { s.SetUnitFactor(c_sa, EFactor::Micro); };
    const auto milli = [](CAnalysisSelection& s) { s.SetUnitFactor(c_sa, EFactor::Milli); };
    const auto format = [](CAnalysisSelection& s) { s.SetFormat(c_sa, {EFormat::FormatDecimals, 2}); };
    const auto nothing = [](CAnalysisSelection&) {};
    const struct {
        std::function<void(CAnalysisSelection&)> own;
        std::function<void(CAnalysisSelection&)> theirs;
        bool on;
        EFactor factor;
        int count;
        EMark mark;
    } rows[] = {
        {nothing, off, false, EFactor::Nano, 5, EMark::Taken},
        {off, nothing, false, EFactor::Nano, 5, EMark::None},
        {off, unit, false, EFactor::Micro, 5, EMark::Taken},
        {unit, unit, true, EFactor::Micro, 5, EMark::None},
        {unit, milli, true, EFactor::Micro, 5, EMark::Kept},
        {format, off, false, EFactor::Nano, 2, EMark::Taken},
    };
    int number = 0;
    for (const auto& row : rows) {
        CAnalysisPreferencesManager manager;
        CAnalysisSelection own(manager, EAnalysis::Roughness);
        CAnalysisSelection theirs(manager, EAnalysis::Roughness);
        row.own(own);
        row.theirs(theirs);
        theirs.Commit();
        const SSelectionUpdate update = own.Update();
        EXPECT_EQ(update, (SSelectionUpdate{row.mark == EMark::Taken, row.mark == EMark::Kept})) << number;
        EXPECT_EQ(own.GetMark(EList::Parameters, c_sa), row.mark) << number;
        own.Commit();
        const CParameter sa = manager.GetData(EAnalysis::Roughness).GetParameter(c_sa);
        EXPECT_EQ(sa.IsOn(), row.on) << number;
        EXPECT_EQ(sa.GetUnitFactor(), row.factor) << number;
        EXPECT_EQ(sa.GetFloatFormat().count, row.count) << number;
        ++number;
    }
}

TEST(AnalysisSelection, MergesWhatIsMadeAndRemoved)
{
    const auto add = [](int parent, double value) {
        return [=](CAnalysisSelection& s) { Add(s, parent, value); };
    };
    const auto remove = [](CAnalysisSelection& s) { s.Remove(c_first); };
    const auto change = [](CAnalysisSelection& s) { Change(s, c_first, 30); };
    const auto replace = [](CAnalysisSelection& s) {
        CAnalysisPreferencesManager other;
        s.Remove(c_first);
        Add(s, c_smc, 40);
    };
    const struct {
        std::function<void(CAnalysisSelection&)> own;
        std::function<void(CAnalysisSelection&)> theirs;
        const char* names;
    } rows[] = {
        {add(c_sch, 5), add(c_smc, 5), "144 Sch(20 %); 145 Smc(5 %); 146 Sch(5 %); "},
        {add(c_sch, 5), add(c_sch, 5), "144 Sch(20 %); 145 Sch(5 %); "},
        {remove, add(c_smc, 5), "145 Smc(5 %); "},
        {remove, change, ""},
        {change, remove, "144 Sch(30 %); "},
        {add(c_smc, 5), remove, "145 Smc(5 %); "},
        {change, replace, "144 Sch(30 %); 145 Smc(40 %); "},
    };
    int number = 0;
    for (const auto& row : rows) {
        CAnalysisPreferencesManager manager;
        CAnalysisSelection before(manager, EAnalysis::Roughness);
        Add(before, c_sch, 20);
        before.Commit();
        CAnalysisSelection own(manager, EAnalysis::Roughness);
        CAnalysisSelection theirs(manager, EAnalysis::Roughness);
        row.own(own);
        row.theirs(theirs);
        theirs.Commit();
        own.Commit();
        EXPECT_EQ(NamesOf(manager.GetData(EAnalysis::Roughness)), row.names) << number;
        ++number;
    }
}

// A file that is loaded meanwhile gives the numbers of what users have made to others.
TEST(AnalysisSelection, TellsApartWhatHasANumberInTurn)
{
    CAnalysisPreferencesManager manager;
    CAnalysisSelection before(manager, EAnalysis::Roughness);
    Add(before, c_sch, 20);
    before.Commit();
    CAnalysisSelection own(manager, EAnalysis::Roughness);
    EXPECT_TRUE(Change(own, c_first, 30));
    CRoughnessAnalysisPreferencesData loaded(EAnalysis::Roughness);
    loaded.AddTemplateInstance(ERough::Smc, {40});
    manager.SetData(EAnalysis::Roughness, loaded);
    own.Commit();
    EXPECT_EQ(NamesOf(manager.GetData(EAnalysis::Roughness)), "144 Smc(40 %); 145 Sch(30 %); ");
}

TEST(AnalysisSelection, ChangesAndRestoresWhatUsersHaveMade)
{
    CAnalysisPreferencesManager manager;
    CAnalysisSelection selection(manager, EAnalysis::Roughness);
    const int first = Add(selection, c_sch, 20);
    const int second = Add(selection, c_sch, 30);
    EXPECT_FALSE(Change(selection, first, 30)) << "another one has that";
    EXPECT_FALSE(Change(selection, first, 101));
    EXPECT_TRUE(Change(selection, first, 25));
    EXPECT_EQ(NamesOf(selection.GetData()), "144 Sch(25 %); 145 Sch(30 %); ");
    selection.SetDefaults(EList::Parameters, selection.GetData().GetParameterIDs());
    EXPECT_EQ(NamesOf(selection.GetData()), "144 Sch(25 %) off; 145 Sch(30 %) off; ");
    selection.Commit();
    selection.Remove(first);
    Add(selection, c_smc, 7);
    Change(selection, second, 31);
    selection.Revert(EList::Parameters, selection.GetData().GetParameterIDs());
    EXPECT_EQ(NamesOf(selection.GetData()), "144 Sch(25 %) off; 145 Sch(30 %) off; ");
}

TEST(AnalysisSelection, KeepsHistogramsWithTheOutputs)
{
    CAnalysisPreferencesManager manager;
    CAnalysisSelection selection(manager, EAnalysis::Measure);
    constexpr int c_length = static_cast<int>(EMeasureParameters::Length);
    const auto classes = [&] {
        return selection.GetData().GetParameter(c_length).GetHistogramSetup(1).classCount;
    };
    EXPECT_FALSE(selection.SetHistogram(c_length, EGrainHistograms::Area, {.classCount = 0}));
    EXPECT_TRUE(selection.SetHistogram(c_length, EGrainHistograms::Area, {.classCount = 7}));
    selection.SetDefaults(EList::Parameters, selection.GetData().GetParameterIDs());
    EXPECT_EQ(classes(), 7);
    selection.Commit();
    EXPECT_TRUE(selection.SetHistogram(c_length, EGrainHistograms::Area, {.classCount = 8}));
    selection.Revert(EList::Outputs, std::vector{c_length});
    EXPECT_EQ(classes(), 7);
    selection.SetDefaults(EList::Outputs, std::vector{c_length});
    EXPECT_EQ(classes(), 20);
}

TEST(AnalysisSelection, MergesOptionsOneByOne)
{
    for (const EOption option : GetSelectionOptions()) {
        CAnalysisPreferencesManager manager;
        CAnalysisSelection own(manager, EAnalysis::RoughnessProfile);
        CAnalysisSelection theirs(manager, EAnalysis::RoughnessProfile);
        const int name = static_cast<int>(option);
        const double before = GetSelectionOption(own.GetData(), option);
        const bool isFixed = option == EOption::MufuSeed; // there is one only
        const double other = option == EOption::BarParameter ? before + 1 : (before == 0 ? 1 : before - 1);
        EXPECT_EQ(theirs.SetOption(option, other), !isFixed) << name;
        EXPECT_FALSE(theirs.SetOption(option, std::nan(""))) << name;
        theirs.Commit();
        EXPECT_EQ(own.Update().taken, isFixed ? 0 : 1) << name;
        EXPECT_EQ(own.GetMark(option), isFixed ? EMark::None : EMark::Taken) << name;
        EXPECT_EQ(GetSelectionOption(own.GetData(), option), isFixed ? before : other) << name;
        own.SetDefault(option);
        EXPECT_EQ(GetSelectionOption(own.GetData(), option), before) << name;
    }
    CAnalysisPreferencesManager manager;
    CAnalysisSelection tip(manager, EAnalysis::Tip);
    EXPECT_FALSE(tip.SetOption(EOption::BarCount, 5)) << "there is no chart";
    EXPECT_FALSE(tip.SetOption(EOption::Preprocessing, 4));
}
