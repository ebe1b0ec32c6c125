#include "qt/results/ResultPanelWidget.h"

#include "common/StringTable.h"
#include "dialogs/results/ResultTexts.h"
#include "qt/detail/EventGuard.h"
#include "qt/dialogs/FormatSpecifierWindow.h"
#include "qt/QtText.h"
#include "qt/results/detail/ResultTable.h"
#include "qt/results/ResultPrinter.h"

#include <QApplication>
#include <QBoxLayout>
#include <QEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>

#include <algorithm>
#include <utility>

namespace CommonUI
{

using EScope = CResultPanel::EScope;

namespace
{

constexpr EResultTable c_tables[] = {EResultTable::Summary, EResultTable::Results, EResultTable::Statistics};
constexpr EResultText c_labels[] = {EResultText::Summary, EResultText::Results, EResultText::Statistics};
constexpr char16_t c_separators[] = {u'\t', u',', u';'};
constexpr char16_t c_decimals[] = {u'.', u','};
constexpr int c_profileCount = 3;
constexpr int c_fileCount = 5;
constexpr int c_hundredths = 100;

// Names of quantities stand as they are, ampersands included.
QString ToMenuText(const CStr& name)
{
    return ToQString(name.Replace(u"\r\n", u" ").Replace(u"&", u"&&"));
}

QMenu& AddSubMenu(QMenu& menu, EResultText text)
{
    return *menu.addMenu(ToQString(GetResultText(text)));
}

// Shows while it lives that the program is at work.
class CBusyPointer
{
public:
    CBusyPointer() { QApplication::setOverrideCursor(Qt::WaitCursor); }
    ~CBusyPointer() { QApplication::restoreOverrideCursor(); }
    CBusyPointer(const CBusyPointer&) = delete;
    CBusyPointer& operator=(const CBusyPointer&) = delete;
};

} // namespace

// Hears of the widths of one table.
class CResultPanelWidget::CWidths
{
public:
    CWidths(CResultPanelWidget& widget, EResultTable table)
        : m_widget(widget)
        , m_table(table)
    {
    }

