#include "settings/preferences/PreferencesManager.h"

#include "tests/DiagnosticsCapture.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

using namespace CommonUI;
using ESeparator = CPreferencesData::EDecimalSeparator;

namespace
{

CInifile Ini(const std::string& bytes)
{
    CInifile ini;
    ini.LoadBytes(bytes);
    ini.SelectSection(u"Elsewhere");
    return ini;
}

std::string SavedTo(const std::string& bytes, CPreferencesData& data)
{
    CInifile ini = Ini(bytes);
    EXPECT_TRUE(data.Save(ini));
    EXPECT_EQ(ini.GetSection(), u"Elsewhere");
    return ini.GetBytes();
}

CPreferencesData Loaded(const std::string& bytes)
{
    CPreferencesData data;
    CInifile ini = Ini(bytes);
    EXPECT_TRUE(data.Load(ini));
    EXPECT_EQ(ini.GetSection(), u"Elsewhere");
    return data;
}

} // namespace

// A change here is a change of the format, which people's files have: see docs/preferences-file.md.
TEST(PreferencesData, StoredKeysAreThoseOfTheGoldenFile)
{
    const std::string golden = ReadTestData("general-preferences.ini");
    CPreferencesManager manager;
    manager.GetData().Set3DAccelerationMode(E3DAccelerationMode::Hardware);
    manager.GetData().Set3DPreviewTargetTime(0.125);
    manager.GetData().SetDecimalSeparator(ESeparator::Comma);
    for (const char16_t* question : {u"Overwrite", u"Exit", u"", u" [a=b];\n\u00e4\" ", u"Exit "})
        manager.GetData().RegisterDontShowAgain(question, CStr(question).GetLength() > 4);
    EXPECT_EQ(SavedTo({}, manager.GetData()), golden);

    CPreferencesData again = Loaded(golden);
    EXPECT_EQ(again.GetDecimalSeparator(), ESeparator::Period) << "it is not written";
    EXPECT_EQ(SavedTo({}, again), golden);
    EXPECT_EQ(SavedTo(golden, again), golden);
}

TEST(PreferencesData, LoadedValues)
{
    const std::string earlier = "[Image_Window_3D]\nAccelerationMode=2\n";
    const struct {
        std::string bytes;
        int mode = 1;
        double time = 0.05;
        ESeparator separator = ESeparator::Period;
        bool modified = false;
        int warnings = 0;
    } rows[] = {
        {"[Elsewhere]\nAccelerationMode=2\nPreviewTargetTime=7\n"},
        {"[Preferences]\nAccelerationMode=0\nPreviewTargetTime=-3.5\nDecimalSeparator=Comma\n", 0, -3.5,
         ESeparator::Comma},
        {.bytes = "[Preferences]\nAccelerationMode=3\n"},
        {.bytes = "[Preferences]\nAccelerationMode=-1\n"},
        {.bytes = earlier, .mode = 2, .modified = true},
        {.bytes = "[Image_Window_3D]\nAccelerationMode=9\n", .modified = true},
        {.bytes = earlier + "[Preferences]\nAccelerationMode=0\n", .mode = 0},
        {.bytes = "[Preferences]\nAccelerationMode=x\nPreviewTargetTime=nan\nDecimalSeparator=comma\n",
         .warnings = 3},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.bytes);
        const CDiagnosticsCapture warnings;
        const CPreferencesData data = Loaded(row.bytes);
        EXPECT_EQ(static_cast<int>(data.Get3DAccelerationMode()), row.mode);
        EXPECT_EQ(data.Get3DPreviewTargetTime(), row.time);
        EXPECT_EQ(data.GetDecimalSeparator(), row.separator);
        EXPECT_EQ(data.IsModified(), row.modified);
        EXPECT_EQ(warnings.GetCount(), row.warnings);
    }
    CPreferencesData migrated = Loaded(earlier);
    EXPECT_EQ(SavedTo(earlier, migrated).rfind(earlier + "[Preferences]\nAccelerationMode=2\n", 0), 0U);
    EXPECT_FALSE(migrated.IsModified());
}

TEST(PreferencesData, AnswersComeAndGoWithoutModifyingTheObject)
{
    CPreferencesData data = Loaded("[Preferences]\nDontShowAgainKeys=A,A,B\nDontShowAgain_A=1\n"
                                   "DontShowAgain_Orphan=1\n");
    bool answer = false;
    EXPECT_TRUE(data.GetDontShowAgain(u"A", answer));
    EXPECT_TRUE(answer);
    EXPECT_FALSE(data.GetDontShowAgain(u"Orphan", answer));
    EXPECT_TRUE(answer) << "it stays";
    EXPECT_TRUE(data.GetDontShowAgain(u"B", answer));
    EXPECT_FALSE(answer);
    const std::string saved = SavedTo("[Preferences]\nDontShowAgain_Foreign=1\n", data);
    data.ResetDontShowAgain();
    data.RegisterDontShowAgain(u"C", true);
    EXPECT_FALSE(data.IsModified());

    CInifile ini = Ini(SavedTo(saved, data));
    ini.SelectSection(CPreferencesData::c_section);
    EXPECT_EQ(ini.ReadTexts(u"DontShowAgainKeys"), std::vector<CStr>{u"C"});
    EXPECT_FALSE(ini.HasKey(u"DontShowAgain_A")) << "nothing of a forgotten answer is left";
    EXPECT_TRUE(ini.HasKey(u"DontShowAgain_Foreign"));
    data.ResetDontShowAgain();
    EXPECT_TRUE(Has(SavedTo({}, data), "DontShowAgainKeys=")) << "an empty list";
}

TEST(PreferencesData, SettersModifyAndAResetLeavesTheSeparator)
{
    using FSetter = void (*)(CPreferencesData&);
    for (const FSetter set : {FSetter([](auto& data) { data.Set3DAccelerationMode({}); }),
                              FSetter([](auto& data) { data.Set3DPreviewTargetTime(1); }),
                              FSetter([](auto& data) { data.SetDecimalSeparator(ESeparator::Comma); })}) {
        CPreferencesManager manager;
        set(manager.GetData());
        manager.GetData().RegisterDontShowAgain(u"A", true);
        const CPreferencesManager copy(manager);
        EXPECT_TRUE(manager.GetData().IsModified());
        manager.GetData().Reset();
        EXPECT_FALSE(manager.GetData().IsModified());
        EXPECT_EQ(manager.GetData().GetDecimalSeparator(), copy.GetData().GetDecimalSeparator());
        EXPECT_EQ(SavedTo({}, manager.GetData()),
                  "[Preferences]\nAccelerationMode=1\nPreviewTargetTime=0.05\nDontShowAgainKeys=\n");
        bool answer = false;
        EXPECT_TRUE(copy.GetData().GetDontShowAgain(u"A", answer)) << "a copy has its own";
    }
    EXPECT_EQ(&GetPreferencesManager(), &GetPreferencesManager());
}
