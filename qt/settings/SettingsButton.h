#pragma once

#include "../../dialogs/settings/SettingsMenu.h"
#include "../../export/Export.h"

#include <QToolButton>

#include <memory>

class QAction;
class QMenu;
class QTimer;

namespace CommonUI
{

/// A button with the name of the set that a tool has, and the menu of settings, which opens by a click, Space
/// and Down. It opens the windows of the menu's commands.
///
/// The menu's callbacks may destroy the button.
class COMMONUIQT_API CSettingsButton : public QToolButton
{
    Q_OBJECT

public:
    /// @param withCommands see CSettingsMenu
    explicit CSettingsButton(ESettingType type, QWidget* parent = nullptr, bool withCommands = true);
    /// @param menu what the button opens @param parent owns the widget
    explicit CSettingsButton(std::unique_ptr<CSettingsMenu> menu, QWidget* parent = nullptr);
    ~CSettingsButton() override;

    /// What the button shows: its callbacks and the current set.
    CSettingsMenu& GetMenu() noexcept { return *m_menu; }
    /// The menu that the button opens; lives as long as the widget.
    QMenu& GetPopup() noexcept { return *m_popup; }
    /// Does what a command of the menu does.
    void Run(ESettingsCommand command);

    /// As wide as 30 letters at most; a longer name is cut.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void ShowPopup();
    void Open();
    void Fill(QMenu& menu, const std::vector<SSettingsMenuItem>& items);
    void Append(QMenu& menu, const SSettingsMenuItem& item);
    void AppendSet(QMenu& menu, const SSettingsMenuItem& item);
    void ShowIcon(QAction& action, const SSettingsMenuItem& item) const;
    void OnScan(CCustomSettingsScan::EEvent event);
    void FillCustom();
    void OnCurrentChanged();
    void Import();
    void CompareSets();

    std::unique_ptr<CSettingsMenu> m_menu;
    QMenu* m_popup;
    QMenu* m_custom = nullptr; // of the user's own sets
    QTimer* m_fillTimer;
    CClosureConnection m_scanConnection;
    CClosureConnection m_currentConnection;
};

} // namespace CommonUI
