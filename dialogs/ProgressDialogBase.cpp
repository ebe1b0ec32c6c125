#include "dialogs/ProgressDialogBase.h"

#include "common/Diagnostics.h"
#include "common/StringTable.h"
#include "dialogs/detail/DialogTexts.h"
#include "platform/ThreadMessages.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace CommonUI
{

namespace
{

constexpr int c_waitText = 7483;

void Warn(std::u16string_view text)
{
    GetDiagnostics().Write(u"Progress", EDiagnosticLevel::Warning, text);
}

} // namespace

CProgressView::~CProgressView() = default;

CProgressDialogBase::CProgressDialogBase(CWnd* parent, const CStr& caption, const CStr& text)
    : CBaseDialog(ProgressTemplate::c_dialog, parent)
    , m_caption(caption)
    , m_text(text.IsEmpty() ? GetString(c_waitText) : text)
{
}

CProgressDialogBase::~CProgressDialogBase()
{
    EndDialog(c_cancel);
}

void CProgressDialogBase::SetView(CProgressView* view)
{
    Link(*this, view);
    m_bar.SetView(view);
}

bool CProgressDialogBase::OnInitDialog()
{
    m_textHeight = 0;
    m_position = 0;
    if (CProgressView* const view = GetView()) {
        view->SetText(ProgressTemplate::c_cancel, GetString(c_cancelText));
        if (m_icon)
            view->SetIcon(m_icon);
    }
    SetCaption(CStr(m_caption));
    m_bar.SetPos(m_bar.GetMinimum());
    m_delayedShow = SetTimer(c_showTimer, c_showDelay);
    SetText(CStr(m_text));
    EnableControls();
    return !m_delayedShow;
}

void CProgressDialogBase::OnDestroy()
{
    m_delayedShow = false;
}

void CProgressDialogBase::OnTimer(unsigned int timer)
{
    if (timer == c_showTimer)
        m_delayedShow = false;
    else if (timer != c_hideTimer)
        return;
    ShowWindow(timer == c_showTimer);
    KillTimer(timer);
}

void CProgressDialogBase::SetCaption(const CStr& caption)
{
    m_caption = caption;
    if (GetView())
        GetView()->SetCaption(m_caption.IsEmpty() ? GetString(ProgressTemplate::c_dialog) : m_caption);
}

void CProgressDialogBase::SetText(const CStr& text)
{
    m_text = text;
    if (CProgressView* const view = GetView()) {
        view->SetText(ProgressTemplate::c_text, m_text);
        LayOut();
    }
}

void CProgressDialogBase::LayOut()
{
    SSize size = GetView()->MeasureText(m_text, GetProgressTextWidth());
    m_textHeight = size.cy = std::max(m_textHeight, size.cy);
    GetView()->SetLayout(GetProgressLayout(size));
}

void CProgressDialogBase::SetRange(int maximum)
{
    if (maximum < m_bar.GetMinimum())
        Warn(CStr::Format(u"A progress bar cannot count to %d.", maximum));
    m_bar.SetRange(m_bar.GetMinimum(), maximum);
}

void CProgressDialogBase::SetCanceled(bool canceled)
{
    m_canceled = canceled;
    EnableControls();
    if (canceled)
        NotifyCancel();
}

void CProgressDialogBase::SetNotifyThread(unsigned long thread)
{
    m_notifyThread = thread;
    if (m_canceled)
        PostToThread(thread, c_cancelMessage);
}

void CProgressDialogBase::NotifyCancel()
{
    PostToThread(m_notifyThread, c_cancelMessage);
}

void CProgressDialogBase::EnableControls()
{
    CProgressView* const view = GetView();
    if (!IsOpen() || !view)
        return;
    for (const int control : {ProgressTemplate::c_cancel, ProgressTemplate::c_bar, ProgressTemplate::c_text})
        view->Enable(control, !m_canceled);
}

void CProgressDialogBase::OnOK()
{
}

bool CProgressDialogBase::OnPaint()
{
    if (m_delayedShow && GetView())
        GetView()->BringParentToTop();
    return !m_delayedShow;
}

void CProgressDialogBase::ShowProgress()
{
    m_delayedShow = false;
    ShowWindow(true);
    if (GetView() && !m_canceled)
        GetView()->Enable(ProgressTemplate::c_cancel, true);
}

void CProgressDialogBase::Advance(double increment)
{
    if (std::isfinite(increment))
        m_position += increment;
    else
        Warn(u"A step of progress was no number.");
    MoveBar();
    // The dialog may be gone afterwards.
    if (const auto callback = m_stepCallback.Share<void, CProgressDialogBase&, const CStr&>())
        callback->Invoke(*this, CStr(m_text));
}

void CProgressDialogBase::MoveBar()
{
    const double whole = std::trunc(m_position);
    const double distance = whole - m_bar.GetPos();
    const bool isPast = whole > m_bar.GetMaximum();
    if (distance < 1 || (isPast && !m_wrap))
        return;
    m_bar.SetStep(static_cast<int>(std::min<double>(distance, std::numeric_limits<int>::max())));
    m_bar.StepIt();
    // The position starts again with the bar, or no later step could be told from the first lap.
    if (isPast)
        m_position += m_bar.GetPos() - whole;
}

} // namespace CommonUI
