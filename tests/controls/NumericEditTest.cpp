#include "controls/FloatEdit.h"
#include "controls/IntEdit.h"
#include "controls/MemoryEditView.h"
#include "controls/MemorySpinView.h"
#include "platform/MemoryMessageBoxService.h"
#include "platform/MessageBoxService.h"
#include "tests/DiagnosticsCapture.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <initializer_list>
#include <limits>
#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

using namespace CommonUI;

namespace
{

constexpr int c_intMin = std::numeric_limits<int>::min();
constexpr int c_intMax = std::numeric_limits<int>::max();
constexpr float c_floatMax = std::numeric_limits<float>::max();
constexpr float c_infinity = std::numeric_limits<float>::infinity();
constexpr float c_nan = std::numeric_limits<float>::quiet_NaN();

// An edit with a window that has the focus, whose callbacks are recorded and may act.
template<class TEdit, class T>
class CStage
{
public:
    CStage()
    {
        edit->SetView(&view);
        edit->SetChangeNotification(*this, &CStage::OnChange);
        view.SetFocus(true);
    }
    void OnChange(T value)
    {
        changes.push_back(value);
        byUser = edit->ValidatingUserInput();
        if (const auto action = onChange)
            action(value);
    }
    bool OnValidate(T value)
    {
        asked.push_back(value);
        const auto action = onValidate;
        return action(value);
    }
    void SetValidator(std::function<bool(T)> action)
    {
        onValidate = std::move(action);
        edit->SetValidator(*this, &CStage::OnValidate);
    }
    void Enter(std::u16string_view text)
    {
        view.SelectAll(), view.Press(EKey::Delete);
        view.Type(text), view.Press(EKey::Enter);
    }
    void Expect(T value, const CStr& text) const
    {
        EXPECT_EQ(std::tuple(edit->GetValue(), view.GetText()), std::tuple(value, text));
    }
    void ExpectTyped(std::initializer_list<std::pair<const char16_t*, T>> cases, std::size_t beepsEach = 0)
    {
        for (const auto& [text, value] : cases) {
            const std::size_t beeps = CountBeeps();
            Enter(text);
            EXPECT_EQ(edit->GetValue(), value) << CStr(text).ToUtf8();
            EXPECT_EQ(view.GetText(), edit->ValueToText(value));
            EXPECT_FALSE(edit->IsModified());
            EXPECT_EQ(CountBeeps(), beeps + beepsEach) << CStr(text).ToUtf8();
        }
    }
    void ExpectRefused(std::initializer_list<const char16_t*> texts)
    {
        for (const char16_t* text : texts)
            ExpectTyped({{text, edit->GetValue()}}, 1);
    }
    std::size_t CountBeeps() const { return boxes.GetBeeps().size(); }

    CMemoryMessageBoxService boxes;
    CServiceScope<CMessageBoxService> boxesScope{boxes};
    CMemoryEditView view;
    std::unique_ptr<TEdit> edit = std::make_unique<TEdit>();
    std::vector<T> changes;
    std::vector<T> asked;
    bool byUser = false;
    std::function<void(T)> onChange;
    std::function<bool(T)> onValidate;
    CDiagnosticsCapture warnings;
};

using CIntStage = CStage<CIntEdit, int>;
using CFloatStage = CStage<CFloatEdit, float>;

// Where steps lead from a value: in a row the value, the step, and the values after 1, -1, 0 and 3 steps.
template<class TEdit, class T>
void ExpectSteps(std::initializer_list<std::array<T, 6>> cases)
{
    for (const auto& row : cases) {
        const auto step = [&](int delta) {
            TEdit edit;
            edit.SetIncrement(row[1]);
            edit.SetValue(row[0]);
            edit.OnSpinDeltaPos(delta);
            return edit.GetValue();
        };
        EXPECT_EQ((std::array{row[0], row[1], step(1), step(-1), step(0), step(3)}), row);
    }
}

} // namespace

TEST(NumericEdit, ReadsAnInteger)
{
    CIntStage stage;
    stage.ExpectTyped({{u" \t-5", -5}, {u"+7", 7}, {u"1e5", 1}, {u"2147483648", c_intMax}});
    stage.ExpectTyped({{u"-99999999999999999999", c_intMin}});
    stage.ExpectRefused({u"", u"abc", u"+-5", u"- 5", u".5"});
}

