#include "qt/results/ResultPanelWidget.h"

#include "dialogs/results/ResultLayout.h"
#include "qt/dialogs/FormatSpecifierWindow.h"
#include "qt/edits/NumericEditWidget.h"
#include "qt/grid/ResultGridWidget.h"
#include "qt/QtText.h"
#include "qt/results/ResultPrinter.h"
#include "qt/results/ResultWindow.h"
#include "tests/qt/WidgetTesting.h"
#include "tests/TemporaryFolder.h"

#include <QAccessible>
#include <QPaintEngine>
#include <QPrintDialog>
#include <QPrinter>

#include <chrono>

using namespace CommonUI;

namespace
{

using EUnitFactor = CUnit::EUnitFactor;

// Quantities of so many rows; that of the first one is missing.
std::shared_ptr<const SResultSet> MakeResults(std::size_t rows, int quantities = 3)
{
    auto set = std::make_shared<SResultSet>();
    set->name = u"Test";
    set->title = u"Title";
    set->provenance = u"Provenance";
    set->summary = {{u"File", u"steel"}};
    set->rowHeader = u"Profile";
    for (std::size_t row = 0; row < rows; ++row)
        set->rowNames.push_back(CStr::Format(u"row %zu", row + 1));
    for (int i = 0; i < quantities; ++i) {
        const CStr name = CStr::Format(u"R%d", i);
        CParameter parameter(i, name, name, name, 0, true, CParameter::EDimension::Length);
        SResultQuantity quantity{.key = name, .parameter = parameter, .header = name};
        for (std::size_t row = 0; row < rows; ++row)
            quantity.values.push_back(1.234567e-6 * static_cast<double>(row + 1));
        quantity.states = {{0, {EValueState::Failed, u"it is too flat"}}};
        quantity.values[0] = std::numeric_limits<double>::quiet_NaN();
        quantity.statistics = {quantity.values.back()};
        set->quantities.push_back(quantity);
    }
    set->statistics = {{u"Mean", u"Mean"}};
    return set;
}

// A dialog on the screen, whose results have the focus.
struct SShownDialog {
    explicit SShownDialog(std::size_t rows = 6)
        : SShownDialog(rows, own)
    {
    }
    SShownDialog(std::size_t rows, CResultLayoutManager& kept)
        : layouts(kept)
    {
        dialog.SetResults(MakeResults(rows));
        dialog.Create();
        Activate(*dialog.GetWindow());
        Results().setFocus();
    }
    CResultPanelWidget& Panel() { return dialog.GetWindow()->GetPanelWidget(); }
    CResultGridWidget& Results() { return *Panel().GetTable(EResultTable::Results); }
    CResultGridWidget& Statistics() { return *Panel().GetTable(EResultTable::Statistics); }
    QPoint Center(std::size_t row, std::size_t column)
    {
        const SRect rect = Results().GetPane().GetCellRect({row, column});
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
    std::string Cell(std::size_t row, std::size_t column)
    {
        return Results().GetPane().GetCell({row, column}).text.ToUtf8();
    }

    CResultLayoutManager own;
    CResultLayoutManager& layouts;
    CQtResultDialog dialog{nullptr, layouts};
};

// What the menu at the top of all says; it is closed.
QStringList CloseMenu()
{
    QStringList texts;
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    EXPECT_TRUE(menu);
    if (!menu)
        return texts;
    for (const QAction* const action : menu->actions())
        texts += (action->isEnabled() ? QString() : QStringLiteral("-")) + action->text().remove(u'&');
    menu->close();
    return texts;
}

// Opens the menu by the keyboard and presses a letter of it.
void ChooseInMenu(Qt::Key letter)
{
    Type("Shift+F10");
    ASSERT_TRUE(QApplication::activePopupWidget());
    QTest::keyClick(QApplication::activePopupWidget(), letter);
}

// Keeps the texts that are painted.
class CTextDevice : public QPaintDevice
{
public:
    QPaintEngine* paintEngine() const override { return &m_engine; }
    QStringList texts() const { return m_engine.texts; }

protected:
    int metric(PaintDeviceMetric metric) const override
    {
        constexpr int c_side = 800;
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return c_side;
        case PdmDevicePixelRatio:
            return 1;
        case PdmDevicePixelRatioScaled:
            return static_cast<int>(devicePixelRatioFScale());
        default:
            return 96;
        }
    }

private:
    class CEngine : public QPaintEngine
    {
    public:
        CEngine()
            : QPaintEngine(AllFeatures)
        {
        }
        bool begin(QPaintDevice*) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState&) override {}
        void drawPixmap(const QRectF&, const QPixmap&, const QRectF&) override {}
        void drawPath(const QPainterPath&) override {}
        void drawPolygon(const QPointF*, int, PolygonDrawMode) override {}
        void drawTextItem(const QPointF&, const QTextItem& item) override { texts += item.text(); }
        Type type() const override { return User; }

