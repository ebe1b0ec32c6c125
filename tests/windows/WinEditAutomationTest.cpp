#include "tests/windows/AutomationTesting.h"
#include "tests/windows/ControlTesting.h"
#include "windows/edits/WinNumericEdit.h"

#include <limits>
#include <memory>

using namespace CommonUI;

namespace
{

class WinEditAutomation : public CAutomationTest
{
protected:
    WinEditAutomation()
    {
        edit->GetEdit().SetFormatString(u"%.2f mm");
        edit->GetEdit().Setup(0.75F, 0.25F, 8.0F, 0.125F);
        edit->GetEdit().SetChangeNotification(*this, &WinEditAutomation::OnChange);
        changes.clear();
        root = AskWindow(edit->GetField());
        CComOwner<IUnknown> pattern;
        if (root && root->GetPatternProvider(UIA_RangeValuePatternId, pattern.Receive()) == S_OK &&
            pattern.Get())
            Ask(pattern.Get(), range);
    }
    ~WinEditAutomation() override
    {
        if (root)
            root->Release();
    }
    void OnChange(float value)
    {
        changes.push_back(value);
        if (destroys)
            edit.reset();
    }
    double Get(HRESULT (STDMETHODCALLTYPE IRangeValueProvider::*part)(double*))
    {
        double value = -1;
        EXPECT_EQ(((*range.Get()).*part)(&value), S_OK);
        return value;
    }

    const CWinServices services;
    CTestDialog dialog{2};
    std::unique_ptr<CWinFloatEdit> edit = std::make_unique<CWinFloatEdit>(dialog.Get(), 100);
    std::vector<float> changes;
    bool destroys = false;
    IRawElementProviderSimple* root = nullptr;
    CComOwner<IRangeValueProvider> range;
};

} // namespace

TEST_F(WinEditAutomation, TellsOfTheNumberAndLeavesTheRestToTheSystem)
{
    ASSERT_TRUE(range.Get());
    EXPECT_EQ(Get(&IRangeValueProvider::get_Value), 0.75);
    EXPECT_EQ(Get(&IRangeValueProvider::get_Minimum), 0.25);
    EXPECT_EQ(Get(&IRangeValueProvider::get_Maximum), 8);
    EXPECT_EQ(Get(&IRangeValueProvider::get_SmallChange), 0.125);
    EXPECT_EQ(Get(&IRangeValueProvider::get_LargeChange), 1.25);
    ProviderOptions options{};
    EXPECT_EQ(root->get_ProviderOptions(&options), S_OK);
    EXPECT_TRUE(options & ProviderOptions_OverrideProvider);
    CComOwner<IUnknown> text;
    EXPECT_EQ(root->GetPatternProvider(UIA_TextPatternId, text.Receive()), S_OK);
    EXPECT_EQ(text.Get(), nullptr);
    VARIANT name{};
    EXPECT_EQ(root->GetPropertyValue(UIA_NamePropertyId, &name), S_OK);
    EXPECT_EQ(name.vt, VT_EMPTY);
    EXPECT_EQ(AskWindow(dialog.GetItem(101)), nullptr) << "a field of somebody else";
}

TEST_F(WinEditAutomation, ChangesTheNumberAsAUserDoes)
{
    ASSERT_TRUE(range.Get());
    EXPECT_EQ(range->SetValue(1.5), S_OK);
    EXPECT_EQ(changes, std::vector<float>{1.5F});
    EXPECT_EQ(TextOf(edit->GetField()), u"1.50 mm");
    for (const double value : {0.0, 8.5, std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(range->SetValue(value), E_INVALIDARG) << value;
    BOOL isReadOnly = TRUE;
    EXPECT_EQ(range->get_IsReadOnly(&isReadOnly), S_OK);
    EXPECT_FALSE(isReadOnly);
    edit->GetEdit().SetReadOnly(true);
    EXPECT_EQ(range->get_IsReadOnly(&isReadOnly), S_OK);
    EXPECT_TRUE(isReadOnly);
    EXPECT_NE(range->SetValue(2), S_OK);
    EXPECT_EQ(edit->GetEdit().GetValue(), 1.5F);

    // Small and whole numbers are no exponents.
    CIntEdit whole;
    edit->Attach(whole);
    whole.Setup(5, 0, 2000000000, 1);
    EXPECT_EQ(range->SetValue(1e9), S_OK);
    EXPECT_EQ(whole.GetValue(), 1000000000);
}

TEST_F(WinEditAutomation, WhatIsKeptTellsNothingWhenTheEditIsGone)
{
    ASSERT_TRUE(range.Get());
    destroys = true;
    s_ended = 0;
    EXPECT_EQ(range->SetValue(3), S_OK);
    EXPECT_FALSE(edit);
    EXPECT_EQ(s_ended, 1);
    double value = 0;
    EXPECT_EQ(range->get_Value(&value), c_elementGone);
    EXPECT_EQ(range->SetValue(4), c_elementGone);
    CComOwner<IRawElementProviderSimple> host;
    EXPECT_EQ(root->get_HostRawElementProvider(host.Receive()), c_elementGone);
    EXPECT_EQ(AskWindow(dialog.GetItem(100)), nullptr) << "the field is the system's again";

    CWinIntEdit other(dialog.Get(), 101);
    CComOwner<IRawElementProviderSimple> provider;
    *provider.Receive() = AskWindow(other.GetField());
    EXPECT_TRUE(provider.Get());
    dialog.Close();
    EXPECT_EQ(s_ended, 2);
}
