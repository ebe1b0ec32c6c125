#include "tests/workbench/WorkbenchTesting.h"

#include "measurement/process/StepSequence.h"
#include "workbench/StepForm.h"

#include <QListWidget>

namespace Workbench
{

using namespace CommonUI::Measurement;
using CNames = std::vector<std::string>;

class Processing : public CWorkbenchTest
{
protected:
    CProcessingPane& GetPane() { return m_window->GetProcessing(); }
    QListWidget& GetList() { return GetPane().GetList(); }
    CSurfaceProcessing& GetSteps() { return m_window->GetPage()->GetProcessing(); }
    const Analysis::SSurface& GetSurface() { return m_window->GetPage()->GetSurface().GetSurface(); }
    // With all bits, those of missing points as well.
    std::string GetHeights() { return ToBytes(GetSurface().heights); }
    static std::string ToBytes(const std::vector<double>& heights)
    {
        return {reinterpret_cast<const char*>(heights.data()), heights.size() * sizeof(double)};
    }
    void Wait()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !GetSteps().IsBusy(); }, 20'000));
        QTest::qWait(0);
    }
    // Chooses a built-in set in a menu, as a click does.
    void Choose(CSettingsButton& button, EBuiltInSetting set)
    {
        EXPECT_TRUE(button.GetMenu().Choose({set, button.GetMenu().GetType()}));
        QTest::qWait(0);
        Wait();
    }
    void AddLevelling()
    {
        Choose(GetPane().GetCorrections(), EBuiltInSetting::PlaneCorrQuickLaunchImageLeveling);
    }
    void AddMean() { Choose(GetPane().GetFilters(), EBuiltInSetting::Filter_Smoothing_Mean_3x3); }
    CNames GetRows()
    {
        CNames rows;
        for (int row = 0; row < GetList().count(); ++row) {
            const QListWidgetItem& item = *GetList().item(row);
            const std::string text = item.text().split('\n').front().toStdString();
            rows.push_back(item.checkState() == Qt::Checked ? text : "(" + text + ")");
        }
        return rows;
    }
    void Press(const char* keys)
    {
        GetList().setFocus();
        Type(keys);
        Wait();
    }
    std::string GetUndo() { return GetPane().GetUndo().text().toStdString(); }
};

TEST_F(Processing, StepsAreEditedByTheKeyboardAndEverythingFollows)
{
    EXPECT_FALSE(GetPane().widget()->isEnabled());
    OpenSample();
    WaitForResults();
    EXPECT_TRUE(GetPane().widget()->isEnabled());
    const auto original = m_window->GetPage()->GetSurface().input;
    EXPECT_FALSE(GetPane().GetUndo().isEnabled());
    AddLevelling();
    AddMean();
    EXPECT_EQ(GetRows(), (CNames{"Global Leveling", "Mean 3x3"}));
    EXPECT_EQ(GetUndo(), "&Undo Mean 3x3");
    const auto processed = m_window->GetPage()->GetSurface().input;
    EXPECT_FALSE(GetHeights() == ToBytes(original->surface.heights));
    // Map, results and provenance are those of the processed surface.
    EXPECT_EQ(m_window->GetPage()->GetMap().GetSurface().input, processed);
    WaitForResults();
    EXPECT_TRUE(m_window->GetResults().GetState().contains("2. Filter / Smoothing / Mean 3x3"))
        << qPrintable(m_window->GetResults().GetState());
    const CStr provenance = m_window->GetResults().GetPanel().GetResults().provenance;
    EXPECT_TRUE(provenance.Contains(u"Mean 3x3")) << provenance.ToUtf8();

    const std::pair<const char*, CNames> rows[] = {
        {"Ctrl+Up", {"Mean 3x3", "Global Leveling"}},
        {"Space", {"(Mean 3x3)", "Global Leveling"}},
        {"Ctrl+Z", {"Mean 3x3", "Global Leveling"}},
        {"Ctrl+Down", {"Global Leveling", "Mean 3x3"}},
        {"Up Del", {"Mean 3x3"}},
        {"Ctrl+Z", {"Global Leveling", "Mean 3x3"}},
        {"Ctrl+Shift+Z", {"Mean 3x3"}},
        {"Ctrl+Z Ctrl+Z Ctrl+Z Ctrl+Z", {"Global Leveling"}},
        {"Ctrl+Z", {}},
    };
    for (const auto& [keys, list] : rows) {
        Press(keys);
        EXPECT_EQ(GetRows(), list) << keys;
    }
    EXPECT_TRUE(GetHeights() == ToBytes(original->surface.heights));
    EXPECT_EQ(TakeBoxes(), CNames());
}

