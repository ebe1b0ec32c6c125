#include "workbench/series/SeriesForm.h"

#include "common/PathText.h"
#include "formats/SurfaceFiles.h"
#include "platform/FileDialogService.h"
#include "qt/controls/FolderComboWidget.h"
#include "workbench/analyze/AnalyzeTexts.h"
#include "workbench/series/SeriesTexts.h"
#include "workbench/Texts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

#include <algorithm>
#include <exception>
#include <utility>

namespace Workbench
{

using namespace CommonUI;
using CItems = std::vector<Measurement::SSeriesItem>;

namespace
{

QString WithoutMark(QString text)
{
    return text.remove(QLatin1Char('&')).remove(QLatin1Char(':'));
}

QComboBox* AddList(QFormLayout& form, const QString& label)
{
    auto* const list = new QComboBox;
    list->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    list->setMinimumContentsLength(20);
    list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    list->setAccessibleName(WithoutMark(label));
    form.addRow(label, list);
    return list;
}

struct SFound {
    CItems items{};
    CStr failure{};
};

CItems FindFiles(const CStr& folder)
{
    CItems items;
    const std::filesystem::path path = ToPath(folder);
    for (const auto& file : Formats::FindSurfaceFiles(path)) {
        Measurement::SSeriesItem item;
        ToText(file.lexically_relative(path), item.name);
        ToText(file, item.path);
        items.push_back(std::move(item));
    }
    return items;
}

// In the background nothing may be thrown.
SFound FindItems(const CStr& folder)
{
    try {
        return {.items = FindFiles(folder)};
    } catch (const std::exception& error) {
        return {.failure = CStr::FromUtf8(error.what())};
    }
}

} // namespace

CSeriesForm::CSeriesForm(FSeriesSource source)
    : m_source(std::move(source))
    , m_form(new QFormLayout(this))
    , m_folder(new CFolderComboWidget(m_combo))
    , m_folderRow(new QWidget)
    , m_list(new QListWidget)
    , m_all(new QCheckBox(QText(ESeriesText::ChooseAll)))
{
    m_form->setContentsMargins(0, 0, 0, 0);
    m_form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    m_sources = AddList(*m_form, QText(ESeriesText::Source));
    m_sources->addItems({QText(ESeriesText::OpenSurfaces), QText(ESeriesText::FolderFiles)});
    m_browse = new QPushButton(QText(ESeriesText::Browse));
    m_browse->setAutoDefault(false);
    auto* const row = new QHBoxLayout(m_folderRow);
    row->setContentsMargins(0, 0, 0, 0);
    row->addWidget(m_folder, 1);
    row->addWidget(m_browse);
    m_folderRow->setFocusProxy(m_folder);
    m_form->addRow(QText(ESeriesText::Folder), m_folderRow);
    m_list->setAccessibleName(QText(EText::Surfaces));
    m_list->setMinimumHeight(5 * fontMetrics().height());
    m_list->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);
    m_form->addRow(m_list);
    m_form->addRow(m_all);
    m_steps = AddList(*m_form, QText(ESeriesText::Steps));
    m_combo.SetCallback(*this, &CSeriesForm::OnFolder);
    connect(m_sources, &QComboBox::currentIndexChanged, this, &CSeriesForm::OnSource);
    connect(m_steps, &QComboBox::currentIndexChanged, this, &CSeriesForm::OnSteps);
    connect(m_list, &QListWidget::itemChanged, this, &CSeriesForm::OnItem);
    connect(m_all, &QCheckBox::clicked, this, &CSeriesForm::OnAll);
    connect(m_browse, &QPushButton::clicked, this, &CSeriesForm::Browse);
    ShowSource();
}

CSeriesForm::~CSeriesForm() = default;

void CSeriesForm::SetChoice(const SSeriesChoice& choice)
{
    m_choice = choice;
    m_combo.SetPath(choice.folder);
    const QSignalBlocker blocker(m_sources);
    m_sources->setCurrentIndex(choice.isOfFolder ? 1 : 0);
    ShowSource();
}

void CSeriesForm::OnSource()
{
    m_choice.isOfFolder = m_sources->currentIndex() == 1;
    ShowSource();
    Q_EMIT Changed();
}

void CSeriesForm::OnFolder(const CStr& path)
{
    m_choice.folder = path;
    Look();
    Q_EMIT Changed();
}

void CSeriesForm::OnSteps()
{
    m_choice.steps = static_cast<ESeriesSteps>(m_steps->currentData().toInt());
    Q_EMIT Changed();
}

