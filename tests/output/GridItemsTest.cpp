#include "output/grid/GridBaseOutputItem.h"
#include "output/grid/GridButtonItem.h"
#include "output/grid/GridCheckItem.h"
#include "output/grid/GridColorIndicatorItem.h"
#include "output/grid/GridDblSpinItem.h"
#include "output/grid/GridSetupItem.h"
#include "output/grid/GridUnitListItem.h"

#include <gtest/gtest.h>

#include "tests/output/GridHarness.h"
#include "tests/TestData.h"

#include <stdexcept>

using namespace CommonUI;
using EFactor = CUnit::EUnitFactor;
using EDimension = CParameter::EDimension;

namespace
{

constexpr unsigned int c_left = GridMouse::c_leftDown;
constexpr unsigned int c_right = GridMouse::c_rightDown;

SBase3D<CUnit> Units(const char16_t* z = u"m")
{
    return {CUnit(EFactor::Unity), CUnit(EFactor::Unity), CUnit(EFactor::Unity, z)};
}

// What buttons call: keeps what was drawn during the call, then does what it was told.
struct SListener {
    void OnSetup(CGridSetupItem& item) { Run(item); }
    void OnButton(CGridButtonItem& item) { Run(item); }
    void Run(CGridItem& item)
    {
        ++calls;
        drawn = harness->Draw(item);
        focusCount = harness->view.focusCount;
        if (remove)
            item.GetGrid()->RemoveAllRows();
        if (destroy)
            harness->grid.reset();
        if (fail)
            throw std::runtime_error("refused");
    }

    CGridHarness* harness;
    int calls = 0;
    int focusCount = -1;
    std::string drawn{};
    bool remove = false;
    bool destroy = false;
    bool fail = false;
};

} // namespace

TEST(GridItems, ChecksToggleByClicksOnTheBox)
{
    // State, message, a point in a cell that begins at 0, 20, and the state then.
    const std::tuple<int, unsigned int, SPoint, int> cases[] = {
        {0, c_left, {2, 22}, 1},   {1, c_left, {17, 37}, 0}, {2, c_left, {10, 30}, 0},
        {0, c_right, {10, 30}, 1}, {0, c_left, {1, 30}, 0},  {0, c_left, {18, 30}, 0},
        {0, c_left, {10, 21}, 0},  {0, c_left, {10, 38}, 0}, {1, c_right, {18, 30}, 1},
        {1, 0x203, {10, 30}, 1},   {2, 0x202, {10, 30}, 2},
    };
    for (const auto& [state, message, point, after] : cases) {
        CGridHarness harness;
        auto& item = harness.grid->AddRow().Emplace<CGridSetupItem>(true);
        item.SetId(77);
        item.SetState(state, false);
        harness.view.invalidated.clear();
        const bool toggled = state != after;
        EXPECT_EQ(item.OnClickValue(message, point, harness.grid->GetItemRect(item)), toggled);
        EXPECT_EQ(item.GetState(), after);
        EXPECT_EQ(item.IsChanged(), toggled);
        EXPECT_EQ(harness.view.invalidated.empty(), !toggled);
        EXPECT_EQ(harness.TakeChanges(), toggled ? "77 " : "") << "told before it is marked";
    }

    CGridHarness harness;
    auto& check = harness.grid->AddRow().Emplace<CGridCheckItem>(2, 5);
    EXPECT_EQ(check.GetCheck(), EGridCheck::Indeterminate);
    EXPECT_EQ(check.GetData(), 5u);
    const std::tuple<int, int, int> presses[] = {{41, 30, 2}, {58, 30, 2}, {50, 21, 2}, {50, 38, 2},
                                                 {42, 22, 0}, {57, 37, 1}, {50, 30, 0}};
    for (const auto& [x, y, state] : presses) {
        harness.Press(x, y);
        EXPECT_EQ(static_cast<int>(check.GetCheck()), state) << x << "," << y;
    }
    EXPECT_EQ(harness.TakeChanges(), "0 0! 0! ");
    EXPECT_TRUE(harness.Key(EGridKey::Space));
    EXPECT_EQ(check.GetValue(), CGridValue(true));
    check.SetAutoHide(true);
    EXPECT_FALSE(harness.Key(EGridKey::Space)) << "a hidden box cannot be toggled";
    EXPECT_FALSE(harness.Key(EGridKey::F2)) << "no editor";
}