TEST_F(Processing, NumbersAreEditedWithAPreviewAndSetsReplaced)
{
    OpenSample();
    AddMean();
    const std::string mean3 = GetHeights();
    QWidget* const field = GetPane().GetForm().FindField(EStepNumber::Columns);
    ASSERT_TRUE(field);
    field->setFocus();
    int shown = 0;
    QObject::connect(m_window->GetPage(), &CSurfacePage::SurfaceChanged, m_window.get(), [&] { ++shown; });
    Type("Ctrl+Up Ctrl+Up Ctrl+Up Ctrl+Down");
    EXPECT_EQ(shown, 0);
    Wait();
    EXPECT_EQ(shown, 1); // previews are shown by the views alone
    EXPECT_EQ(std::get<SFilterSettings>(GetSteps().GetSteps()[0].work).columns, 7);
    EXPECT_FALSE(GetHeights() == mean3);
    EXPECT_EQ(GetUndo(), "&Undo Edit Mean 3x3");
    EXPECT_TRUE(GetList().item(0)->toolTip().contains("columns 7"));
    QTest::keySequence(&GetList(), QKeySequence(Qt::CTRL | Qt::Key_Z));
    Wait();
    EXPECT_TRUE(GetHeights() == mean3);

    Choose(*GetPane().GetForm().GetSets(), EBuiltInSetting::Filter_Smoothing_Mean_5x5);
    EXPECT_EQ(GetRows(), (CNames{"Mean 5x5"}));
    EXPECT_EQ(GetUndo(), "&Undo Replace by Mean 5x5");
}

TEST_F(Processing, AStepThatDoesNotFitSaysSoAtItsRow)
{
    Open(Write("small.sdf", c_small));
    Choose(GetPane().GetFilters(), EBuiltInSetting::Filter_ISO_11562_lc_Filter_ISO_11562_lc_800_um);
    AddLevelling();
    ASSERT_EQ(GetList().count(), 2);
    EXPECT_TRUE(GetList().item(0)->text().contains("\nLeft out: ")) << qPrintable(GetList().item(0)->text());
    EXPECT_FALSE(GetList().item(1)->text().contains('\n'));
    EXPECT_FALSE(m_window->GetPage()->GetSurface().input->steps.empty());
}

TEST_F(Processing, IsSavedAsASequenceAndTakenIn)
{
    OpenSample();
    AddLevelling();
    AddMean();
    GetSteps().Edit(GetSteps().GetSteps()[1].id, EStepNumber::Rows, 9);
    Wait();
    const std::string processed = GetHeights();
    const std::string path = (m_folder.GetPath() / "mine.batch").string();
    m_dialogs.Prepare(CStr::FromUtf8(path));
    FindAction(EText::SaveSequence)->trigger();
    EXPECT_NE(m_folder.Read("mine.batch"), "");

    Start();
    OpenSample();
    m_dialogs.Prepare(CStr::FromUtf8(path));
    EXPECT_TRUE(GetPane().GetSequences().GetMenu().Choose({CStr::FromUtf8(path), ESettingType::Batch}) ||
                GetPane().GetSequences().GetMenu().Load());
    QTest::qWait(0);
    Wait();
    EXPECT_EQ(GetList().count(), 2);
    EXPECT_EQ(GetUndo(), "&Undo mine.batch");
    EXPECT_TRUE(GetHeights() == processed);
    EXPECT_EQ(TakeBoxes(), CNames());
}

