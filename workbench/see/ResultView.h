#pragma once

#include "qt/results/ResultPanelWidget.h"

class QLabel;
class QPushButton;

namespace Workbench
{

/// Results in tables below a text that says of what they are, with a command to choose what is computed.
class CResultView : public QWidget
{
    Q_OBJECT

public:
    /// @param choose text of the command
    explicit CResultView(const QString& choose);
    ~CResultView() override;

    CommonUI::CResultPanel& GetPanel() noexcept { return m_panel; }
    CommonUI::CResultPanelWidget& GetTables() noexcept { return *m_tables; }
    /// What is said above the tables.
    QString GetState() const;
    void SetState(const QString& state);
    /// In place of the results before. Their summary is left out: views are narrow, and reports have it.
    void ShowSet(CommonUI::SResultSet set);

    /// As wide as a name with its value and unit.
    QSize sizeHint() const override;

Q_SIGNALS:
    void ChooseAsked();

private:
    QLabel* m_state;
    CommonUI::CResultPanelWidget* m_tables;
    CommonUI::CResultPanel m_panel;
};

} // namespace Workbench