// Files have no steps of their own.
void CSeriesForm::ShowSource()
{
    m_form->setRowVisible(m_folderRow, m_choice.isOfFolder);
    {
        const QSignalBlocker blocker(m_steps);
        m_steps->clear();
        m_steps->addItem(QText(EAnalyzeText::NoSurface), static_cast<int>(ESeriesSteps::None));
        m_steps->addItem(QText(ESeriesText::StepsOfCurrent), static_cast<int>(ESeriesSteps::OfCurrent));
        if (!m_choice.isOfFolder)
            m_steps->addItem(QText(ESeriesText::StepsOfEach), static_cast<int>(ESeriesSteps::OfEach));
        m_steps->setCurrentIndex(std::max(0, m_steps->findData(static_cast<int>(m_choice.steps))));
    }
    if (m_choice.isOfFolder) {
        Look();
    } else {
        m_looking.Cancel();
        m_failure = {};
        FillList({});
        UpdateOpen();
    }
}

void CSeriesForm::UpdateOpen()
{
    if (!m_choice.isOfFolder)
        FillList(m_source().open);
}

void CSeriesForm::Look()
{
    m_failure = {};
    FillList({});
    m_looking.Cancel();
    if (m_choice.folder.IsEmpty())
        return;
    m_looking.Request([this, folder = m_choice.folder](const auto&) {
        return [this, found = FindItems(folder)] {
            m_failure = found.failure;
            FillList(found.items);
        };
    });
    Q_EMIT Changed();
}

// What was chosen stays so.
void CSeriesForm::FillList(CItems items)
{
    const std::vector<bool> wereChecked = GetChecked();
    const CItems before = std::exchange(m_items, std::move(items));
    for (Measurement::SSeriesItem& item : m_items)
        item.input = nullptr; // a surface that is closed shall go
    const QSignalBlocker blocker(m_list);
    m_list->clear();
    for (const Measurement::SSeriesItem& item : m_items) {
        auto* const row = new QListWidgetItem(ToQString(item.name), m_list);
        row->setToolTip(ToQString(item.path));
        const auto known = std::ranges::find(before, item.path, &Measurement::SSeriesItem::path);
        const bool isOff =
            known != before.end() && !wereChecked[static_cast<std::size_t>(known - before.begin())];
        row->setCheckState(isOff ? Qt::Unchecked : Qt::Checked);
    }
    OnItem();
}

std::vector<bool> CSeriesForm::GetChecked() const
{
    std::vector<bool> checked(m_items.size(), true);
    for (int i = 0; i < m_list->count(); ++i)
        checked[static_cast<std::size_t>(i)] = m_list->item(i)->checkState() == Qt::Checked;
    return checked;
}

void CSeriesForm::OnItem()
{
    const std::vector<bool> checked = GetChecked();
    const auto count = std::ranges::count(checked, true);
    const bool isAll = count > 0 && static_cast<std::size_t>(count) == checked.size();
    m_all->setCheckState(isAll ? Qt::Checked : count > 0 ? Qt::PartiallyChecked : Qt::Unchecked);
    m_all->setEnabled(!checked.empty());
    Q_EMIT Changed();
}

// What is partly checked becomes whole by a click.
void CSeriesForm::OnAll()
{
    const std::vector<bool> checked = GetChecked();
    const bool isAll = std::ranges::count(checked, false) == 0;
    {
        const QSignalBlocker blocker(m_list);
        for (int i = 0; i < m_list->count(); ++i)
            m_list->item(i)->setCheckState(isAll ? Qt::Unchecked : Qt::Checked);
    }
    OnItem();
}

void CSeriesForm::Browse()
{
    CStr chosen;
    if (GetFileDialogService().Choose({.folder = m_choice.folder, .isFolder = true}, chosen))
        m_combo.OnUserEntered(chosen);
}

CItems CSeriesForm::GetItems() const
{
    const std::vector<bool> checked = GetChecked();
    const auto steps = static_cast<ESeriesSteps>(m_steps->currentData().toInt());
    const SSeriesSource source = m_source();
    CItems items;
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (!checked[i])
            continue;
        const auto open = std::ranges::find(source.open, m_items[i].path, &Measurement::SSeriesItem::path);
        items.push_back(m_choice.isOfFolder || open == source.open.end() ? m_items[i] : *open);
        if (steps != ESeriesSteps::OfEach)
            items.back().steps =
                steps == ESeriesSteps::OfCurrent ? source.steps : Measurement::CProcessSteps();
    }
    return items;
}

} // namespace Workbench