TEST(NumericEdit, ReadsARealNumber)
{
    CFloatStage stage;
    stage.ExpectTyped({{u"-1.5 mm", -1.5F}, {u"2.", 2.0F}, {u"+.5", 0.5F}, {u"1e", 1.0F}, {u"2E-1e", 0.2F}});
    stage.ExpectTyped({{u"0x10", 0.0F}, {u"1e400", c_floatMax}, {u"1e-400", 0.0F}, {u"-1e39", -c_floatMax}});
    stage.ExpectTyped({{u"-InF", -c_floatMax}, {u"infinite", c_floatMax}});
    stage.ExpectRefused({u"nan", u"-nan(1)", u".", u"e5", u"-.e5", u""});
}

TEST(NumericEdit, ReadsTheWholeTextWhereItIsToldTo)
{
    CFloatStage stage;
    stage.edit->SetScanning(EScanning::Whole);
    stage.edit->SetFormatString(u"%.3f mm");
    stage.edit->Setup(0, 0, 2, 0.1F);
    stage.ExpectTyped({{u"800 \u00B5m", 0.8F}, {u"1,5", 1.5F}, {u"5000 \u00B5m", 2.0F}, {u"\u22121", 0.0F}});
    stage.ExpectRefused({u"1.5 V", u"1.5x", u"1 00", u"inf"});
    stage.view.SelectAll(), stage.view.Type(u"1 200 \u00B5m");
    stage.view.Press({.key = EKey::Up, .control = true});
    stage.Expect(1.3F, u"1.300 mm");

    CIntStage count;
    count.edit->SetScanning(EScanning::Whole);
    count.ExpectTyped({{u"1 000", 1000}, {u"99999999999", c_intMax}});
    count.ExpectRefused({u"1,000", u"7 x"});
}

TEST(NumericEdit, ReadOnlyTextCanOnlyBeCopied)
{
    CIntStage stage;
    stage.view.Type(u"7");
    stage.edit->SetReadOnly(true);
    EXPECT_EQ(stage.view.GetText(), u"0") << "what was typed is not taken";
    stage.view.SelectAll(), stage.view.Type(u"5");
    EXPECT_EQ(stage.view.GetSelectedText(), u"0");
    for (const SKey key : {SKey{.key = EKey::Delete}, SKey{.key = EKey::Enter}, SKey{.key = EKey::Escape},
                           SKey{.key = EKey::Up, .control = true}})
        EXPECT_FALSE(stage.view.Press(key)) << "it is the dialog's";
    stage.edit->OnTextEdited();
    EXPECT_FALSE(stage.edit->IsModified() || stage.edit->ClaimsAllKeys(false) ||
                 stage.edit->OnMouseWheel(120, true));
    stage.edit->GetSpinButton().OnDeltaPos(1);
    stage.edit->OnSpinDeltaPos(1);
    stage.edit->GetStepSizeCtrl().GetButton(CStepSizeBtn::EType::Larger).OnClicked();
    stage.edit->GetSpinButton().OnPointerEntered();
    EXPECT_EQ(std::tuple(stage.edit->GetIncrement(), stage.edit->GetStepSizeCtrl().GetSlideStep()),
              std::tuple(1, 0));
    stage.edit->SetValue(3);
    CMemoryEditView later;
    stage.edit->SetView(&later);
    EXPECT_TRUE(later.IsReadOnly() && later.GetText() == u"3") << "the program may change it";
    stage.edit->SetReadOnly(false);
    later.SelectAll(), later.Type(u"8");
    stage.edit->GetSpinButton().OnDeltaPos(1);
    EXPECT_EQ(std::tuple(stage.changes, stage.CountBeeps()), std::tuple((std::vector<int>{3, 8, 9}), 0U));
}

