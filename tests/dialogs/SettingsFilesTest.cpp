#include "dialogs/settings/SettingsFiles.h"

#include "dialogs/settings/SettingsImport.h"
#include "settings/SettingsDifference.h"
#include "tests/dialogs/SettingsMenuTesting.h"

using namespace CommonUI;
using enum ESettingType;

namespace
{

using CTexts = std::vector<CStr>;
using EEffect = CSettingsImport::EEffect;

CInifile Parse(const char* bytes)
{
    CInifile ini;
    ini.LoadBytes(bytes);
    return ini;
}

// Keys as "section.key left<right": = for the same, / for others, < and > for those of one side.
CStr Tell(const std::vector<SSettingsDifference>& keys)
{
    CStr told;
    for (const SSettingsDifference& key : keys)
        told += CStr::Format(u"%s.%s %s%s%s, ", key.section, key.key, key.left,
                             CStr(1, u"=/<>"[static_cast<int>(key.kind)]), key.right);
    return told;
}

} // namespace

TEST(SettingsDifference, ComparesByMeaning)
{
    constexpr std::tuple<const char*, const char*, std::u16string_view> c_cases[] = {
        {"", "", u""},
        {"a=1E-6", "a=0.000001", u".a 1E-6=0.000001, "},
        {"a = x", "a=x", u".a x=x, "},
        {"a=1,2.0,x", "a=1.0, 2,x", u".a 1,2.0,x=1.0, 2,x, "},
        {"a=1,2", "a=1,2,3", u".a 1,2/1,2,3, "},
        {"a=nan", "a=NaN", u".a nan=NaN, "},
        {"a=X", "a=x", u".a X/x, "},
        {"a=2.5 um", "a=2500 nm", u".a 2.5 um=2500 nm, "},
        {"a=2.5 um", "a=2501 nm", u".a 2.5 um/2501 nm, "},
        {"a=2.5 um", "a=2.5", u".a 2.5 um/2.5, "},
        {"a=", "a=0", u".a /0, "},
        {"a=1\na=2", "a=1", u".a 1=1, "},
        {"[S]\na=1\nb=2\n[T]\nc=3", "[U]\nd=4\n[S]\nb=3\ne=5", u"S.a 1<, S.b 2/3, S.e >5, T.c 3<, U.d >4, "},
    };
    for (const auto& [left, right, told] : c_cases)
        EXPECT_EQ(Tell(CompareSettings(Parse(left), Parse(right))), told);
    EXPECT_EQ(CountDifferences(CompareSettings(Parse("a=1\nb=2\nc=3"), Parse("a=1.0\nb=3"))), 2U);
}

using SettingsFiles = CSettingsMenuTest;

TEST_F(SettingsFiles, AreRenamedToWhatIsFree)
{
    WriteCustom("x.flt", "x");
    WriteCustom("taken.flt", "taken");
    CStr path = Custom("x.flt");
    GetSettingsFactory().LoadSettings(Filter, path, true);
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"", u"\"\" cannot be the name of a file."},
        {u" ", u"\" \" cannot be the name of a file."},
        {u"..", u"\"..\" cannot be the name of a file."},
        {u"a/b", u"\"a/b\" cannot be the name of a file."},
        {u"Nul", u"\"Nul\" cannot be the name of a file."},
        {u"com1 .x", u"\"com1 .x\" cannot be the name of a file."},
        {u"a\tb", u"\"a\tb\" cannot be the name of a file."},
        {u"taken", u"There is a file \"~/Custom Settings/taken.flt\" already. Please choose another name."},
    };
    for (const auto& [name, box] : cases) {
        EXPECT_FALSE(RenameSettings(Filter, path, name));
        EXPECT_EQ(TakeBoxes(), CTexts{box});
    }
    EXPECT_TRUE(RenameSettings(Filter, path, u"x.flt"));
    EXPECT_EQ(path + Recent(Filter), Custom("x.flt") + u"x.flt|");
    EXPECT_TRUE(RenameSettings(Filter, path, u" New name.v2 "));
    EXPECT_EQ(path + Recent(Filter), Custom("New name.v2.flt") + u"New name.v2.flt|");
    EXPECT_EQ(m_folder.Read("Custom Settings/New name.v2.flt") + m_folder.Read("Custom Settings/taken.flt"),
              "xtaken");
    CStr gone = Custom("gone.flt");
    EXPECT_FALSE(RenameSettings(Filter, gone, u"y"));
    EXPECT_TRUE(TakeBoxes()[0].StartsWith(u"Unable to rename the file \"~/Custom Settings/gone.flt\": "));
}