TEST(GridItems, WhatCannotBeChangedStays)
{
    for (const std::string_view how : {"grid", "item", "disabled", "no box", "no grid"}) {
        SCOPED_TRACE(how);
        CGridHarness harness;
        const auto item = std::make_shared<CGridSetupItem>(how != "no box");
        const auto check = std::make_shared<CGridCheckItem>(1, 0);
        if (how != "no grid") {
            harness.grid->AddRow().Add(item);
            harness.grid->AddRow().Add(check);
        }
        harness.grid->SetReadOnly(how == "grid");
        for (CGridItem* each : {static_cast<CGridItem*>(item.get()), static_cast<CGridItem*>(check.get())}) {
            each->SetFlag(CGridItem::ReadOnly, how == "item");
            each->SetFlag(CGridItem::Disabled, how == "disabled");
        }
        EXPECT_FALSE(item->OnClickValue(c_left, {10, 30}, {0, 20, 100, 40}));
        if (how == "no box")
            continue;
        EXPECT_FALSE(check->OnClickValue(c_left, {50, 50}, {0, 40, 100, 60}));
        EXPECT_FALSE(item->OnSpace() || check->OnSpace());
        EXPECT_TRUE(item->GetState() == 0 && check->GetCheck() == EGridCheck::Checked);
        EXPECT_EQ(harness.TakeChanges(), "");
    }
}

// The record has each drawing below what is drawn.
TEST(GridItems, DrawThemselves)
{
    CGridHarness harness;
    CGridRow& row = harness.grid->AddRow();
    std::string drawn;
    const auto draw = [&](const char* what, const std::shared_ptr<CGridItem>& item) {
        row.Set(0, item);
        drawn += what + ("\n" + harness.Draw(*item));
    };
    const auto setup = std::make_shared<CGridSetupItem>(true);
    setup->SetValue(u"Sdc");
    setup->SetIndeterminate(true);
    draw("set-up", setup);
    setup->ShowCheckbox(false);
    draw("set-up without a box", setup);
    const auto check = std::make_shared<CGridCheckItem>(9, 0);
    draw("check", check);
    check->SetFlag(CGridItem::Disabled);
    draw("disabled check", check);
    check->SetAutoHide(true);
    draw("hidden check", check);
    const auto color = std::make_shared<CGridColorIndicatorItem>(u"Pores", 3, nullptr, u"x", nullptr);
    color->SetFillColor({255, 128, 0});
    draw("color", color);
    color->SetOutlineColor({0, 0, 9});
    draw("color with an outline", color);
    const auto button = std::make_shared<CGridButtonItem>(u"Reset", 400, 12);
    EXPECT_EQ(button->GetCommandId(), 400u);
    draw("button", button);
    draw("button without a text", std::make_shared<CGridButtonItem>(nullptr, 0, ~0u));
    const auto spin = std::make_shared<CGridDblSpinItem>(2.5);
    spin->EnableSpinControl(true, 0, 9);
    draw("spin", spin);
    const auto unit = std::make_shared<CGridUnitListItem>(EDimension::Area, EFactor::Micro, Units());
    unit->SetFlag(CGridItem::Disabled);
    draw("disabled unit", unit);
    unit->SetAutoHide(true);
    draw("hidden unit", unit);
    SGridEdit edit;
    EXPECT_TRUE(unit->GetSpokenText().IsEmpty() && !unit->CreateInPlaceEdit(edit)) << "hidden";
    row.AddSubRow();
    draw("unit that cannot be hidden, beside the expander", unit);
    harness.grid->SelectCell({0, 0});
    draw("selected text", std::make_shared<CGridItem>(u"plain"));
    check->SetFlag(CGridItem::Disabled, false);
    draw("selected check", check);
    EXPECT_EQ(drawn, ReadTestData("grid-items.txt"));

    EXPECT_EQ(check->GetSpokenText(), u"checked");
    EXPECT_EQ(setup->GetSpokenText(), u"Sdc");
    setup->ShowCheckbox(true);
    EXPECT_EQ(setup->GetSpokenText(), u"Sdc, partly checked");
    setup->SetState(-1, false);
    EXPECT_TRUE(setup->IsChecked());
    const auto output = std::make_shared<CGridBaseOutputItem>();
    row.Set(0, output);
    row.Set(1, color);
    EXPECT_FALSE(output->CanChange() || color->CanChange());
}

