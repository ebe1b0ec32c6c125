#include "dialogs/ProgressDialog.h"

#include "common/StringTable.h"

namespace CommonUI
{

namespace
{

constexpr int c_pleaseWait = 7483;

} // namespace

CProgressView::~CProgressView() = default;

CMemoryProgressView::~CMemoryProgressView() = default;

CProgressDialog::CProgressDialog(const CStr& caption, const CStr& text)
    : m_caption(caption)
    , m_text(text.IsEmpty() ? GetString(c_pleaseWait) : text)
{
    m_showTimer.SetCallback(*this, &CProgressDialog::OnShowTimer);
    m_hideTimer.SetCallback(*this, &CProgressDialog::OnHideTimer);
}

CProgressDialog::~CProgressDialog()
{
    Close();
}

void CProgressDialog::SetView(CProgressView* view)
{
    Link(*this, view);
    if (!view)
        return;
    view->SetCaption(m_caption);
    view->SetText(m_text);
    view->SetProgress(m_progress);
    view->Enable(!m_canceled);
    view->SetVisible(m_visible);
}

void CProgressDialog::SetCaption(const CStr& caption)
{
    m_caption = caption;
    if (GetView())
        GetView()->SetCaption(caption);
}

void CProgressDialog::SetText(const CStr& text)
{
    m_text = text;
    if (GetView())
        GetView()->SetText(text);
}

void CProgressDialog::SetRange(int maximum)
{
    m_progress.SetRange(0, maximum);
    if (GetView())
        GetView()->SetProgress(m_progress);
}

void CProgressDialog::Open()
{
    // Without a timer the dialog would never appear if the work reports nothing.
    if (!m_showTimer.SetRunning(true))
        SetVisible(true);
}

void CProgressDialog::Close()
{
    SetVisible(false);
}

void CProgressDialog::HideAfter(unsigned int milliseconds)
{
    m_hideTimer.SetInterval(milliseconds);
    m_hideTimer.SetRunning(true);
}

void CProgressDialog::AddProgress(double increment)
{
    if (!m_visible)
        SetVisible(true);
    m_progress.Step(increment);
    if (GetView())
        GetView()->SetProgress(m_progress);
    // The text is a copy: the dialog may go while the function still reads it.
    if (const auto closure = m_slot.Share<void, CProgressDialog&, const CStr&>())
        closure->Invoke(*this, CStr(m_text));
}

void CProgressDialog::SetCanceled(bool canceled)
{
    m_canceled = canceled;
    if (GetView())
        GetView()->Enable(!canceled);
    if (canceled)
        CCancelQueue::Post(m_notifyThread);
}

void CProgressDialog::SetNotifyThread(CCancelQueue::TIdentifier identifier)
{
    m_notifyThread = identifier;
    if (m_canceled)
        CCancelQueue::Post(identifier);
}

bool CProgressDialog::OnPaint()
{
    if (!IsDelayed())
        return true;
    if (GetView())
        GetView()->RaiseParent();
    return false;
}

void CProgressDialog::OnShowTimer(CBaseTimer&)
{
    SetVisible(true);
}

void CProgressDialog::OnHideTimer(CBaseTimer&)
{
    SetVisible(false);
}

/// Both timers have served their purpose then.
void CProgressDialog::SetVisible(bool visible)
{
    m_showTimer.SetRunning(false);
    m_hideTimer.SetRunning(false);
    m_visible = visible;
    if (GetView())
        GetView()->SetVisible(visible);
}

} // namespace CommonUI
