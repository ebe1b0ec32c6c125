#pragma once

#include "../../controls/MultiClosure.h"
#include "../../export/Export.h"
#include "../../settings/Settings.h"

#include <QDialog>

class QCheckBox;
class QLabel;

namespace CommonUI
{

class CDifferenceList;
class CSettingsButton;

/// Two sets of a type side by side, key by key: CompareSettings. The user picks both.
class COMMONUIQT_API CSettingsDifferenceWindow : public QDialog
{
    Q_OBJECT

public:
    /// @param type of the sets @param parent the widget that the window lies over, and that owns it
    explicit CSettingsDifferenceWindow(ESettingType type, QWidget* parent = nullptr);
    ~CSettingsDifferenceWindow() override;

    /// Picks a set, as the user does by the buttons.
    void SetLeft(const SSettingsEntry& entry);
    /// Likewise.
    void SetRight(const SSettingsEntry& entry);

private:
    CSettingsButton* AddButton(int label, void (CSettingsDifferenceWindow::*take)(CSettings&),
                               CClosureConnection& connection);
    void LayOut();
    void TakeLeft(CSettings& settings);
    void TakeRight(CSettings& settings);
    void Compare();

    CSettings m_leftSet;
    CSettings m_rightSet;
    CClosureConnection m_leftConnection;
    CClosureConnection m_rightConnection;
    ESettingType m_type;
    CSettingsButton* m_left;
    CSettingsButton* m_right;
    CDifferenceList* m_list;
    QCheckBox* m_onlyDifferences;
    QLabel* m_state;
};

} // namespace CommonUI
