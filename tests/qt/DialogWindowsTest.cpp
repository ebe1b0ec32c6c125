// What every dialog window does: it opens help, follows the colours of the interface, has room for its texts,
// is used by Tab, tells screen readers what its controls are, and can be read from right to left.
#include "platform/memory/MemoryHelpService.h"
#include "platform/memory/MemorySystemColors.h"
#include "qt/controls/InterfaceStyle.h"
#include "tests/qt/AllDialogs.h"
#include "tests/qt/WidgetTesting.h"

#include <map>
#include <set>

using namespace CommonUI;

namespace
{

class DialogWindows : public CAllDialogs
{
};

// Everything that is shown of a window.
std::vector<QWidget*> GetShown(const QWidget& window)
{
    std::vector<QWidget*> shown;
    for (QWidget* const widget : window.findChildren<QWidget*>())
        if (widget->isVisible() && widget->window() == &window)
            shown.push_back(widget);
    return shown;
}

std::string Name(const QWidget& widget)
{
    return std::string(widget.metaObject()->className()) + " \"" +
           widget.property("text").toString().toStdString() + '"';
}

bool IsStop(const QWidget& widget)
{
    return widget.isEnabled() && (widget.focusPolicy() & Qt::TabFocus) != 0 && !widget.focusProxy();
}

// What screen readers say, the label included.
QString GetSpoken(QWidget& widget)
{
    const auto labels = Reader(widget).relations(QAccessible::Label);
    return Reader(widget).text(QAccessible::Name) +
           (labels.isEmpty() ? QString() : labels.front().first->text(QAccessible::Name));
}

bool IsWithin(const QWidget& widget, const QWidget& window)
{
    if (&widget == &window)
        return true;
    const QWidget& parent = *widget.parentWidget();
    return qobject_cast<const QAbstractScrollArea*>(&parent) ||
           (parent.rect().contains(widget.geometry()) && IsWithin(parent, window));
}

bool HasRoom(const QWidget& widget)
{
    const auto* const label = qobject_cast<const QLabel*>(&widget);
    if (label && label->wordWrap())
        return label->heightForWidth(label->width()) <= label->height();
    if (const auto* const tabs = qobject_cast<const QTabBar*>(&widget))
        return tabs->sizeHint().width() <= tabs->width();
    if (const auto* const header = qobject_cast<const QHeaderView*>(&widget)) {
        bool room = true;
        for (int section = 0; section < header->count(); ++section)
            room = room && header->sectionSizeHint(section) <= header->sectionSize(section);
        return room;
    }
    if (label ||
        (qobject_cast<const QAbstractButton*>(&widget) && !widget.property("text").toString().isEmpty()))
        return widget.sizeHint().boundedTo(widget.size()) == widget.sizeHint();
    return true;
}

void ExpectRoom(const QDialog& window)
{
    for (QWidget* const widget : GetShown(window)) {
        if (qobject_cast<QAbstractScrollArea*>(widget->parentWidget()))
            continue;
        EXPECT_TRUE(HasRoom(*widget)) << Name(*widget);
        EXPECT_TRUE(IsWithin(*widget, window)) << Name(*widget) << " lies outside";
    }
}

bool IsInButtonBox(const QWidget& widget)
{
    return qobject_cast<const QDialogButtonBox*>(widget.parentWidget());
}

// Tab leads to all of them, from the topmost one down to the buttons of the dialog.
void ExpectTabStops(QDialog& window)
{
    std::map<std::pair<int, int>, QWidget*> stops;
    for (QWidget* const widget : GetShown(window)) {
        const QPoint place = widget->mapTo(&window, QPoint());
        if (IsStop(*widget))
            stops[{place.y(), place.x()}] = widget;
    }
    stops.begin()->second->setFocus();
    std::set<const QWidget*> reached;
    bool areButtons = false;
    for (std::size_t i = 0; i < stops.size(); ++i) {
        const QWidget& focus = *QApplication::focusWidget();
        EXPECT_TRUE(!areButtons || IsInButtonBox(focus)) << Name(focus) << " comes after the buttons";
        areButtons = IsInButtonBox(focus);
        reached.insert(&focus);
        // In a text Tab is a letter.
        const auto* const text = qobject_cast<const QPlainTextEdit*>(&focus);
        Type(text && !text->tabChangesFocus() ? "Ctrl+F" : "Tab");
    }
    for (const auto& [place, stop] : stops)
        EXPECT_TRUE(reached.contains(stop)) << "Tab does not lead to " << Name(*stop);
}

void ExpectNames(const QDialog& window)
{
    EXPECT_NE(window.windowTitle(), "");
    for (QWidget* const widget : GetShown(window))
        if (IsStop(*widget)) {
            EXPECT_NE(GetSpoken(*widget), "") << Name(*widget);
        }
}

// Whether a text keeps the order of its parts: a sign stays in front of its digits.
bool KeepsOrder(const QString& text)
{
    static const QRegularExpression begin(QStringLiteral("^[-+\\d.,]"));
    return !begin.match(text).hasMatch();
}

bool IsNumbers(const QString& text)
{
    static const QRegularExpression numbers(QStringLiteral("^[-+\\d.,eE> ]{2,}$"));
    return numbers.match(text).hasMatch();
}

void ExpectNumbersFromLeft(const QAbstractItemModel& model, const QModelIndex& parent = {})
{
    for (int row = 0; row < model.rowCount(parent); ++row) {
        for (int column = 1; column < model.columnCount(parent); ++column) {
            const QString text = model.index(row, column, parent).data().toString();
            EXPECT_TRUE(text.size() < 2 || KeepsOrder(text)) << text.toStdString();
        }
        ExpectNumbersFromLeft(model, model.index(row, 0, parent));
    }
}

void ExpectNumbersFromLeft(const QDialog& window)
{
    for (const QWidget* const widget : GetShown(window)) {
        if (const auto* const view = qobject_cast<const QAbstractItemView*>(widget); view && view->model())
            ExpectNumbersFromLeft(*view->model());
        EXPECT_TRUE(widget->layoutDirection() == Qt::LeftToRight ||
                    !IsNumbers(widget->property("text").toString()))
            << Name(*widget);
    }
}

// The mirror image: labels lie to the right of their fields.
void ExpectMirrored(const QDialog& window)
{
    for (const QWidget* const widget : GetShown(window)) {
        const auto* const label = qobject_cast<const QLabel*>(widget);
        if (!label || !label->buddy())
            continue;
        const QRect field(label->buddy()->mapTo(&window, QPoint()), label->buddy()->size());
        const QRect text(label->mapTo(&window, QPoint()), label->size());
        EXPECT_TRUE(text.left() >= field.right() || text.bottom() <= field.top()) << Name(*label);
    }
}

class CRightToLeft
{
public:
    CRightToLeft() { QApplication::setLayoutDirection(Qt::RightToLeft); }
    ~CRightToLeft() { QApplication::setLayoutDirection(Qt::LeftToRight); }
    CRightToLeft(const CRightToLeft&) = delete;
    CRightToLeft& operator=(const CRightToLeft&) = delete;
};

} // namespace

