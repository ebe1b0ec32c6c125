#include "measurement/process/StepHistory.h"
#include "measurement/process/StepSequence.h"
#include "measurement/Request.h"
#include "tests/FullDisk.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sstream>

using namespace CommonUI;
using namespace CommonUI::Measurement;

namespace
{

SProcessStep BuiltIn(EBuiltInSetting setting, ESettingType type)
{
    CSettingsFactory factory;
    return LoadStep(factory, MakeBatchStep(SSettingsEntry(setting, type)));
}

SProcessStep Level()
{
    return BuiltIn(EBuiltInSetting::PlaneCorrQuickLaunchImageLeveling, ESettingType::PlaneCorr);
}

SProcessStep Filter(const char* kind, const char* more)
{
    CSettingsFactory factory;
    SProcessStep step{.name = CStr(u"Filter / Own / ") + CStr::FromUtf8(kind), .work = SFilterSettings()};
    step.source = {.type = ESettingType::Filter, .settings = u"FILE:/sets/own.flt"};
    EXPECT_TRUE(ReadWork(std::string("[Filter]\nKind=") + kind + "\n" + more, step.work)) << kind << more;
    return step;
}

// "Leveling, (Mean)": titles, those that are off in brackets.
std::string ListOf(const CStepHistory& history)
{
    std::string text;
    for (const SProcessStep& step : history.GetSteps()) {
        const std::string title = step.GetTitle().ToUtf8();
        text += (text.empty() ? "" : ", ") + (step.isOn ? title : "(" + title + ")");
    }
    return text;
}

std::string NumbersOf(const CStepWork& work)
{
    std::ostringstream text;
    for (const SStepNumber& row : GetNumbers(work))
        text << static_cast<int>(row.number) << "=" << row.value << " ";
    return text.str();
}

} // namespace

TEST(StepHistory, EveryChangeIsUndoneAndRedoneByItsName)
{
    CStepHistory history;
    std::vector<std::string> states{ListOf(history)};
    const auto note = [&] { states.push_back(ListOf(history)); };
    const unsigned mean = history.Add(Filter("Mean", ""));
    note();
    const unsigned level = history.Add(Level());
    note();
    history.Move(level, -7); // as far as it goes
    note();
    history.Switch(mean, false);
    note();
    history.Replace(mean, Filter("Median", ""));
    note();
    history.Add(Filter("Streaks", ""), level);
    note();
    history.Remove(level);
    note();
    history.Take({Level(), Filter("Gauss", "StandardDeviation=1")}, u"mine");
    note();
    EXPECT_EQ(states, (std::vector<std::string>{"", "Mean", "Mean, Global Leveling", "Global Leveling, Mean",
                                                "Global Leveling, (Mean)", "Global Leveling, (Median)",
                                                "Global Leveling, Streaks, (Median)", "Streaks, (Median)",
                                                "Streaks, (Median), Global Leveling, Gauss"}));
    std::vector<std::string> names;
    for (std::size_t i = states.size(); i-- > 0; history.Undo()) {
        EXPECT_EQ(ListOf(history), states[i]);
        if (history.GetUndo())
            names.push_back(std::to_string(static_cast<int>(history.GetUndo()->kind)) + " " +
                            history.GetUndo()->title.ToUtf8());
    }
    EXPECT_EQ(names,
              (std::vector<std::string>{"7 mine", "1 Global Leveling", "0 Streaks", "2 Median", "5 Mean",
                                        "3 Global Leveling", "0 Global Leveling", "0 Mean"}));
    history.Undo();
    EXPECT_EQ(history.GetRedo()->title.ToUtf8(), "Mean");
    for (const std::string& state : states) {
        EXPECT_EQ(ListOf(history), state);
        history.Redo();
    }
    EXPECT_FALSE(history.GetRedo());

    // What is changed in the past has another future; what is no change has none to undo.
    history.Undo();
    history.Undo();
    history.Move(mean, 1);
    history.Switch(mean, false);
    history.Remove(4711);
    EXPECT_TRUE(history.GetRedo());
    history.Remove(mean);
    EXPECT_FALSE(history.GetRedo());
}

