#include "tests/workbench/WorkbenchTesting.h"

#include "formats/SurfaceReader.h"
#include "measurement/BackgroundWork.h"
#include "model/RoughnessCatalogue.h"
#include "qt/controls/FolderComboWidget.h"
#include "qt/grid/ResultGridWidget.h"
#include "workbench/series/SeriesForm.h"
#include "workbench/series/SeriesTexts.h"
#include "workbench/series/SeriesWindow.h"

#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>

#include <cmath>
#include <future>

namespace Workbench
{

class Series : public CWorkbenchTest
{
protected:
    Series()
    {
        const auto sa = GetRoughnessParametersEnum().FindIniName(u"Sa");
        GetAnalysisPreferencesManager().SetDataParameterOn(EAnalysis::Roughness, sa->GetValue(), true);
    }
    CSeriesWindow& Show()
    {
        QTest::keyClick(m_window.get(), Qt::Key_R, Qt::ControlModifier | Qt::ShiftModifier);
        EXPECT_TRUE(QTest::qWaitForWindowActive(m_window->GetSeries()));
        return *m_window->GetSeries();
    }
    CSeriesWindow& ShowFolder(const std::filesystem::path& folder)
    {
        CSeriesWindow& series = Show();
        series.GetForm().GetSources().setFocus();
        QTest::keyClick(&series.GetForm().GetSources(), Qt::Key_Down);
        QLineEdit& field = *series.GetForm().GetFolder().lineEdit();
        field.setFocus();
        field.setText(QString::fromStdString(folder.string()));
        QTest::keyClick(&field, Qt::Key_Return);
        EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return series.GetForm().GetList().count() > 0; }));
        return series;
    }
    void Compute()
    {
        CSeriesWindow& series = *m_window->GetSeries();
        series.GetCompute().setFocus();
        QTest::keyClick(&series.GetCompute(), Qt::Key_Space);
        EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return !series.IsBusy(); }));
    }
    const SResultSet& GetSet() { return m_window->GetSeries()->GetPanel().GetResults(); }
    static std::vector<double> ValuesOf(const SResultSet& set, const CStr& key)
    {
        const auto found = std::ranges::find(set.quantities, key, &SResultQuantity::key);
        return found == set.quantities.end() ? std::vector<double>() : found->values;
    }
    std::string GetRemark(const char16_t* file)
    {
        for (const auto& [label, text] : GetSet().summary)
            if (label == CStr(file))
                return text.ToUtf8();
        return {};
    }
    void UseSteps(int row)
    {
        QComboBox& steps = m_window->GetSeries()->GetForm().GetSteps();
        steps.setCurrentIndex(row);
    }
    void AddMean()
    {
        m_window->GetPage()->GetProcessing().Take(
            {{.name = u"Mean", .work = SFilterSettings{.kind = EFilterKind::Mean, .rows = 9, .columns = 9}}},
            u"steps");
        WaitForResults();
    }
};

TEST_F(Series, OpenSurfacesAreRowsAndPreferencesCount)
{
    const std::string small = Write("small.sdf", c_small);
    Open(small);
    OpenSample();
    AddMean();
    Show();
    Compute();
    EXPECT_EQ(GetSet().rowNames, (std::vector<CStr>{u"small.sdf", u"ground_steel.sdf"}));
    WaitForResults();
    const double sa = ValuesOf(m_window->GetResults().GetPanel().GetResults(), u"Sa").at(0);
    const std::vector<double> own = ValuesOf(GetSet(), u"Sa");
    ASSERT_EQ(own.size(), 2u);
    EXPECT_DOUBLE_EQ(own[1], sa);
    const auto mean = std::ranges::find(GetSet().statistics, CStr(u"Mean"), &SResultStatistic::key);
    ASSERT_NE(mean, GetSet().statistics.end());
    const auto place = static_cast<std::size_t>(mean - GetSet().statistics.begin());
    EXPECT_DOUBLE_EQ(GetSet().quantities[0].statistics[place], (own[0] + own[1]) / 2);

    // Without steps it is another surface, with those of the other one, too.
    UseSteps(0);
    Compute();
    EXPECT_GT(ValuesOf(GetSet(), u"Sa").at(1), 1.01 * sa);
    EXPECT_DOUBLE_EQ(ValuesOf(GetSet(), u"Sa").at(0), own[0]);
    UseSteps(1);
    Compute();
    EXPECT_DOUBLE_EQ(ValuesOf(GetSet(), u"Sa").at(1), sa);
    EXPECT_NE(ValuesOf(GetSet(), u"Sa").at(0), own[0]);

    // What is switched off goes at once; what comes is to be computed.
    const std::size_t count = GetSet().quantities.size();
    const int id = GetSet().quantities[0].parameter.GetValue();
    auto& preferences = GetAnalysisPreferencesManager();
    preferences.SetDataParameterOn(EAnalysis::Roughness, id, false);
    EXPECT_EQ(GetSet().quantities.size(), count - 1);
    Compute();
    preferences.SetDataParameterOn(EAnalysis::Roughness, id, true);
    EXPECT_EQ(GetSet().quantities.size(), count - 1);
    EXPECT_TRUE(m_window->GetSeries()->GetState().contains(QText(ESeriesText::ParametersAdded)));
}

