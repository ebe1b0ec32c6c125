#include "settings/preferences/AnalysisPreferencesImport.h"

#include "tests/model/ManagerTesting.h"
#include "tests/TemporaryFolder.h"

#include <tuple>

using namespace CommonUI;
using EAnalysis::Tip, EAnalysis::Roughness;

namespace
{

CInifile Parse(const std::string& bytes)
{
    CInifile ini;
    ini.LoadBytes(bytes);
    return ini;
}

// The keys that differ, as "section.key left/right".
CStr TellDifferences(const std::vector<SSettingsDifference>& keys)
{
    CStr told;
    for (const SSettingsDifference& key : keys)
        if (key.kind != SSettingsDifference::EKind::Same)
            told += CStr::Format(u"%s.%s %s/%s, ", key.section, key.key, key.left, key.right);
    return told;
}

// A manager that somebody has worked with, and a file of another store.
class CPreferencesImportTest : public testing::Test
{
protected:
    CPreferencesImportTest()
    {
        m_manager._GetData(Tip).SetUnit(CUnit(CUnit::EUnitFactor::Pico));
        m_manager._GetData(Roughness).SetWriteToDB(true);
        m_added = m_manager._GetData(Roughness).AddParameter(
            142, {0, u"Acme", u"Acme Roughness", u"Ac", 6, true, CParameter::EDimension::Area});
        m_manager._GetData(Tip).ClearModified();
    }

    bool HasAdded() const
    {
        return m_manager.GetData(Roughness).GetParameter(m_added).GetFriendlyString() == u"Acme Roughness";
    }

    bool Prepare(const std::string& bytes)
    {
        m_folder.Write("other.ini", bytes);
        return m_import.Prepare(Path("other.ini"), m_reason);
    }

    CStr Path(const char* name) const { return CStr::FromUtf8((m_folder.GetPath() / name).string()); }

    CTemporaryFolder m_folder;
    CWatchedManager m_manager;
    CAnalysisPreferencesImport m_import{m_manager};
    CStr m_reason;
    int m_added = 0; // by a plug-in
};

} // namespace

TEST(AnalysisPreferencesDifference, IsOfMeaning)
{
    constexpr std::tuple<const char*, const char*, std::u16string_view> c_cases[] = {
        {"", "", u""},
        {"[Other]\na=1", "", u""},
        {"[Analysis_TipAnalysis]\nWriteToFile=1\nUnitString=um",
         "[Analysis_TipAnalysis]\nWriteToFile=1\nUnitString=\xC2\xB5m", u""},
        {"[Analysis_RoughnessAnalysis]\nWriteToFile=1\nBarChart_Upper=1E-6",
         "[Analysis_RoughnessAnalysis]\nWriteToFile=1\nBarChart_Upper=0.000001", u""},
        {"[Analysis_RoughnessAnalysis]\nWriteToFile=1\nBarChart_Upper=1E-6",
         "[Analysis_RoughnessAnalysis]\nWriteToFile=1\nBarChart_Upper=1E-7",
         u"Analysis_RoughnessAnalysis.BarChart_Upper 1e-06/1e-07, "},
    };
    for (const auto& [left, right, told] : c_cases)
        EXPECT_EQ(TellDifferences(CompareAnalysisPreferences(Parse(left), Parse(right))), told);
}

TEST_F(CPreferencesImportTest, ChangesNothingFirstAndThenWhatItHasShown)
{
    EXPECT_TRUE(Prepare("[Analysis_TipAnalysis]\nWriteToFile=0\nUnitString=um\nPreprocessing=1"));
    EXPECT_EQ(TellDifferences(m_import.GetKeys()),
              u"Analysis_TipAnalysis.UnitString pm/µm, Analysis_TipAnalysis.Preprocessing 0/1, ");
    EXPECT_EQ(m_manager.GetData(Tip).GetUnit().GetFactor(), CUnit::EUnitFactor::Pico);
    EXPECT_FALSE(m_manager.GetData(Tip).IsModified());
    EXPECT_EQ(m_manager.TakeChanges(), CChanges());

    EXPECT_TRUE(m_import.Apply(m_reason)) << m_reason.ToUtf8();
    EXPECT_EQ(m_manager.GetData(Tip).GetUnit().GetFactor(), CUnit::EUnitFactor::Micro);
    EXPECT_EQ(m_manager.TakeChanges(), (CChanges{{Tip, EPreferencesChange::Parameters}}));
    EXPECT_TRUE(m_manager.GetData(Tip).IsModified());
    // What the file says nothing of stays, with what users have added.
    EXPECT_TRUE(m_manager.GetData(Roughness).GetWriteToDB());
    EXPECT_TRUE(HasAdded());
    EXPECT_TRUE(m_manager.GetData(Roughness).IsModified()) << "is still to be saved";

    EXPECT_FALSE(m_import.Apply(m_reason)); // is done
}

// In one section for all analyses; those that it names nothing of stay.
TEST_F(CPreferencesImportTest, ReadsTheEarlierLayout)
{
    EXPECT_TRUE(Prepare("[Analysis]\nOptionsHeightUnit=um"));
    EXPECT_TRUE(m_import.Apply(m_reason));
    EXPECT_EQ(m_manager.GetData(Roughness).GetUnit().GetFactor(), CUnit::EUnitFactor::Micro);
    EXPECT_TRUE(HasAdded());
}

TEST_F(CPreferencesImportTest, RefusesWhatItCannotDoWhole)
{
    EXPECT_FALSE(m_import.Prepare(Path("none.ini"), m_reason));
    EXPECT_TRUE(m_reason.StartsWith(u"Unable to read the file \"" + Path("none.ini") + u"\": "));
    EXPECT_FALSE(Prepare("\x7f"
                         "ELF"));
    EXPECT_EQ(m_reason, u"The file \"" + Path("other.ini") + u"\" holds no preferences of analyses.");
    EXPECT_FALSE(m_import.Apply(m_reason));

    EXPECT_TRUE(Prepare("[Analysis_TipAnalysis]\nWriteToFile=1"));
    m_manager.SetDataPreprocessingNo(Roughness, 2);
    m_manager.TakeChanges();
    EXPECT_FALSE(m_import.Apply(m_reason));
    EXPECT_EQ(m_reason, u"The preferences are no longer what was shown. Nothing has been imported.");
    EXPECT_FALSE(m_manager.GetData(Tip).GetWriteToFile());
    EXPECT_EQ(m_manager.TakeChanges(), CChanges());
}