TEST(NumericEdit, FormatHoldsOneRealConversion)
{
    // of 1.25
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"%+8.3E", u"+1.250E+00"}, {u" %g %% of it", u" 1.25 % of it"}, {u"%.2Lf mm", u"1.25 mm"}};
    CFloatStage stage;
    stage.edit->SetScanning(EScanning::Whole);
    stage.edit->SetValue(1.25F);
    for (const auto& [format, text] : cases) {
        EXPECT_TRUE(stage.edit->SetFormatString(format));
        EXPECT_EQ(stage.view.GetText(), text);
        stage.Enter(text);
        EXPECT_EQ(stage.CountBeeps(), 0U) << "it reads what it shows";
    }
    int refused = 0;
    for (const char16_t* format : {u"", u"%d", u"%f %f", u"%f%", u"%*f", u"%%f", u"x %f", u"%.1f0"}) {
        EXPECT_FALSE(stage.edit->SetFormatString(format)) << CStr(format).ToUtf8();
        EXPECT_EQ(stage.edit->GetFormatString(), u"%.2Lf mm");
        EXPECT_EQ(stage.warnings.GetCount(), ++refused);
    }
}

TEST(NumericEdit, ClampsIntoTheRange)
{
    const std::array<float, 4> cases[] = {
        {4, 4, 7, 4},        {10, 0, 5, 5},           {10, 0, -1, 0},
        {0, 10, 11, 10},     {10, 0, 11, 10},         {0, 10, c_nan, 3},
        {c_nan, 10, 20, 20}, {0, 10, -c_infinity, 0}, {-c_infinity, c_infinity, c_infinity, c_floatMax}};
    for (const auto& [minimum, maximum, value, expected] : cases) {
        CFloatStage stage;
        stage.edit->SetValue(3);
        stage.edit->SetRange(minimum, maximum, 0.1);
        EXPECT_EQ(stage.changes.size(), minimum == 4 ? 2U : 1U) << "clamped by the new range";
        stage.edit->SetValue(value);
        EXPECT_EQ(stage.edit->GetValue(), expected) << minimum << ' ' << value;
        EXPECT_EQ(stage.view.GetText(), CStr::Format(u"%f", double{expected}));
        EXPECT_EQ(stage.warnings.GetCount(), std::isnan(minimum) || std::isnan(value) ? 1 : 0);
        EXPECT_EQ(stage.CountBeeps(), 0U);
    }
}

TEST(NumericEdit, IncrementIsMantissaAndPowerOfTen)
{
    // smaller: ten times
    const std::array<float, 3> cases[] = {
        {0, 1, 0.1F},    {-0.7F, 0.7F, 0.07F},  {c_floatMax, c_floatMax, 3.4028235e37F},
        {250, 250, 25},  {c_infinity, 1, 0.1F}, {std::numeric_limits<float>::denorm_min(), 1e-45F, 1e-45F},
        {c_nan, 1, 0.1F}};
    for (const auto& [step, increment, smaller] : cases) {
        CFloatEdit edit;
        edit.SetIncrementExponentMin(-100, false);
        edit.SetIncrement(step);
        EXPECT_EQ(edit.GetIncrement(), increment) << step;
        edit.OnStepSizeChanged(-1);
        EXPECT_EQ(edit.GetIncrement(), smaller) << step;
    }
    CIntEdit edit;
    for (const int step : {1, 7, 29, 57, 115, 1009, 999999999, c_intMax, -115}) {
        edit.SetIncrement(step);
        EXPECT_EQ(edit.GetIncrement(), std::abs(step));
    }
    edit.SetIncrement(c_intMin);
    EXPECT_EQ(edit.GetIncrement(), c_intMax);
}

TEST(NumericEdit, IncrementFitsTheRange)
{
    const std::tuple<float, float, double, float, int> cases[] = {
        {0, 10, 0.1, 1, 1},           {0, 9, 0.1, 0.1F, 1},       {1000, 1001, 0.01, 10, 10},
        {10, 0, 0.1, 0.1F, 1},        {-10, -5, 1, 1, 1},         {0, 10, 0, 1, 1},
        {0, 10, double{c_nan}, 1, 1}, {0, 10, 1e-300, 1e-45F, 1}, {0, 10, 1e300, 1e38F, 1000000000}};
    for (const auto& [minimum, maximum, factor, increment, intIncrement] : cases) {
        CFloatEdit edit;
        edit.SetRange(minimum, maximum, factor);
        EXPECT_EQ(edit.GetIncrement(), increment) << minimum << ' ' << maximum << ' ' << factor;
        CIntEdit intEdit;
        intEdit.SetIncrement(static_cast<int>(minimum), static_cast<int>(maximum), factor);
        EXPECT_EQ(intEdit.GetIncrement(), intIncrement) << minimum << ' ' << maximum;
    }
}

