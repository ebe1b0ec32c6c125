#pragma once

#include "../../dialogs/settings/SettingsMenu.h"
#include "../../export/Export.h"

#include <QDialog>

#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;

namespace CommonUI
{

class CSettingsChooser;
class CSettingsList;

/// A list of all sets of a type with a search, from which the user chooses one: CSettingsMenu::Choose. The
/// window stays open when that fails, as the file has vanished. It shows its first sets at once, however many
/// files there are.
class COMMONUIQT_API CSettingsChooserWindow : public QDialog
{
    Q_OBJECT

public:
    /// @param menu outlives the window
    explicit CSettingsChooserWindow(CSettingsMenu& menu, QWidget* parent = nullptr);
    ~CSettingsChooserWindow() override;

    /// The field for the search; lives as long as the window.
    QLineEdit& GetSearch() noexcept { return *m_search; }
    void accept() override;

private:
    void LayOut();
    void ShowState();

    CSettingsMenu& m_menu;
    std::unique_ptr<CSettingsChooser> m_chooser;
    QLineEdit* m_search;
    CSettingsList* m_list;
    QLabel* m_state;
    QPushButton* m_choose = nullptr;
    CClosureConnection m_stateChanged;
};

} // namespace CommonUI
