#pragma once

#include "measurement/Request.h"
#include "qt/settings/SettingsButton.h"
#include "settings/readers/ReportTemplateSettings.h"
#include "workbench/report/ReportChoice.h"

#include <QDialog>

#include <functional>

class QCheckBox;
class QLineEdit;
class QListWidget;
class QPushButton;

namespace Workbench
{

/// In which the template of a report is chosen, with its title and blocks. What is chosen can be saved as a
/// template of its own.
class CReportDialog : public QDialog
{
    Q_OBJECT

public:
    /// Asks for a file and saves the report. @return whether it is saved
    using FSave =
        std::function<bool(const CommonUI::SReportTemplateSettings& layout, const SReportChoice& choice)>;

    /// Why nothing may be saved under a name, in a clause; empty where it may.
    using FRefuse = std::function<CommonUI::CStr(const CommonUI::CStr& path)>;

    CReportDialog(const SReportChoice& choice, FSave save, FRefuse refuse, QWidget* parent);
    ~CReportDialog() override;

    const SReportChoice& GetChoice() const noexcept { return m_choice; }
    /// As it is changed here.
    CommonUI::SReportTemplateSettings GetLayout() const;

    CommonUI::CSettingsButton& GetTemplates() noexcept { return *m_templates; }
    QListWidget& GetBlocks() noexcept { return *m_blocks; }
    QLineEdit& GetTitle() noexcept { return *m_title; }
    QCheckBox& GetOpens() noexcept { return *m_opens; }
    QPushButton& GetSave() noexcept { return *m_save; }
    QPushButton& GetSaveTemplate() noexcept { return *m_saveTemplate; }

private:
    bool Load(const CommonUI::CStr& reference);
    void OnSet(CommonUI::CSettings& settings);
    void ShowLayout();
    void ShowState();
    void Save();
    void SaveTemplate();

    SReportChoice m_choice;
    FSave m_saveReport;
    FRefuse m_refuse;
    CommonUI::SReportTemplateSettings m_layout{}; // of the set
    CommonUI::CSettingsButton* m_templates;
    QLineEdit* m_title;
    QListWidget* m_blocks;
    QCheckBox* m_pictures;
    QCheckBox* m_opens;
    QPushButton* m_save;
    QPushButton* m_saveTemplate;
    CommonUI::CClosureConnection m_setConnection;
};

} // namespace Workbench
