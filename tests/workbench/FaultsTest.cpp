#include "tests/FullDisk.h"
#include "tests/workbench/WorkbenchTesting.h"

#include "common/ini/IniStore.h"

namespace Workbench
{

class Faults : public CWorkbenchTest
{
protected:
    static constexpr const char* c_preferences = "settings/CommonUIWorkbench/preferences.ini";

    void Wait()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return !m_window->GetPage()->GetProcessing().IsBusy(); }));
        QTest::qWait(0);
    }
    void AddLevelling()
    {
        EXPECT_TRUE(m_window->GetProcessing().GetCorrections().GetMenu().Choose(
            {EBuiltInSetting::PlaneCorrQuickLaunchImageLeveling, ESettingType::PlaneCorr}));
        QTest::qWait(0);
        Wait();
    }
    // The only box since the last call.
    std::string TakeBox()
    {
        const auto said = TakeBoxes();
        EXPECT_EQ(said.size(), 1u);
        return said.empty() ? "" : said[0];
    }
};

TEST_F(Faults, AFileThatIsDamagedWhileOpenStaysAsItWas)
{
    const std::string path = Write("a.sdf", c_small);
    Open(path);
    AddLevelling();
    const auto before = m_window->GetPage()->GetSurface().input;
    CNoticeBar& notice = m_window->GetNotice();
    for (const std::string& content : {c_small.substr(0, 60), std::string()}) {
        Write("a.sdf", content);
        ASSERT_TRUE(QTest::qWaitFor([&] { return notice.isVisible(); }));
        QTest::mouseClick(&notice.GetCommand(), Qt::LeftButton);
        EXPECT_NE(TakeBox().find("a.sdf"), std::string::npos);
        EXPECT_EQ(m_window->GetPage()->GetSurface().input, before);
        notice.hide(); // so that the next change is waited for
    }
    std::filesystem::remove(path);
    QTest::qWait(500); // longer than a change takes to settle
    EXPECT_EQ(m_window->GetPage()->GetSurface().input, before);
    EXPECT_EQ(TakeBoxes().size(), 0u);
}

#if !defined(_WIN32) // which has no limit for the size of files
TEST_F(Faults, AFullDiskIsSaidAndLosesNothing)
{
    OpenSample();
    const std::string saved = Write("saved.sdf", c_small);
    const auto save = [&] {
        m_dialogs.Prepare(CStr::FromUtf8(saved));
        QTest::keySequence(m_window.get(), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S));
    };
    {
        const CFullDisk disk(100);
        save();
        EXPECT_NE(TakeBox().find("saved.sdf"), std::string::npos);
        AddLevelling(); // of which there can be no journal
        EXPECT_NE(m_window->statusBar()->currentMessage(), QString());
        EXPECT_EQ(m_window->GetPage()->GetProcessing().GetSteps().size(), 1u);
        m_window->close();
        EXPECT_NE(TakeBox().find("preferences.ini"), std::string::npos);
    }
    EXPECT_EQ(m_folder.Read("saved.sdf"), c_small);
    Start();
    OpenSample();
    save();
    EXPECT_EQ(TakeBoxes().size(), 0u);
    EXPECT_GT(m_folder.Read("saved.sdf").size(), c_small.size());
}
#endif

TEST_F(Faults, PreferencesOfANewerVersionStayAsTheyAre)
{
    m_window->close();
    m_window.reset();
    m_folder.Write(c_preferences,
                   "[Workbench]\nParallel=1\nDepth=7\n[Later]\nKey=x\n[FileFormat]\nVersion=99\n");
    Start();
    EXPECT_TRUE(m_window->GetStore().look.isParallel);
    FindAction(EText::ShowBlock)->trigger();
    Start();
    EXPECT_FALSE(m_window->GetStore().showsBlock);
    const std::string kept = m_folder.Read(c_preferences);
    for (const char* const line : {"\nDepth=7\n", "[Later]\nKey=x\n", "[FileFormat]\nVersion=99\n"})
        EXPECT_NE(kept.find(line), std::string::npos) << kept;
}

TEST_F(Faults, TwoWorkbenchesKeepWhatEachOfThemChanges)
{
    Start();
    const std::string first = Write("first.sdf", c_small);
    Open(first);
    CIniStore other((m_folder.GetPath() / c_preferences).u16string()); // another one's
    ASSERT_TRUE(other.Load());
    FindAction(EText::Parallel)->trigger();
    other.GetInifile().SelectSection(u"Workbench");
    other.GetInifile().WriteBool(u"ShowMap", false);
    ASSERT_TRUE(other.Save());
    Start();
    EXPECT_TRUE(m_window->GetStore().look.isParallel);
    EXPECT_FALSE(m_window->GetStore().showsMap);
    EXPECT_EQ(m_window->GetStore().files.GetAll().size(), 1u);
    EXPECT_EQ(TakeBoxes().size(), 0u);
}

} // namespace Workbench
