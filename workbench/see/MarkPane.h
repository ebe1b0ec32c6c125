#pragma once

#include "qt/framework/DockPane.h"
#include "qt/grid/ResultGridWidget.h"

#include <QPointer>

class QLabel;
class QPushButton;

namespace Workbench
{

class CMarkEditor;

/// What lines drawn over the map measure, in a dock: a table that copies as text, whose rows choose lines.
class CMarkPane : public CommonUI::CDockPane
{
    Q_OBJECT

public:
    CMarkPane();
    ~CMarkPane() override;

    /// @param editor null for none; it may go first
    void SetEditor(CMarkEditor* editor);
    CommonUI::CResultGridWidget& GetTable() noexcept { return *m_table; }

private:
    void Fill();
    void OnSelection();
    void Copy() const;

    QPointer<CMarkEditor> m_editor;
    CommonUI::CResultGridWidget* m_table;
    QLabel* m_hint;
    QPushButton* m_copy;
    bool m_isFilling = false;
};

} // namespace Workbench
