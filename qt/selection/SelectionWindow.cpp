#include "qt/selection/SelectionWindow.h"

#include "qt/detail/EventGuard.h"
#include "qt/dialogs/FormatSpecifierWindow.h"
#include "qt/QtText.h"
#include "qt/selection/detail/Mnemonics.h"
#include "qt/selection/detail/OptionForm.h"
#include "qt/selection/detail/SelectionTree.h"
#include "qt/selection/OptionsWindow.h"

#include <QAccessible>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <memory>
#include <utility>

namespace CommonUI
{

using CDlg = CSelectionDlg;

namespace
{

// The letters of the buttons and of the search field.
const QString c_buttonLetters = QStringLiteral("agrfdtsh");

} // namespace

CSelectionWindow::CSelectionWindow(QWidget* parent)
    : CDialogViewWindow(parent)
    , m_tabs(new QTabWidget)
    , m_searchLine(new QWidget)
    , m_search(new QLineEdit)
    , m_remark(new QLabel)
{
    // All tabs are seen, however small the window is.
    m_tabs->setUsesScrollButtons(false);
    LayOut();
    connect(m_search, &QLineEdit::textChanged, this, [this](const QString& text) {
        if (GetControl() && !m_making)
            Guarded([&] { GetControl()->OnSearch(FromQString(text)); });
    });
    m_search->installEventFilter(this);
    connect(m_tabs, &QTabWidget::currentChanged, this, [this](int tab) { OnTabChanged(tab); });
    auto* const find = new QShortcut(QKeySequence::Find, this);
    connect(find, &QShortcut::activated, this, [this] {
        m_search->setFocus(Qt::ShortcutFocusReason);
        m_search->selectAll();
    });
    // Before a list takes the key for a letter.
    for (const bool next : {true, false}) {
        auto* const go = new QShortcut(next ? QKeySequence::NextChild : QKeySequence::PreviousChild, this);
        connect(go, &QShortcut::activated, this, [this, next] {
            if (const int count = m_tabs->count(); count > 0)
                m_tabs->setCurrentIndex((m_tabs->currentIndex() + (next ? 1 : count - 1)) % count);
        });
    }
}

CSelectionWindow::~CSelectionWindow()
{
    if (GetControl() && GetControl()->IsOpen())
        GetControl()->OnCancel();
    ForgetPages();
}

void CSelectionWindow::LayOut()
{
    auto* const searchLabel = new QLabel;
    searchLabel->setBuddy(m_search);
    m_search->setClearButtonEnabled(true);
    AddControl(CDlg::c_search, *m_search, searchLabel);
    auto* const searchLine = new QHBoxLayout(m_searchLine);
    searchLine->setContentsMargins(0, 0, 0, 0);
    searchLine->addWidget(searchLabel);
    searchLine->addWidget(m_search, 1);
    // The tabs stay where they are.
    QSizePolicy policy = m_searchLine->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    m_searchLine->setSizePolicy(policy);

    auto* const left = new QVBoxLayout;
    left->addWidget(m_searchLine);
    left->addWidget(m_tabs, 1);
    auto* const middle = new QHBoxLayout;
    middle->addLayout(left, 1);
    middle->addWidget(MakeCommands());

    auto* const count = new QLabel;
    m_remark->setTextFormat(Qt::PlainText);
    m_remark->setWordWrap(true);
    m_remark->setMinimumHeight(fontMetrics().lineSpacing());
    AddControl(CDlg::c_count, *count);
    AddControl(CDlg::c_remark, *m_remark);
    auto* const texts = new QHBoxLayout;
    texts->addWidget(count);
    texts->addSpacing(2 * fontMetrics().averageCharWidth());
    texts->addWidget(m_remark, 1);

    auto* const buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Help);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(buttons, &QDialogButtonBox::helpRequested, this, [this] {
        if (GetControl())
            Guarded([this] { GetControl()->OnHelpInfo(); });
    });
    AddControl(CBaseDialog::c_ok, *buttons->button(QDialogButtonBox::Ok));
    AddControl(CBaseDialog::c_cancel, *buttons->button(QDialogButtonBox::Cancel));
    AddControl(CDlg::c_help, *buttons->button(QDialogButtonBox::Help));

    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(middle, 1);
    layout->addLayout(texts);
    layout->addWidget(buttons);
    for (const auto& [command, button] : m_commands)
        m_lastStops.push_back(button);
    for (const auto button : {QDialogButtonBox::Ok, QDialogButtonBox::Cancel, QDialogButtonBox::Help})
        m_lastStops.push_back(buttons->button(button));
    setSizeGripEnabled(true);
}

