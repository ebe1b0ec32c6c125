#include "platform/memory/MemoryFolderSource.h"
#include "platform/memory/MemorySystemColors.h"
#include "platform/MessageLoop.h"
#include "qt/controls/ColorPickerWidget.h"
#include "qt/controls/ExtendedListWidget.h"
#include "qt/controls/FittedLabel.h"
#include "qt/controls/FolderComboWidget.h"
#include "qt/controls/FolderTreeWidget.h"
#include "qt/controls/InterfaceStyle.h"
#include "qt/controls/ItemListWidget.h"
#include "qt/controls/MarkerPickerWidget.h"
#include "qt/controls/SectionWidget.h"
#include "qt/controls/TabWindow.h"
#include "qt/controls/ToolTips.h"
#include "qt/QtText.h"
#include "qt/services/QtSystemColors.h"
#include "tests/qt/WidgetTesting.h"

#include <algorithm>
#include <memory>

using namespace CommonUI;

namespace
{

// A page with what it edits as members: those go before the widgets.
template<class TLogic, class TWidget>
class CPage : public QWidget
{
public:
    template<class... TArgs>
    explicit CPage(TArgs... args)
        : widget(*new TWidget(logic, args...))
    {
        (new QVBoxLayout(this))->addWidget(&widget);
        resize(400, 300);
    }

    TLogic logic;
    TWidget& widget;
};

std::string Order(const CItemList& list)
{
    CStr order;
    for (const SListItem& item : list.GetItems())
        order += item.key + (item.checked ? u"+" : u"");
    return order.ToUtf8();
}

std::string Tabs(const QTabWidget& window)
{
    QString shown;
    for (int i = 0; i < window.count(); ++i)
        shown += (i == window.currentIndex() ? QStringLiteral(">") : QString()) + window.tabText(i);
    return shown.toStdString();
}

std::string Visible(const QTreeView& view)
{
    QString shown;
    for (QModelIndex index = view.model()->index(0, 0); index.isValid(); index = view.indexBelow(index))
        shown += index.data().toString() + (index == view.currentIndex() ? u'<' : u'|');
    return shown.toStdString();
}

std::shared_ptr<CMemoryFolderSource> MakeFolders()
{
    auto source = std::make_shared<CMemoryFolderSource>(std::vector<CStr>{u"/", u"X:/"});
    source->SetFolders(u"/", {u"a", u"b"});
    source->SetFolders(u"/a", {u"c"});
    source->SetFolders(u"/b", {});
    source->SetFolders(u"/a/c", {});
    return source;
}

} // namespace

TEST(ItemListWidget, MovesByKeysAndTellsItsCommands)
{
    auto page = std::make_unique<CPage<CItemList, CItemListWidget>>(true);
    CItemList& list = page->logic;
    list.SetItems({{u"a", u"Sa"}, {u"b", u"Sb"}, {u"c", u"Sc"}});
    Activate(*page);
    page->widget.setFocus();
    Type("Home Down Space Alt+Up");
    EXPECT_EQ(Order(list), "b+ac");
    Type("Shift+Down Alt+Down");
    EXPECT_EQ(Order(list), "cb+a");
    EXPECT_EQ(page->widget.GetView().selectionModel()->selectedIndexes().size(), 2);
    std::string buttons;
    for (QToolButton* const button : page->widget.findChildren<QToolButton*>())
        buttons += Speak(Reader(*button)) + '|';
    EXPECT_EQ(buttons, "Move Up|Move Down (disabled)|Remove|");
    Type("Del");
    EXPECT_EQ(Order(list), "c");
    page.reset();
}

