#include "controls/color/InterfaceColors.h"
#include "examples/gallery/GalleryWindow.h"
#include "examples/gallery/Pages.h"
#include "examples/gallery/Palettes.h"
#include "examples/gallery/Preferences.h"
#include "qt/grid/ResultGridWidget.h"
#include "qt/results/ResultPanelWidget.h"
#include "qt/selection/SelectionWindow.h"
#include "tests/qt/WidgetTesting.h"
#include "tests/TemporaryFolder.h"

using namespace CommonUI;

namespace
{

// The gallery from its start to its end, at the page of the result dialog.
class CRun
{
public:
    explicit CRun(const std::filesystem::path& file)
        : m_preferences(file)
    {
        int index = 0;
        for (const Gallery::SPage& page : Gallery::GetPages()) {
            if (page.key == std::string("result-dialog"))
                break;
            ++index;
        }
        m_window.SelectPage(index);
        Activate(m_window);
        m_panel = m_window.GetPage(index).findChild<CResultPanelWidget*>();
        Table().setFocus();
    }

    CResultGridWidget& Table() { return *m_panel->GetTable(EResultTable::Results); }
    // The names of the rows, which are parameters, with their units.
    std::string Rows()
    {
        std::string rows;
        for (std::size_t row = 0; row < Table().GetPane().GetRowCount(); ++row)
            rows += Table().GetPane().GetCell({row, 0}).text.ToUtf8() + " in " +
                    Table().GetPane().GetCell({row, 1}).text.ToUtf8() + "\n";
        return rows;
    }
    bool IsTransposed() { return m_panel->GetControl()->GetTables().IsTransposed(); }

private:
    CInterfaceColors m_colors;
    const bool m_isColored = (Gallery::UseColors(m_colors), true);
    Gallery::CPreferences m_preferences;
    Gallery::CGalleryWindow m_window;
    CResultPanelWidget* m_panel = nullptr;
};

} // namespace

TEST(Gallery, TellsWhatItHasFound)
{
    const CTemporaryFolder folder;
    const std::filesystem::path file = folder.GetPath() / "gallery.ini";
    for (const bool isDamaged : {false, false, true, false}) {
        if (isDamaged)
            std::filesystem::resize_file(file, std::filesystem::file_size(file) / 2);
        QStringList told;
        const Gallery::CPreferences preferences(file);
        preferences.Tell([&told](const QString& line) { told += line; });
        EXPECT_EQ(told.size(), isDamaged ? 2 : 1) << told.join(u'\n').toStdString();
        EXPECT_TRUE(told.front().contains(QStringLiteral("gallery.ini"))) << told.front().toStdString();
        EXPECT_EQ(told.back().contains(QStringLiteral("is damaged")), isDamaged);
    }
}

TEST(Gallery, WhatIsChosenIsFoundAfterAStart)
{
    const CTemporaryFolder folder;
    const std::filesystem::path file = folder.GetPath() / "new" / "gallery.ini";
    std::string chosen;
    {
        CRun run(file);
        const std::string before = run.Rows();
        EXPECT_EQ(before.find("Sv,"), before.npos) << before;
        WhenShown<CSelectionWindow>([](CSelectionWindow& window) {
            QTest::keyClicks(&window.GetSearchField(), QStringLiteral("Sv"));
            QTest::keyClick(&window.GetSearchField(), Qt::Key_Down);
            QTreeView& tree = *window.GetTree(0);
            constexpr int c_most = 20;
            for (int i = 0; i < c_most && !tree.currentIndex().data().toString().startsWith(u"Sv,"); ++i)
                QTest::keyClick(&tree, Qt::Key_Down);
            QTest::keyClick(&tree, Qt::Key_Space);
            auto* const buttons = window.findChild<QDialogButtonBox*>();
            QTest::mouseClick(buttons->button(QDialogButtonBox::Ok), Qt::LeftButton);
        });
        Type("Alt+H");
        EXPECT_TRUE(QTest::qWaitFor([&] { return run.Rows() != before; })) << "the table follows";
        chosen = run.Rows();
        EXPECT_NE(chosen.find("Sv,"), chosen.npos) << chosen;
        run.Table().GetPane().SelectCell({0, 1});
        Type("Shift+F10");
        ASSERT_TRUE(QApplication::activePopupWidget());
        QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_H);
        EXPECT_EQ(run.Rows().find(chosen.substr(0, chosen.find('\n'))), std::string::npos);
        chosen = run.Rows();
    }
    EXPECT_NE(folder.Read("new/gallery.ini").find("[ResultDialog]"), std::string::npos);
    {
        CRun run(file);
        EXPECT_EQ(run.Rows(), chosen);
        Type("Alt+O");
        EXPECT_TRUE(QTest::qWaitFor([&] { return !run.IsTransposed(); }));
    }
    EXPECT_FALSE(CRun(file).IsTransposed());
    EXPECT_TRUE(CRun(folder.GetPath() / "other.ini").IsTransposed());
}
