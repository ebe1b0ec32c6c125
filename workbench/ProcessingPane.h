#pragma once

#include "qt/framework/DockPane.h"
#include "qt/settings/SettingsButton.h"
#include "workbench/StepForm.h"
#include "workbench/SurfacePage.h"

#include <QAction>
#include <QPointer>

#include <functional>

class QFormLayout;
class QLabel;
class QListWidget;
class QListWidgetItem;
class QToolBar;

namespace Workbench
{

/// The steps of a surface in a dock: a list of which they are switched on and off, moved and removed, menus
/// of sets for further ones, and the numbers of the chosen step.
class CProcessingPane : public CommonUI::CDockPane
{
    Q_OBJECT

public:
    CProcessingPane();
    ~CProcessingPane() override;

    /// Shows the steps of a page; null for none.
    void SetPage(CSurfacePage* page);
    QAction& GetUndo() noexcept { return *m_undo; }
    QAction& GetRedo() noexcept { return *m_redo; }

    QListWidget& GetList() noexcept { return *m_list; }
    CStepForm& GetForm() noexcept { return *m_form; }
    CommonUI::CSettingsButton& GetCorrections() noexcept { return *m_corrections; }
    CommonUI::CSettingsButton& GetFilters() noexcept { return *m_filters; }
    CommonUI::CSettingsButton& GetSequences() noexcept { return *m_sequences; }
    /// What is said below the list.
    QString GetState() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using FCommand = std::function<void()>;

    QToolBar* MakeCommands();
    QAction* AddCommand(QToolBar& bar, const QString& text, const QIcon& icon, const QKeySequence& keys,
                        const FCommand& command);
    CommonUI::CSettingsButton* AddSets(QFormLayout& form, const QString& text, CommonUI::ESettingType type,
                                       CommonUI::CClosureConnection& connection);
    void OnSet(CommonUI::CSettings& settings);
    void Add(const CommonUI::SSettingsEntry& entry);
    void AddSequence(CommonUI::CSettings& settings);
    void Replace(const CommonUI::SSettingsEntry& entry);
    void Edit(CommonUI::Measurement::EStepNumber number, double value);
    void Move(int by);
    void Remove();
    void SaveSequence();
    void OnItem(QListWidgetItem* item);
    CommonUI::Measurement::CSurfaceProcessing* GetProcessing() const;
    unsigned GetChosen() const;
    void Fill();
    void FillRows();
    void ShowState();

    QPointer<CSurfacePage> m_page;
    QAction* m_undo;
    QAction* m_redo;
    QAction* m_up = nullptr;
    QAction* m_down = nullptr;
    QAction* m_remove = nullptr;
    QAction* m_save = nullptr;
    CommonUI::CSettingsButton* m_corrections = nullptr;
    CommonUI::CSettingsButton* m_filters = nullptr;
    CommonUI::CSettingsButton* m_sequences = nullptr;
    QListWidget* m_list;
    CStepForm* m_form;
    QLabel* m_state;
    bool m_isFilling = false;
    CommonUI::CClosureConnection m_changeConnection;
    CommonUI::CClosureConnection m_correctionConnection;
    CommonUI::CClosureConnection m_filterConnection;
    CommonUI::CClosureConnection m_sequenceConnection;
};

} // namespace Workbench
