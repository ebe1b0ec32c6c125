#pragma once

#include "../../dialogs/settings/SettingsMenu.h"
#include "../../export/Export.h"

#include <QDialog>

#include <memory>
#include <optional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace CommonUI
{

class CSettingsChooser;
class CSettingsList;

/// The user's own sets of a type, to be renamed (F2), moved to the trash (Delete) and shown in their folder.
class COMMONUIQT_API CSettingsManageWindow : public QDialog
{
    Q_OBJECT

public:
    /// @param menu outlives the window
    explicit CSettingsManageWindow(CSettingsMenu& menu, QWidget* parent = nullptr);
    ~CSettingsManageWindow() override;

private:
    QPushButton* AddButton(int text, void (CSettingsManageWindow::*act)());
    void LayOut();
    void ShowState();
    std::optional<QString> AskName(const CStr& name);
    void Rename();
    void MoveToTrash();
    void OpenFolder();

    CSettingsMenu& m_menu;
    std::unique_ptr<CSettingsChooser> m_chooser;
    QLineEdit* m_search;
    CSettingsList* m_list;
    QLabel* m_state;
    QPushButton* m_rename;
    QPushButton* m_trash;
    QPushButton* m_openFolder;
    CClosureConnection m_stateChanged;
};

} // namespace CommonUI
