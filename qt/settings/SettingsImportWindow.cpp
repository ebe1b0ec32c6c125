#include "qt/settings/SettingsImportWindow.h"

#include "dialogs/help/HelpTopics.h"
#include "qt/detail/EventGuard.h"
#include "qt/detail/WindowHelp.h"
#include "qt/settings/detail/DifferenceList.h"
#include "qt/settings/detail/SettingsTexts.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace CommonUI
{

CSettingsImportWindow::CSettingsImportWindow(CSettingsImport& import, ESettingType type, QWidget* parent)
    : QDialog(parent)
    , m_import(import)
    , m_use(new QCheckBox(GetText(c_useAtOnce)))
{
    AddHelp(*this, HelpTopic::c_import);
    setWindowTitle(MakeTitle(c_importTitle, type));
    m_use->setChecked(true);
    auto* const text = new QLabel(ToQString(import.Describe()));
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    auto* const list = new CDifferenceList;
    list->SetHeaders(GetText(c_yours), GetText(c_imported));
    list->SetKeys(import.GetKeys());
    auto* const onlyDifferences = new QCheckBox(GetText(c_onlyDifferences));
    onlyDifferences->setChecked(true);
    connect(onlyDifferences, &QCheckBox::toggled, list, &CDifferenceList::ShowOnlyDifferences);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(GetText(c_importButton));
    buttons->button(QDialogButtonBox::Cancel)->setText(GetText(c_cancelButton));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* const layout = new QVBoxLayout(this);
    for (QWidget* const widget :
         {static_cast<QWidget*>(text), static_cast<QWidget*>(list), static_cast<QWidget*>(onlyDifferences),
          static_cast<QWidget*>(m_use), static_cast<QWidget*>(buttons)})
        layout->addWidget(widget);
    resize(80 * fontMetrics().averageCharWidth(), 24 * fontMetrics().height());
}

CSettingsImportWindow::~CSettingsImportWindow() = default;

bool CSettingsImportWindow::IsUsedAtOnce() const
{
    return m_use->isChecked();
}

void CSettingsImportWindow::accept()
{
    bool isDone = false;
    Guarded([&] { isDone = m_import.Apply(); });
    if (isDone)
        QDialog::accept();
}

} // namespace CommonUI