        QStringList texts;
    };

    mutable CEngine m_engine;
};

} // namespace

TEST(ResultPanelWidget, MenusChangeWhatIsShown)
{
    SShownDialog shown;
    EXPECT_EQ(shown.Cell(2, 1), "2469.1");
    EXPECT_EQ(shown.Cell(0, 1), "nm");
    Send(*shown.Results().viewport(),
         QContextMenuEvent(QContextMenuEvent::Mouse, {shown.Center(0, 1).x(), 5},
                           shown.Results().viewport()->mapToGlobal(QPoint(shown.Center(0, 1).x(), 5))));
    QMenu* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    for (QAction* const unit : menu->actions().first()->menu()->actions())
        if (unit->text() == QStringLiteral("\u00B5m"))
            unit->trigger();
    EXPECT_FALSE(QApplication::activePopupWidget()) << "is about what was shown before";
    EXPECT_EQ(shown.Cell(2, 1), "2.4691");
    EXPECT_EQ(shown.Cell(2, 2), "2469.1") << "of that quantity alone";
    EXPECT_EQ(shown.Statistics().GetPane().GetCell({0, 1}).text, u"7.4074");
}

TEST(ResultPanelWidget, OtherResultsCloseMenus)
{
    SShownDialog shown;
    for (const bool isTransposed : {false, true}) {
        shown.dialog.GetPanel().Transpose(isTransposed);
        const QSize size = shown.Results().viewport()->size();
        for (const QPoint place :
             {shown.Center(2, 1), QPoint(60, 5), QPoint(size.width() - 2, size.height() - 2)}) {
            Send(*shown.Results().viewport(),
                 QContextMenuEvent(QContextMenuEvent::Mouse, place,
                                   shown.Results().viewport()->mapToGlobal(place)));
            EXPECT_TRUE(QApplication::activePopupWidget()) << isTransposed << ' ' << place.y();
            shown.dialog.SetResults(MakeResults(6, 1));
            EXPECT_FALSE(QApplication::activePopupWidget()) << isTransposed << ' ' << place.y();
        }
    }
}

TEST(ResultPanelWidget, ShowsAnotherPanelInPlace)
{
    CResultPanel panels[2];
    CResultPanelWidget widget;
    for (CResultPanel& panel : panels) {
        panel.SetResults(MakeResults(100));
        widget.Attach(panel);
        Activate(widget);
        widget.resize(400, 500);
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(widget.GetTable(EResultTable::Results)->GetPane().GetCell({2, 1}).text, u"2469.1");
}

TEST(ResultPanelWidget, EverythingByKeys)
{
    SShownDialog shown;
    Type("Down Right Shift+F10");
    const QStringList texts = CloseMenu();
    EXPECT_EQ(texts.mid(0, 5).join(u'|').toStdString(), "Unit|Number Format...|Hide|-Show Hidden|Transpose");
    WhenShown<CFormatSpecifierWindow>([](CFormatSpecifierWindow& window) {
        auto* const count = window.GetCountWidget().findChild<QLineEdit*>();
        QTest::keyClick(count, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(count, QStringLiteral("2"));
        QTest::keyClick(&window, Qt::Key_Return);
    });
    ChooseInMenu(Qt::Key_N);
    EXPECT_EQ(shown.Cell(2, 1), "2.5E+03");
    ChooseInMenu(Qt::Key_H);
    EXPECT_EQ(shown.dialog.GetPanel().GetTables().GetShown(), (std::vector<std::size_t>{1, 2}));
    shown.Results().setFocus();
    const auto isTransposed = [&] { return shown.dialog.GetPanel().GetTables().IsTransposed(); };
    Type("Alt+O");
    EXPECT_TRUE(QTest::qWaitFor(isTransposed));
    EXPECT_FALSE(shown.Statistics().isVisible()) << "beside the results";
    Type("Alt+O");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !isTransposed(); }));
    Type("Alt+T");
    EXPECT_TRUE(shown.Statistics().hasFocus());
    Type("Esc");
    EXPECT_FALSE(shown.dialog.IsOpen());
}