TEST(NumericEdit, ExponentStaysWithinItsLimits)
{
    const std::tuple<float, bool, float, float> cases[] = {
        {0, true, 1e-5F, 1e5F},      {1000, true, 1e-2F, 1e8F},  {999.99994F, true, 1e-3F, 1e7F},
        {-0.01F, true, 1e-7F, 1e3F}, {1234, false, 1e-5F, 1e5F},
    };
    const auto change = [](auto& edit, int delta, int times) {
        while (times-- > 0)
            edit.OnStepSizeChanged(delta);
        return edit.GetIncrement();
    };
    for (const auto& [value, relative, least, greatest] : cases) {
        CFloatEdit edit;
        edit.SetValue(value);
        edit.SetIncrementExponentMin(-5, relative);
        edit.SetIncrementExponentMax(5, relative);
        EXPECT_EQ(change(edit, -1, 20), least) << value;
        EXPECT_EQ(change(edit, 1, 20), greatest) << value;
        EXPECT_EQ(change(edit, c_intMax, 1), greatest) << value;
        EXPECT_EQ(change(edit, c_intMin, 1), greatest) << value;
    }
    CIntEdit edit;
    edit.SetIncrement(25);
    EXPECT_EQ(change(edit, -1, 2), 2);
    edit.SetValue(c_intMax);
    EXPECT_EQ(change(edit, 1, 20), c_intMax);
}

TEST(NumericEdit, StepsOfARealNumber)
{
    ExpectSteps<CFloatEdit, float>({
        {1.23F, 0.1F, 1.3F, 1.2F, 1.2F, 1.5F},
        {-1.23F, 0.1F, -1.2F, -1.3F, -1.3F, -1.0F},
        {1.3000001F, 0.1F, 1.4F, 1.2F, 1.3F, 1.6F},
        {100000.3F, 0.1F, 100000.4F, 100000.2F, 100000.3F, 100000.6F},
        {7, 10, 10, 0, 0, 30},
        // Multiples are limited to 32 bits.
        {1e10F, 0.1F, 214748364.7F, 214748364.7F, 214748364.7F, 214748364.7F},
        {1, 3e38F, 3e38F, -3e38F, 0, c_floatMax},
    });
    CFloatEdit edit;
    edit.SetIncrement(0.01F);
    for (int i = 1; i <= 1000; ++i) {
        edit.OnSpinDeltaPos(1);
        ASSERT_EQ(edit.GetValue(), static_cast<float>(i / 100.0));
    }
}

TEST(NumericEdit, StepsOfAnInteger)
{
    ExpectSteps<CIntEdit, int>({
        {-4, 2, -2, -6, -4, 2},
        {1995, 1000, 3000, 0, 1000, 4000},
        // Division drops the fraction, so steps towards 0 pass the first multiple.
        {5, 2, 6, 2, 4, 10},
        {-5, 2, -2, -6, -4, 2},
        {c_intMax, 1, c_intMax, c_intMax - 1, c_intMax, c_intMax},
        {c_intMin, 1, c_intMin + 1, c_intMin, c_intMin, c_intMin + 3},
        {c_intMax, c_intMax, c_intMax, 0, c_intMax, c_intMax},
    });
}

TEST(NumericEdit, StepsEndAtTheRange)
{
    CIntStage stage;
    stage.edit->Setup(3, 1, 5, 10);
    for (const int delta : {1, 1, -1, -1, 1})
        stage.edit->OnSpinDeltaPos(delta);
    stage.edit->Setup(3, 10, 0, 1);
    for (const int delta : {1, c_intMin})
        stage.edit->OnSpinDeltaPos(delta);
    EXPECT_EQ(std::tuple(stage.changes, stage.CountBeeps()),
              std::tuple((std::vector<int>{3, 5, 1, 5, 3, 2, 10}), 0U));
}

