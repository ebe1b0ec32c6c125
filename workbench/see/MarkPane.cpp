#include "workbench/see/MarkPane.h"

#include "workbench/see/MarkEditor.h"
#include "workbench/see/SaveAndCopy.h"
#include "workbench/see/SeeTexts.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace Workbench
{

using CommonUI::CGridBaseOutputCtrl;
using CommonUI::CStr;

CMarkPane::CMarkPane()
    : CDockPane(u"Workbench.Marks", Text(ESeeText::Marks))
    , m_table(new CommonUI::CResultGridWidget(CGridBaseOutputCtrl::SCellInfo::Results))
    , m_hint(new QLabel(QText(ESeeText::NoMarks)))
    , m_copy(new QPushButton(QText(ESeeText::Copy)))
{
    auto* const content = new QWidget;
    auto* const layout = new QVBoxLayout(content);
    layout->addWidget(m_hint);
    layout->addWidget(m_table, 1);
    layout->addWidget(m_copy, 0, Qt::AlignLeft);
    setWidget(content);
    m_hint->setWordWrap(true);
    m_table->setAccessibleName(QText(ESeeText::Marks));
    m_table->GetPane().SetSelectionCallback(*this, &CMarkPane::OnSelection);
    connect(m_copy, &QPushButton::clicked, this, &CMarkPane::Copy);
    Fill();
}

CMarkPane::~CMarkPane() = default;

void CMarkPane::SetEditor(CMarkEditor* editor)
{
    if (m_editor)
        m_editor->disconnect(this);
    m_editor = editor;
    if (editor)
        connect(editor, &CMarkEditor::Changed, this, &CMarkPane::Fill);
    Fill();
}

void CMarkPane::Fill()
{
    m_isFilling = true;
    CGridBaseOutputCtrl& table = m_table->GetTable();
    const std::size_t before = table.GetRows().size();
    table.Clear();
    const auto rows = m_editor ? m_editor->MakeTable() : std::vector<std::vector<CStr>>();
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (row > 0)
            table.AddRow({.name = rows[row][0], .cells = {rows[row].begin() + 1, rows[row].end()}});
        for (std::size_t column = 1; row == 0 && column < rows[row].size(); ++column)
            table.AddColumn({.header = rows[row][column].Replace(u" / ", u"\r\n"), .group = {}});
    }
    const bool isEmpty = rows.size() < 2;
    m_hint->setVisible(isEmpty);
    m_table->setVisible(!isEmpty);
    m_copy->setEnabled(!isEmpty);
    m_table->Update();
    if (table.GetRows().size() != before)
        m_table->GetPane().FitColumns();
    if (m_editor && m_editor->GetChosen())
        m_table->GetPane().SelectCell({m_editor->GetChosen()->mark, 0});
    m_isFilling = false;
}

void CMarkPane::OnSelection()
{
    const std::size_t row = m_table->GetPane().GetSelection().GetFocus().row;
    if (!m_isFilling && m_editor && row < m_editor->GetMarks().size())
        m_editor->Choose(row);
}

void CMarkPane::Copy() const
{
    CStr text;
    for (const auto& row : m_editor->MakeTable()) {
        for (const CStr& cell : row)
            text += &cell == &row.front() ? cell : u"\t" + cell;
        text += u"\r\n";
    }
    CopyTable(text);
}

} // namespace Workbench