    void OnWidth(std::size_t column, int width) { m_widget.OnWidth(m_table, column, width); }

private:
    CResultPanelWidget& m_widget;
    EResultTable m_table;
};

CResultPanelWidget::CResultPanelWidget(QWidget* parent)
    : QWidget(parent)
    , m_layout(new QVBoxLayout(this))
    , m_parts(new QSplitter(Qt::Vertical))
    , m_beside(new QWidget)
    , m_notes(new QLabel)
{
    m_layout->setContentsMargins(0, 0, 0, 0);
    MakeButtons();
    m_notes->setTextFormat(Qt::PlainText);
    m_notes->setWordWrap(true);
    m_notes->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_notes->setAccessibleName(ToQString(GetResultText(EResultText::Reasons)));
    m_parts->setChildrenCollapsible(false);
    connect(m_parts, &QSplitter::splitterMoved, this, [this] { Guarded([this] { TellHeights(); }); });
    m_layout->addWidget(m_parts, 1);
    m_layout->addWidget(m_notes);
    m_notes->hide();
}

CResultPanelWidget::~CResultPanelWidget()
{
    // Before the tables that they show.
    for (const STable& table : m_tables)
        delete table.grid;
}

QPushButton* CResultPanelWidget::AddButton(EResultText text)
{
    auto* const button = new QPushButton(ToQString(GetResultText(text)));
    button->setAutoDefault(false);
    m_buttons.push_back(button);
    return button;
}

void CResultPanelWidget::AddMenu(EResultText text, void (CResultPanelWidget::*fill)(QMenu&))
{
    auto* const menu = new QMenu(this);
    AddButton(text)->setMenu(menu);
    connect(menu, &QMenu::aboutToShow, this, [this, menu, fill] {
        menu->clear();
        if (GetControl())
            (this->*fill)(*menu);
    });
}

void CResultPanelWidget::MakeButtons()
{
    AddMenu(EResultText::Copy, &CResultPanelWidget::FillCopyMenu);
    AddMenu(EResultText::Save, &CResultPanelWidget::FillSaveMenu);
    const QPushButton* const print = AddButton(EResultText::Print);
    AddMenu(EResultText::Columns, &CResultPanelWidget::FillColumnsMenu);
    m_transpose = AddButton(EResultText::Transpose);
    m_showNotes = AddButton(EResultText::Notes);
    m_transpose->setCheckable(true);
    m_showNotes->setCheckable(true);
    connect(print, &QPushButton::clicked, this, [this] {
        if (GetControl())
            Guarded([this] { GetControl()->Print(); });
    });
    connect(m_transpose, &QPushButton::clicked, this, [this](bool on) {
        if (GetControl())
            Guarded([this, on] { GetControl()->Transpose(on); });
    });
    connect(m_showNotes, &QPushButton::clicked, this, [this](bool on) {
        if (GetControl())
            Guarded([this, on] { GetControl()->ShowNotes(on); });
    });
    auto* const line = new QHBoxLayout;
    for (QPushButton* const button : m_buttons)
        line->addWidget(button);
    line->addStretch();
    m_layout->addLayout(line);
}

CResultTable& CResultPanelWidget::Grid(EResultTable table) const
{
    return *m_tables[static_cast<std::size_t>(table)].grid;
}

CResultGridWidget* CResultPanelWidget::GetTable(EResultTable table) const
{
    return m_tables[static_cast<std::size_t>(table)].grid;
}

void CResultPanelWidget::MakeTable(EResultTable table)
{
    const auto index = static_cast<std::size_t>(table);
    STable& made = m_tables[index];
    made.grid = new CResultTable(
        m_shown->Get(table), [this, table](QMenu& menu, SGridCell cell) { FillTableMenu(menu, table, cell); },
        [this]() -> QMimeData* {
            if (!GetControl())
                return nullptr;
            const auto texts = GetControl()->GetTexts(EScope::Selection, ENumberProfile::Shown);
            auto* const dragged = new QMimeData;
            dragged->setHtml(ToQString(texts.html));
            dragged->setText(ToQString(texts.text));
            return dragged;
        });
    made.widths = std::make_shared<CWidths>(*this, table);
    made.grid->GetPane().SetColumnWidthCallback(*made.widths, &CWidths::OnWidth);
    made.grid->installEventFilter(this);
    made.label = new QLabel(ToQString(GetResultText(c_labels[index])));
    made.label->setBuddy(made.grid);
    AddHeightAction(table, EResultText::Taller, Qt::Key_Down, 1);
    AddHeightAction(table, EResultText::Shorter, Qt::Key_Up, -1);
    made.part = new QWidget;
    auto* const part = new QVBoxLayout(made.part);
    part->setContentsMargins(0, 0, 0, 0);
    part->addWidget(made.label);
    auto* const line = new QHBoxLayout;
    line->setSpacing(0);
    // As the columns do, which stand over each other in every language.
    line->setDirection(layoutDirection() == Qt::RightToLeft ? QBoxLayout::RightToLeft
                                                            : QBoxLayout::LeftToRight);
    line->addWidget(made.grid, 1);
    if (table == EResultTable::Statistics)
        line->addWidget(m_beside);
    part->addLayout(line);
    m_parts->addWidget(made.part);
    m_parts->setStretchFactor(m_parts->count() - 1, table == EResultTable::Results ? 1 : 0);
}

void CResultPanelWidget::AddHeightAction(EResultTable table, EResultText text, Qt::Key key, int lines)
{
    STable& made = m_tables[static_cast<std::size_t>(table)];
    auto* const action = new QAction(ToQString(GetResultText(text)), made.grid);
    action->setShortcut(Qt::ALT | Qt::SHIFT | key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this,
            [this, table, lines] { Guarded([&] { Heighten(table, lines); }); });
    made.grid->addAction(action);
    made.heightActions.append(action);
}

void CResultPanelWidget::Attach(CResultPanel& panel)
{
    m_beside->setParent(this);
    for (STable& table : m_tables) {
        delete table.part;
        table = {};
    }
    m_shown = panel.ShareTables();
    for (const EResultTable table : c_tables)
        MakeTable(table);
    // Tab leads from the buttons to them, and then to what is around the panel.
    QWidget* before = m_buttons.back();
    for (const STable& table : m_tables)
        setTabOrder(std::exchange(before, table.grid), table.grid);
    ShareScrolling();
    panel.SetView(this);
}

// The statistics stand below the results of their column, also when these are scrolled.
void CResultPanelWidget::ShareScrolling()
{
    CResultTable& statistics = Grid(EResultTable::Statistics);
    QScrollBar* const bars[] = {Grid(EResultTable::Results).horizontalScrollBar(),
                                statistics.horizontalScrollBar()};
    statistics.setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    connect(bars[0], &QScrollBar::valueChanged, bars[1], &QScrollBar::setValue);
    connect(bars[1], &QScrollBar::valueChanged, bars[0], &QScrollBar::setValue);
    // One of them may go, with its table, before the other.
    const QPointer<QScrollBar> rows = Grid(EResultTable::Results).verticalScrollBar();
    const QPointer<QScrollBar> further = statistics.verticalScrollBar();
    const auto fit = [this, rows, further] {
        if (!rows || !further)
            return;
        const bool isNeeded = rows->maximum() > rows->minimum() && further->maximum() == further->minimum();
        m_beside->setFixedWidth(isNeeded ? rows->sizeHint().width() : 0);
    };
    connect(rows, &QScrollBar::rangeChanged, m_beside, fit);
    connect(further, &QScrollBar::rangeChanged, m_beside, fit);
    fit();
}

bool CResultPanelWidget::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn && GetControl())
        for (const EResultTable table : c_tables)
            if (watched == GetTable(table))
                GetControl()->OnTable(table);
    return QWidget::eventFilter(watched, event);
}