TEST(ExtendedListWidget, FiltersFoldsAndChecksByKeys)
{
    CPage<CExtendedList, CExtendedListWidget> page(true);
    page.setLayoutDirection(Qt::RightToLeft);
    page.logic.SetColumns({{u"Name"}, {u"Sa", true}});
    page.logic.SetRows(
        {{{{u"x2"}, {u"2", 2}}, u"g"}, {{{u"x10"}, {u"10", 10}}, u"h"}, {{{u"y"}, {u"1", 1}}, u"g"}});
    page.logic.SetGrouped(true);
    QTreeView& view = page.widget.GetView();
    EXPECT_EQ(view.layoutDirection(), Qt::LeftToRight) << "numbers";
    Activate(page);
    view.setFocus();
    Type("Home Down");
    EXPECT_EQ(Visible(view), "g (2)|x2<y|h (1)|x10|");
    Type("Left Left");
    EXPECT_EQ(Visible(view), "g (2)<h (1)|x10|");
    EXPECT_EQ(Reader(view).child(0) != nullptr, true);
    Type("Space");
    EXPECT_EQ(page.logic.GetCheckedCount(), 2U);
    Type("Right Down");
    view.header()->resizeSection(0, 100);
    QTest::mouseClick(view.header()->viewport(), Qt::LeftButton, {}, QPoint(120, 5));
    EXPECT_EQ(Visible(view), "g (2)|y|x2<h (1)|x10|") << "the row keeps the keyboard";
    page.widget.GetFilterField().setText(QStringLiteral("X"));
    EXPECT_EQ(Visible(view), "g (1)|x2<h (1)|x10|");
    page.logic.SetGrouped(false);
    EXPECT_EQ(Visible(view), "x2<x10|");
    EXPECT_EQ(page.widget.GetCurrentRow(), 0U);
}

TEST(ExtendedListWidget, AsksNoListThatIsGone)
{
    auto list = std::make_unique<CExtendedList>();
    CExtendedListWidget widget(*list, false);
    list->SetColumns({{u"Name"}});
    list->SetRows({{{{u"x"}}}});
    const QAbstractItemModel& model = *widget.GetView().model();
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString().toStdString(), "Name");
    list.reset();
    EXPECT_EQ(model.columnCount(), 0);
    EXPECT_FALSE(model.headerData(0, Qt::Horizontal).isValid());
}

TEST(SectionWidget, OpensByKeysAndSaysSo)
{
    CSections sections;
    QWidget window;
    auto* const layout = new QVBoxLayout(&window);
    auto* const section = new CSectionWidget(sections, u"Filter", QStringLiteral("&Filter"));
    auto* const field = new QLineEdit;
    section->SetContent(*field);
    layout->addWidget(section);
    Activate(window);
    section->GetHead().setFocus();
    const std::pair<const char*, bool> keys[] = {
        {"Left", false}, {"Left", false}, {"Right", true}, {"Space", false}, {"Return", true}};
    for (const auto& [key, open] : keys) {
        Type(key);
        EXPECT_EQ(Speak(Reader(section->GetHead())), open ? "Filter (focused expanded)" : "Filter (focused)")
            << key;
        EXPECT_EQ(field->isVisible(), open);
    }
    window.setLayoutDirection(Qt::RightToLeft);
    Type("Right");
    EXPECT_FALSE(sections.IsExpanded(u"Filter")) << "against the direction of reading";
    sections.SetAllExpanded(true);
    field->setFocus();
    sections.SetAllExpanded(false);
    EXPECT_TRUE(section->GetHead().hasFocus()) << "not in what is hidden";
}

TEST(ColorPickerWidget, ChoosesByKeys)
{
    CPage<CColorPicker, CColorPickerWidget> page;
    page.logic.AllowOpacity(true);
    page.logic.SetPaint({{0, 0, 0}, 128});
    Activate(page);
    const auto open = [&] {
        page.widget.Open();
        QCoreApplication::processEvents();
    };
    open();
    QListWidget& named = page.widget.GetPopup()->GetNamedList();
    EXPECT_EQ(Reader(named).child(0)->text(QAccessible::Name).toStdString(), "Black");
    QTest::keyClick(&named, Qt::Key_Down);
    QTest::keyClick(&named, Qt::Key_Return);
    EXPECT_EQ(DescribePaint(page.logic.GetPaint()), u"Red, 50 %") << "it covers as much as before";
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(page.widget.GetPopup(), nullptr);
    EXPECT_EQ(page.widget.text().toStdString(), "Red, 50 %");
    open();
    QLineEdit& text = page.widget.GetPopup()->GetTextField();
    text.setText(QStringLiteral("nothing"));
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_TRUE(page.widget.GetPopup()->isVisible()) << "what is no color is refused";
    text.setText(QStringLiteral("navy"));
    QTest::keyClick(&text, Qt::Key_Return);
    EXPECT_EQ(page.widget.text().toStdString(), "Navy");
    open();
    QTest::keyClick(&page.widget.GetPopup()->GetNamedList(), Qt::Key_Escape);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(page.widget.GetPopup(), nullptr);
}