TEST(ResultPanelWidget, WidthsAreKeptAndShared)
{
    SShownDialog shown;
    const int edge = shown.Results().GetPane().GetCellRect({0, 1}).right;
    QWidget& view = *shown.Results().viewport();
    QTest::mousePress(&view, Qt::LeftButton, {}, {edge - 1, 5});
    Send(view, QMouseEvent(QEvent::MouseMove, QPointF(edge + 60, 5), view.mapToGlobal(QPointF(edge + 60, 5)),
                           Qt::NoButton, Qt::LeftButton, Qt::NoModifier));
    QTest::mouseRelease(&view, Qt::LeftButton, {}, {edge + 60, 5});
    const int width = shown.Results().GetPane().GetColumnWidth(1);
    EXPECT_EQ(shown.Statistics().GetPane().GetColumnWidth(1), width);
    EXPECT_GT(shown.layouts.Get(u"Test").columns[u"R0"].width, 0);
    shown.dialog.SetResults(MakeResults(9));
    EXPECT_NEAR(shown.Results().GetPane().GetColumnWidth(1), width, 1);
    auto wide = *MakeResults(2);
    wide.quantities[0].statistics = {-123456.7e-6};
    shown.dialog.SetResults(std::make_shared<SResultSet>(wide));
    shown.Results().GetFitColumnsAction().trigger();
    CGridPane& statistics = shown.Statistics().GetPane();
    const int fitted = statistics.GetColumnWidth(1);
    EXPECT_EQ(shown.Results().GetPane().GetColumnWidth(1), fitted);
    EXPECT_EQ(shown.layouts.Get(u"Test").columns[u"R0"].width, 0) << "nothing is kept";
    statistics.FitColumn(1);
    EXPECT_LE(statistics.GetColumnWidth(1), fitted) << "the statistics are not cut off";
}

TEST(ResultPanelWidget, KeysMoveEdges)
{
    SShownDialog other;
    SShownDialog shown(6, other.layouts);
    shown.dialog.GetWindow()->resize(700, 800);
    QCoreApplication::processEvents();
    Activate(*shown.dialog.GetWindow());
    shown.Results().setFocus();
    ASSERT_TRUE(shown.Results().hasFocus());
    const auto widthOf = [](CResultGridWidget& table) { return table.GetPane().GetColumnWidth(1); };
    const int width = widthOf(shown.Results());
    Type("Down Right Alt+Shift+Right Alt+Shift+Right");
    const int wider = widthOf(shown.Results());
    EXPECT_GT(wider, width);
    EXPECT_EQ(widthOf(shown.Statistics()), wider);
    EXPECT_TRUE(QTest::qWaitFor([&] { return std::abs(widthOf(other.Results()) - wider) <= 1; }))
        << "follows";
    Type("Alt+Shift+Left");
    EXPECT_LT(widthOf(shown.Results()), wider);
    for (int i = 0; i < 99; ++i)
        Type("Alt+Shift+Left");
    EXPECT_GT(widthOf(shown.Results()), 4) << "stays to be seen";

    CResultGridWidget& summary = *shown.Panel().GetTable(EResultTable::Summary);
    const int before = summary.height();
    const int below = shown.Results().height();
    summary.setFocus();
    Type("Alt+Shift+Down Alt+Shift+Down");
    const int lines = 2 * shown.Panel().fontMetrics().height();
    EXPECT_EQ(summary.height(), before + lines);
    EXPECT_EQ(shown.Results().height(), below - lines);
    shown.Statistics().setFocus(); // the last one, which has its edge above
    const int last = shown.Statistics().height();
    Type("Alt+Shift+Down");
    EXPECT_GT(shown.Statistics().height(), last);
    EXPECT_EQ(summary.height(), before + lines);
    shown.dialog.GetPanel().Transpose(true); // without statistics
    summary.setFocus();
    Type("Alt+Shift+Up");
    for (const int height : shown.layouts.Get(u"Test").heights)
        EXPECT_GT(height, 0) << "also that of the table that is not shown";
}