void CResultPanelWidget::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange && m_shown)
        FitHeights();
}

void CResultPanelWidget::UpdateTables()
{
    // An open menu is about what was shown before.
    for (QMenu* const menu : findChildren<QMenu*>())
        menu->close();
    for (const EResultTable table : c_tables) {
        CResultTable& grid = Grid(table);
        grid.GetPane().Update();
        grid.GetPane().FitColumns();
        m_tables[static_cast<std::size_t>(table)].part->setVisible(table == EResultTable::Results ||
                                                                   !m_shown->Get(table).GetRows().empty());
    }
    ShowWidths();
    FitHeights();
}

void CResultPanelWidget::ShowWidths()
{
    CResultGridPane& results = Grid(EResultTable::Results).GetPane();
    CResultGridPane& statistics = Grid(EResultTable::Statistics).GetPane();
    const bool isShared = statistics.GetColumnCount() == results.GetColumnCount();
    for (std::size_t column = 0; column < results.GetColumnCount(); ++column) {
        const int fitting = isShared
                                ? std::max(results.GetColumnWidth(column), statistics.GetColumnWidth(column))
                                : results.GetColumnWidth(column);
        const int kept = GetControl()->GetWidth(EResultTable::Results, column);
        const int width = kept == 0 ? fitting : kept * fontMetrics().height() / c_hundredths;
        results.SetColumnWidth(column, width);
        if (isShared)
            statistics.SetColumnWidth(column, width);
    }
}

