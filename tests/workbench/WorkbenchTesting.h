#pragma once

#include "common/PathText.h"
#include "dialogs/placement/PlacementManager.h"
#include "dialogs/results/ResultLayout.h"
#include "model/AnalysisPreferencesManager.h"
#include "platform/memory/FixedFolders.h"
#include "platform/memory/MemoryFileDialogService.h"
#include "platform/memory/MemoryFileManager.h"
#include "platform/memory/MemoryHelpService.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "platform/MessageLoop.h"
#include "qt/controls/InterfaceStyle.h"
#include "settings/factory/SettingsFactory.h"
#include "settings/preferences/PreferencesManager.h"
#include "TestFolders.h"
#include "tests/qt/WidgetTesting.h"
#include "tests/TemporaryFolder.h"
#include "workbench/WorkbenchWindow.h"

#include <memory>

namespace Workbench
{

using namespace CommonUI;

/// Drags with a mouse button, in one step.
inline void Drag(QWidget& widget, QPoint from, QPoint by, Qt::MouseButton button = Qt::LeftButton,
                 Qt::KeyboardModifiers keys = {})
{
    QTest::mousePress(&widget, button, keys, from);
    QMouseEvent move(QEvent::MouseMove, from + by, widget.mapToGlobal(from + by), Qt::NoButton, button, keys);
    QApplication::sendEvent(&widget, &move);
    QTest::mouseRelease(&widget, button, keys, from + by);
}

inline void Hover(QWidget& widget, QPoint at)
{
    QMouseEvent move(QEvent::MouseMove, at, widget.mapToGlobal(at), Qt::NoButton, Qt::NoButton, {});
    QApplication::sendEvent(&widget, &move);
}

/// A workbench whose settings lie in a folder of the test's own.
class CWorkbenchTest : public testing::Test
{
protected:
    CWorkbenchTest() { Start(); }
    ~CWorkbenchTest() override
    {
        m_window.reset();
        CloseSettingsFactory();
    }

    /// Ends the workbench, if there is one, and starts it anew, as another process would.
    void Start()
    {
        if (m_window)
            m_window->close();
        m_window.reset();
        CInifile none;
        GetAnalysisPreferencesManager().Load(none);
        GetPlacementManager().Clear();
        GetResultLayoutManager().Load(none);
        GetPreferencesManager().GetData().Init();
        CloseSettingsFactory();
        m_dialogs.GetMemory().Clear();
        m_window = std::make_unique<CWorkbenchWindow>(m_colors);
        Activate(*m_window);
    }
    std::string Write(const char* name, const std::string& content)
    {
        m_folder.Write(name, content);
        return (m_folder.GetPath() / name).string();
    }
    void Open(const std::string& path) { m_window->OpenFiles({CStr::FromUtf8(path)}); }
    CSurfacePage& OpenSample()
    {
        Open(c_sample);
        return *m_window->GetPage();
    }
    // Results of the last steps: while those are applied, the results are still of the surface before.
    void WaitForResults()
    {
        EXPECT_TRUE(GetMessageLoop().RunUntil(
            [this] { return !m_window->GetPage() || !m_window->GetPage()->GetProcessing().IsBusy(); }));
        QTest::qWait(0);
        EXPECT_TRUE(GetMessageLoop().RunUntil([this] { return !m_window->GetResults().IsBusy(); }));
    }
    template<class TText>
    QAction* FindAction(TText text)
    {
        for (QAction* const action : m_window->findChildren<QAction*>())
            if (action->text() == QText(text))
                return action;
        ADD_FAILURE() << qPrintable(QText(text));
        return nullptr;
    }
    template<class TText>
    static QPushButton* FindButton(QWidget& in, TText text)
    {
        for (QPushButton* const button : in.findChildren<QPushButton*>())
            if (button->text() == QText(text) && !button->menu())
                return button;
        ADD_FAILURE() << qPrintable(QText(text));
        return nullptr;
    }
    std::string GetStatus() { return m_window->statusBar()->findChild<QLabel*>()->text().toStdString(); }
    std::vector<std::string> TakeBoxes()
    {
        std::vector<std::string> texts;
        for (; m_boxesTaken < m_boxes.GetShown().size(); ++m_boxesTaken)
            texts.push_back(m_boxes.GetShown()[m_boxesTaken].text.ToUtf8());
        return texts;
    }
    std::vector<std::string> GetTabTitles()
    {
        std::vector<std::string> titles;
        for (const STab& tab : m_window->GetTabs().GetTabs())
            titles.push_back(tab.title.ToUtf8());
        return titles;
    }

    inline static const std::string c_sample = COMMONUI_EXAMPLE_DATA "/ground_steel.sdf";
    /// A surface of 3 x 2 points, 1 µm apart, with the last one missing.
    inline static const std::string c_small =
        "aISO-1.0\nNumPoints = 3\nNumProfiles = 2\nXscale = 1e-6\nYscale = 1e-6\nZscale = 1e-9\n"
        "*\n0 100 200\n300 400 BAD\n*\n";

    CTemporaryFolder m_folder;
    CFixedFolders m_folders{m_folder.GetPath(), m_folder.GetPath() / "settings"};
    CMemoryMessageBoxService m_boxes;
    CMemoryFileDialogService m_dialogs;
    CMemoryHelpService m_help;
    CMemoryFileManager m_manager{m_folder.GetPath()};
    CServiceScope<CFolders> m_foldersScope{m_folders};
    CServiceScope<CMessageBoxService> m_boxesScope{m_boxes};
    CServiceScope<CFileDialogService> m_dialogsScope{m_dialogs};
    CServiceScope<CHelpService> m_helpScope{m_help};
    CServiceScope<CFileManager> m_managerScope{m_manager};
    CInterfaceColors m_colors;
    CInterfaceStyle m_style{m_colors};
    std::unique_ptr<CWorkbenchWindow> m_window;
    std::size_t m_boxesTaken = 0;
};

} // namespace Workbench
