#include "windows/grid/WinResultGrid.h"

#include "common/StringTable.h"
#include "output/results/GridCopy.h"
#include "windows/detail/WinText.h"
#include "windows/grid/detail/WinGridView.h"

#include <iterator>

namespace CommonUI
{

namespace
{

using ECommand = CWinResultGrid::ECommand;

constexpr struct {
    ECommand command;
    int textId;
    const wchar_t* keys; // for the menu to show
    bool isLastOfGroup;
} c_commands[] = {
    {ECommand::Copy, 10301, L"\tCtrl+C", false},
    {ECommand::CopyWithoutHeaders, 10302, L"", false},
    {ECommand::CopyTransposed, 10303, L"", false},
    {ECommand::CopyWhole, 10304, L"", false},
    {ECommand::CopyWholeTransposed, 10305, L"", true},
    {ECommand::SelectAll, 10306, L"\tCtrl+A", true},
    {ECommand::FitColumns, 10307, L"\tCtrl++", false},
    {ECommand::Wider, 11830, L"\tAlt+Shift+\u2192", false},
    {ECommand::Narrower, 11831, L"\tAlt+Shift+\u2190", false},
};

} // namespace

CWinResultGrid::CWinResultGrid(HWND__* dialog, int identifier, CGridBaseOutputCtrl& table)
    : m_table(table)
    , m_pane(table)
    , m_view(CWinGridView::Replace(dialog, identifier))
{
    Show();
}

CWinResultGrid::CWinResultGrid(HWND__* parent, int identifier, const SRect& place, CGridBaseOutputCtrl& table)
    : m_table(table)
    , m_pane(table)
    , m_view(std::make_unique<CWinGridView>(parent, identifier, place))
{
    Show();
}

CWinResultGrid::~CWinResultGrid()
{
    m_pane.SetView(nullptr);
}

void CWinResultGrid::Show()
{
    m_view->Attach(m_pane);
    m_view->SetMenu([this](SPoint screen) { OpenMenu(screen); });
    m_pane.FitColumns();
}

void CWinResultGrid::Update()
{
    const std::size_t before = m_pane.GetColumnCount();
    m_pane.Update();
    if (m_pane.GetColumnCount() != before)
        m_pane.FitColumns();
}

void CWinResultGrid::Run(ECommand command)
{
    switch (command) {
    case ECommand::Copy:
    case ECommand::CopyTransposed:
        CopySelection(m_table, command == ECommand::CopyTransposed, true);
        break;
    case ECommand::CopyWithoutHeaders:
        CopySelection(m_table, false, false);
        break;
    case ECommand::CopyWhole:
    case ECommand::CopyWholeTransposed:
        CopyGrid(m_table, command == ECommand::CopyWholeTransposed);
        break;
    case ECommand::SelectAll:
        m_pane.SelectAll();
        break;
    case ECommand::FitColumns:
        m_pane.OnFitColumns();
        break;
    case ECommand::Wider:
    case ECommand::Narrower:
        m_pane.OnWiden(command == ECommand::Wider ? 1 : -1);
        break;
    }
}

void CWinResultGrid::OpenMenu(SPoint screen)
{
    HMENU__* const menu = CreatePopupMenu();
    for (UINT_PTR i = 0; i < std::size(c_commands); ++i) {
        const std::wstring text = ToWide(GetString(c_commands[i].textId)) + c_commands[i].keys;
        AppendMenuW(menu, MF_STRING, i + 1, text.c_str());
        if (c_commands[i].isLastOfGroup)
            AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    }
    HWND__* const window = m_view->GetHandle();
    const int chosen =
        TrackPopupMenu(menu, TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, window, nullptr);
    DestroyMenu(menu);
    // What ran while the menu was open may have ended the object, and its window with it.
    if (chosen > 0 && IsWindow(window))
        Run(c_commands[chosen - 1].command);
}

HWND__* CWinResultGrid::GetWindow() const noexcept
{
    return m_view->GetHandle();
}

} // namespace CommonUI