TEST(NumericEdit, WheelCountsNotches)
{
    CFloatStage stage;
    CMemorySpinView spin;
    stage.edit->GetSpinButton().SetView(&spin);
    stage.edit->SetIncrement(0.1F);
    stage.edit->SetValue(1.23F);
    const std::pair<int, float> cases[] = {{60, 1.2F},  {60, 1.3F}, {-100, 1.3F}, {-140, 1.1F},
                                           {119, 1.1F}, {1, 1.2F},  {360, 1.5F}};
    for (const auto& [delta, value] : cases) {
        EXPECT_TRUE(stage.edit->OnMouseWheel(delta, true));
        EXPECT_EQ(stage.edit->GetValue(), value);
    }
    EXPECT_EQ(spin.hint, u"\u00B1 0.1");
    stage.edit->OnStepSizeChanged(1);
    EXPECT_EQ(spin.hint, u"\u00B1 1");
    stage.view.Type(u"7");
    stage.edit->OnMouseWheel(60, true);
    EXPECT_EQ(stage.edit->GetValue(), 71) << "no step applies what was typed as well";

    stage.view.SetFocus(false);
    EXPECT_FALSE(stage.edit->OnMouseWheel(120, true));
    stage.view.SetFocus(true);
    EXPECT_FALSE(stage.edit->OnMouseWheel(120, false));
    stage.edit->EnableStepping(false);
    EXPECT_FALSE(stage.edit->OnMouseWheel(120, true) || stage.view.Press({.key = EKey::Up, .control = true}));
    EXPECT_EQ(stage.edit->GetValue(), 71);

    CIntStage far;
    EXPECT_TRUE(far.edit->OnMouseWheel(119, true) && far.edit->OnMouseWheel(c_intMax, true));
    EXPECT_EQ(far.edit->GetValue(), (119LL + c_intMax) / 120);
}

TEST(NumericEdit, UserIsCheckedAndProgramIsNot)
{
    CIntStage stage;
    stage.SetValidator([&](int value) { return value % 2 == 0; });
    stage.edit->SetValue(5);
    stage.edit->SetValue(5);
    EXPECT_FALSE(stage.byUser);
    stage.Enter(u"7");
    EXPECT_EQ(std::tuple(stage.view.GetText(), stage.CountBeeps()), std::tuple(u"5", 1U));
    stage.Enter(u"5");
    stage.Enter(u"8");
    stage.edit->OnSpinDeltaPos(1);
    EXPECT_EQ(std::tuple(stage.CountBeeps(), stage.changes), std::tuple(2U, (std::vector<int>{5, 5, 8})));
    EXPECT_EQ(stage.asked, (std::vector<int>{7, 8, 9})) << "the same value is not asked for";
}

TEST(NumericEdit, NotificationSetsTheValueAgain)
{
    const std::pair<void (*)(CIntStage&), bool> ways[] = {
        {[](CIntStage& s) { s.edit->SetValue(10); }, false},
        {[](CIntStage& s) { s.Enter(u"10"); }, true},
        {[](CIntStage& s) { s.edit->OnSpinDeltaPos(10); }, true}};
    for (const auto& [change, byUser] : ways) {
        CIntStage stage;
        stage.onChange = [&](int value) { stage.edit->SetValue(value + 1); };
        change(stage);
        EXPECT_EQ(stage.changes, (std::vector<int>{10, 11}));
        EXPECT_EQ(stage.byUser, byUser) << "also for what is set in between";
        stage.Expect(12, u"12");
    }
}

TEST(NumericEdit, ValidatorSetsTheValueAgain)
{
    for (const bool accept : {false, true}) {
        CIntStage stage;
        stage.SetValidator([&](int value) {
            stage.view.SetFocus(false); // as a message box does
            EXPECT_EQ(stage.CountBeeps(), 0U);
            stage.edit->SetValue(value + 100);
            stage.edit->OnSpinDeltaPos(1); // the user steps while he is asked
            return accept;
        });
        stage.Enter(u"1");
        EXPECT_EQ(stage.asked, std::vector<int>{1});
        stage.Expect(accept ? 1 : 101, accept ? u"1" : u"101");
    }
}

