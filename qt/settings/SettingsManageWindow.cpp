#include "qt/settings/SettingsManageWindow.h"

#include "dialogs/help/HelpTopics.h"
#include "dialogs/settings/SettingsChooser.h"
#include "dialogs/settings/SettingsFiles.h"
#include "qt/detail/EventGuard.h"
#include "qt/detail/WindowHelp.h"
#include "qt/settings/detail/SettingsList.h"
#include "qt/settings/detail/SettingsTexts.h"

#include <QDialogButtonBox>
#include <QGridLayout>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

namespace CommonUI
{

CSettingsManageWindow::CSettingsManageWindow(CSettingsMenu& menu, QWidget* parent)
    : QDialog(parent)
    , m_menu(menu)
    , m_chooser(std::make_unique<CSettingsChooser>(menu, true))
    , m_search(new QLineEdit)
    , m_list(new CSettingsList(*m_chooser, *m_search))
    , m_state(new QLabel)
    , m_rename(AddButton(c_rename, &CSettingsManageWindow::Rename))
    , m_trash(AddButton(c_trash, &CSettingsManageWindow::MoveToTrash))
    , m_openFolder(AddButton(c_openFolder, &CSettingsManageWindow::OpenFolder))
{
    AddHelp(*this, HelpTopic::c_manage);
    setWindowTitle(MakeTitle(c_manageTitle, menu.GetType()));
    connect(new QShortcut(Qt::Key_F2, this), &QShortcut::activated, m_rename, &QPushButton::click);
    connect(new QShortcut(QKeySequence::Delete, m_list, nullptr, nullptr, Qt::WidgetShortcut),
            &QShortcut::activated, m_trash, &QPushButton::click);
    m_list->SetOnSelection([this] { ShowState(); });
    LayOut();
    m_chooser->GetStateChanged().Subscribe(*this, &CSettingsManageWindow::ShowState, m_stateChanged);
    m_list->Select(menu.GetCurrent());
    ShowState();
    resize(80 * fontMetrics().averageCharWidth(), 22 * fontMetrics().height());
}

CSettingsManageWindow::~CSettingsManageWindow()
{
    // Before the chooser that it shows.
    delete m_list;
}

QPushButton* CSettingsManageWindow::AddButton(int text, void (CSettingsManageWindow::*act)())
{
    auto* const button = new QPushButton(GetText(text), this);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, this, [this, act] { Guarded([&] { (this->*act)(); }); });
    return button;
}

void CSettingsManageWindow::LayOut()
{
    auto* const label = new QLabel(GetText(c_search));
    label->setBuddy(m_search);
    auto* const side = new QVBoxLayout;
    for (QPushButton* const button : {m_rename, m_trash, m_openFolder})
        side->addWidget(button);
    side->addStretch();
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setText(GetText(c_close));
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QGridLayout(this);
    layout->addWidget(label, 0, 0);
    layout->addWidget(m_search, 0, 1);
    layout->addWidget(m_list, 1, 0, 1, 2);
    layout->addLayout(side, 1, 2);
    layout->addWidget(m_state, 2, 0, 1, 2);
    layout->addWidget(buttons, 3, 0, 1, 3);
    setTabOrder(m_list, m_rename);
    setTabOrder(m_rename, m_trash);
    setTabOrder(m_trash, m_openFolder);
}

void CSettingsManageWindow::ShowState()
{
    const bool isSelected = m_list->GetSelected().has_value();
    m_state->setText(ToQString(m_chooser->Describe()));
    m_rename->setEnabled(isSelected);
    m_trash->setEnabled(isSelected);
}

// What the user wants the set to be called.
std::optional<QString> CSettingsManageWindow::AskName(const CStr& name)
{
    // The window may go meanwhile, and takes it along.
    const QPointer<QInputDialog> dialog = new QInputDialog(this);
    AddHelp(*dialog, HelpTopic::c_manage);
    dialog->setWindowTitle(GetText(c_renameTitle));
    dialog->setLabelText(GetText(c_newName));
    dialog->setTextValue(ToQString(name));
    const bool isGiven = dialog->exec() == QDialog::Accepted && dialog;
    auto given = isGiven ? std::optional(dialog->textValue()) : std::nullopt;
    delete dialog;
    return given;
}

void CSettingsManageWindow::Rename()
{
    auto entry = m_list->GetSelected();
    const auto name = entry ? AskName(entry->m_Name) : std::nullopt;
    if (name && m_menu.Rename(*entry, FromQString(*name)))
        m_list->Select(*entry);
}

void CSettingsManageWindow::MoveToTrash()
{
    if (const auto entry = m_list->GetSelected())
        m_menu.Delete(*entry);
}

void CSettingsManageWindow::OpenFolder()
{
    OpenSettingsFolder(m_menu.GetType());
}

} // namespace CommonUI
