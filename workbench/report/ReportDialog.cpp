#include "workbench/report/ReportDialog.h"

#include "common/PathText.h"
#include "measurement/NamedSet.h"
#include "platform/FileDialogService.h"
#include "platform/MessageBoxService.h"
#include "settings/SetReference.h"
#include "workbench/report/ReportTexts.h"
#include "workbench/Texts.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>
#include <exception>
#include <utility>

namespace Workbench
{

using namespace CommonUI;

namespace
{

constexpr const char16_t* c_templateFilter = u"INI (*.ini)|*.ini||";

QString WithoutMark(QString text)
{
    return text.remove(QLatin1Char('&')).remove(QLatin1Char(':')).remove(QChar(0x2026));
}

CStr ReferenceOf(const SSettingsEntry& entry)
{
    return entry.m_IsFile ? CStr(c_filePrefix) + entry.m_File : MakeReference(entry.m_BuiltIn);
}

void Tell(const CStr& text)
{
    GetMessageBoxService().Show({.text = text, .style = MessageBoxStyle::c_ok | MessageBoxStyle::c_warning});
}

// Those of a template, then all others.
std::vector<EReportBlock> OrderBlocks(const SReportTemplateSettings& layout)
{
    std::vector<EReportBlock> blocks = layout.blocks;
    for (const auto& row : GetReportBlockEnum()) {
        const auto block = static_cast<EReportBlock>(row.GetValue());
        if (std::ranges::find(blocks, block) == blocks.end())
            blocks.push_back(block);
    }
    return blocks;
}

} // namespace

CReportDialog::CReportDialog(const SReportChoice& choice, FSave save, FRefuse refuse, QWidget* parent)
    : QDialog(parent)
    , m_choice(choice)
    , m_saveReport(std::move(save))
    , m_refuse(std::move(refuse))
    , m_templates(new CSettingsButton(ESettingType::ActiveReport))
    , m_title(new QLineEdit)
    , m_blocks(new QListWidget)
    , m_pictures(new QCheckBox(QText(EReportText::Pictures)))
    , m_opens(new QCheckBox(QText(EReportText::OpenAfterwards)))
{
    setWindowTitle(WithoutMark(QText(EReportText::Command)));
    auto* const form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->addRow(QText(EReportText::Template), m_templates);
    form->addRow(QText(EReportText::Title), m_title);
    form->addRow(QText(EReportText::Blocks), m_blocks);
    form->addRow(m_pictures);
    form->addRow(m_opens);
    m_templates->setAccessibleName(WithoutMark(QText(EReportText::Template)));
    m_title->setAccessibleName(WithoutMark(QText(EReportText::Title)));
    m_blocks->setAccessibleName(WithoutMark(QText(EReportText::Blocks)));
    m_pictures->setChecked(choice.hasPictures);
    m_opens->setChecked(choice.opens);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close);
    m_save = buttons->addButton(QText(EReportText::Save), QDialogButtonBox::ActionRole);
    m_saveTemplate = buttons->addButton(QText(EReportText::SaveTemplate), QDialogButtonBox::ActionRole);
    m_saveTemplate->setAutoDefault(false);
    buttons->button(QDialogButtonBox::Close)->setAutoDefault(false);
    m_save->setDefault(true);
    m_templates->setFocus();
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(form, 1);
    layout->addWidget(buttons);
    m_templates->GetMenu().GetChosen().Subscribe(*this, &CReportDialog::OnSet, m_setConnection);
    connect(m_blocks, &QListWidget::itemChanged, this, &CReportDialog::ShowState);
    connect(m_pictures, &QCheckBox::toggled, this, [this](bool isOn) { m_choice.hasPictures = isOn; });
    connect(m_opens, &QCheckBox::toggled, this, [this](bool isOn) { m_choice.opens = isOn; });
    connect(m_save, &QPushButton::clicked, this, &CReportDialog::Save);
    connect(m_saveTemplate, &QPushButton::clicked, this, &CReportDialog::SaveTemplate);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    if (!Load(m_choice.set))
        Load(SReportChoice().set); // a file that is gone
}

CReportDialog::~CReportDialog() = default;

bool CReportDialog::Load(const CStr& reference)
{
    try {
        auto set = Measurement::LoadReferredSet(GetSettingsFactory(), ESettingType::ActiveReport, reference);
        m_layout = Measurement::ReadNamedSet<SReportTemplateSettings>(set, reference);
        m_choice.set = reference;
        m_templates->GetMenu().SetCurrent(set.settings.GetEntryInfo());
    } catch (const std::exception&) {
        return false; // a file that is gone, or a document of the user's own
    }
    ShowLayout();
    return true;
}

// A document of the user's own with fields to be filled is none that can be used here.
void CReportDialog::OnSet(CSettings& settings)
{
    const SSettingsEntry entry = settings.GetEntryInfo();
    if (Load(ReferenceOf(entry)))
        return;
    Load(m_choice.set);
    Tell(CStr::Format(Text(EReportText::NoTemplate), entry.m_Name));
}

void CReportDialog::ShowLayout()
{
    m_title->setText(ToQString(m_layout.title));
    const QSignalBlocker blocker(m_blocks);
    m_blocks->clear();
    std::size_t number = 0;
    for (const EReportBlock block : OrderBlocks(m_layout)) {
        const auto value = static_cast<int>(block);
        auto* const item =
            new QListWidgetItem(ToQString(GetReportBlockEnum().GetFriendlyString(value)), m_blocks);
        item->setData(Qt::UserRole, value);
        item->setCheckState(number++ < m_layout.blocks.size() ? Qt::Checked : Qt::Unchecked);
    }
    ShowState();
}

void CReportDialog::ShowState()
{
    const bool hasBlocks = !GetLayout().blocks.empty();
    m_save->setEnabled(hasBlocks);
    m_saveTemplate->setEnabled(hasBlocks);
}

SReportTemplateSettings CReportDialog::GetLayout() const
{
    SReportTemplateSettings layout = m_layout;
    layout.title = FromQString(m_title->text());
    layout.blocks.clear();
    for (int i = 0; i < m_blocks->count(); ++i)
        if (m_blocks->item(i)->checkState() == Qt::Checked)
            layout.blocks.push_back(static_cast<EReportBlock>(m_blocks->item(i)->data(Qt::UserRole).toInt()));
    return layout;
}

void CReportDialog::Save()
{
    if (m_saveReport(GetLayout(), m_choice))
        accept();
}

void CReportDialog::SaveTemplate()
{
    CStr path;
    if (!GetFileDialogService().Choose(
            {.forOpen = false, .filter = c_templateFilter, .extension = u"ini", .memoryKey = u"Templates"},
            path))
        return;
    if (const CStr refusal = m_refuse(path); !refusal.IsEmpty())
        return Tell(CStr::Format(Text(EText::NotSaved), CStr(GetFileName(path)), refusal));
    CInifile ini;
    GetLayout().Save(ini);
    const Measurement::CFailureReason reason;
    if (!ini.SaveCopy(path))
        return Tell(CStr::Format(Text(EText::NotSaved), CStr(GetFileName(path)), reason.GetText()));
    GetSettingsFactory().LoadSettings(ESettingType::ActiveReport, path, true); // is a recent one now
    Load(CStr(c_filePrefix) + path);
}

} // namespace Workbench
