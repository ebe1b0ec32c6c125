#include "tests/workbench/WorkbenchTesting.h"

#include "qt/edits/QtEditField.h"
#include "qt/selection/QtSelectionDlg.h"
#include "workbench/analyze/LengthField.h"

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
    CAnalysisForm& GetForm() { return m_window->GetResults().GetForm(); }
    void ChooseAnalysis(EAnalysis analysis)
    {
        QComboBox& list = GetForm().GetAnalyses();
        list.setCurrentIndex(list.findData(static_cast<int>(analysis)));
        WaitForResults();
    }
    // The values of the first quantity of a name.
    std::vector<double> GetValues(const std::string& name)
    {
        WaitForResults();
        for (const SResultQuantity& quantity : GetSet().quantities)
            if (quantity.key.ToUtf8() == name)
                return quantity.values;
        return {};
    }
    bool IsSaid(const char* text)
    {
        WaitForResults();
        return m_window->GetResults().GetState().contains(QString::fromUtf8(text));
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

TEST_F(Results, EveryAnalysisHasResultsOrSaysWhyNot)
{
    OpenSample();
    const QComboBox& list = GetForm().GetAnalyses();
    for (int i = 0; i < list.count(); ++i) {
        const auto analysis = static_cast<EAnalysis>(list.itemData(i).toInt());
        ChooseAnalysis(analysis);
        const bool needsOther = analysis == EAnalysis::CrossCorrelation;
        EXPECT_EQ(GetSet().quantities.empty(), needsOther) << i;
        EXPECT_EQ(IsSaid("choose it as the second one"), needsOther) << i;
        EXPECT_TRUE(std::ranges::all_of(GetSet().quantities, [](const auto& quantity) {
            return !std::isnan(quantity.values.at(0)) || !quantity.states.empty();
        })) << i;
    }
    ChooseAnalysis(EAnalysis::RoughnessProfile);
    EXPECT_EQ(GetSet().rowNames.size(), 96u);
    ChooseAnalysis(EAnalysis::CalibrationZ); // ground steel has no steps
    EXPECT_TRUE(IsSaid("Nothing can be computed: "));

    ChooseAnalysis(EAnalysis::PlaneCorrection);
    const std::size_t count = GetRows().size();
    GetAnalysisPreferencesManager().SetDataParameterOn(EAnalysis::PlaneCorrection,
                                                       GetSet().quantities[0].parameter.GetValue(), false);
    EXPECT_EQ(GetRows().size(), count - 1);
}

TEST_F(Results, SecondSurfaceIsOneOfTheOpenOnes)
{
    Open(c_sample);
    ChooseAnalysis(EAnalysis::CrossCorrelation);
    EXPECT_EQ(GetForm().GetOthers().count(), 1);
    m_folder.Write("same.sdf", m_folder.Read(c_sample));
    Open((m_folder.GetPath() / "same.sdf").string());
    ASSERT_EQ(GetForm().GetOthers().count(), 2);
    EXPECT_TRUE(IsSaid("choose it as the second one"));
    GetForm().GetOthers().setCurrentIndex(1);
    ASSERT_EQ(GetValues("Coefficient").size(), 1u);
    EXPECT_NEAR(GetValues("Coefficient")[0], 1, 1e-6);
    // Plane correction takes no second surface, and linearity takes the same one.
    ChooseAnalysis(EAnalysis::Linearity);
    ASSERT_EQ(GetValues("Amplification").size(), 1u);
    EXPECT_NEAR(GetValues("Amplification")[0], 1, 1e-6);
    m_window->GetTabs().Close(0);
    EXPECT_EQ(GetForm().GetOthers().count(), 1);
    EXPECT_TRUE(std::isnan(GetValues("Amplification").at(0)));
}

TEST_F(Results, TipAndMethodOfPitchAreChosenAndStay)
{
    Open(c_sample);
    ChooseAnalysis(EAnalysis::Calibration1D);
    const double byFourier = GetValues("Pitch").at(0);
    QComboBox& methods = GetForm().GetPitchMethods();
    ASSERT_TRUE(methods.isVisible());
    methods.setFocus();
    QTest::keyClick(&methods, Qt::Key_Down);
    EXPECT_NE(GetValues("Pitch").at(0), byFourier);

    ChooseAnalysis(EAnalysis::Tip);
    EXPECT_FALSE(methods.isVisible());
    QComboBox& areas = GetForm().GetTipAreas();
    ASSERT_TRUE(areas.isVisible());
    EXPECT_FALSE(GetForm().GetTipWidth().isVisible());
    const auto all = [this] {
        std::string values; // one that is not defined is equal to itself
        WaitForResults();
        for (const SResultQuantity& quantity : GetSet().quantities)
            values += std::to_string(1e9 * quantity.values.at(0)) + " ";
        return values;
    };
    const auto byDepth = all();
    areas.setFocus();
    QTest::keyClick(&areas, Qt::Key_Home);
    ASSERT_TRUE(GetForm().GetTipWidth().isVisible());
    const auto type = [](CLengthField& length, const char* text) {
        length.GetField().setFocus();
        length.GetField().selectAll();
        QTest::keyClicks(&length.GetField(), text);
        QTest::keyClick(&length.GetField(), Qt::Key_Return);
    };
    type(GetForm().GetTipWidth(), "6");
    const auto byWidth = all();
    EXPECT_NE(byWidth, byDepth);
    type(GetForm().GetTipNoise(), "0.05");
    const auto beyondNoise = all();
    EXPECT_NE(beyondNoise, byWidth);

    Start();
    Open(c_sample);
    EXPECT_EQ(all(), beyondNoise);
    ChooseAnalysis(EAnalysis::Calibration1D);
    EXPECT_EQ(GetForm().GetPitchMethods().currentIndex(), 1);
}

TEST_F(Results, AnalysisAndItsReferenceStay)
{
    const auto profile = Write("profile.txt", "x [mm] z [um]\n0 1\n0.1 2\n0.2 1\n0.3 4\n0.4 1\n");
    std::string grating =
        "aISO-1.0\nNumPoints = 64\nNumProfiles = 64\nXscale = 1e-6\nYscale = 1e-6\nZscale = 1e-9\n*\n";
    for (int i = 0; i < 64 * 64; ++i)
        grating +=
            std::to_string(std::lround(100 * (std::sin(i % 64 * 0.785398) + std::sin(i / 64 * 0.785398)))) +
            "\n";
    const auto surface = Write("grating.sdf", grating + "*\n");
    Open(surface);
    ChooseAnalysis(EAnalysis::CalibrationXY);
    ASSERT_EQ(GetValues("PitchX").size(), 1u);
    EXPECT_NEAR(GetValues("PitchX")[0], 8e-6, 1e-8);
    CLengthField& pitch = GetForm().GetPitch();
    ASSERT_TRUE(pitch.isVisible());
    pitch.GetField().setFocus();
    pitch.GetField().selectAll();
    QTest::keyClicks(&pitch.GetField(), "10");
    QTest::keyClick(&pitch.GetField(), Qt::Key_Return);
    EXPECT_NEAR(GetValues("ScaleFactorX").at(0), 1.25, 0.01);

    // A profile has no such results; they are back with the next surface.
    Open(profile);
    EXPECT_TRUE(IsSaid("this is a profile"));
    EXPECT_TRUE(GetSet().quantities.empty());
    Start();
    Open(surface);
    EXPECT_NEAR(GetValues("ScaleFactorX").at(0), 1.25, 0.01);
    EXPECT_NEAR(GetForm().GetPitch().GetLength(), 10e-6, 1e-12);
}

} // namespace Workbench
