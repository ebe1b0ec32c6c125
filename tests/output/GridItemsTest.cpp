#include "output/grid/GridBaseOutputItem.h"
#include "output/grid/GridButtonItem.h"
#include "output/grid/GridCheckItem.h"
#include "output/grid/GridColorIndicatorItem.h"
#include "output/grid/GridDblSpinItem.h"
#include "output/grid/GridSetupItem.h"
#include "output/grid/GridUnitListItem.h"

#include <gtest/gtest.h>

#include "tests/output/GridHarness.h"

#include <functional>
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
    const struct {
        int before;
        unsigned int message;
        SPoint point; // in a cell that begins at 0, 20
        int after;
    } cases[] = {
        {0, c_left, {2, 22}, 1},   {1, c_left, {17, 37}, 0}, {2, c_left, {10, 30}, 0},
        {0, c_right, {10, 30}, 1}, {0, c_left, {1, 30}, 0},  {0, c_left, {18, 30}, 0},
        {0, c_left, {10, 21}, 0},  {0, c_left, {10, 38}, 0}, {1, c_right, {18, 30}, 1},
        {1, 0x203, {10, 30}, 1},   {2, 0x202, {10, 30}, 2},
    };
    for (const auto& row : cases) {
        CGridHarness harness;
        auto& item = harness.grid->AddRow().Emplace<CGridSetupItem>(true);
        item.SetId(77);
        item.SetState(row.before, false);
        harness.view.invalidated.clear();
        const bool toggled = row.before != row.after;
        EXPECT_EQ(item.OnClickValue(row.message, row.point, harness.grid->GetItemRect(item)), toggled);
        EXPECT_EQ(item.GetState(), row.after);
        EXPECT_EQ(item.IsChanged(), toggled);
        EXPECT_EQ(harness.view.invalidated.empty(), !toggled);
        EXPECT_EQ(harness.TakeChanges(), toggled ? "77 " : "") << "told before it is marked";
    }

    CGridHarness harness;
    auto& check = harness.grid->AddRow().Emplace<CGridCheckItem>(2, 5);
    EXPECT_EQ(check.GetCheck(), EGridCheck::Indeterminate);
    EXPECT_EQ(check.GetData(), 5u);
    for (const auto& [x, y, state] : {std::tuple(41, 30, 2),
                                      {58, 30, 2},
                                      {50, 21, 2},
                                      {50, 38, 2},
                                      {42, 22, 0},
                                      {57, 37, 1},
                                      {50, 30, 0}}) {
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
    for (const char* const how : {"grid", "item", "disabled", "no box", "no grid"}) {
        CGridHarness harness;
        const auto item = std::make_shared<CGridSetupItem>(how != std::string("no box"));
        const auto check = std::make_shared<CGridCheckItem>(1, 0);
        if (how != std::string("no grid")) {
            harness.grid->AddRow().Add(item);
            harness.grid->AddRow().Add(check);
        }
        harness.grid->SetReadOnly(how == std::string("grid"));
        for (CGridItem* each : {static_cast<CGridItem*>(item.get()), static_cast<CGridItem*>(check.get())}) {
            each->SetFlag(CGridItem::ReadOnly, how == std::string("item"));
            each->SetFlag(CGridItem::Disabled, how == std::string("disabled"));
        }
        EXPECT_FALSE(item->OnClickValue(c_left, {10, 30}, {0, 20, 100, 40})) << how;
        if (how == std::string("no box"))
            continue;
        EXPECT_FALSE(check->OnClickValue(c_left, {50, 50}, {0, 40, 100, 60})) << how;
        EXPECT_FALSE(item->OnSpace() || check->OnSpace()) << how;
        EXPECT_TRUE(item->GetState() == 0 && check->GetCheck() == EGridCheck::Checked);
        EXPECT_EQ(harness.TakeChanges(), "");
    }
}

