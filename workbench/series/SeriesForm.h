#pragma once

#include "controls/folders/FolderCombo.h"
#include "measurement/BackgroundWork.h"
#include "workbench/series/SeriesSource.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QListWidget;
class QPushButton;

namespace CommonUI
{
class CFolderComboWidget;
}

namespace Workbench
{

/// In which the surfaces of a series and their steps are chosen. A folder is looked through in the
/// background.
class CSeriesForm : public QWidget
{
    Q_OBJECT

public:
    explicit CSeriesForm(FSeriesSource source);
    ~CSeriesForm() override;

    void SetChoice(const SSeriesChoice& choice);
    const SSeriesChoice& GetChoice() const noexcept { return m_choice; }
    /// Other surfaces are open.
    void UpdateOpen();
    /// The surfaces that are chosen, with the steps that shall be done.
    std::vector<CommonUI::Measurement::SSeriesItem> GetItems() const;
    bool IsLooking() const noexcept { return m_looking.IsBusy(); }
    /// Why the folder has no files, in a sentence; empty where it could be looked through.
    const CommonUI::CStr& GetFailure() const noexcept { return m_failure; }

    QComboBox& GetSources() noexcept { return *m_sources; }
    QComboBox& GetSteps() noexcept { return *m_steps; }
    QListWidget& GetList() noexcept { return *m_list; }
    QCheckBox& GetAll() noexcept { return *m_all; }
    QPushButton& GetBrowse() noexcept { return *m_browse; }
    CommonUI::CFolderComboWidget& GetFolder() noexcept { return *m_folder; }

Q_SIGNALS:
    void Changed();

private:
    void OnSource();
    void OnFolder(const CommonUI::CStr& path);
    void OnSteps();
    void OnItem();
    void OnAll();
    void Browse();
    void ShowSource();
    void Look();
    void FillList(std::vector<CommonUI::Measurement::SSeriesItem> items);
    std::vector<bool> GetChecked() const;

    FSeriesSource m_source;
    SSeriesChoice m_choice;
    CommonUI::CFolderCombo m_combo;
    QFormLayout* m_form;
    QComboBox* m_sources;
    CommonUI::CFolderComboWidget* m_folder;
    QWidget* m_folderRow;
    QPushButton* m_browse;
    QListWidget* m_list;
    QCheckBox* m_all;
    QComboBox* m_steps;
    std::vector<CommonUI::Measurement::SSeriesItem> m_items; // of the list
    CommonUI::CStr m_failure;
    CommonUI::Measurement::CBackgroundWork m_looking;
};

} // namespace Workbench
