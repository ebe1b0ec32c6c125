#pragma once

#include "../../controls/folders/FolderCombo.h"
#include "../../export/Export.h"

#include <QComboBox>

#include <memory>

class QStringListModel;

namespace CommonUI
{

class CWindowWatch;

/// A field for a folder, with a list of recent folders and those above it. Enter takes what was typed, Escape
/// puts the folder back; what is no folder is told beside the field.
class COMMONUIQT_API CFolderComboWidget : public QComboBox
{
    Q_OBJECT

public:
    /// @param combo not owned; it lives as long as the widget is used, and may go first when both go
    explicit CFolderComboWidget(CFolderCombo& combo, QWidget* parent = nullptr);
    ~CFolderComboWidget() override;

    void showPopup() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    void FillList();
    void Enter();
    void OnCompletions();
    void Update();

    CFolderCombo& m_combo;
    std::unique_ptr<CWindowWatch> m_window;
    QStringListModel* m_completions;
    QAction* m_error;
    CClosureConnection m_changedConnection;
    CClosureConnection m_completionsConnection;
};

} // namespace CommonUI
