#include "tests/workbench/WorkbenchTesting.h"

#include "measurement/documents/OdtDocument.h"
#include "workbench/report/ReportDialog.h"
#include "workbench/report/ReportTexts.h"

#include <QListWidget>

namespace Workbench
{

class Report : public CWorkbenchTest
{
protected:
    template<class FUse>
    void Show(const FUse& use)
    {
        WhenShown<CReportDialog>([&](CReportDialog& dialog) {
            use(dialog);
            if (dialog.isVisible())
                QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        FindAction(EReportText::Command)->trigger();
    }
    static void Choose(CReportDialog& dialog, EBuiltInSetting setting)
    {
        dialog.GetTemplates().GetMenu().Choose({setting, ESettingType::ActiveReport});
    }
    CStr PathOf(const char* name) { return CStr::FromUtf8((m_folder.GetPath() / name).string()); }
    static void CheckBlock(CReportDialog& dialog, EReportBlock block)
    {
        QListWidget& list = dialog.GetBlocks();
        list.setFocus();
        for (int i = 0; i < list.count(); ++i)
            if (list.item(i)->data(Qt::UserRole).toInt() == static_cast<int>(block)) {
                list.setCurrentRow(i);
                QTest::keyClick(&list, Qt::Key_Space);
            }
    }
};

TEST_F(Report, IsMadeWholeByItsTemplateAndOpened)
{
    OpenSample();
    const CStr path = PathOf("report.html");
    m_dialogs.Prepare(path);
    Show([&](CReportDialog& dialog) {
        Choose(dialog, EBuiltInSetting::bisActiveReportQuickLaunchRoughnessImageSingleHTML);
        dialog.GetTitle().setFocus();
        QTest::keyClicks(&dialog.GetTitle(), "Ground <steel>");
        CheckBlock(dialog, EReportBlock::Comment);
        dialog.GetOpens().setChecked(false);
        QTest::mouseClick(&dialog.GetSave(), Qt::LeftButton);
        EXPECT_FALSE(dialog.isVisible());
    });
    const std::string html = m_folder.Read(m_folder.GetPath() / "report.html");
    for (const char* const part : {"Ground &lt;steel&gt;", "<svg", "Sa", "</html>"})
        EXPECT_NE(html.find(part), std::string::npos) << part;
    EXPECT_GT(html.size(), 50'000u); // with map and block

    // Grains are found by the set of their form; a document of word processors is a package.
    const char* const grains = Measurement::HasOdt() ? "grains.odt" : "grains.html";
    m_dialogs.Prepare(PathOf(grains));
    Show([&](CReportDialog& dialog) {
        EXPECT_FALSE(dialog.GetOpens().isChecked());
        Choose(dialog, EBuiltInSetting::bisActiveReportQuickLaunchParticleDoc);
        QTest::mouseClick(&dialog.GetSave(), Qt::LeftButton);
    });
    EXPECT_GT(m_folder.Read(m_folder.GetPath() / grains).size(), 10'000u);
    EXPECT_EQ(TakeBoxes().size(), 0u);

    EXPECT_TRUE(m_manager.GetOpened().empty());
    m_dialogs.Prepare(path);
    Show([&](CReportDialog& dialog) {
        dialog.GetOpens().setChecked(true);
        QTest::mouseClick(&dialog.GetSave(), Qt::LeftButton);
    });
    EXPECT_EQ(m_manager.GetOpened(), std::vector{path});
}

TEST_F(Report, OldFileStaysWhereNothingIsMade)
{
    const std::string open = Write("same.html", c_small);
    Open(open);
    for (const bool isTemplate : {false, true}) {
        m_dialogs.Prepare(CStr::FromUtf8(open));
        Show([&](CReportDialog& dialog) {
            QTest::mouseClick(isTemplate ? &dialog.GetSaveTemplate() : &dialog.GetSave(), Qt::LeftButton);
        });
        EXPECT_EQ(m_folder.Read(open), c_small);
        EXPECT_EQ(TakeBoxes().size(), 1u);
    }

    std::string missing = c_small;
    missing.replace(missing.find("0 100 200"), missing.find("BAD") - missing.find("0 100 200"),
                    "BAD BAD BAD BAD BAD ");
    Open(Write("missing.sdf", missing));
    m_dialogs.Prepare(CStr::FromUtf8(Write("old.html", "old")));
    Show([&](CReportDialog& dialog) { QTest::mouseClick(&dialog.GetSave(), Qt::LeftButton); });
    EXPECT_EQ(m_folder.Read(m_folder.GetPath() / "old.html"), "old");
    const auto said = TakeBoxes();
    ASSERT_EQ(said.size(), 1u);
    EXPECT_NE(said[0].find("old.html"), std::string::npos) << said[0];
}

TEST_F(Report, WhatIsChosenBecomesATemplateThatStays)
{
    OpenSample();
    SReportTemplateSettings saved;
    m_dialogs.Prepare(PathOf("own.ini"));
    Show([&](CReportDialog& dialog) {
        CheckBlock(dialog, EReportBlock::View3D);
        QTest::keyClicks(&dialog.GetTitle(), "Mine");
        saved = dialog.GetLayout();
        QTest::mouseClick(&dialog.GetSaveTemplate(), Qt::LeftButton);
        EXPECT_EQ(dialog.GetTemplates().GetMenu().GetText(), CStr(u"own.ini"));
        for (int i = 0; i < dialog.GetBlocks().count(); ++i)
            dialog.GetBlocks().item(i)->setCheckState(Qt::Unchecked);
        EXPECT_FALSE(dialog.GetSave().isEnabled());
    });
    Start();
    OpenSample();
    Show([&](CReportDialog& dialog) {
        EXPECT_EQ(dialog.GetLayout(), saved);
        EXPECT_EQ(dialog.GetLayout().blocks.back(), EReportBlock::View3D);
    });
    std::filesystem::remove(m_folder.GetPath() / "own.ini");
    Show([&](CReportDialog& dialog) { EXPECT_GT(dialog.GetLayout().blocks.size(), 1u); });
}

} // namespace Workbench