TEST(GridItems, Drawing)
{
    CGridHarness harness;
    CGridRow& row = harness.grid->AddRow();
    const auto draw = [&](const std::shared_ptr<CGridItem>& item) {
        row.Set(0, item);
        return harness.Draw(*item);
    };
    const std::string background = "background 0,20,100,40 plain\n";

    const auto setup = std::make_shared<CGridSetupItem>(true);
    setup->SetValue(u"Sdc");
    setup->SetIndeterminate(true);
    EXPECT_EQ(draw(setup), background + "text 22,20,76,40 left \"Sdc\"\nbutton 80,20,100,40 set-up\n"
                                        "check 2,22,18,38 2\n");
    setup->ShowCheckbox(false);
    EXPECT_EQ(draw(setup), background + "text 4,20,76,40 left \"Sdc\"\nbutton 80,20,100,40 set-up\n");

    const auto check = std::make_shared<CGridCheckItem>(9, 0);
    EXPECT_EQ(draw(check), background + "check 42,22,58,38 1\n");
    check->SetFlag(CGridItem::Disabled);
    EXPECT_EQ(draw(check), background + "check 42,22,58,38 1 disabled\n");
    check->SetAutoHide(true);
    EXPECT_EQ(draw(check), background);

    const auto color = std::make_shared<CGridColorIndicatorItem>(u"Pores", 3, nullptr, u"x", nullptr);
    color->SetFillColor({255, 128, 0});
    EXPECT_EQ(draw(color), background + "box 2,22,18,38 #000000 #ff8000\ntext 22,20,96,40 left \"Pores\"\n");
    color->SetOutlineColor({0, 0, 9});
    EXPECT_NE(draw(color).find("#000009 #ff8000"), std::string::npos);
    EXPECT_FALSE(color->CanChange());
    const auto output = std::make_shared<CGridBaseOutputItem>();
    row.Set(0, output);
    EXPECT_FALSE(output->CanChange());

    const auto button = std::make_shared<CGridButtonItem>(u"Reset", 400, 12);
    EXPECT_EQ(draw(button), background + "button 2,22,98,38 push image 12 \"Reset\"\n");
    EXPECT_EQ(button->GetCommandId(), 400u);
    EXPECT_EQ(draw(std::make_shared<CGridButtonItem>(nullptr, 0, ~0u)),
              background + "button 2,22,98,38 push\n");

    const auto spin = std::make_shared<CGridDblSpinItem>(2.5);
    spin->EnableSpinControl(true, 0, 9);
    EXPECT_EQ(draw(spin), background + "text 4,20,56,40 right \"2.5\"\nbutton 60,20,100,40 spin\n");

    const auto unit = std::make_shared<CGridUnitListItem>(EDimension::Area, EFactor::Micro, Units());
    unit->SetFlag(CGridItem::Disabled);
    EXPECT_EQ(draw(unit), background + "text 4,20,76,40 left disabled \"µm²\"\n"
                                       "button 80,20,100,40 drop disabled\n");
    unit->SetAutoHide(true);
    EXPECT_EQ(draw(unit), background);
    SGridEdit edit;
    EXPECT_TRUE(unit->GetSpokenText().IsEmpty() && !unit->CreateInPlaceEdit(edit)) << "hidden";
    row.AddSubRow();
    EXPECT_EQ(harness.Draw(*unit).find("background 20,20,100,40 plain\ntext"), 0u)
        << "shown, beside the expander";

    harness.grid->SelectCell({0, 0});
    check->SetFlag(CGridItem::Disabled, false);
    row.Set(0, std::make_shared<CGridItem>(u"plain"));
    EXPECT_EQ(harness.Draw(*row.GetItem(0)),
              "background 20,20,100,40 selected\ntext 24,20,96,40 left selected \"plain\"\n");
    row.Set(0, check);
    EXPECT_EQ(harness.Draw(*check), "background 20,20,100,40 selected\ncheck 52,22,68,38 1\n");
    EXPECT_EQ(setup->GetSpokenText(), u"Sdc");
    setup->ShowCheckbox(true);
    EXPECT_EQ(setup->GetSpokenText(), u"Sdc, partly checked");
    setup->SetState(-1, false);
    EXPECT_TRUE(setup->IsChecked());
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
    for (const std::size_t row : {0, 1}) {
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
    EXPECT_NE(listener.drawn.find("button 80,20,100,40 set-up pressed"), std::string::npos);
    EXPECT_FALSE(setup.IsButtonPressed());
    harness.Press(79, 30);
    EXPECT_EQ(listener.calls, 1) << "beside the button";
    EXPECT_TRUE(harness.Key(EGridKey::Enter));
    EXPECT_EQ(listener.calls, 2);

    harness.grid->SetReadOnly(true);
    const struct {
        SPoint point;
        unsigned int message;
        int calls;
    } cases[] = {{{2, 42}, c_left, 1},  {{97, 57}, c_left, 1}, {{1, 42}, c_left, 0},  {{98, 50}, c_left, 0},
                 {{50, 41}, c_left, 0}, {{50, 58}, c_left, 0}, {{50, 50}, c_right, 0}};
    for (const auto& row : cases) {
        listener.calls = 0;
        harness.Press(row.point.x, row.point.y, row.message);
        EXPECT_EQ(listener.calls, row.calls) << row.point.x << "," << row.point.y;
    }
    EXPECT_NE(listener.drawn.find("push pressed"), std::string::npos);
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
    const struct {
        SGridCell selected;
        std::function<void(CGridHarness&)> act;
        bool changes;
    } cases[] = {
        {{0, 0}, [](CGridHarness& harness) { harness.Press(90, 30); }, false},
        {{0, 0}, [](CGridHarness& harness) { harness.Press(150, 30); }, false},
        {{0, 1}, [](CGridHarness& harness) { harness.Key(EGridKey::Space); }, false},
        {{0, 0}, [](CGridHarness& harness) { harness.Press(10, 30); }, true},
        {{1, 0},
         [](CGridHarness& harness) { harness.grid->BeginEdit() && harness.grid->EndEdit(u"b"); },
         true},
    };
    for (const auto& row : cases) {
        for (const bool destroy : {false, true}) {
            CGridHarness harness;
            SListener listener{.harness = &harness, .remove = !destroy, .destroy = destroy};
            CGridRow& buttons = harness.grid->AddRow();
            buttons.Emplace<CGridSetupItem>(true).SetCallback(listener, &SListener::OnSetup);
            buttons.Emplace<CGridButtonItem>(u"", 0, ~0u).SetCallback(listener, &SListener::OnButton);
            harness.grid->AddRow().Emplace<CGridListItem>().SetOptions({u"a", u"b"});
            harness.destroyOnChange = true;
            harness.grid->SelectCell(row.selected);
            row.act(harness);
            EXPECT_EQ(listener.calls, row.changes ? 0 : 1) << &row - cases;
            EXPECT_EQ(harness.grid == nullptr, destroy || row.changes) << &row - cases;
        }
    }
}

TEST(GridItems, SpinsOnlyForNumbers)
{
    for (const auto& [value, takes] : {std::pair(CGridValue(1.5), true),
                                       {CGridValue(EGridValueType::I2, 1), true},
                                       {CGridValue(EGridValueType::I4, 1), true},
                                       {CGridValue(EGridValueType::UI1, 1), true},
                                       {CGridValue(EGridValueType::UI2, 1), true},
                                       {CGridValue(1), true},
                                       {CGridValue(1u), true},
                                       {CGridValue(EGridValueType::I1, 1), false},
                                       {CGridValue(EGridValueType::UI4, 1), false},
                                       {CGridValue(u"1.5"), false},
                                       {CGridValue(true), false},
                                       {CGridValue(), false}}) {
        CGridDblSpinItem item(0);
        item.SetValue(value);
        item.EnableSpinControl(true, 20, 10);
        EXPECT_EQ(item.HasFlag(CGridItem::HasSpin), takes);
        EXPECT_EQ(item.GetMaximum(), takes ? 20 : 0);
        if (!takes)
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
    const struct {
        EDimension dimension;
        EFactor factor;
        const char16_t* z;
        const char16_t* text;
        const char16_t* options;
    } cases[] = {
        {EDimension::Length, EFactor::Nano, u"m", u"nm", u"pm Å nm µm mm cm m µin mil in "},
        {EDimension::Area, EFactor::Giga, u"m", u"Gm²", u"pm² Å² nm² µm² mm² cm² m² µin² mil² in² "},
        {EDimension::LengthZ, EFactor::Milli, u"V", u"mV", u"pV nV µV mV V "},
        {EDimension::Volume, EFactor::Milli, u"V", u"", u""},
        {EDimension::Angle, EFactor::Nano, u"m", u"°", u""},
        {EDimension::None, EFactor::Nano, u"m", u"", u""},
    };
    for (const auto& row : cases) {
        CGridUnitListItem item(row.dimension, row.factor, Units(row.z));
        EXPECT_EQ(item.FormatItem(), row.text) << item.FormatItem().ToUtf8();
        SGridEdit edit;
        EXPECT_EQ(item.CreateInPlaceEdit(edit), *row.options != 0);
        EXPECT_TRUE(*row.options == 0 || edit.kind == SGridEdit::EKind::List);
        CStr options;
        for (const CStr& option : item.GetOptions())
            options += option + u' ';
        EXPECT_EQ(options, row.options) << options.ToUtf8();
        EXPECT_FALSE(item.OnEndEdit(u"furlong"));
        EXPECT_EQ(item.GetUnitFactor(), row.factor);
    }
    CGridUnitListItem item(EDimension::Length, EFactor::Nano, Units());
    EXPECT_TRUE(item.OnEndEdit(u"mil"));
    EXPECT_EQ(item.GetUnitFactor(), EFactor::MilliInch);
}