TEST_F(Processing, TheProcessedSurfaceIsSavedAndNeverOverItsFile)
{
    const std::string path = Write("a.sdf", c_small);
    Open(path);
    AddLevelling();
    const std::vector<double> processed = GetSurface().heights;
    const auto save = [&](const std::string& to) {
        m_dialogs.Prepare(CStr::FromUtf8(to));
        QTest::keySequence(m_window.get(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    };
    for (const char* const name : {"b.sdf", "b.txt", "b.x3p"}) {
        save((m_folder.GetPath() / name).string());
        const Analysis::SSurface read = Formats::ReadSurface(m_folder.GetPath() / name);
        ASSERT_EQ(read.heights.size(), processed.size()) << name;
        EXPECT_EQ(read.heights[1], processed[1]) << name;
    }
    EXPECT_EQ(TakeBoxes(), CNames());
    save(path);
    EXPECT_EQ(TakeBoxes(),
              (CNames{"a.sdf cannot be saved: it is open here, and would lose what was measured; "
                      "choose another name."}));
    GetSteps().Switch(GetSteps().GetSteps()[0].id, false);
    ASSERT_TRUE(GetSteps().IsBusy());
    save((m_folder.GetPath() / "early.sdf").string());
    EXPECT_EQ(TakeBoxes(), (CNames{"early.sdf cannot be saved: its steps are still being done."}));
    EXPECT_FALSE(std::filesystem::exists(m_folder.GetPath() / "early.sdf"));
    Wait();
    EXPECT_EQ(m_folder.Read("a.sdf"), c_small);
    save((m_folder.GetPath() / "none" / "c.sdf").string());
    save((m_folder.GetPath() / "c.png").string());
    const CNames said = TakeBoxes();
    ASSERT_EQ(said.size(), 2u);
    EXPECT_NE(said[0].find("c.sdf"), std::string::npos) << said[0];
    EXPECT_NE(said[1].find("c.png"), std::string::npos) << said[1];
}

TEST_F(Processing, AFileThatChangesIsOfferedAndKeepsItsSteps)
{
    const std::string path = Write("a.sdf", c_small);
    Open(path);
    AddLevelling();
    const std::string before = GetHeights();
    EXPECT_TRUE(m_window->GetNotice().GetText().isEmpty());
    std::string other = c_small;
    other.replace(other.find("0 100 200"), 9, "0 700 200");
    std::filesystem::remove(path); // as a program does that puts a new file in its place
    Write("a.sdf", other + "\n");
    EXPECT_TRUE(QTest::qWaitFor([&] { return m_window->GetNotice().isVisible(); }));
    EXPECT_EQ(m_window->GetNotice().GetText().toStdString(), "a.sdf has changed since it was opened.");
    QTest::mouseClick(&m_window->GetNotice().GetCommand(), Qt::LeftButton);
    Wait();
    EXPECT_FALSE(m_window->GetNotice().isVisible());
    EXPECT_EQ(GetRows(), (CNames{"Global Leveling"}));
    EXPECT_FALSE(GetHeights() == before);
}

TEST_F(Processing, WhatWasAppliedOutlivesACrash)
{
    const std::string path = Write("a.sdf", c_small);
    OpenSample();
    Open(path);
    AddLevelling();
    m_window->close();
    m_window.reset();
    Start();
    m_window->OfferSessions();
    EXPECT_EQ(TakeBoxes(), CNames()); // it was closed properly

    Open(path);
    AddLevelling();
    const std::string processed = GetHeights();
    m_window.reset(); // without a close
    Start();
    m_window->OfferSessions(); // closed without an answer
    m_boxes.Prepare(EMessageBoxAnswer::Ok);
    m_window->OfferSessions();
    EXPECT_EQ(TakeBoxes().size(), 2u);
    Wait();
    EXPECT_EQ(GetTabTitles(), (CNames{"a.sdf"}));
    EXPECT_TRUE(GetHeights() == processed);

    // What cannot be opened now is offered again; the one that is open has a journal of its own.
    m_window.reset();
    std::filesystem::rename(path, path + ".away");
    m_boxes.Prepare(EMessageBoxAnswer::Ok);
    Start();
    m_window->OfferSessions();
    EXPECT_EQ(TakeBoxes().size(), 2u);
    EXPECT_EQ(GetTabTitles(), CNames());
    std::filesystem::rename(path + ".away", path);
    m_boxes.Prepare(EMessageBoxAnswer::Ok);
    m_window->OfferSessions();
    Wait();
    EXPECT_EQ(GetRows(), (CNames{"Global Leveling"}));
    EXPECT_EQ(TakeBoxes().size(), 1u);

    m_window.reset();
    Start();
    m_boxes.SetChecking(true);
    m_window->OfferSessions();
    m_boxes.SetChecking(false);
    m_window->OfferSessions();
    EXPECT_EQ(TakeBoxes().size(), 1u) << "forgotten";
}

TEST_F(Processing, TheBlockComesBackWithASurfaceThatHasOne)
{
    const std::string path = Write("a.sdf", c_small);
    Open(path);
    ASSERT_TRUE(m_window->GetPage()->GetBlock());
    const auto replace = [&](const std::string& content) {
        std::filesystem::remove(path);
        Write("a.sdf", content);
        EXPECT_TRUE(QTest::qWaitFor([&] { return m_window->GetNotice().isVisible(); }));
        QTest::mouseClick(&m_window->GetNotice().GetCommand(), Qt::LeftButton);
        Wait();
    };
    std::string missing = c_small;
    missing.replace(missing.find("*\n") + 2, std::string::npos, "BAD BAD BAD\nBAD BAD BAD\n*\n");
    replace(missing);
    EXPECT_FALSE(m_window->GetPage()->GetBlock());
    replace(std::string(c_small) + "\n");
    EXPECT_TRUE(m_window->GetPage()->GetBlock());
}

} // namespace Workbench