TEST(MarkerPickerWidget, ChoosesAndDraws)
{
    CPage<CMarkerPicker, CMarkerPickerWidget> page;
    Activate(page);
    page.widget.GetShapeList().setFocus();
    Type("End");
    EXPECT_EQ(page.logic.GetMarker().shape, EMarkerShape::Dot);
    page.widget.GetSizeField().setValue(20);
    EXPECT_EQ(page.logic.GetMarker().size, 20);
    page.logic.ChooseShape(EMarkerShape::Plus);
    EXPECT_FALSE(page.widget.findChild<QCheckBox*>()->isEnabled()) << "nothing to fill";
    QImage picture(21, 21, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    DrawMarker(painter, {10.5, 10.5}, 16, {EMarkerShape::Circle, {{255, 0, 0}}, 8, true});
    EXPECT_EQ(picture.pixelColor(10, 10), QColor(Qt::red));
    EXPECT_EQ(picture.pixelColor(3, 3), QColor(Qt::white)) << "the corner is not the circle's";
}

TEST(TabWindow, GoesByLastUseAndCloses)
{
    auto page = std::make_unique<CPage<CTabs, CTabWindow>>();
    CTabs& tabs = page->logic;
    CTabWindow& window = page->widget;
    for (const char16_t* const key : {u"a", u"b", u"c", u"d"})
        window.AddPage({key, key}, *new QLineEdit);
    tabs.SetCurrent(2);
    Activate(*page);
    window.currentWidget()->setFocus();
    // QTest would release Ctrl with each key.
    const auto press = [](Qt::Key key, Qt::KeyboardModifiers keys) {
        Send(*QApplication::focusWidget(), QKeyEvent(QEvent::KeyPress, key, keys));
    };
    const auto release = [] {
        Send(*QApplication::focusWidget(), QKeyEvent(QEvent::KeyRelease, Qt::Key_Control, Qt::NoModifier));
    };
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Tabs(window), ">abcd");
    press(Qt::Key_Tab, Qt::ControlModifier);
    EXPECT_EQ(Tabs(window), "a>bcd");
    release();
    press(Qt::Key_Tab, Qt::ControlModifier);
    release();
    EXPECT_EQ(Tabs(window), "ab>cd") << "the one before";
    window.currentWidget()->setFocus();
    Type("Ctrl+PgDown Ctrl+Shift+PgUp");
    EXPECT_EQ(Tabs(window), "ab>dc");
    window.tabBar()->moveTab(0, 3);
    EXPECT_EQ(tabs.GetOrder(), (std::vector<CStr>{u"b", u"d", u"c", u"a"})) << "dragged";
    Type("Ctrl+F4");
    EXPECT_EQ(Tabs(window), "b>ca");
    tabs.SetOrder({u"c", u"a", u"b"});
    EXPECT_EQ(Tabs(window), ">cab");
    page.reset();
}

TEST(FolderTreeWidget, ShowsWhatDrivesAnswer)
{
    const auto source = MakeFolders();
    auto tree = std::make_unique<CFolderTree>(source);
    CFolderTreeWidget widget;
    widget.Attach(*tree);
    Activate(widget);
    const auto wait = [&](const CFolderNode& node) {
        GetMessageLoop().RunUntil([&] { return node.GetState() == CFolderNode::EState::Read; });
    };
    const CFolderNode& root = tree->GetTop().GetChild(0);
    Type("Home Right");
    wait(root);
    EXPECT_EQ(Visible(widget), "/<a|b|X:/|");
    tree->GoTo(u"/a/c");
    GetMessageLoop().RunUntil([&] { return !tree->IsGoing(); });
    EXPECT_EQ(Visible(widget), "/|a|c<b|X:/|");
    source->SetFolders(u"/", {u"0", u"b"});
    Type("Up Up F5");
    wait(root);
    EXPECT_EQ(Visible(widget), "/<0|b|X:/|");
    source->Hang(u"X:/");
    Type("End Right Up");
    EXPECT_EQ(tree->GetSelected()->GetPath(), u"/b") << "the keyboard waits for no drive";
    tree.reset();
    EXPECT_EQ(Visible(widget), "");
    source->Release(u"X:/");
}

