#include "qt/framework/SelectionListWindow.h"

#include "dialogs/placement/PlacementManager.h"
#include "tests/qt/WidgetTesting.h"

#include <memory>

using namespace CommonUI;

namespace
{

using CDlg = CSelectionListDlg;

std::vector<CStr> MakeEntries(int count)
{
    std::vector<CStr> entries;
    for (int i = 0; i < count; ++i)
        entries.push_back(CStr::Format(u"Parameter %d", i));
    return entries;
}

} // namespace

TEST(SelectionListWindow, IsUsedByKeyboard)
{
    CQtSelectionListDlg dialog(nullptr, CDlg::EMode::Single, u"Choose", u"&Parameters:", MakeEntries(200));
    dialog.SetChosen({150});
    dialog.Create();
    CSelectionListWindow& window = *dialog.GetWindow();
    Activate(window);
    QListView& list = window.GetList();
    EXPECT_TRUE(window.GetFilterField().hasFocus());
    const auto isInView = [&] {
        return list.viewport()->rect().contains(list.visualRect(list.currentIndex()));
    };
    EXPECT_TRUE(isInView()) << "row 150";
    window.resize(window.minimumSizeHint());
    EXPECT_TRUE(QTest::qWaitFor(isInView)) << "in a small window, too";
    EXPECT_EQ(Speak(Reader(list)), "Parameters:");
    Type("1 9");
    EXPECT_EQ(list.model()->rowCount(), 12);
    Type("Down Down Up Return");
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_EQ(dialog.GetChosen(), std::vector<std::size_t>{119});
}

TEST(SelectionListWindow, ChecksRowsOfALongListAtOnce)
{
    auto parent = std::make_unique<QWidget>();
    CQtSelectionListDlg dialog(parent.get(), CDlg::EMode::Several, u"Choose", u"&Parameters:",
                               MakeEntries(100000));
    dialog.Create();
    CSelectionListWindow& window = *dialog.GetWindow();
    Activate(window);
    window.GetFilterField().setText(QStringLiteral("9999"));
    Type("Alt+A");
    EXPECT_TRUE(QTest::qWaitFor([&] { return dialog.GetChosen().size() == 19; })); // presses for a while
    Type("Alt+P Down Space");
    EXPECT_EQ(dialog.GetChosen().size(), 18U);
    window.GetFilterField().clear();
    EXPECT_EQ(window.GetList().model()->rowCount(), 100000);
    parent.reset();
    EXPECT_FALSE(dialog.IsOpen());
    EXPECT_TRUE(dialog.GetChosen().empty()) << "cancelled with its parent";
}
