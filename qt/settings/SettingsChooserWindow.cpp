#include "qt/settings/SettingsChooserWindow.h"

#include "dialogs/help/HelpTopics.h"
#include "dialogs/settings/SettingsChooser.h"
#include "qt/detail/EventGuard.h"
#include "qt/detail/WindowHelp.h"
#include "qt/settings/detail/SettingsList.h"
#include "qt/settings/detail/SettingsTexts.h"

#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QVBoxLayout>

namespace CommonUI
{

CSettingsChooserWindow::CSettingsChooserWindow(CSettingsMenu& menu, QWidget* parent)
    : QDialog(parent)
    , m_menu(menu)
    , m_chooser(std::make_unique<CSettingsChooser>(menu))
    , m_search(new QLineEdit)
    , m_list(new CSettingsList(*m_chooser, *m_search))
    , m_state(new QLabel)
{
    AddHelp(*this, HelpTopic::c_chooser);
    setWindowTitle(MakeTitle(c_chooserTitle, menu.GetType()));
    LayOut();
    m_list->SetOnSelection([this] { ShowState(); });
    connect(m_list, &QAbstractItemView::doubleClicked, this, &QDialog::accept);
    m_chooser->GetStateChanged().Subscribe(*this, &CSettingsChooserWindow::ShowState, m_stateChanged);
    m_list->Select(menu.GetCurrent());
    ShowState();
    resize(90 * fontMetrics().averageCharWidth(), 26 * fontMetrics().height());
}

CSettingsChooserWindow::~CSettingsChooserWindow()
{
    // Before the chooser that it shows.
    delete m_list;
}

void CSettingsChooserWindow::LayOut()
{
    auto* const label = new QLabel(GetText(c_search));
    label->setBuddy(m_search);
    auto* const top = new QHBoxLayout;
    top->addWidget(label);
    top->addWidget(m_search);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_choose = buttons->button(QDialogButtonBox::Ok);
    m_choose->setText(GetText(c_choose));
    buttons->button(QDialogButtonBox::Cancel)->setText(GetText(c_cancelButton));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(top);
    layout->addWidget(m_list);
    layout->addWidget(m_state);
    layout->addWidget(buttons);
}

void CSettingsChooserWindow::ShowState()
{
    m_state->setText(ToQString(m_chooser->Describe()));
    m_choose->setEnabled(m_list->GetSelected().has_value());
}

void CSettingsChooserWindow::accept()
{
    const auto entry = m_list->GetSelected();
    if (!entry)
        return;
    const QPointer<CSettingsChooserWindow> window = this;
    bool isChosen = false;
    Guarded([&] { isChosen = m_menu.Choose(*entry); });
    if (isChosen && window)
        QDialog::accept();
}

} // namespace CommonUI
