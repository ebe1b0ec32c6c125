// The editor over a cell of a grid.
#include "windows/detail/CallGuard.h"
#include "windows/grid/detail/WinGridView.h"

#include <utility>

namespace CommonUI
{

namespace
{

constexpr UINT c_forgetEditors = WM_APP + 1;

} // namespace

void CWinGridView::OpenEditor(const SGridEdit& edit)
{
    CloseEditor();
    m_editor = CGridCellEditor::Make(edit, GetHandle(), m_font, [this](EGridEditEnd end) { EndEdit(end); });
    m_editor->Place(edit.rect);
    // Whoever loses the focus may call back.
    const std::weak_ptr<void> life = m_life;
    SetFocus(m_editor->GetHandle());
    if (life.expired() || !m_editor)
        return;
    UpdateFocus();
    if (!m_pressed)
        m_editor->DropDown();
}

void CWinGridView::MoveEditor(const SRect& rect)
{
    if (m_editor)
        m_editor->Place(rect);
}

void CWinGridView::CloseEditor()
{
    if (!m_editor)
        return;
    std::unique_ptr<CGridCellEditor> editor = std::exchange(m_editor, nullptr);
    editor->Disarm();
    // Who gets the focus may call back, and run a loop of messages.
    const std::weak_ptr<void> life = m_life;
    if (editor->GetHandle() && GetFocus() == editor->GetHandle())
        TakeFocus();
    if (life.expired())
        return;
    editor->Hide();
    // The message that it ends with is still being dealt with by its window.
    m_closedEditors.push_back(std::move(editor));
    PostMessageW(GetHandle(), c_forgetEditors, 0, 0);
    UpdateFocus();
}

void CWinGridView::EndEdit(EGridEditEnd end)
{
    const std::weak_ptr<void> life = m_life;
    const CGridCellEditor* const editor = m_editor.get();
    GuardedCall([&] {
        EndGridEdit(end, editor->GetText(), [&] { return life.expired() ? nullptr : GetControl(); });
    });
    if (life.expired())
        return;
    // The grid may be another one than when the editor was opened.
    if (m_editor.get() == editor)
        CloseEditor();
    UpdateFocus();
}

// Tells the grid whether keys go to it or its editor.
void CWinGridView::UpdateFocus()
{
    const bool focus = GetFocus() == GetHandle() || m_editor;
    if (GetControl() && GetControl()->HasFocus() != focus)
        GuardedCall([&] { GetControl()->OnFocus(focus); });
}

bool CWinGridView::TakeCharacter(wchar_t character)
{
    if (character <= L' ' || character == 127) // of a key with Ctrl
        return false;
    bool used = true;
    GuardedCall([&] { used = GetControl()->OnText(CStr(1, static_cast<char16_t>(character))); });
    return used;
}

bool CWinGridView::TakeEditorMessage(UINT message, WPARAM wide, LPARAM longer)
{
    switch (message) {
    case c_forgetEditors:
        m_closedEditors.clear();
        return true;
    case CGridCellEditor::c_listClosed:
        if (m_editor && reinterpret_cast<HWND>(longer) == m_editor->GetHandle())
            m_editor->Finish(static_cast<EGridEditEnd>(wide));
        return true;
    case WM_COMMAND:
    case WM_NOTIFY:
        return m_editor && m_editor->OnNotify(message, wide, longer);
    default:
        return false;
    }
}

} // namespace CommonUI