TEST_F(DialogWindows, OpenTheirHelp)
{
    CMemoryHelpService help;
    const CServiceScope<CHelpService> scope(help);
    ForEach([&](QDialog& window) {
        const std::size_t before = help.GetOpened().size();
        Type("F1");
        Send(window, QEvent(QEvent::EnterWhatsThisMode));
        const std::vector<unsigned int> opened(help.GetOpened().begin() + static_cast<std::ptrdiff_t>(before),
                                               help.GetOpened().end());
        EXPECT_EQ(opened, std::vector(GetTopic() == 0 ? 0U : 2U, GetTopic()));
    });
}

// Here with the texts as they are, and in a run of its own with longer ones.
TEST_F(DialogWindows, HaveRoomForTheirTexts)
{
    ForEach([](QDialog& window) {
        ExpectRoom(window);
        window.resize(window.minimumSizeHint());
        QCoreApplication::processEvents();
        ExpectRoom(window);
    });
}

TEST_F(DialogWindows, LeadThroughTheirControlsByTabAndNameThem)
{
    ForEach([](QDialog& window) {
        ExpectNames(window);
        ExpectTabStops(window);
    });
}

TEST_F(DialogWindows, AreMirroredButForNumbers)
{
    const CRightToLeft direction;
    ForEach([](QDialog& window) {
        ExpectRoom(window);
        ExpectMirrored(window);
        ExpectNumbersFromLeft(window);
    });
}

// What is open when the desktop changes looks as what is opened afterwards.
TEST_F(DialogWindows, FollowTheColorsOfTheInterface)
{
    const int flashTime = QApplication::cursorFlashTime();
    QApplication::setCursorFlashTime(0);
    const QPalette before = QApplication::palette();
    CMemorySystemColors system;
    const CServiceScope<CSystemColors> scope(system);
    CInterfaceColors colors;
    for (const auto scheme : {EColorScheme::Dark, EColorScheme::HighContrast}) {
        const CInterfaceStyle style(colors);
        std::vector<QImage> changed;
        ForEach([&](QDialog& window) {
            system.Set({.scheme = scheme});
            QCoreApplication::processEvents();
            changed.push_back(window.grab().toImage());
            system.Set({});
            QCoreApplication::processEvents();
        });
        system.Set({.scheme = scheme});
        std::size_t number = 0;
        ForEach([&](QDialog& window) {
            const QImage opened = window.grab().toImage();
            EXPECT_TRUE(number < changed.size() && changed[number] == opened);
            ++number;
        });
        system.Set({});
    }
    QApplication::setPalette(before);
    QApplication::setCursorFlashTime(flashTime);
}