QWidget* CSelectionWindow::MakeCommands()
{
    auto* const column = new QWidget;
    auto* const layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const int command : {CDlg::c_add, CDlg::c_change, CDlg::c_remove, CDlg::c_format})
        AddCommand(*column, command);
    layout->addStretch();
    for (const int command : {CDlg::c_defaults, CDlg::c_stored})
        AddCommand(*column, command);
    return column;
}

void CSelectionWindow::AddCommand(QWidget& column, int command)
{
    auto* const button = new QPushButton;
    button->setAutoDefault(false);
    button->setProperty("command", command);
    connect(button, &QPushButton::clicked, this, [this, command] {
        if (GetControl())
            Guarded([&] { GetControl()->OnCommand(command); });
    });
    column.layout()->addWidget(button);
    AddControl(command, *button);
    m_commands[command] = button;
}

void CSelectionWindow::ForgetPages()
{
    for (const SPage& page : m_pages)
        if (page.tree)
            page.tree->GetModel().Forget();
    m_pages.clear();
}

QWidget* CSelectionWindow::MakePage(std::size_t tab)
{
    CDlg& dialog = *GetControl();
    SPage& page = m_pages.emplace_back();
    auto* const widget = new QWidget;
    auto* const layout = new QVBoxLayout(widget);
    if (!dialog.GetTabs()[tab].columns.empty()) {
        page.tree = new CSelectionTree(*this, tab);
        layout->addWidget(page.tree, 1);
    }
    if (!dialog.GetTabs()[tab].options.empty()) {
        page.form = new COptionForm(
            [this](int id, int value) {
                if (GetControl())
                    GetControl()->OnChoice(id, value);
            },
            [this](int id, const CStr& text) {
                if (GetControl())
                    GetControl()->OnOptionText(id, text);
            });
        layout->addWidget(page.form);
    }
    if (!page.tree)
        layout->addStretch();
    return widget;
}

void CSelectionWindow::MakeTabs()
{
    m_making = true;
    ForgetPages();
    while (m_tabs->count() > 0) {
        QWidget* const page = m_tabs->widget(0);
        m_tabs->removeTab(0);
        delete page;
    }
    m_search->clear();
    CMnemonics letters(c_buttonLetters);
    for (std::size_t tab = 0; tab < GetControl()->GetTabs().size(); ++tab) {
        const CStr name = GetSelectionTabName(GetControl()->GetTabs()[tab].kind);
        m_tabs->addTab(MakePage(tab), letters.Mark(ToQString(name)));
    }
    m_making = false;
    for (std::size_t tab = 0; tab < m_pages.size(); ++tab)
        UpdateOptions(tab);
    OrderTabStops();
    ShowTabState();
    m_search->setFocus(Qt::OtherFocusReason);
}

// Tab leads to the buttons last: rows and fields are made after them.
void CSelectionWindow::OrderTabStops()
{
    QWidget* before = m_tabs->tabBar();
    const auto add = [&before](QWidget* stop) { setTabOrder(std::exchange(before, stop), stop); };
    for (const SPage& page : m_pages) {
        if (page.tree)
            add(page.tree);
        if (page.form)
            std::ranges::for_each(page.form->GetFields(), add);
    }
    std::ranges::for_each(m_lastStops, add);
}

void CSelectionWindow::OnTabChanged(int tab)
{
    CDlg* const dialog = GetControl();
    if (m_making || !dialog || tab < 0)
        return;
    const auto number = static_cast<std::size_t>(tab);
    Guarded([&] { dialog->OnTab(number); });
    ShowTabState();
    if (CSelectionTree* const tree = m_pages[number].tree) {
        std::vector<int> rows;
        for (const QModelIndex& index : tree->selectionModel()->selectedRows())
            rows.push_back(CSelectionItemModel::RowOf(index));
        Guarded([&] { dialog->OnSelect(rows); });
    }
}