// A fitted column has room for the texts of both tables, also of later results.
void CResultPanelWidget::OnWidth(EResultTable table, std::size_t column, int width)
{
    if (table == EResultTable::Summary || !GetControl())
        return;
    CResultGridPane& pane = Grid(table).GetPane();
    pane.FitColumn(column);
    const bool isFitted = pane.GetColumnWidth(column) == width;
    const int height = fontMetrics().height();
    GetControl()->OnWidth(table, column, isFitted ? 0 : (width * c_hundredths + height / 2) / height);
    int shared = width;
    for (const EResultTable other : {EResultTable::Results, EResultTable::Statistics}) {
        CResultGridPane& beside = Grid(other).GetPane();
        if (!isFitted || other == table || column >= beside.GetColumnCount())
            continue;
        beside.FitColumn(column);
        shared = std::max(shared, beside.GetColumnWidth(column));
    }
    for (const EResultTable each : {EResultTable::Results, EResultTable::Statistics})
        if (column < Grid(each).GetPane().GetColumnCount())
            Grid(each).GetPane().SetColumnWidth(column, shared);
}

// Unless the user wants it otherwise, the results have the room that the others leave.
void CResultPanelWidget::FitHeights()
{
    const auto kept = GetControl() ? GetControl()->GetLayout().heights : decltype(SResultLayout::heights){};
    QList<int> heights;
    for (const EResultTable table : c_tables) {
        CResultTable& grid = Grid(table);
        constexpr int c_leastRows = 2;
        const CResultGridPane& pane = grid.GetPane();
        grid.setMinimumHeight(pane.GetBodyTop() + c_leastRows * pane.GetRowHeight());
        const auto index = static_cast<std::size_t>(table);
        const int hint =
            table == EResultTable::Results ? m_parts->height() : m_tables[index].part->sizeHint().height();
        heights.append(kept[index] == 0 ? hint : kept[index] * fontMetrics().height() / c_hundredths);
    }
    m_parts->setSizes(heights);
}

void CResultPanelWidget::UpdateSizes()
{
    if (std::exchange(m_hasOtherSizes, true))
        return;
    QMetaObject::invokeMethod(
        this, [this] { Guarded([this] { FitSizes(); }); }, Qt::QueuedConnection);
}

void CResultPanelWidget::FitSizes()
{
    m_hasOtherSizes = false;
    if (!GetControl())
        return;
    for (const EResultTable table : c_tables)
        Grid(table).GetPane().FitColumns();
    ShowWidths();
    FitHeights();
}

void CResultPanelWidget::TellHeights()
{
    const QList<int> sizes = m_parts->sizes();
    if (!GetControl() || sizes.size() != static_cast<qsizetype>(CResultTables::c_count))
        return;
    std::array<std::optional<int>, CResultTables::c_count> heights;
    for (std::size_t i = 0; i < heights.size(); ++i)
        if (!m_tables[i].part->isHidden())
            heights[i] = sizes[static_cast<qsizetype>(i)] * c_hundredths / fontMetrics().height();
    GetControl()->OnHeights(heights);
}

void CResultPanelWidget::Heighten(EResultTable table, int lines)
{
    std::vector<int> shown;
    for (int i = 0; i < m_parts->count(); ++i)
        if (!m_parts->widget(i)->isHidden())
            shown.push_back(i);
    const auto own = std::ranges::find(shown, static_cast<int>(table));
    if (own == shown.end() || shown.size() == 1)
        return;
    const int beside = own + 1 == shown.end() ? *(own - 1) : *(own + 1);
    QList<int> sizes = m_parts->sizes();
    const auto roomOf = [&](int part) {
        return std::max(sizes[part] - m_parts->widget(part)->minimumSizeHint().height(), 0);
    };
    const int by = std::clamp(lines * fontMetrics().height(), -roomOf(*own), roomOf(beside));
    sizes[*own] += by;
    sizes[beside] -= by;
    m_parts->setSizes(sizes);
    TellHeights();
}