TEST(StepHistory, NumbersOfAKindAreEditedWithinWhatASetCanHave)
{
    const struct {
        const char* kind;
        const char* more;
        const char* before;
        EStepNumber number;
        double value;
        const char* after; // empty where it is refused
    } rows[] = {
        {"Mean", "", "1=3 2=3 ", EStepNumber::Columns, 8, "1=9 2=3 "},
        {"Mean", "", "1=3 2=3 ", EStepNumber::Rows, 1e9, "1=3 2=255 "},
        {"Mean", "Application=Curve", "1=3 ", EStepNumber::Rows, 5, ""},
        {"Median", "Strength=Weak", "1=3 2=3 4=3 ", EStepNumber::Threshold, 2.5, "1=3 2=3 4=2.5 "},
        {"Spikes", "", "1=3 2=3 4=3 ", EStepNumber::Rows, 1, ""}, // a threshold needs five points
        {"Gauss", "StandardDeviation=1", "1=7 2=7 3=1 ", EStepNumber::StandardDeviation, -2,
         "1=7 2=7 3=1e-09 "},
        {"Streaks", "", "5=1 4=3 ", EStepNumber::MaximumWidth, 2.4, "5=2 4=3 "},
        {"Convolution", "Weights=1,1,1,1,1,1,1,1,1", "", EStepNumber::Columns, 5, ""},
        {"ArealGaussian", "Cutoff=1e-5", "6=1e-05 ", EStepNumber::Cutoff, 2e-5, "6=2e-05 "},
        {"ProfileGaussian", "CutoffRule=Fraction\nCutoffFraction=0.2", "7=0.2 ", EStepNumber::CutoffShare, 7,
         "7=1 "},
        {"ArealGaussian", "CutoffRule=Automatic", "", EStepNumber::Cutoff, 1, ""},
    };
    for (const auto& row : rows) {
        SProcessStep step = Filter(row.kind, row.more);
        EXPECT_EQ(NumbersOf(step.work), row.before) << row.kind;
        const bool isDone = SetNumber(step.work, row.number, row.value);
        EXPECT_EQ(isDone ? NumbersOf(step.work) : "", row.after) << row.kind;
    }

    // Edits of one number are one change, until it has come to rest.
    CStepHistory history;
    const unsigned id = history.Add(Filter("Mean", ""));
    for (const double columns : {5., 7., 9.})
        EXPECT_TRUE(history.Edit(id, EStepNumber::Columns, columns));
    history.EndEdit();
    history.Edit(id, EStepNumber::Columns, 11);
    EXPECT_EQ(history.Find(id)->Describe().ToUtf8(), "Filter / Own / Mean (columns 11, rows 3)");
    history.Undo();
    EXPECT_EQ(NumbersOf(history.Find(id)->work), "1=9 2=3 ");
    history.Undo();
    EXPECT_EQ(NumbersOf(history.Find(id)->work), "1=3 2=3 ");
    EXPECT_FALSE(history.Find(id)->isEdited);
}

TEST(StepSequence, IsReadAsItWasSaved)
{
    const CTemporaryFolder folder;
    const CStr path = (folder.GetPath() / "mine.batch").u16string();
    CSettingsFactory factory;
    CStepHistory history;
    SProcessStep report{.name = u"a report", .work = SNoChange()};
    report.source = {.operation = EBatchOperation::ShowProfiles, .profiles = 3};
    const unsigned mean =
        history.Add(BuiltIn(EBuiltInSetting::Filter_Smoothing_Mean_3x3, ESettingType::Filter));
    history.Add(report);
    history.Add({.name = u"voids",
                 .source = {.operation = EBatchOperation::InterpolateVoids},
                 .work = SInterpolation()});
    const unsigned level = history.Add(Level());
    const auto saved = [&] {
        SaveSequence(history.GetSteps(), path);
        CInifile ini;
        EXPECT_TRUE(ini.Load(path));
        return LoadSequence(factory, ini, path);
    };
    const auto expectSame = [&](const CProcessSteps& read) {
        ASSERT_EQ(read.size(), history.GetSteps().size());
        for (std::size_t i = 0; i < read.size(); ++i) {
            EXPECT_EQ(read[i].work, history.GetSteps()[i].work) << i;
            EXPECT_EQ(read[i].source.operation, history.GetSteps()[i].source.operation);
            EXPECT_EQ(read[i].source.profiles, history.GetSteps()[i].source.profiles);
        }
    };
    const auto countFiles = [&] {
        return std::distance(std::filesystem::directory_iterator(folder.GetPath()), {});
    };
    expectSame(saved());
    EXPECT_EQ(countFiles(), 1);

    // What was edited has a file of its own, which replaces its like and nobody else's.
    folder.Write("mine step 1.flt", "somebody else's");
    history.Edit(mean, EStepNumber::Rows, 5);
    history.Edit(level, EStepNumber::Order, 3);
    expectSame(saved());
    EXPECT_EQ(folder.Read("mine step 1.flt"), "somebody else's");
    history.Edit(mean, EStepNumber::Rows, 7);
    expectSame(saved());
    EXPECT_EQ(countFiles(), 4);

    // All of it is stored, or nothing.
    const std::string sequence = folder.Read("mine.batch");
    const std::string set = folder.Read("mine step 1-2.flt");
    ASSERT_NE(set, "");
    history.Edit(mean, EStepNumber::Rows, 9);
#if !defined(_WIN32) // which has no limit for the size of files
    {
        const CFullDisk disk(sequence.size() / 2);
        EXPECT_THROW(SaveSequence(history.GetSteps(), path), ERequest);
    }
#endif
    EXPECT_EQ(folder.Read("mine.batch"), sequence);
    EXPECT_EQ(folder.Read("mine step 1-2.flt"), set);
    EXPECT_EQ(countFiles(), 4);
    for (const SProcessStep& step : CProcessSteps(history.GetSteps()))
        history.Switch(step.id, false);
    EXPECT_THROW(SaveSequence(history.GetSteps(), path), ERequest);
}