TEST_F(SettingsFiles, GoToTheTrashWhenTheUserAgrees)
{
    WriteCustom("x.flt", "x");
    const CStr path = Custom("x.flt");
    GetSettingsFactory().LoadSettings(Filter, path, true);
    EXPECT_FALSE(DeleteSettings(Filter, path));
    EXPECT_EQ(TakeBoxes(), CTexts{u"Move the set \"x.flt\" to the trash?"});
    EXPECT_EQ(Recent(Filter), u"x.flt|");
    m_boxes.Prepare(EMessageBoxAnswer::Yes);
    EXPECT_TRUE(DeleteSettings(Filter, path));
    EXPECT_EQ(m_folder.Read("trash/x.flt"), "x");
    EXPECT_EQ(Recent(Filter), u"");
    m_boxes.Prepare(EMessageBoxAnswer::Yes);
    EXPECT_FALSE(DeleteSettings(Filter, path));
    EXPECT_EQ(TakeBoxes().back(),
              u"Unable to move the file \"~/Custom Settings/x.flt\" to the trash. It stays where it is.");
}

TEST_F(SettingsFiles, TheFolderIsShownAndMadeBefore)
{
    EXPECT_TRUE(OpenSettingsFolder(Filter));
    EXPECT_EQ(m_manager.GetOpened(), CTexts{Custom("")});
    EXPECT_TRUE(std::filesystem::is_directory(m_folder.GetPath() / "Custom Settings"));
    std::filesystem::remove(m_folder.GetPath() / "Custom Settings");
    m_folder.Write("Custom Settings", "a file");
    EXPECT_FALSE(OpenSettingsFolder(Filter));
    EXPECT_EQ(TakeBoxes(), CTexts{u"Unable to open the folder \"~/Custom Settings/\"."});
}

TEST_F(SettingsFiles, AreImportedInTwoSteps)
{
    m_folder.Write("stick/new.cpz", "; mine\n[Z]\nFactor=2\n");
    m_folder.Write("stick/old.cp", "[Z]\nFactor=1\n");
    CSettingsImport import(ZCalibration);
    EXPECT_FALSE(import.PrepareByPrompt()) << "cancelled";
    m_dialogs.Prepare(Path("stick/new.cpz"));
    ASSERT_TRUE(import.PrepareByPrompt());
    EXPECT_EQ(import.GetEffect(), EEffect::New);
    EXPECT_EQ(import.Describe(), u"\"new.cpz\" will be a new set of your own.");
    EXPECT_EQ(Tell(import.GetKeys()), u"Z.Factor >2, ");
    EXPECT_FALSE(std::filesystem::exists(m_folder.GetPath() / "Custom Settings")) << "nothing has changed";
    ASSERT_TRUE(import.Apply());
    EXPECT_EQ(m_folder.Read("Custom Settings/new.cpz"), "; mine\n[Z]\nFactor=2\n");
    ASSERT_TRUE(import.Prepare(Path("stick/new.cpz")));
    EXPECT_EQ(import.GetEffect(), EEffect::Same);

    ASSERT_TRUE(import.Prepare(Path("stick/old.cp"))) << "gets an extension with which it is found";
    EXPECT_EQ(import.GetTarget(), Custom("old.cp.cpz"));
    WriteCustom("new.cpz", "[Z]\nFactor=3");
    ASSERT_TRUE(import.Prepare(Path("stick/new.cpz")));
    EXPECT_EQ(Tell(import.GetKeys()), u"Z.Factor 3/2, ");
    EXPECT_EQ(import.Describe(), u"Your set \"new.cpz\" will be replaced:");
    WriteCustom("new.cpz", "[Z]\nFactor=4");
    EXPECT_FALSE(import.Apply());
    EXPECT_EQ(TakeBoxes(), CTexts{u"The file \"~/Custom Settings/new.cpz\" is no longer what was shown. "
                                  u"Nothing has been imported."});
    EXPECT_EQ(m_folder.Read("Custom Settings/new.cpz"), "[Z]\nFactor=4");
}

TEST_F(SettingsFiles, ThatAreNoSetsAreNotImported)
{
    constexpr std::tuple<ESettingType, const char*, bool> c_cases[] = {
        {ColorScale, "[ColorScale]\nStop1=0,0,0,0\n", false},
        {ColorScale, "[ColorScale]\nStop1=0,0,0,0\nStop2=1,9,9,9\n", true},
        {Filter, "[Else]\na=1\n", false},
        {Batch, "[Else]\na=1\n", false},
        {PlaneCorr, "[Else]\na=1\n", false},
        {PnP, "[Else]\na=1\n", false},
        {Animation, "[Else]\na=1\n", false},
        {FFT, "[Else]\na=1\n", true},
        {FFT, "; nothing\n[Else]\n", false},
        {ActiveReport, "\1\2", true},
    };
    for (const auto& [type, bytes, isSet] : c_cases) {
        m_folder.Write("x", bytes);
        EXPECT_EQ(CSettingsImport(type).Prepare(Path("x")), isSet) << bytes;
    }
    EXPECT_EQ(TakeBoxes()[1], u"The file \"~/x\" holds no settings of the type \"Filter\".");
    EXPECT_FALSE(CSettingsImport(Filter).Prepare(Path("nobody")));
    EXPECT_TRUE(TakeBoxes()[0].StartsWith(u"Unable to read the file \"~/nobody\": "));
}
