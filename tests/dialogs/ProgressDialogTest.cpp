#include "dialogs/ProgressDialog.h"

#include "common/Exceptions.h"
#include "dialogs/MemoryProgressView.h"
#include "dialogs/ProgressThreadDialog.h"
#include "platform/ThreadMessages.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/dialogs/DialogTesting.h"
#include "tests/Script.h"

#include <functional>
#include <map>
#include <memory>
#include <utility>

using namespace CommonUI;
using namespace CommonUI::ProgressTemplate;

namespace
{

class ProgressDialog : public CDialogTest
{
public:
    ProgressDialog() { dialog->SetView(&view); }
    void OnStep(CProgressDialogBase& stepped, const CStr& text)
    {
        stepped.SetText(u"changed");
        dialog.reset();
        lastText = text;
    }

    CMemoryProgressView view;
    std::unique_ptr<CProgressDialog> dialog = std::make_unique<CProgressDialog>(nullptr, CStr(), CStr());
    CStr lastText;
};

// A dialog of its own, which plays lines of a script.
class CStage : public CDialogServices
{
public:
    CStage()
    {
        m_dialog.SetView(&m_view);
        m_dialog.SetIcon(&m_dialog);
    }
    void Act(const SCommand& command) { m_verbs.at(command.verb)(command); }
    // What can be seen, and what has changed since the last time.
    std::string Tell()
    {
        const int raises = m_view.GetParentRaises();
        std::string told = m_view.IsVisible() ? "shown" : "hidden";
        told += m_view.Paint() ? " painted" : "";
        told += m_view.GetParentRaises() > raises ? " parent raised" : "";
        told += " at " + std::to_string(m_view.GetBarPosition());
        told += m_dialog.IsOpen() ? "" : " closed";
        told += m_dialog.IsCanceled() ? " canceled" : "";
        for (const auto& [control, name] : {std::pair(c_cancel, "button"), {c_bar, "bar"}, {c_text, "text"}})
            told += m_view.IsEnabled(control) ? "" : std::string(" no ") + name;
        for (int count = timers.GetTimerCount(); count > 0; --count)
            told += " timer";
        while (TakeThreadMessage(CProgressDialog::c_cancelMessage))
            told += " message";
        told += TellChange(m_labels, GetLabels());
        const SProgressLayout& layout = m_view.GetLayout();
        return told + std::exchange(m_bar, {}) +
               TellChange(m_layout, ToText({0, 0, layout.dialog.cx, layout.dialog.cy}) + ToText(layout.text) +
                                        ToText(layout.bar) + ToText(layout.cancel));
    }

private:
    static std::string TellChange(std::string& last, const std::string& now)
    {
        return std::exchange(last, now) == now ? "" : ' ' + now;
    }
    std::string GetLabels() const
    {
        CStr labels = CStr::Format(u"\"%s\" \"%s\" \"%s\" to %d", m_view.GetCaption(), m_view.GetText(c_text),
                                   m_view.GetText(c_cancel), m_view.GetBarMaximum());
        labels += m_view.GetIcon() == &m_dialog ? u" icon" : u"";
        labels += m_view.IsModal() ? u" modal" : u"";
        return labels.ToUtf8();
    }
    // Where steps lead the bar of another dialog.
    void MoveBar(const SCommand& command, bool wrap)
    {
        const CDiagnosticsCapture quiet;
        CProgressThreadDialog stepped(nullptr, {}, {});
        stepped.SetRange(command.Get());
        stepped.SetWrap(wrap);
        for (std::size_t word = 1; word < command.words.size(); ++word) {
            stepped.Step(command.Get<float>(word));
            m_bar += ' ' + std::to_string(stepped.GetProgressCtrl().GetPos());
        }
    }

    using CCommand = const SCommand&;
    const std::map<std::string, std::function<void(CCommand)>> m_verbs = {
        {"create", [this](CCommand) { m_dialog.Create(); }},
        {"wait", [this](CCommand c) { timers.Advance(c.Get<unsigned int>()); }},
        {"hide", [this](CCommand) { m_dialog.SetTimer(CProgressDialog::c_hideTimer, 100); }},
        {"step", [this](CCommand c) { m_dialog.Step(c.Get()); }},
        {"end", [this](CCommand) { m_dialog.EndDialog(1); }},
        {"ok", [this](CCommand) { m_dialog.OnOK(); }},
        {"press", [this](CCommand) { m_view.PressCancel(); }},
        {"cancel", [this](CCommand c) { m_dialog.SetCanceled(c.IsYes()); }},
        {"notify", [this](CCommand) { m_dialog.SetNotifyThread(GetThreadIdentifier()); }},
        {"text", [this](CCommand c) { m_dialog.SetText(CStr(c.Get<std::size_t>(), u'x')); }},
        {"bar", [this](CCommand c) { MoveBar(c, false); }},
        {"wrap", [this](CCommand c) { MoveBar(c, true); }},
    };
    CMemoryProgressView m_view;
    CProgressDialog m_dialog{nullptr, CStr(), CStr()};
    std::string m_labels;
    std::string m_layout;
    std::string m_bar;
};

} // namespace

TEST_F(ProgressDialog, OpensAndClosesAsTheScriptSays)
{
    ExpectScriptOf<CStage>("progress-dialog.txt");
}

TEST_F(ProgressDialog, PointerIsBusyWhileAHiddenDialogBlocksTheWindows)
{
    dialog->Create();
    EXPECT_THROW(dialog->Create(), EInternal);
    EXPECT_FALSE(view.IsBusy()) << "it blocks nothing";
    dialog->EndDialog(1);
    loop.Post([&] {
        EXPECT_TRUE(view.IsBusy());
        timers.Advance(CProgressDialog::c_showDelay);
        EXPECT_FALSE(view.IsBusy());
        dialog->SetTimer(CProgressDialog::c_hideTimer, 1);
        timers.Advance(1);
        EXPECT_TRUE(view.IsBusy());
        dialog->EndDialog(1);
    });
    dialog->DoModal();
    EXPECT_FALSE(view.IsBusy());
}

TEST_F(ProgressDialog, StepCallbackMayDestroyTheDialog)
{
    const CStr text = u"a text that does not lie in the object itself";
    dialog->SetStepCallback(*this, &ProgressDialog::OnStep);
    dialog->SetText(text);
    dialog->Create();
    dialog->Step(1);
    EXPECT_EQ(dialog, nullptr);
    EXPECT_EQ(lastText, text);
}