TEST_F(Series, FilesOfAFolderFailAlone)
{
    m_folder.Write("in/a.sdf", m_folder.Read(c_sample));
    m_folder.Write("in/b.sdf", "aISO-1.0\nNumPoints = 3\n");
    std::string profile = "x [mm] z [um]\n";
    for (int i = 0; i < 300; ++i)
        profile += std::to_string(0.01 * i) + " " + std::to_string(std::sin(i)) + "\n";
    m_folder.Write("in/deep/c.txt", profile);
    m_folder.Write("in/d.SDF", c_small);
    m_folder.Write("in/notes.md", "no surface");
    CSeriesWindow& series = ShowFolder(m_folder.GetPath() / "in");
    QListWidget& list = series.GetForm().GetList();
    ASSERT_EQ(list.count(), 4);
    list.setFocus();
    list.setCurrentRow(2);
    QTest::keyClick(&list, Qt::Key_Space);
    EXPECT_EQ(series.GetForm().GetAll().checkState(), Qt::PartiallyChecked);
    Compute();
    EXPECT_EQ(GetSet().rowNames.size(), 3u);
    QTest::mouseClick(&series.GetForm().GetAll(), Qt::LeftButton, {}, QPoint(5, 5));
    Compute();
    EXPECT_EQ(GetSet().rowNames, (std::vector<CStr>{u"a.sdf", u"b.sdf", u"d.SDF", u"deep/c.txt"}));
    const std::vector<double> sa = ValuesOf(GetSet(), u"Sa");
    EXPECT_TRUE(sa[0] > 0 && sa[2] > 0 && std::isnan(sa[1]) && std::isnan(sa[3]));
    EXPECT_EQ(GetSet().quantities[0].states.at(0).state.state, EValueState::Failed);
    EXPECT_EQ(GetRemark(u"b.sdf"), "b.sdf:3: the file ends within its header");
    EXPECT_NE(GetRemark(u"deep/c.txt").find("profile"), std::string::npos);
    EXPECT_EQ(GetRemark(u"a.sdf"), "");
    EXPECT_TRUE(series.GetState().contains("4")) << qPrintable(series.GetState());

    // A table of profiles has means of surfaces beside them.
    QComboBox& analyses = m_window->GetResults().GetForm().GetAnalyses();
    analyses.setCurrentIndex(analyses.findData(static_cast<int>(EAnalysis::RoughnessProfile)));
    Compute();
    for (const std::size_t row : {0u, 3u})
        EXPECT_TRUE(std::ranges::any_of(GetSet().quantities, [row](const SResultQuantity& quantity) {
            return quantity.values.at(row) > 0;
        })) << row;
    EXPECT_EQ(GetRemark(u"deep/c.txt"), "");
    analyses.setCurrentIndex(analyses.findData(static_cast<int>(EAnalysis::Measure)));
    Compute();
    EXPECT_GT(ValuesOf(GetSet(), u"Count").at(0), 1);

    Start();
    CSeriesWindow& again = Show();
    EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return again.GetForm().GetList().count() == 4; }));
    EXPECT_EQ(again.GetForm().GetSources().currentIndex(), 1);
}