TEST(NumericEdit, CallbacksOfUserAndProgramKeepTheRange)
{
    CFloatStage stage;
    stage.SetValidator([&](float) { return stage.edit->SetRange(0, 5, 0.1), true; });
    stage.ExpectTyped({{u"8", 5.0F}});
    stage.edit->Setup(c_nan, 7, 9, 1);
    EXPECT_EQ(std::tuple(stage.edit->GetValue(), stage.changes), std::tuple(7, (std::vector<float>{5, 7})));
}

TEST(NumericEdit, CallbackThrows)
{
    CIntStage stage;
    stage.SetValidator([](int) -> bool { throw std::runtime_error("validator"); });
    EXPECT_THROW(stage.Enter(u"1"), std::runtime_error);
    stage.Expect(0, u"0");
    EXPECT_FALSE(stage.edit->IsModified() || stage.edit->ValidatingUserInput());

    stage.edit->ResetValidator();
    stage.onChange = [](int) { throw std::runtime_error("listener"); };
    for (int i = 0; i < 4; ++i) // the depth is lowered each time
        EXPECT_THROW(stage.edit->SetValue(5 + i), std::runtime_error);
    EXPECT_EQ(std::tuple(stage.changes.size(), stage.view.GetText()), std::tuple(4U, u"8"));
}

TEST(NumericEdit, CallbackDestroysTheEdit)
{
    const std::pair<const char*, void (*)(CIntStage&)> cases[] = {
        {"set", [](CIntStage& s) { s.edit->SetValue(3); }},
        {"range", [](CIntStage& s) { s.edit->SetRange(3, 5, 0.1); }},
        {"enter", [](CIntStage& s) { s.Enter(u"3"); }},
        {"arrow", [](CIntStage& s) { s.view.Press({.key = EKey::Up, .control = true}); }},
        {"typed, then arrow",
         [](CIntStage& s) { s.view.Type(u"3"), s.view.Press({.key = EKey::Up, .control = true}); }},
        {"wheel", [](CIntStage& s) { s.edit->OnMouseWheel(120, true); }},
        {"spin", [](CIntStage& s) { s.edit->GetSpinButton().OnDeltaPos(1); }},
        {"focus", [](CIntStage& s) { s.view.Type(u"3"), s.view.MoveFocus(false); }},
    };
    for (const auto& [what, act] : cases) {
        for (const bool byValidator : {false, true}) {
            CIntStage stage;
            stage.SetValidator([&](int) { return byValidator ? stage.edit.reset(), true : true; });
            stage.onChange = [&](int) { stage.edit.reset(); };
            // It reads the flag before the edit is gone.
            act(stage);
            EXPECT_TRUE(!stage.edit && !stage.view.GetControl()) << what;
        }
    }
}

TEST(NumericEdit, TypedTextOutlivesANewSizeOfTheStepAndReplacesTheNumber)
{
    CIntStage stage;
    stage.view.SetText(u"stale");
    stage.edit->SetIncrement(1);
    EXPECT_EQ(stage.view.GetText(), u"0");
    stage.view.Type(u"7");
    stage.edit->SetValue(0);
    EXPECT_FALSE(stage.edit->IsModified()) << "what the program sets replaces it";

    stage.view.Type(u"5");
    stage.edit->GetStepSizeCtrl().GetButton(CStepSizeBtn::EType::Larger).OnClicked();
    EXPECT_EQ(std::tuple(stage.edit->GetIncrement(), stage.view.GetText()), std::tuple(10, u"50"));

    EXPECT_TRUE(stage.view.Press({.key = EKey::Down, .control = true}) && !stage.view.Press(EKey::Down));
    EXPECT_EQ(stage.changes, (std::vector<int>{0, 50, 40})) << "first what was typed";
    stage.view.Type(u"5");
    EXPECT_EQ(stage.view.GetText(), u"5") << "it replaces what a step has shown";
    stage.view.SetFocus(false);
    stage.edit->OnSpinDeltaPos(1);
    stage.view.Type(u"7");
    EXPECT_EQ(stage.view.GetText(), u"710") << "but not without the focus";
}
