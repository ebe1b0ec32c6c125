#include "controls/FloatEdit.h"
#include "controls/IntEdit.h"
#include "controls/MemoryEditView.h"
#include "controls/MemorySpinView.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "platform/MessageBoxService.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/Script.h"

#include <gtest/gtest.h>

#include <charconv>
#include <functional>
#include <map>
#include <memory>
#include <stdexcept>
#include <utility>

using namespace CommonUI;

namespace
{

// The shortest text that is read as this value and no other, without the sign of a zero.
template<class T>
std::string ToText(T value)
{
    char text[40];
    return {text, std::to_chars(text, std::end(text), value + T()).ptr};
}

const std::map<std::string, SKey> c_keys = {
    {"Enter", {.key = EKey::Enter}},
    {"Escape", {.key = EKey::Escape}},
    {"Delete", {.key = EKey::Delete}},
    {"Down", {.key = EKey::Down}},
    {"Ctrl+Up", {.key = EKey::Up, .control = true}},
    {"Ctrl+Down", {.key = EKey::Down, .control = true}},
};

// An edit with a window that has the focus. It plays lines of a script, and its callbacks may act.
template<class TEdit, class T>
class CStage
{
public:
    CStage()
    {
        edit->SetView(view.get());
        edit->GetSpinButton().SetView(&m_spin);
        edit->SetChangeNotification(*this, &CStage::OnChange);
        view->SetFocus(true);
    }
    void OnChange(T value)
    {
        m_events += (edit->ValidatingUserInput() ? " took " : " set ") + ToText(value);
        if (const auto action = onChange)
            action(value);
    }
    bool OnValidate(T value)
    {
        m_events += " asked " + ToText(value);
        const auto action = m_onValidate;
        return action(value);
    }
    void SetValidator(std::function<bool(T)> action)
    {
        m_onValidate = std::move(action);
        edit->SetValidator(*this, &CStage::OnValidate);
    }
    void Act(const SCommand& command)
    {
        m_used = true;
        m_verbs.at(command.verb)(command);
    }
    // What the window and the edit hold, and what has happened since the last time.
    std::string Tell()
    {
        const std::string text = view->GetText().ToUtf8();
        std::string told = view->GetSelectedText().ToUtf8() == text ? '[' + text + ']' : '"' + text + '"';
        told += ' ' + ToText(edit->GetValue()) + std::exchange(m_events, {});
        if (const T before = std::exchange(m_increment, edit->GetIncrement()); before != m_increment)
            told += " by " + ToText(m_increment);
        if (const CStr hint = std::exchange(m_spin.hint, {}); !hint.IsEmpty())
            told += " hint " + hint.ToUtf8();
        for (; m_beeps < m_boxes.GetBeeps().size(); ++m_beeps)
            told += " beep";
        for (std::size_t count = m_warnings.Take().size(); count > 0; --count)
            told += " warning";
        told += edit->IsModified() ? " modified" : "";
        told += view->IsReadOnly() ? " read-only" : "";
        told += edit->GetStepSizeCtrl().GetSlideStep() > 0 ? " sliding" : "";
        return told + (m_used ? "" : " unused");
    }

    std::unique_ptr<CMemoryEditView> view = std::make_unique<CMemoryEditView>();
    std::unique_ptr<TEdit> edit = std::make_unique<TEdit>();
    std::function<void(T)> onChange;

private:
    void MakeView()
    {
        view = std::make_unique<CMemoryEditView>();
        edit->SetView(view.get());
    }
    void Type(const std::string& text) { view->Type(CStr::FromUtf8(text)); }
    void Replace(const std::string& text)
    {
        view->SelectAll(), view->Press(EKey::Delete);
        Type(text);
    }
    void ChangeStepSize(int delta, int times)
    {
        for (; times > 0; --times)
            edit->OnStepSizeChanged(delta);
    }
    // Where steps up, down, to the grid and three at once lead from a value.
    void Step(T value, T increment)
    {
        for (const int delta : {1, -1, 0, 3}) {
            TEdit stepped;
            stepped.SetIncrement(increment);
            stepped.SetValue(value);
            stepped.OnSpinDeltaPos(delta);
            m_events += ' ' + ToText(stepped.GetValue());
        }
    }
    // A validator that shows a message box, at which the user steps.
    bool Ask(T value, bool answer)
    {
        view->SetFocus(false);
        EXPECT_EQ(m_boxes.GetBeeps().size(), m_beeps);
        edit->SetValue(value + 100);
        edit->OnSpinDeltaPos(1);
        return answer;
    }
    void SetFormat(const std::string& format)
    {
        if constexpr (std::is_same_v<TEdit, CFloatEdit>)
            m_used = edit->SetFormatString(CStr::FromUtf8(format));
    }