TEST(FolderComboWidget, TakesWhatIsThere)
{
    CFolderCombo combo(MakeFolders());
    CFolderComboWidget widget(combo);
    combo.SetPath(u"/a");
    Activate(widget);
    widget.lineEdit()->selectAll();
    Type("/b/");
    EXPECT_EQ(combo.GetPath(), u"/a") << "not yet";
    Type("Return");
    GetMessageLoop().RunUntil([&] { return !combo.IsChecking(); });
    EXPECT_EQ(widget.currentText().toStdString(), "/b");
    widget.lineEdit()->selectAll();
    Type("/none Return");
    GetMessageLoop().RunUntil([&] { return !combo.IsChecking(); });
    EXPECT_EQ(Reader(*widget.lineEdit()).text(QAccessible::Description).toStdString(), "/none is not there.");
    EXPECT_EQ(combo.GetPath(), u"/b");
    Type("Esc");
    EXPECT_EQ(widget.currentText().toStdString(), "/b");
    EXPECT_EQ(Reader(*widget.lineEdit()).text(QAccessible::Description).toStdString(), "");
}

TEST(FittedLabel, ShowsWhatHasRoom)
{
    CValueLabel label;
    label.SetValue({u"Height of the surface", u"35.2", u"nm"});
    const int value = label.fontMetrics().horizontalAdvance(QStringLiteral("35.2\u00A0nm"));
    label.resize(label.sizeHint());
    EXPECT_TRUE(label.GetShownText().startsWith(QStringLiteral("Height of the surface: ")));
    for (const int room : {value + 2, 2 * value, 3 * value}) {
        label.resize(room, 20);
        EXPECT_TRUE(label.GetShownText().endsWith(QStringLiteral("\u206635.2\u00A0nm\u2069"))) << room;
    }
    label.resize(value / 2, 20);
    EXPECT_EQ(label.GetShownText(), QStringLiteral("\u2026"));
    EXPECT_EQ(Speak(Reader(label)), "Height of the surface: 35.2\u00A0nm (readOnly)") << "readers get all";
    SetToolTip(label, {.symbol = u"Sq", .unit = u"nm"});
    EXPECT_EQ(Reader(label).text(QAccessible::Description).toStdString(), "Sq\nUnit: nm");

    CScalingLabel large;
    large.setText(QStringLiteral("35.2"));
    large.SetFontRange({6, 300, 0.5});
    large.resize(200, 100);
    const double size = large.GetShownFont().pointSizeF();
    large.resize(400, 200);
    EXPECT_NEAR(large.GetShownFont().pointSizeF() / size, 2, 0.2);
}

TEST(InterfaceStyle, GivesTheApplicationItsColors)
{
    const QPalette before = QApplication::palette();
    CMemorySystemColors system;
    const CServiceScope<CSystemColors> scope(system);
    CInterfaceColors colors;
    for (const auto scheme : {EColorScheme::Light, EColorScheme::Dark, EColorScheme::HighContrast}) {
        const CInterfaceStyle style(colors);
        system.Set({.scheme = scheme});
        EXPECT_EQ(QApplication::palette().color(QPalette::Window),
                  ToQColor(colors.Get(EInterfaceColor::Window)));
        EXPECT_EQ(QToolTip::palette().color(QPalette::ToolTipText),
                  ToQColor(colors.Get(EInterfaceColor::ToolTipText)));
        EXPECT_EQ(DescribePalette(QApplication::palette()).scheme, scheme)
            << "as it would be read from a desktop";
    }
    QApplication::setPalette(before);
}

TEST(SystemColors, AreReadAnewWhenTheDesktopChanges)
{
    CQtSystemColors system;
    int told = 0;
    system.SetListener([&] { ++told; });
    const QPalette own(Qt::darkGray, Qt::black);
    const QPalette before = QApplication::palette();
    QApplication::setPalette(own);
    QWidget one;
    QWidget other;
    for (QWidget* const window : {&one, &other})
        Send(*window, QEvent(QEvent::ThemeChange));
    QCoreApplication::processEvents();
    EXPECT_EQ(told, 1) << "once for all windows";
    EXPECT_EQ(QApplication::palette().color(QPalette::Window), own.color(QPalette::Window))
        << "still the application's";
    EXPECT_EQ(system.Get().scheme, EColorScheme::Light) << "not what the application has set";
    QApplication::setPalette(before);
}
