#include "qt/detail/WindowWatch.h"

#include "output/grid/GridCtrl.h"
#include "qt/edits/NumericEditWidget.h"
#include "qt/grid/GridWidget.h"
#include "tests/qt/WidgetTesting.h"

#include <memory>

using namespace CommonUI;

namespace
{

// What the callbacks belong to is gone when Qt takes the focus away.
template<class TWidget>
struct SWindow : QDialog {
    void OnCutoff(float) { ++*calls; }
    void OnItem(CGridItem&, int) { ++*calls; }

    TWidget* widget = new TWidget(this);
    int* calls = nullptr;
};

template<class TWidget, class FListen>
void ExpectNoCalls(const FListen& listen)
{
    int calls = 0;
    auto window = std::make_unique<SWindow<TWidget>>();
    window->calls = &calls;
    listen(*window);
    Activate(*window);
    window->widget->setFocus();
    Type("7");
    window.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(calls, 0);
}

} // namespace

TEST(WindowWatch, AWindowThatIsDestroyedWhileTheUserTypesIsNotCalled)
{
    ExpectNoCalls<CFloatEditWidget>([](auto& window) {
        window.widget->GetEdit().SetChangeNotification(window, &SWindow<CFloatEditWidget>::OnCutoff);
    });
    ExpectNoCalls<CGridCtrlWidget>([](auto& window) {
        CGridCtrl& grid = window.widget->GetGrid();
        grid.SetChangeCallback(window, &SWindow<CGridCtrlWidget>::OnItem);
        grid.AddColumn({u"Value", 100});
        grid.AddRow().template Emplace<CGridItem>(u"old");
    });
}
