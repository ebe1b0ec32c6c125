#include "dialogs/BaseDialog.h"

#include "common/Exceptions.h"
#include "platform/HelpService.h"
#include "platform/MessageLoop.h"

#include <algorithm>

namespace CommonUI
{

CDialogView::~CDialogView() = default;

CBaseDialog::CBaseDialog(unsigned int identifier, CWnd* parent)
    : m_identifier(identifier)
    , m_parent(parent)
{
}

CBaseDialog::~CBaseDialog() = default;

int CBaseDialog::DoModal()
{
    const CWatch watch(*this);
    Open(true);
    try {
        if (!GetMessageLoop().RunUntil([&] { return watch.IsGone() || !m_open; }) && !watch.IsGone())
            EndDialog(c_cancel);
    } catch (...) {
        if (!watch.IsGone())
            EndDialog(c_cancel);
        throw;
    }
    return watch.IsGone() ? c_cancel : m_result;
}

void CBaseDialog::Create()
{
    Open(false);
}

void CBaseDialog::Open(bool modal)
{
    if (m_open)
        throw EInternal(u"BaseDialog", __LINE__, u"CBaseDialog::Open", u"The dialog is open.");
    m_open = true;
    m_modal = modal;
    m_result = c_cancel;
    if (GetDialogView())
        GetDialogView()->SetModal(modal);
    try {
        ShowWindow(OnInitDialog());
    } catch (...) {
        EndDialog(c_cancel);
        throw;
    }
}

void CBaseDialog::EndDialog(int result)
{
    if (!m_open)
        return;
    m_open = false;
    m_result = result;
    m_timers.clear();
    if (CDialogView* const view = GetDialogView()) {
        view->SetBusy(false);
        view->SetModal(false);
        view->Show(false);
    }
    OnDestroy();
}

bool CBaseDialog::SetTimer(unsigned int timer, unsigned int milliseconds)
{
    auto& started = m_timers[timer];
    started = std::make_unique<CWinTimer>(milliseconds);
    started->SetCallback(*this, &CBaseDialog::OnTick);
    if (started->SetRunning(true))
        return true;
    KillTimer(timer);
    return false;
}

void CBaseDialog::KillTimer(unsigned int timer)
{
    m_timers.erase(timer);
}

void CBaseDialog::OnTick(CBaseTimer& timer)
{
    const auto found = std::find_if(m_timers.begin(), m_timers.end(),
                                    [&](const auto& entry) { return entry.second.get() == &timer; });
    if (found != m_timers.end())
        OnTimer(found->first);
}

void CBaseDialog::OnHelpInfo() const
{
    GetHelpService().Open(m_identifier);
}

void CBaseDialog::OnTimer(unsigned int)
{
}

void CBaseDialog::OnDestroy()
{
}

void CBaseDialog::ShowWindow(bool visible)
{
    CDialogView* const view = m_open ? GetDialogView() : nullptr;
    if (!view)
        return;
    view->Show(visible);
    view->SetBusy(m_modal && !visible);
}

} // namespace CommonUI