void CResultPanelWidget::UpdateState()
{
    CResultPanel& panel = *GetControl();
    QStringList lines;
    for (const CStr& note : panel.GetNotes())
        lines += ToQString(note);
    m_notes->setText(lines.join(u'\n'));
    m_notes->setVisible(!lines.isEmpty());
    m_showNotes->setEnabled(panel.HasNotes());
    m_showNotes->setChecked(panel.GetLayout().showsNotes);
    m_transpose->setEnabled(panel.CanTranspose());
    m_transpose->setChecked(panel.GetTables().IsTransposed());
    const CStr tooMany =
        CStr::Format(GetResultText(EResultText::TooManyRows), CResultTables::c_mostTransposedRows);
    m_transpose->setToolTip(panel.CanTranspose() ? QString() : ToQString(tooMany));
}

int CResultPanelWidget::Run(CFormatSpecifierDlg& dialog)
{
    const QPointer<CFormatSpecifierWindow> window(new CFormatSpecifierWindow(this));
    window->Attach(dialog);
    const int result = dialog.DoModal();
    delete window;
    return result;
}

void CResultPanelWidget::Print()
{
    const auto getPages = [this]() -> std::optional<SResultPages> {
        return GetControl() ? std::optional(GetControl()->GetPages()) : std::nullopt;
    };
    AskAndPrint(GetControl()->GetResults().title, getPages, *this);
}

std::string CResultPanelWidget::MakePdf(const SResultPages& pages)
{
    const CBusyPointer busy;
    return CommonUI::MakePdf(pages);
}

QAction* CResultPanelWidget::AddAction(QMenu& menu, EResultText text, std::function<void(CResultPanel&)> act,
                                       int following)
{
    return AddAction(menu, ToQString(GetResultText(text, following)), std::move(act));
}

QAction* CResultPanelWidget::AddAction(QMenu& menu, const QString& text,
                                       std::function<void(CResultPanel&)> act)
{
    QAction* const action = menu.addAction(text);
    connect(action, &QAction::triggered, this, [this, act = std::move(act)] {
        if (GetControl())
            Guarded([&] { act(*GetControl()); });
    });
    return action;
}

void CResultPanelWidget::AddChoice(QMenu& menu, const QString& text, bool isChosen,
                                   std::function<void(CResultPanel&)> act)
{
    QAction* const action = AddAction(menu, text, std::move(act));
    action->setCheckable(true);
    action->setChecked(isChosen);
}

void CResultPanelWidget::AddCopies(QMenu& menu, EScope scope)
{
    for (int i = 0; i < c_profileCount; ++i)
        AddAction(
            menu, EResultText::AsShown,
            [scope, i](CResultPanel& panel) { panel.Copy(scope, static_cast<ENumberProfile>(i)); }, i);
}

void CResultPanelWidget::FillCopyMenu(QMenu& menu)
{
    AddCopies(menu, EScope::Selection);
    AddCopies(AddSubMenu(menu, EResultText::Everything), EScope::Everything);
    menu.addSeparator();
    AddSigns(AddSubMenu(menu, EResultText::Spreadsheet));
}

void CResultPanelWidget::AddSigns(QMenu& menu)
{
    const SResultLayout& layout = GetControl()->GetLayout();
    int text = 0;
    QMenu& separators = AddSubMenu(menu, EResultText::Separator);
    for (const char16_t sign : c_separators)
        AddChoice(separators, ToQString(GetResultText(EResultText::Tab, text++)), layout.separator == sign,
                  [sign](CResultPanel& panel) { panel.SetSeparator(sign); });
    text = 0;
    QMenu& decimals = AddSubMenu(menu, EResultText::Decimal);
    for (const char16_t sign : c_decimals)
        AddChoice(decimals, ToQString(GetResultText(EResultText::Point, text++)), layout.decimal == sign,
                  [sign](CResultPanel& panel) { panel.SetDecimal(sign); });
}