TEST(GridItems, ButtonsArePressedWhileTheyCall)
{
    CGridHarness harness;
    SListener listener{&harness};
    auto& setup = harness.grid->AddRow().Emplace<CGridSetupItem>(false);
    auto& button = harness.grid->AddRow().Emplace<CGridButtonItem>(u"Go", 1, ~0u);
    harness.Press(90, 30);
    harness.Press(50, 50);
    EXPECT_EQ(harness.view.focusCount, 0) << "nothing happens without a callback";
    for (const std::size_t row : {0u, 1u}) {
        harness.grid->SelectCell({row, 0});
        EXPECT_FALSE(harness.Key(EGridKey::F2)) << "no editor";
    }
    setup.SetCallback(listener, &SListener::OnSetup);
    button.SetCallback(listener, &SListener::OnButton);

    harness.view.invalidated.clear();
    setup.OnClickButton();
    EXPECT_EQ(harness.view.invalidated, std::vector<SRect>(2, {0, 20, 100, 40})) << "pressed and released";
    EXPECT_EQ(listener.focusCount, 0);
    EXPECT_EQ(harness.view.focusCount, 1) << "given back after the call";
    EXPECT_TRUE(Has(listener.drawn, "button 80,20,100,40 set-up pressed"));
    EXPECT_FALSE(setup.IsButtonPressed());
    harness.Press(79, 30);
    EXPECT_EQ(listener.calls, 1) << "beside the button";
    EXPECT_TRUE(harness.Key(EGridKey::Enter));
    EXPECT_EQ(listener.calls, 2);

    harness.grid->SetReadOnly(true);
    const std::tuple<SPoint, unsigned int, int> cases[] = {
        {{2, 42}, c_left, 1},  {{97, 57}, c_left, 1}, {{1, 42}, c_left, 0},  {{98, 50}, c_left, 0},
        {{50, 41}, c_left, 0}, {{50, 58}, c_left, 0}, {{50, 50}, c_right, 0}};
    for (const auto& [point, message, calls] : cases) {
        listener.calls = 0;
        harness.Press(point.x, point.y, message);
        EXPECT_EQ(listener.calls, calls) << point.x << "," << point.y;
    }
    EXPECT_TRUE(Has(listener.drawn, "push pressed"));
    EXPECT_EQ(harness.grid->OnSetCursor({2, 42}), EGridCursor::Hand);
    EXPECT_EQ(harness.grid->OnSetCursor({1, 42}), EGridCursor::Arrow);
    button.SetFlag(CGridItem::Disabled);
    harness.Press(50, 50);
    EXPECT_FALSE(harness.Key(EGridKey::Space));
    EXPECT_EQ(listener.calls, 0);

    listener.fail = true;
    EXPECT_THROW(setup.OnClickButton(), std::runtime_error);
    EXPECT_FALSE(setup.IsButtonPressed());
}

