#include "dialogs/text/MemoryTextEditorView.h"

namespace CommonUI
{

CMemoryTextEditorView::~CMemoryTextEditorView() = default;

void CMemoryTextEditorView::SetEditText(const CStr& text)
{
    m_text = text;
    m_selection = {};
}

bool CMemoryTextEditorView::Type(const CStr& text)
{
    if (m_readOnly)
        return false;
    m_text = m_text.Left(m_selection.first) + text + m_text.Mid(m_selection.end);
    m_selection.first += text.GetLength();
    m_selection.end = m_selection.first;
    return true;
}

} // namespace CommonUI