// The search field and the commands are those of the current tab.
void CSelectionWindow::ShowTabState()
{
    const CDlg& dialog = *GetControl();
    const std::size_t tab = dialog.GetCurrentTab();
    m_making = true;
    m_search->setText(ToQString(dialog.GetTabs()[tab].rows.GetSearch()));
    m_making = false;
    m_searchLine->setVisible(!dialog.GetTabs()[tab].columns.empty());
    for (const auto& [command, button] : m_commands)
        button->setVisible(dialog.HasCommand(tab, command));
}

void CSelectionWindow::ResetRows(std::size_t tab)
{
    if (tab < m_pages.size() && m_pages[tab].tree)
        m_pages[tab].tree->ShowRows();
    // The dialog may have ended the search.
    if (GetControl() && tab == GetControl()->GetCurrentTab()) {
        const QString text = ToQString(GetControl()->GetTabs()[tab].rows.GetSearch());
        if (m_search->text() != text)
            ShowTabState();
    }
}

void CSelectionWindow::UpdateRows(std::size_t tab)
{
    if (tab < m_pages.size() && m_pages[tab].tree)
        m_pages[tab].tree->GetModel().Update();
}

void CSelectionWindow::UpdateOptions(std::size_t tab)
{
    if (tab >= m_pages.size() || !m_pages[tab].form)
        return;
    CMnemonics letters(c_buttonLetters);
    for (const CDlg::STab& shown : GetControl()->GetTabs())
        letters.Mark(ToQString(GetSelectionTabName(shown.kind)));
    m_pages[tab].form->Show(GetControl()->GetTabs()[tab].options, letters);
    OrderTabStops();
}

void CSelectionWindow::GoToRow(std::size_t tab, int row)
{
    m_tabs->setCurrentIndex(static_cast<int>(tab));
    if (m_pages[tab].tree)
        m_pages[tab].tree->GoToRow(row);
}

void CSelectionWindow::GoToOption(std::size_t tab, int option)
{
    m_tabs->setCurrentIndex(static_cast<int>(tab));
    if (m_pages[tab].form)
        m_pages[tab].form->FocusOption(option);
}

int CSelectionWindow::Run(CFormatSpecifierDlg& dialog)
{
    const QPointer<CFormatSpecifierWindow> window(new CFormatSpecifierWindow(this));
    window->Attach(dialog);
    const int result = dialog.DoModal();
    delete window;
    return result;
}

int CSelectionWindow::Run(COptionsDlg& dialog)
{
    const QPointer<COptionsWindow> window(new COptionsWindow(this));
    dialog.SetView(window);
    const int result = dialog.DoModal();
    delete window;
    return result;
}

void CSelectionWindow::SetText(int control, const CStr& text)
{
    const bool isNews = control == CDlg::c_remark && ToQString(text) != m_remark->text();
    CDialogViewWindow::SetText(control, text);
    if (!isNews || text.IsEmpty())
        return;
    QAccessibleEvent event(m_remark, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

QTreeView* CSelectionWindow::GetTree(std::size_t tab) const
{
    return tab < m_pages.size() ? m_pages[tab].tree : nullptr;
}

QSize CSelectionWindow::sizeHint() const
{
    const QSize least = CDialogViewWindow::sizeHint();
    // All tabs are seen, and names of the usual length beside units and formats.
    const int beside = least.width() - m_tabs->sizeHint().width();
    const int tabs = m_tabs->tabBar()->sizeHint().width() + beside + fontMetrics().averageCharWidth();
    const QSize rows(120 * fontMetrics().averageCharWidth(), 36 * fontMetrics().height());
    return least.expandedTo(rows).expandedTo({tabs, 0});
}

// From the search field the arrow down leads to what was found.
bool CSelectionWindow::eventFilter(QObject* watched, QEvent* event)
{
    const bool isDown = watched == m_search && event->type() == QEvent::KeyPress &&
                        static_cast<const QKeyEvent*>(event)->key() == Qt::Key_Down;
    QTreeView* const tree = isDown ? GetTree(static_cast<std::size_t>(m_tabs->currentIndex())) : nullptr;
    if (!tree)
        return CDialogViewWindow::eventFilter(watched, event);
    tree->setFocus(Qt::OtherFocusReason);
    return true;
}

} // namespace CommonUI