TEST_F(Series, FoldersAreChosenAndSayWhatIsWrong)
{
    m_folder.Write("in/a.sdf", c_small);
    m_folder.Write("in/of file.md", "");
    CSeriesForm& form = ShowFolder(m_folder.GetPath() / "in").GetForm();
    const auto browse = [&](const std::filesystem::path& chosen) {
        m_dialogs.Prepare(CStr(chosen.u16string()));
        form.GetBrowse().setFocus();
        QTest::keyClick(&form.GetBrowse(), Qt::Key_Space);
        EXPECT_TRUE(m_dialogs.GetShown().back().isFolder);
        EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return !form.IsLooking(); }));
    };
    browse(m_folder.GetPath() / "in");
    EXPECT_EQ(m_dialogs.GetShown().back().folder, CStr((m_folder.GetPath() / "in").u16string()));
    EXPECT_EQ(form.GetList().count(), 1);

    // Since the last time it has gone, and a file is in its place.
    const CStr file = (m_folder.GetPath() / "in" / "of file.md").u16string();
    form.SetChoice({.isOfFolder = true, .folder = file});
    EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return !form.IsLooking(); }));
    EXPECT_EQ(form.GetList().count(), 0);
    EXPECT_TRUE(m_window->GetSeries()->GetState().contains("of file.md: "));
}

TEST_F(Series, CancelGivesUpAtOnce)
{
    m_folder.Write("in/a.sdf", c_small);
    m_folder.Write("in/b.sdf", c_small);
    std::promise<void> gate;
    const auto opened = gate.get_future().share();
    m_window->SetReader([opened](const auto& path, const auto& progress) {
        opened.wait();
        return Formats::ReadSurface(path, progress);
    });
    CSeriesWindow& series = ShowFolder(m_folder.GetPath() / "in");
    for (const bool isByKey : {true, false}) {
        QTest::mouseClick(&series.GetCompute(), Qt::LeftButton);
        QTest::qWait(100);
        EXPECT_TRUE(series.IsBusy());
        EXPECT_FALSE(series.GetForm().isEnabled());
        if (isByKey)
            QTest::keyClick(&series, Qt::Key_Escape);
        else
            QTest::mouseClick(&series.GetCancel(), Qt::LeftButton);
        EXPECT_FALSE(series.IsBusy());
        EXPECT_TRUE(series.isVisible());
        EXPECT_TRUE(series.GetForm().isEnabled());
        EXPECT_TRUE(GetSet().rowNames.empty());
    }
    // A window that goes waits for nothing; threads without a reader end by themselves.
    QTest::mouseClick(&series.GetCompute(), Qt::LeftButton);
    m_window.reset();
    Measurement::CBackgroundWork::WaitForAll();
    gate.set_value();
}

TEST_F(Series, SurfacesMayGoMeanwhile)
{
    OpenSample();
    AddMean();
    WaitForResults();
    CSeriesWindow& series = Show();
    QTest::mouseClick(&series.GetCompute(), Qt::LeftButton);
    const double sa = ValuesOf(m_window->GetResults().GetPanel().GetResults(), u"Sa").at(0);
    m_window->GetPage()->GetProcessing().Undo();
    m_window->GetTabs().Close(0);
    series.close();
    EXPECT_TRUE(GetMessageLoop().RunUntil([&] { return !series.IsBusy(); }));
    EXPECT_DOUBLE_EQ(ValuesOf(GetSet(), u"Sa").at(0), sa);
    EXPECT_EQ(series.GetForm().GetList().count(), 0);
    Show();
    EXPECT_TRUE(GetSet().rowNames.size() == 1);
    Compute();
    EXPECT_EQ(series.GetState(), QText(ESeriesText::NothingChosen));
}

TEST_F(Series, EverythingIsReachedAndNamed)
{
    OpenSample();
    Show();
    Compute();
    for (QWidget* const widget : m_window->GetSeries()->findChildren<QWidget*>())
        if (widget->isVisible() && widget->focusPolicy() & Qt::TabFocus) {
            EXPECT_FALSE(Reader(*widget).text(QAccessible::Name).isEmpty())
                << widget->metaObject()->className();
        }
}

} // namespace Workbench
