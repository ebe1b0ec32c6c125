#include "tests/workbench/WorkbenchTesting.h"

#include "qt/selection/QtSelectionDlg.h"

namespace Workbench
{

class Results : public CWorkbenchTest
{
protected:
    const SResultSet& GetSet() { return m_window->GetResults().GetPanel().GetResults(); }
    // The names of the parameters, each up to its comma.
    std::vector<std::string> GetRows()
    {
        WaitForResults();
        std::vector<std::string> names;
        for (const SResultQuantity& quantity : GetSet().quantities) {
            const std::string name = quantity.header.ToUtf8();
            names.push_back(name.substr(0, name.find(',')));
        }
        return names;
    }
    static void Choose(ERoughnessParameters parameter, bool on)
    {
        GetAnalysisPreferencesManager().SetDataParameterOn(EAnalysis::Roughness, static_cast<int>(parameter),
                                                           on);
    }
};

TEST_F(Results, TableFollowsSurfaceAndPreferences)
{
    EXPECT_TRUE(GetRows().empty());
    OpenSample();
    const auto byDefault = GetRows();
    EXPECT_TRUE(std::ranges::count(byDefault, "Sa"));
    EXPECT_TRUE(m_window->GetResults().GetState().contains("128 × 96"));
    Choose(ERoughnessParameters::Sa, false);
    Choose(ERoughnessParameters::Sku, true);
    const auto changed = GetRows();
    EXPECT_FALSE(std::ranges::count(changed, "Sa"));
    EXPECT_TRUE(std::ranges::count(changed, "Sku"));

    // Another surface has other values of the same parameters, and without one there are none.
    const double sample = GetSet().quantities[0].values[0];
    Open(Write("small.sdf", c_small));
    EXPECT_EQ(GetRows(), changed);
    EXPECT_NE(GetSet().quantities[0].values[0], sample);
    for (int i = 0; i < 2; ++i)
        FindAction(EText::CloseTab)->trigger();
    EXPECT_TRUE(GetRows().empty());
    Open(Write("profile.txt", "x [mm] z [um]\n0 1\n0.1 2\n0.2 1\n0.3 4\n0.4 1\n"));
    EXPECT_TRUE(std::ranges::count(GetRows(), "Pa") + std::ranges::count(GetRows(), "Ra") > 0);
}

TEST_F(Results, WhatCannotBeComputedIsSaid)
{
    std::string missing = c_small;
    missing.replace(missing.find("0 100"), missing.rfind('*') - missing.find("0 100"),
                    "BAD BAD BAD BAD BAD BAD\n");
    Open(Write("missing.sdf", missing));
    EXPECT_TRUE(GetRows().empty());
    EXPECT_TRUE(m_window->GetResults().GetState().contains("no valid point"))
        << qPrintable(m_window->GetResults().GetState());
}

TEST_F(Results, DialogChangesWhatIsShownAndKept)
{
    OpenSample();
    WaitForResults();
    WhenShown<CSelectionWindow>([&](CSelectionWindow& dialog) {
        Choose(ERoughnessParameters::Sku, true); // while the dialog is open, as another window may
        EXPECT_TRUE(std::ranges::count(GetRows(), "Sku"));
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    QTest::keySequence(m_window.get(), QKeySequence(Qt::CTRL | Qt::Key_R));
    EXPECT_TRUE(m_folder.Read("settings/CommonUIWorkbench/preferences.ini").find("Sku") != std::string::npos);
    Start();
    OpenSample();
    EXPECT_TRUE(std::ranges::count(GetRows(), "Sku"));
}

} // namespace Workbench