void CResultPanelWidget::FillSaveMenu(QMenu& menu)
{
    for (int i = 0; i < c_fileCount; ++i)
        AddAction(
            menu, EResultText::File, [i](CResultPanel& panel) { panel.Save(static_cast<EResultFile>(i)); },
            i);
}

void CResultPanelWidget::FillColumnsMenu(QMenu& menu)
{
    const CResultPanel& panel = *GetControl();
    const auto& quantities = panel.GetResults().quantities;
    AddAction(menu, EResultText::ShowAll, [](CResultPanel& shown) { shown.ShowAll(); });
    menu.addSeparator();
    for (std::size_t i = 0; i < quantities.size(); ++i)
        AddChoice(
            menu, ToMenuText(quantities[i].header), !panel.IsHidden(i),
            [i, hide = !panel.IsHidden(i)](CResultPanel& shown) { shown.Hide(std::span(&i, 1), hide); });
}

void CResultPanelWidget::FillTableMenu(QMenu& menu, EResultTable table, SGridCell cell)
{
    CResultPanel* const panel = GetControl();
    if (!panel)
        return;
    panel->OnTable(table);
    const CGridSelection& selection = Grid(table).GetPane().GetSelection();
    const SGridRange own{cell.row, cell.row, cell.column, cell.column};
    const auto quantities =
        panel->GetQuantities(table, cell, selection.IsEmpty() ? own : selection.GetRange());
    if (!quantities.empty()) {
        AddUnits(menu, quantities);
        AddAction(menu, EResultText::Format,
                  [quantities](CResultPanel& shown) { shown.ChangeFormat(quantities); });
        AddAction(menu, EResultText::Hide, [quantities](CResultPanel& shown) {
            shown.Hide(quantities, true);
        })->setEnabled(panel->CanHide(quantities));
    }
    AddHidden(menu);
    AddChoice(menu, ToQString(GetResultText(EResultText::Transpose)), panel->GetTables().IsTransposed(),
              [](CResultPanel& shown) { shown.Transpose(!shown.GetTables().IsTransposed()); });
    menu.actions().constLast()->setEnabled(panel->CanTranspose());
    menu.addSeparator();
    FillCopyMenu(AddSubMenu(menu, EResultText::Copy));
    FillSaveMenu(AddSubMenu(menu, EResultText::Save));
    menu.addSeparator();
    menu.addAction(&Grid(table).GetAction(CResultGridWidget::ECommand::SelectAll));
    menu.addActions(Grid(table).GetColumnActions());
    menu.addActions(m_tables[static_cast<std::size_t>(table)].heightActions);
}

void CResultPanelWidget::AddUnits(QMenu& menu, const std::vector<std::size_t>& quantities)
{
    const CResultPanel& panel = *GetControl();
    const auto units = panel.GetUnits(quantities);
    QMenu& choices = AddSubMenu(menu, EResultText::Unit);
    choices.setEnabled(!units.empty());
    for (const auto& [factor, name] : units)
        AddChoice(
            choices, ToMenuText(name), panel.GetUnitFactor(quantities.front()) == factor,
            [quantities, factor = factor](CResultPanel& shown) { shown.SetUnitFactor(quantities, factor); });
}

void CResultPanelWidget::AddHidden(QMenu& menu)
{
    const CResultPanel& panel = *GetControl();
    const auto& quantities = panel.GetResults().quantities;
    QMenu& hidden = AddSubMenu(menu, EResultText::Show);
    for (std::size_t i = 0; i < quantities.size(); ++i)
        if (panel.IsHidden(i))
            AddAction(hidden, ToMenuText(quantities[i].header),
                      [i](CResultPanel& shown) { shown.Hide(std::span(&i, 1), false); });
    hidden.setEnabled(!hidden.isEmpty());
    hidden.addSeparator();
    AddAction(hidden, EResultText::ShowAll, [](CResultPanel& shown) { shown.ShowAll(); });
}

} // namespace CommonUI