TEST(GridItems, CallbacksMayRemoveItemAndGrid)
{
    const std::tuple<SGridCell, void (*)(CGridHarness&), bool> cases[] = {
        {{0, 0}, [](auto& harness) { harness.Press(90, 30); }, false},
        {{0, 0}, [](auto& harness) { harness.Press(150, 30); }, false},
        {{0, 1}, [](auto& harness) { harness.Key(EGridKey::Space); }, false},
        {{0, 0}, [](auto& harness) { harness.Press(10, 30); }, true},
        {{1, 0}, [](auto& harness) { harness.grid->BeginEdit() && harness.grid->EndEdit(u"b"); }, true},
    };
    for (const auto& [selected, act, changes] : cases) {
        for (const bool destroy : {false, true}) {
            CGridHarness harness;
            SListener listener{.harness = &harness, .remove = !destroy, .destroy = destroy};
            CGridRow& buttons = harness.grid->AddRow();
            buttons.Emplace<CGridSetupItem>(true).SetCallback(listener, &SListener::OnSetup);
            buttons.Emplace<CGridButtonItem>(u"", 0, ~0u).SetCallback(listener, &SListener::OnButton);
            harness.grid->AddRow().Emplace<CGridListItem>().SetOptions({u"a", u"b"});
            harness.destroyOnChange = true;
            harness.grid->SelectCell(selected);
            act(harness);
            EXPECT_EQ(listener.calls, changes ? 0 : 1);
            EXPECT_EQ(harness.grid == nullptr, destroy || changes);
        }
    }
}

TEST(GridItems, SpinsOnlyForNumbers)
{
    using EType = EGridValueType;
    const std::pair<CGridValue, bool> cases[] = {
        {1.5, true},
        {1, true},
        {1u, true},
        {{EType::I2, 1}, true},
        {{EType::I4, 1}, true},
        {{EType::UI1, 1}, true},
        {{EType::UI2, 1}, true},
        {{EType::I1, 1}, false},
        {{EType::UI4, 1}, false},
        {u"1.5", false},
        {true, false},
        {{}, false},
    };
    for (const auto& [value, spins] : cases) {
        CGridDblSpinItem item(0);
        item.SetValue(value);
        item.EnableSpinControl(true, 20, 10);
        EXPECT_EQ(item.HasFlag(CGridItem::HasSpin), spins);
        EXPECT_EQ(item.GetMaximum(), spins ? 20 : 0);
        if (!spins)
            continue;
        EXPECT_TRUE(item.OnEndEdit(u"25"));
        EXPECT_EQ(item.GetValue().GetReal(), 20);
        EXPECT_EQ(item.GetValue().GetType(), value.GetType());
        item.EnableSpinControl(false, 10, 20);
        EXPECT_TRUE(item.OnEndEdit(u"25"));
        EXPECT_EQ(item.GetValue().GetReal(), 25) << "no arrows, no range";
    }
}

TEST(GridItems, UnitsOfTheDimension)
{
    const std::tuple<EDimension, EFactor, const char16_t*, const char16_t*, const char16_t*> cases[] = {
        {EDimension::Length, EFactor::Nano, u"m", u"nm", u"pm Å nm µm mm cm m µin mil in "},
        {EDimension::Area, EFactor::Giga, u"m", u"Gm²", u"pm² Å² nm² µm² mm² cm² m² µin² mil² in² "},
        {EDimension::LengthZ, EFactor::Milli, u"V", u"mV", u"pV nV µV mV V "},
        {EDimension::Angle, EFactor::Nano, u"m", u"°", u""},
        {EDimension::None, EFactor::Nano, u"m", u"", u""},
    };
    for (const auto& [dimension, factor, z, text, offered] : cases) {
        CGridUnitListItem item(dimension, factor, Units(z));
        EXPECT_EQ(item.FormatItem(), text) << item.FormatItem().ToUtf8();
        SGridEdit edit;
        EXPECT_EQ(item.CreateInPlaceEdit(edit), *offered != 0);
        EXPECT_TRUE(*offered == 0 || edit.kind == SGridEdit::EKind::List);
        CStr options;
        for (const CStr& option : item.GetOptions())
            options += option + u' ';
        EXPECT_EQ(options, offered) << options.ToUtf8();
        EXPECT_FALSE(item.OnEndEdit(u"furlong"));
        EXPECT_EQ(item.GetUnitFactor(), factor);
    }
    CGridUnitListItem item(EDimension::Length, EFactor::Nano, Units());
    EXPECT_TRUE(item.OnEndEdit(u"mil"));
    EXPECT_EQ(item.GetUnitFactor(), EFactor::MilliInch);
}