// Where everything else begins at the right, numbers and their signs stay where they are.
TEST(ResultPanelWidget, NumbersRunFromLeftToRight)
{
    auto set = *MakeResults(3);
    set.quantities[0].values[1] = -1.5e-6;
    CResultPanel panel;
    panel.SetResults(std::make_shared<SResultSet>(set));
    std::vector<QImage> pictures;
    for (const auto direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        QApplication::setLayoutDirection(direction);
        CResultPanelWidget widget;
        widget.Attach(panel);
        for (const EResultTable table : {EResultTable::Summary, EResultTable::Results}) {
            QWidget& view = *widget.GetTable(table)->viewport();
            view.resize(300, 150);
            pictures.push_back(view.grab().toImage());
        }
        QImage page(400, 400, QImage::Format_RGB32);
        page.fill(Qt::white);
        QPainter painter(&page);
        const SResultPages pages = panel.GetPages();
        CResultPrinter(pages, page, page.size()).PrintPage(painter, 0);
        painter.end();
        pictures.push_back(page);
    }
    QApplication::setLayoutDirection(Qt::LeftToRight);
    for (std::size_t i = 0; i < pictures.size() / 2; ++i)
        EXPECT_TRUE(pictures[i] == pictures[i + pictures.size() / 2]) << i;
}

TEST(ResultPanelWidget, PrintsWhatIsThereWhenThePrinterIsChosen)
{
    const CTemporaryFolder folder;
    const auto path = [&folder](const char* name) {
        return QString::fromStdString((folder.GetPath() / name).string());
    };
    for (const bool isAccepted : {false, true}) {
        SShownDialog shown;
        QString title;
        WhenShown<QPrintDialog>([&](QPrintDialog& dialog) {
            title = dialog.printer()->docName();
            dialog.printer()->setOutputFileName(path(isAccepted ? "printed.pdf" : "cancelled.pdf"));
            auto others = *MakeResults(9);
            others.title = u"Others";
            shown.dialog.SetResults(std::make_shared<SResultSet>(others));
            dialog.done(isAccepted ? QDialog::Accepted : QDialog::Rejected);
        });
        QTest::mouseClick(&shown.Panel().GetButton(2), Qt::LeftButton);
        EXPECT_EQ(title.toStdString(), "Title");
    }
    const auto utf16 = [](std::string text) {
        std::string units;
        for (const char letter : text)
            units += std::string(1, '\0') + letter;
        return units;
    };
    EXPECT_FALSE(std::filesystem::exists(folder.GetPath() / "cancelled.pdf"));
    const std::string printed = folder.Read("printed.pdf");
    EXPECT_NE(printed.find(utf16("Others")), printed.npos);
}

TEST(ResultPanelWidget, WhatIsSelectedIsDragged)
{
    SShownDialog shown;
    shown.Results().GetPane().SelectCell({2, 1});
    shown.Results().GetPane().OnKey({EGridKey::Right, {.shift = true}});
    QWidget& view = *shown.Results().viewport();
    QString text;
    QTimer::singleShot(0, &view, [&] {
        const auto* const drag = shown.Results().findChild<QDrag*>();
        ASSERT_TRUE(drag);
        text = drag->mimeData()->text();
        EXPECT_TRUE(drag->mimeData()->html().contains(QStringLiteral("2469.1")));
        QTest::keyClick(shown.dialog.GetWindow()->windowHandle(), Qt::Key_Escape);
    });
    QTest::mousePress(&view, Qt::LeftButton, {}, shown.Center(2, 1));
    const QPointF far(shown.Center(4, 3));
    Send(view, QMouseEvent(QEvent::MouseMove, far, view.mapToGlobal(far), Qt::NoButton, Qt::LeftButton,
                           Qt::NoModifier));
    EXPECT_EQ(text.toStdString(), "R0\tR1\n2469.1\t2469.1");
    QTest::mouseClick(&view, Qt::LeftButton, {}, shown.Center(2, 2));
    EXPECT_EQ(shown.Results().GetPane().GetSelection().GetRange(), (SGridRange{2, 2, 2, 2}))
        << "a press alone selects";
}

TEST(ResultPanelWidget, ReadersFindTablesAndNotes)
{
    SShownDialog shown;
    EXPECT_EQ(Reader(shown.Results()).role(), QAccessible::Table);
    EXPECT_EQ(Reader(shown.Results()).text(QAccessible::Name).toStdString(), "Results:");
    const auto labels = shown.Panel().findChildren<QLabel*>();
    const auto isNote = [](const QLabel* label) {
        return label->text().contains(QStringLiteral("too flat"));
    };
    const auto note = std::find_if(labels.begin(), labels.end(), isNote);
    ASSERT_NE(note, labels.end());
    EXPECT_EQ((*note)->text().toStdString(), "1 R0, R1, R2: it is too flat");
    Type("Alt+N");
    EXPECT_TRUE(QTest::qWaitFor([&] { return !(*note)->isVisible(); }));
}

