#include "qt/settings/SettingsDifferenceWindow.h"

#include "dialogs/help/HelpTopics.h"
#include "qt/detail/EventGuard.h"
#include "qt/detail/WindowHelp.h"
#include "qt/settings/detail/DifferenceList.h"
#include "qt/settings/detail/SettingsTexts.h"
#include "qt/settings/SettingsButton.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

namespace CommonUI
{

namespace
{

// The name of a set, or what stands for it as long as none is picked.
QString GetHeader(const CSettings& settings, int text)
{
    const CStr name = settings.GetEntryInfo().m_Name;
    return name.IsEmpty() ? GetText(text) : ToQString(name);
}

} // namespace

CSettingsDifferenceWindow::CSettingsDifferenceWindow(ESettingType type, QWidget* parent)
    : QDialog(parent)
    , m_type(type)
    , m_left(AddButton(c_leftSet, &CSettingsDifferenceWindow::TakeLeft, m_leftConnection))
    , m_right(AddButton(c_rightSet, &CSettingsDifferenceWindow::TakeRight, m_rightConnection))
    , m_list(new CDifferenceList)
    , m_onlyDifferences(new QCheckBox(GetText(c_onlyDifferences)))
    , m_state(new QLabel)
{
    AddHelp(*this, HelpTopic::c_compare);
    setWindowTitle(MakeTitle(c_compareTitle, type));
    m_onlyDifferences->setChecked(true);
    connect(m_onlyDifferences, &QCheckBox::toggled, m_list, &CDifferenceList::ShowOnlyDifferences);
    LayOut();
    Compare();
    resize(90 * fontMetrics().averageCharWidth(), 28 * fontMetrics().height());
}

CSettingsDifferenceWindow::~CSettingsDifferenceWindow() = default;

CSettingsButton* CSettingsDifferenceWindow::AddButton(int label,
                                                      void (CSettingsDifferenceWindow::*take)(CSettings&),
                                                      CClosureConnection& connection)
{
    auto* const button = new CSettingsButton(m_type, this, false);
    auto* const text = new QLabel(GetText(label), this);
    text->setBuddy(button);
    button->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    button->GetMenu().GetChosen().Subscribe(*this, take, connection);
    return button;
}

void CSettingsDifferenceWindow::LayOut()
{
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    buttons->button(QDialogButtonBox::Close)->setText(GetText(c_close));
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QGridLayout(this);
    const QList<QLabel*> labels = findChildren<QLabel*>(Qt::FindDirectChildrenOnly);
    layout->addWidget(labels[0], 0, 0);
    layout->addWidget(m_left, 0, 1);
    layout->addWidget(labels[1], 0, 2);
    layout->addWidget(m_right, 0, 3);
    layout->addWidget(m_list, 1, 0, 1, 4);
    layout->addWidget(m_onlyDifferences, 2, 0, 1, 2);
    layout->addWidget(m_state, 2, 2, 1, 2, Qt::AlignTrailing);
    layout->addWidget(buttons, 3, 0, 1, 4);
    layout->setColumnStretch(1, 1);
    layout->setColumnStretch(3, 1);
}

void CSettingsDifferenceWindow::SetLeft(const SSettingsEntry& entry)
{
    Guarded([&] { m_left->GetMenu().Choose(entry); });
}

void CSettingsDifferenceWindow::SetRight(const SSettingsEntry& entry)
{
    Guarded([&] { m_right->GetMenu().Choose(entry); });
}

void CSettingsDifferenceWindow::TakeLeft(CSettings& settings)
{
    m_leftSet = settings;
    Compare();
}

void CSettingsDifferenceWindow::TakeRight(CSettings& settings)
{
    m_rightSet = settings;
    Compare();
}

void CSettingsDifferenceWindow::Compare()
{
    m_list->SetHeaders(GetHeader(m_leftSet, c_left), GetHeader(m_rightSet, c_right));
    const bool arePicked =
        !m_leftSet.GetEntryInfo().m_Name.IsEmpty() && !m_rightSet.GetEntryInfo().m_Name.IsEmpty();
    m_list->SetKeys(arePicked ? CompareSettings(m_leftSet, m_rightSet) : std::vector<SSettingsDifference>());
    const auto& keys = m_list->GetKeys();
    m_state->setText(
        arePicked ? ToQString(CStr::Format(GetString(c_differenceCount), CountDifferences(keys), keys.size()))
                  : QString());
}

} // namespace CommonUI
