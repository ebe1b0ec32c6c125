#include "examples/gallery/ButtonPage.h"
#include "examples/gallery/Pages.h"
#include "platform/MessageLoop.h"
#include "qt/dialogs/QtProgressDialog.h"
#include "qt/QtText.h"

#include <chrono>
#include <stdexcept>
#include <thread>

namespace Gallery
{

namespace
{

using namespace CommonUI;

constexpr int c_surfaces = 250;

CStr Describe(int surface)
{
    return CStr::Format(u"Surface %d of %d", surface, c_surfaces);
}

void PretendToWork(int milliseconds)
{
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}

class CProgressPage : public CButtonPage
{
public:
    explicit CProgressPage(FLog log)
        : m_log(std::move(log))
    {
        AddWork("&Many steps", &CProgressPage::Steps);
        AddWork("Done at &once", &CProgressPage::EndAtOnce);
        AddWork("&Silent for four seconds", &CProgressPage::BeSilent);
        AddWork("A million &reports", &CProgressPage::ReportOften);
        AddWork("An e&xception", &CProgressPage::Throw);
        Add("On the &user-interface thread", [this] { WorkHere(); });
    }

    // Opens two dialogs for the picture, one of them cancelled.
    void OpenTwo()
    {
        const QPoint bottom = mapToGlobal(rect().bottomLeft());
        Open(m_running, Describe(96), bottom + QPoint(width() / 20, -height() * 2 / 5));
        Open(m_cancelled,
             u"Waiting for the surface in hand:\n"
             u"/data/2024/Turbine blade, suction side, after the second finishing.sdf",
             bottom + QPoint(width() / 4, 0));
        m_cancelled->SetCanceled(true);
    }

private:
    // The work, on the worker thread.
    void Steps()
    {
        for (int i = 1; i <= c_surfaces; ++i) {
            PretendToWork(20);
            if (m_dialog->PostThreadProgress(1, Describe(i)) != 0)
                return;
        }
    }
    void EndAtOnce() {}
    void BeSilent()
    {
        for (int i = 0; i < 400 && !m_dialog->IsCanceled(); ++i)
            PretendToWork(10);
    }
    void ReportOften()
    {
        for (int i = 1; i <= 1'000'000; ++i)
            if (m_dialog->PostThreadProgress(c_surfaces / 1e6F, Describe(i / 4000)) != 0)
                return;
    }
    void Throw()
    {
        m_dialog->PostThreadProgress(c_surfaces / 2.0F, u"About to fail");
        PretendToWork(1000);
        throw std::runtime_error("the file ends too early");
    }

    void RunThread(const QString& name, void (CProgressPage::*work)())
    {
        CQtProgressThreadDialog dialog(this, FromQString(name), {});
        m_dialog = &dialog;
        m_steps = 0;
        dialog.SetRange(c_surfaces);
        dialog.SetWork(*this, work);
        dialog.SetStepCallback(*this, &CProgressPage::OnStep);
        try {
            const int result = dialog.DoModal();
            m_log(QStringLiteral("%1: result %2, %3 steps%4")
                      .arg(name)
                      .arg(result)
                      .arg(m_steps)
                      .arg(dialog.IsCanceled() ? QStringLiteral(", cancelled") : QString()));
        } catch (const std::exception& exception) {
            m_log(QStringLiteral("%1: exception, %2").arg(name, QString::fromUtf8(exception.what())));
        }
    }

    void WorkHere()
    {
        CQtProgressDialog dialog(this, u"Loading", {});
        m_steps = 0;
        dialog.SetRange(c_surfaces);
        dialog.SetStepCallback(*this, &CProgressPage::OnStep);
        dialog.Create();
        for (int i = 1; i <= c_surfaces && !dialog.IsCanceled(); ++i) {
            PretendToWork(10);
            dialog.SetText(Describe(i));
            dialog.Step(1);
            GetMessageLoop().Pump();
        }
        dialog.EndDialog(CBaseDialog::c_ok);
        m_log(dialog.IsCanceled() ? QStringLiteral("Loading: cancelled") : QStringLiteral("Loading: done"));
    }

    void OnStep(CProgressDialogBase&, const CStr& text)
    {
        ++m_steps;
        if (m_steps <= 5 || m_steps % 50'000 == 0)
            m_log(QStringLiteral("Step %1: %2").arg(m_steps).arg(ToQString(text)));
    }

    void Open(std::unique_ptr<CQtProgressDialog>& dialog, const CStr& text, QPoint place)
    {
        dialog = std::make_unique<CQtProgressDialog>(this, u"Batch analysis", text);
        dialog->SetRange(c_surfaces);
        dialog->Create();
        dialog->Step(96);
        dialog->GetWindow()->move(place);
    }

    void AddWork(const char* text, void (CProgressPage::*work)())
    {
        const QString name = QString::fromUtf8(text).remove(QLatin1Char('&'));
        Add(text, [this, name, work] { RunThread(name, work); });
    }

    FLog m_log;
    CProgressThreadDialog* m_dialog = nullptr; // that runs
    int m_steps = 0;
    std::unique_ptr<CQtProgressDialog> m_running;
    std::unique_ptr<CQtProgressDialog> m_cancelled;
};

} // namespace

QWidget* MakeProgressPage(const FLog& log)
{
    return new CProgressPage(log);
}

void StageProgressPage(QWidget& page)
{
    static_cast<CProgressPage&>(page).OpenTwo();
}

} // namespace Gallery