TEST(StepSequence, OverwritesNoSetThatIsNotItsOwn)
{
    const CTemporaryFolder folder;
    const CStr path = (folder.GetPath() / "P.batch").u16string();
    CSettingsFactory factory;
    const auto read = [&] {
        CInifile ini;
        EXPECT_TRUE(ini.Load(path));
        return LoadSequence(factory, ini, path);
    };
    const auto edit = [](SProcessStep& step, double columns) {
        step.isEdited = SetNumber(step.work, EStepNumber::Columns, columns);
    };
    const auto columnsOf = [&](const CProcessSteps& steps) {
        std::vector<int> columns;
        for (const SProcessStep& step : steps)
            columns.push_back(std::get<SFilterSettings>(step.work).columns);
        return columns;
    };
    const SProcessStep mean = BuiltIn(EBuiltInSetting::Filter_Smoothing_Mean_3x3, ESettingType::Filter);
    CProcessSteps steps{mean, mean};
    edit(steps[0], 5);
    edit(steps[1], 7);
    SaveSequence(steps, path);

    // The set of one step has the name that another one would get.
    steps = read();
    std::swap(steps[0], steps[1]);
    edit(steps[1], 9);
    steps.push_back(mean);
    SaveSequence(steps, path);
    EXPECT_EQ(columnsOf(read()), (std::vector{7, 9, 3}));
    EXPECT_NE(folder.Read("P step 2-2.flt"), "");

    // A step that is off still needs its own.
    steps = read();
    steps[0].isOn = false; // that of "P step 2.flt"
    edit(steps[2], 11);
    SaveSequence(steps, path);
    steps[0].isOn = true;
    edit(steps[1], 13);
    SaveSequence(steps, path);
    EXPECT_EQ(columnsOf(read()), (std::vector{7, 13, 11}));

    // A set of the user's with such a name, also where a step has referred to it.
    const std::string mine = WriteWork(mean.work);
    const CStr minePath = (folder.GetPath() / "P step 4.flt").u16string();
    folder.Write("P step 4.flt", mine);
    SProcessStep own = mean;
    own.source.settings = u"FILE:" + minePath;
    steps = read();
    steps.push_back(own);
    SaveSequence(steps, path);
    edit(steps[3], 15);
    SaveSequence(steps, path);
    EXPECT_EQ(folder.Read("P step 4.flt"), mine);
    EXPECT_EQ(columnsOf(read()), (std::vector{7, 13, 11, 15}));

    // A set of its own is replaced, also when other steps were saved meanwhile.
    const auto countFiles = [&] {
        return std::distance(std::filesystem::directory_iterator(folder.GetPath()), {});
    };
    const auto before = countFiles();
    for (const std::size_t step : {std::size_t{3}, std::size_t{2}, std::size_t{3}}) {
        steps = read();
        edit(steps[step], 17);
        SaveSequence(steps, path);
        EXPECT_EQ(countFiles(), before) << step;
    }

    steps.assign(SBatchSequenceSettings::c_mostSteps, mean);
    SaveSequence(steps, path);
    EXPECT_EQ(read().size(), steps.size());
    steps.push_back(mean); // one more could not be read
    EXPECT_THROW(SaveSequence(steps, path), ERequest);
    EXPECT_EQ(read().size(), steps.size() - 1);
}