    using CCommand = const SCommand&;
    const std::map<std::string, std::function<void(CCommand)>> m_verbs = {
        {"type", [this](CCommand c) { Type(c.text); }},
        {"replace", [this](CCommand c) { Replace(c.text); }},
        {"enter", [this](CCommand c) { Replace(c.text), view->Press(EKey::Enter); }},
        {"press", [this](CCommand c) { m_used = view->Press(c_keys.at(c.text)); }},
        {"focus", [this](CCommand c) { view->SetFocus(c.IsYes()); }},
        {"select", [this](CCommand) { view->SelectAll(); }},
        {"show", [this](CCommand c) { view->SetText(CStr::FromUtf8(c.text)); }},
        {"window", [this](CCommand) { MakeView(); }},
        {"edited", [this](CCommand) { edit->OnTextEdited(); }},
        {"claim", [this](CCommand c) { m_used = edit->ClaimsAllKeys(c.IsYes()); }},
        {"wheel", [this](CCommand c) { m_used = edit->OnMouseWheel(c.Get(), c.words.size() == 1); }},
        {"step", [this](CCommand c) { edit->OnSpinDeltaPos(c.Get()); }},
        {"spin", [this](CCommand c) { edit->GetSpinButton().OnDeltaPos(c.Get()); }},
        {"hover", [this](CCommand) { edit->GetSpinButton().OnPointerEntered(); }},
        {"larger",
         [this](CCommand) { edit->GetStepSizeCtrl().GetButton(CStepSizeBtn::EType::Larger).OnClicked(); }},
        {"size", [this](CCommand c) { ChangeStepSize(c.Get(), c.Get(1)); }},
        {"set", [this](CCommand c) { edit->SetValue(c.Get<T>()); }},
        {"range", [this](CCommand c) { edit->SetRange(c.Get<T>(), c.Get<T>(1), c.Get<double>(2)); }},
        {"setup", [this](CCommand c) { edit->Setup(c.Get<T>(), c.Get<T>(1), c.Get<T>(2), c.Get<T>(3)); }},
        {"increment", [this](CCommand c) { edit->SetIncrement(c.Get<T>()); }},
        {"fit", [this](CCommand c) { edit->SetIncrement(c.Get<T>(), c.Get<T>(1), c.Get<double>(2)); }},
        {"exponents",
         [this](CCommand c) {
             edit->SetIncrementExponentMin(c.Get(), c.words.size() == 3);
             edit->SetIncrementExponentMax(c.Get(1), c.words.size() == 3);
         }},
        {"steps", [this](CCommand c) { Step(c.Get<T>(), c.Get<T>(1)); }},
        {"whole", [this](CCommand) { edit->SetScanning(EScanning::Whole); }},
        {"format", [this](CCommand c) { SetFormat(c.text); }},
        {"readonly", [this](CCommand c) { edit->SetReadOnly(c.IsYes()); }},
        {"stepping", [this](CCommand c) { edit->EnableStepping(c.IsYes()); }},
        {"grow", [this](CCommand) { onChange = [this](T value) { edit->SetValue(value + 1); }; }},
        {"even",
         [this](CCommand) { SetValidator([](T value) { return static_cast<int>(value) % 2 == 0; }); }},
        {"ask",
         [this](CCommand c) { SetValidator([this, yes = c.IsYes()](T value) { return Ask(value, yes); }); }},
        {"narrow", [this](CCommand) { SetValidator([this](T) { return edit->SetRange(0, 5, 0.1), true; }); }},
    };
    CMemoryMessageBoxService m_boxes;
    CServiceScope<CMessageBoxService> m_boxesScope{m_boxes};
    CDiagnosticsCapture m_warnings;
    CMemorySpinView m_spin;
    T m_increment = 1;
    std::function<bool(T)> m_onValidate;
    std::string m_events;
    std::size_t m_beeps = 0;
    bool m_used = true;
};

using CIntStage = CStage<CIntEdit, int>;
using CFloatStage = CStage<CFloatEdit, float>;

} // namespace

TEST(NumericEdit, TakesInputAsTheScriptsSay)
{
    ExpectScriptOf<CIntStage>("int-edit.txt");
    ExpectScriptOf<CFloatStage>("float-edit.txt");
}

TEST(NumericEdit, ManySmallStepsAddNoError)
{
    CFloatEdit edit;
    edit.SetIncrement(0.01F);
    for (int i = 1; i <= 1000; ++i) {
        edit.OnSpinDeltaPos(1);
        ASSERT_EQ(edit.GetValue(), static_cast<float>(i / 100.0));
    }
}

TEST(NumericEdit, CallbackThrows)
{
    CIntStage stage;
    stage.SetValidator([](int) -> bool { throw std::runtime_error("validator"); });
    EXPECT_THROW(stage.Act(SCommand("enter 1")), std::runtime_error);
    EXPECT_EQ(stage.Tell(), "\"0\" 0 asked 1");
    EXPECT_FALSE(stage.edit->ValidatingUserInput());

    stage.edit->ResetValidator();
    stage.onChange = [](int) { throw std::runtime_error("listener"); };
    for (int i = 0; i < 4; ++i) // the depth is lowered each time
        EXPECT_THROW(stage.edit->SetValue(5 + i), std::runtime_error);
    EXPECT_EQ(stage.Tell(), "\"8\" 8 set 5 set 6 set 7 set 8");
}

TEST(NumericEdit, CallbackDestroysTheEdit)
{
    for (const auto& [typed, command] : {std::pair<const char16_t*, const char*>(u"", "set 3"),
                                         {u"", "range 3 5 0.1"},
                                         {u"", "enter 3"},
                                         {u"", "press Ctrl+Up"},
                                         {u"3", "press Ctrl+Up"},
                                         {u"", "wheel 120"},
                                         {u"", "spin 1"},
                                         {u"3", "focus no"}}) {
        for (const bool byValidator : {false, true}) {
            CIntStage stage;
            stage.SetValidator([&](int) { return byValidator ? stage.edit.reset(), true : true; });
            stage.onChange = [&](int) { stage.edit.reset(); };
            // It reads the flag before the edit is gone.
            stage.view->Type(typed);
            stage.Act(SCommand(command));
            EXPECT_TRUE(!stage.edit && !stage.view->GetControl()) << command;
        }
    }
}