TEST(ResultPanelWidget, OutlivesItsPanel)
{
    auto panel = std::make_unique<CResultPanel>();
    panel->SetResults(MakeResults(3));
    CResultPanelWidget widget;
    widget.Attach(*panel);
    Activate(widget);
    panel.reset();
    widget.grab();
    const SRect cell = widget.GetTable(EResultTable::Results)->GetPane().GetCellRect({1, 1});
    QWidget& view = *widget.GetTable(EResultTable::Results)->viewport();
    Send(view, QContextMenuEvent(QContextMenuEvent::Mouse, {cell.left + 2, cell.top + 2},
                                 view.mapToGlobal(QPoint(cell.left + 2, cell.top + 2))));
    if (QWidget* const menu = QApplication::activePopupWidget())
        menu->close();
    QTest::mouseClick(&widget.GetButton(2), Qt::LeftButton);
}

TEST(ResultPrinter, EachPageHasItsHeaders)
{
    CResultPanel panel;
    panel.SetResults(MakeResults(100, 30));
    const SResultPages pages = panel.GetPages();
    CTextDevice measured;
    const CResultPrinter printer(pages, measured, {800, 800});
    const std::size_t count = printer.GetPageCount();
    QStringList all;
    for (std::size_t page = 0; page < count; ++page) {
        CTextDevice device;
        QPainter painter(&device);
        printer.PrintPage(painter, page);
        painter.end();
        const QStringList texts = device.texts();
        for (const QString& text : {QStringLiteral("Title"), QStringLiteral("Provenance"),
                                    QStringLiteral("Page %1 of %2").arg(page + 1).arg(count)})
            EXPECT_EQ(texts.count(text), 1) << text.toStdString() << " on " << page;
        if (texts.filter(QStringLiteral("row ")).empty())
            continue; // notes alone
        EXPECT_EQ(texts.count(QStringLiteral("Profile")), 1) << page;
        EXPECT_GE(texts.count(QStringLiteral("nm")), 2) << page;
        all += texts;
    }
    const auto blocks = all.count(QStringLiteral("row 100"));
    EXPECT_GT(blocks, 1) << "columns that do not stand beside each other";
    for (int row = 1; row <= 100; ++row)
        EXPECT_EQ(all.count(QStringLiteral("row %1").arg(row)), blocks);
    EXPECT_EQ(all.count(QStringLiteral("246.91")), 0);
    EXPECT_EQ(all.count(QStringLiteral("2469.1")), 30);
    EXPECT_EQ(all.count(QStringLiteral("Mean")), blocks);
}

TEST(ResultPrinter, NothingIsCutOff)
{
    auto set = *MakeResults(2, 1);
    const CStr word = CStr(u"measured_with_").Replace(u"_", u"_________________________________________");
    set.provenance = word + word + word + word;
    set.summary = {{u"iiiiiii", word + u" " + word + word + word}, {u"WWWWWW", u"x"}};
    set.rowNames = {u"iiiiiii", u"WWWWWW"};
    set.quantities[0].header = u"iiiiiiii\r\nWWWWWWW";
    CResultPanel panel;
    panel.SetResults(std::make_shared<SResultSet>(set));
    const SResultPages pages = panel.GetPages();
    CTextDevice device;
    const CResultPrinter printer(pages, device, {800, 800});
    QPainter painter(&device);
    printer.PrintPage(painter, 0);
    painter.end();
    const QString all = device.texts().join(QString());
    EXPECT_FALSE(all.contains(QChar(0x2026))) << all.toStdString();
    EXPECT_TRUE(all.contains(ToQString(set.provenance)));
}

TEST(ResultPrinter, PdfHasAllPages)
{
    CResultPanel panel;
    panel.SetResults(MakeResults(500));
    const std::string pdf = MakePdf(panel.GetPages());
    EXPECT_EQ(pdf.substr(0, 5), "%PDF-");
    std::size_t pages = 0;
    for (std::size_t at = pdf.find("/Type /Page\n"); at != pdf.npos; at = pdf.find("/Type /Page\n", at + 1))
        ++pages;
    EXPECT_GT(pages, 5U);
}
