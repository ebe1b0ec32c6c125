#include "tests/workbench/WorkbenchTesting.h"

#include "common/Version.h"
#include "platform/memory/MemoryClipboard.h"
#include "settings/SetReference.h"
#include "tests/DiagnosticsCapture.h"
#include "workbench/DiagnosticsDialog.h"
#include "workbench/see/SeeTexts.h"

namespace Workbench
{

using WorkbenchWindow = CWorkbenchTest;

TEST_F(WorkbenchWindow, EverythingChosenIsThereAtTheNextStart)
{
    OpenSample();
    m_dialogs.Prepare(CStr::FromUtf8(Write("deep/a.sdf", c_small)));
    FindAction(EText::Open)->trigger();
    m_window->resize(1000, 700);
    m_window->GetViewPane().hide();
    m_window->GetColorScales().GetMenu().Choose(
        {EBuiltInSetting::CSQuickLaunchGlow, ESettingType::ColorScale});
    FindAction(EText::Parallel)->setChecked(true);
    FindAction(EText::ShowMap)->setChecked(false);
    FindAction(EText::DarkColors)->trigger();

    Start();
    EXPECT_EQ(m_window->size(), QSize(1000, 700));
    EXPECT_FALSE(m_window->GetViewPane().isVisible());
    EXPECT_TRUE(m_window->GetResults().isVisible());
    EXPECT_EQ(m_window->GetStore().colorScale, MakeReference(EBuiltInSetting::CSQuickLaunchGlow));
    EXPECT_EQ(m_window->GetColorScales().GetMenu().GetText(), CStr(u"Glow"));
    EXPECT_EQ(m_colors.GetScheme(), EColorScheme::Dark);
    EXPECT_EQ(m_window->GetStore().files.GetAll().size(), 2u);
    EXPECT_EQ(ToPath(m_dialogs.GetMemory().Find(u"Surfaces")->folder), m_folder.GetPath() / "deep/");
    CSurfacePage& page = OpenSample();
    EXPECT_TRUE(page.GetBlock()->GetLook().isParallel);
    EXPECT_FALSE(page.GetMap().isVisible());
    EXPECT_EQ(TakeBoxes().size(), 0u);
}

TEST_F(WorkbenchWindow, ColorsOfLaterVersionsStay)
{
    const char* const file = "settings/CommonUIWorkbench/preferences.ini";
    m_window->close();
    m_window.reset();
    m_folder.Write(file, "[Workbench]\nColors=Sepia\n");
    Start();
    m_window->close();
    EXPECT_NE(m_folder.Read(file).find("\nColors=Sepia\n"), std::string::npos);
}

TEST_F(WorkbenchWindow, WhatCannotBeKeptIsSaid)
{
    // A folder in the place of the file.
    Start();
    const auto file = m_folder.GetPath() / "settings/CommonUIWorkbench/preferences.ini";
    std::filesystem::remove(file);
    std::filesystem::create_directories(file / "x");
    m_window->close();
    const auto said = TakeBoxes();
    ASSERT_EQ(said.size(), 1u);
    EXPECT_NE(said[0].find("preferences.ini"), std::string::npos) << said[0];
}

TEST_F(WorkbenchWindow, DamagedPreferencesHealAndAreToldOf)
{
    m_window->GetResults().GetPanel().SetDecimal(u',');
    Start(); // loads what was saved, which is kept then
    EXPECT_EQ(m_window->GetResults().GetPanel().GetLayout().decimal, u',');
    EXPECT_EQ(TakeBoxes().size(), 0u);
    m_window->close();
    m_window.reset();
    m_folder.Write("settings/CommonUIWorkbench/preferences.ini", std::string("\0\1\2", 3));
    Start();
    QTest::qWait(0);
    EXPECT_EQ(m_window->GetResults().GetPanel().GetLayout().decimal, u',');
    const auto said = TakeBoxes();
    ASSERT_EQ(said.size(), 1u);
    EXPECT_NE(said[0].find(".damaged-"), std::string::npos) << said[0];
}

TEST_F(WorkbenchWindow, EverythingHasANameAndAKey)
{
    OpenSample();
    m_window->GetPage()->GetProcessing().Take(
        {{.name = u"Mean", .work = SFilterSettings{.kind = EFilterKind::Mean}}}, u"steps");
    for (QWidget* const widget : m_window->findChildren<QWidget*>()) {
        const bool isReached = widget->isVisible() && widget->focusPolicy() & Qt::TabFocus;
        if (isReached && !qobject_cast<QTabBar*>(widget) && !qobject_cast<QScrollArea*>(widget)) {
            EXPECT_FALSE(Reader(*widget).text(QAccessible::Name).isEmpty())
                << widget->metaObject()->className() << " in " << widget->parent()->metaObject()->className();
        }
    }
    for (const QAction* const menu : m_window->menuBar()->actions()) {
        EXPECT_TRUE(menu->text().contains('&'));
        for (const QAction* const action : menu->menu()->actions()) {
            const auto* const pane = qobject_cast<QDockWidget*>(action->parent());
            const bool hasOwnName = pane && action == pane->toggleViewAction();
            EXPECT_TRUE(action->isSeparator() || hasOwnName || action->text().contains('&'))
                << qPrintable(action->text());
        }
    }
}

TEST_F(WorkbenchWindow, HelpAndVersionsAreThere)
{
    QTest::keySequence(m_window.get(), QKeySequence::HelpContents);
    EXPECT_EQ(m_help.GetOpened(), std::vector<unsigned>{CWorkbenchWindow::c_helpTopic});
    CBlockWidget& block = *OpenSample().GetBlock();
    block.grabFramebuffer(); // is a frame at once
    const QString text = m_window->GetAboutText();
    for (const QString& part :
         {ToQString(GetVersion()), QString::fromLatin1(qVersion()), QStringLiteral("Mesa")})
        EXPECT_TRUE(text.contains(part)) << qPrintable(text);
    WhenShown<QMessageBox>([&](QMessageBox& box) {
        EXPECT_EQ(box.informativeText(), text);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    FindAction(EText::About)->trigger();
}

TEST_F(WorkbenchWindow, DiagnosticsAreCopiedWhole)
{
    CMemoryClipboard clipboard;
    const CServiceScope<CClipboard> scope(clipboard);
    m_window.reset();
    const CDiagnosticsCapture lines; // takes what the journal passes on
    Start();
    GetDiagnostics().Write(u"Test", EDiagnosticLevel::Warning, u"the <third> drive is gone");
    EXPECT_EQ(lines.GetCount(), 1);
    const auto copy = [&] {
        WhenShown<CDiagnosticsDialog>([&](CDiagnosticsDialog& dialog) {
            FindButton(dialog, ESeeText::CopyAll)->click();
            QTest::keyClick(&dialog, Qt::Key_Escape);
        });
        FindAction(ESeeText::Diagnostics)->trigger();
        return clipboard.GetText().ToUtf8();
    };
    const std::string without = copy();
    EXPECT_EQ(without.find("model-view"), std::string::npos);
    OpenSample().GetBlock()->grabFramebuffer(); // is a frame at once
    const std::string text = copy();
    for (const std::string& part :
         {std::string("Mesa"), std::string("stack"), std::string("warning Test: the <third> drive is gone"),
          m_folders.GetSettingsFolder().string()})
        EXPECT_NE(text.find(part), std::string::npos) << part << " in\n" << text;
    EXPECT_NE(clipboard.GetHtml().ToUtf8().find("&lt;third&gt;"), std::string::npos);
    m_window->close();
    m_window.reset(); // before what it passes messages on to
}

} // namespace Workbench
