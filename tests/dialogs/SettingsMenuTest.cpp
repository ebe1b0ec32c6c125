#include "dialogs/settings/SettingsMenu.h"

#include "dialogs/settings/SettingsChooser.h"
#include "settings/catalogue/BuiltInSettingText.h"
#include "tests/dialogs/SettingsMenuTesting.h"

#include <memory>

using namespace CommonUI;
using enum ESettingType;

namespace
{

using EKind = SSettingsMenuItem::EKind;

// A menu as "[Recent] *current. Group{set. (note)} - &Command".
CStr Tell(const std::vector<SSettingsMenuItem>& items)
{
    CStr told;
    for (const SSettingsMenuItem& item : items) {
        told += told.IsEmpty() ? u"" : u" ";
        switch (item.kind) {
        case EKind::Set:
            told += (item.isCurrent ? u"*" : u"") + item.text + u".";
            break;
        case EKind::Group:
            told += item.text + u"{" + Tell(item.items) + u"}";
            break;
        case EKind::Heading:
            told += u"[" + item.text + u"]";
            break;
        case EKind::Note:
            told += u"(" + item.text + u")";
            break;
        case EKind::Separator:
            told += u'-';
            break;
        case EKind::Command:
            told += item.text;
            break;
        }
    }
    return told;
}

// What a tool has: it takes sets and gives its own.
class CTool
{
public:
    explicit CTool(CSettingsMenu& menu)
    {
        menu.GetChosen().Subscribe(*this, &CTool::Take, m_chosen);
        menu.GetSaver().Subscribe(*this, &CTool::Give, m_saver);
    }
    void Take(CSettings& settings) { taken += settings.GetEntryInfo().m_Name + u"|"; }
    bool Give(CSettings& settings)
    {
        settings.WriteInt(u"Kind", 7);
        return gives;
    }

    CStr taken;
    bool gives = true;

private:
    CClosureConnection m_chosen;
    CClosureConnection m_saver;
};

const CStr c_builtIn = u"Built-in Settings{Simple Threshold - Pores. Simple Threshold - Particles.}";
const CStr c_commands = u" - &All Sets... &Load... &Import... &Compare... &Manage...";

} // namespace

using SettingsMenu = CSettingsMenuTest;

TEST_F(SettingsMenu, HasRecentOwnAndBuiltInSetsAndCommands)
{
    WriteCustom("b/deep/x.pnps", "");
    WriteCustom("A & B.pnps", "");
    CSettingsMenu menu(PnP);
    EXPECT_EQ(Tell(menu.MakeItems()),
              u"Custom Settings{(No sets of your own yet)} " + c_builtIn + c_commands);
    menu.GetScan().Start();
    EXPECT_EQ(Tell(menu.MakeCustomItems()), u"(Looking through the folder...)");
    WaitFor(menu.GetScan());
    const CStr custom = u"Custom Settings{b{deep{x.pnps.}} A & B.pnps.} ";
    EXPECT_EQ(Tell(menu.MakeItems()), custom + c_builtIn + c_commands);

    CTool tool(menu);
    EXPECT_EQ(menu.GetText(), u"No settings");
    EXPECT_TRUE(menu.Choose({Custom("A & B.pnps"), PnP}));
    EXPECT_TRUE(menu.Choose({EBuiltInSetting::PnPQuickLaunchSimpleThresholdPores, PnP}));
    EXPECT_EQ(menu.GetText(), u"Simple Threshold - Pores");
    EXPECT_EQ(tool.taken, u"A & B.pnps|Simple Threshold - Pores|");
    EXPECT_EQ(Tell(menu.MakeItems()), u"[Recent] *Simple Threshold - Pores. A & B.pnps. - " + custom +
                                          c_builtIn.Replace(u"{", u"{*") +
                                          c_commands.Replace(u"&Imp", u"&Save As... &Imp"));
}

TEST_F(SettingsMenu, OffersWhatATypeHas)
{
    const auto tell = [](ESettingType type, bool withCommands) {
        CSettingsMenu menu(type, withCommands);
        const CTool tool(menu);
        return Tell(menu.MakeItems());
    };
    const CStr images = tell(PlaneCorr, true);
    EXPECT_TRUE(images.Contains(u"} [Built-in Settings] Images{Linewise Step Wizard (1st Order). "))
        << images.ToUtf8();
    EXPECT_TRUE(images.Contains(u"} Profiles{Level (1st Order). "));
    EXPECT_EQ(tell(ZCalibration, true), u"Custom Settings{(No sets of your own yet)}" +
                                            c_commands.Replace(u"&Imp", u"&Save As... &Imp"));
    EXPECT_TRUE(tell(ActiveReport, true).EndsWith(u"- &All Sets... &Load... &Import... &Manage..."));
    EXPECT_EQ(tell(PnP, false),
              u"Custom Settings{(No sets of your own yet)} " + c_builtIn + u" - &All Sets...");
    EXPECT_EQ(tell(Unknown, true), u"- &All Sets... &Compare...");
    for (int i = 0; i < 41; ++i)
        WriteCustom("many/" + std::to_string(i) + ".cpz", "");
    CSettingsMenu menu(ZCalibration);
    menu.GetScan().Start();
    WaitFor(menu.GetScan());
    EXPECT_TRUE(Tell(menu.MakeCustomItems()).EndsWith(u" 39.cpz. All 41 Sets...}"));
}

TEST_F(SettingsMenu, OpensAtOnceOnADriveThatDoesNotAnswer)
{
    CSlowDrive drive;
    auto menu = std::make_unique<CSettingsMenu>(Filter, true, drive.MakeFind());
    const auto wait = [&](int folders) {
        m_loop.RunUntil(
            [&] { return menu->GetScan().GetFolders().size() == static_cast<std::size_t>(folders); });
        return Tell(menu->MakeCustomItems());
    };
    for (int i = 0; i < 3; ++i)
        menu->GetScan().Start();
    EXPECT_EQ(wait(0), u"(Looking through the folder...)");
    drive.Answer(1);
    EXPECT_EQ(wait(1), u"a{1.flt.} (Looking through the folder...)");
    drive.Answer(1);
    EXPECT_EQ(wait(2), u"a{1.flt.} 2.flt. (Looking through the folder...)");
    WaitFor(menu->GetScan());
    EXPECT_EQ(drive.GetSearches(), 1) << "calls do not heap up";
    // Once more: what is known stays until all has come in.
    menu->GetScan().Start();
    drive.Answer(1);
    EXPECT_EQ(wait(2), u"a{1.flt.} 2.flt. (Looking through the folder...)");
    EXPECT_EQ(Recent(Filter), u"") << "what was found is not used";
    menu.reset();
    m_loop.Pump(); // what the second search has posted before
    drive.Answer(1);
    drive.WaitForEnds(2);
    EXPECT_EQ(m_loop.Pump(), 0U) << "nothing is posted to who is gone";
}

TEST_F(SettingsMenu, AVanishedFileAsksAndTheFolderIsLookedThroughAgain)
{
    WriteCustom("x.flt", "");
    CSettingsMenu menu(Filter);
    const CTool tool(menu);
    menu.GetScan().Start();
    WaitFor(menu.GetScan());
    EXPECT_TRUE(menu.Choose({Custom("x.flt"), Filter}));
    std::filesystem::remove(m_folder.GetPath() / "Custom Settings/x.flt");
    m_boxes.Prepare(EMessageBoxAnswer::Yes);
    EXPECT_FALSE(menu.Choose({Custom("x.flt"), Filter}));
    ASSERT_EQ(TakeBoxes().size(), 1U);
    EXPECT_EQ(Recent(Filter), u"");
    WaitFor(menu.GetScan());
    EXPECT_EQ(Tell(menu.MakeCustomItems()), u"(No sets of your own yet)");
    EXPECT_EQ(tool.taken, u"x.flt|");
}

TEST_F(SettingsMenu, LoadsAndSavesFiles)
{
    WriteCustom("x.flt", "Kind=1\n");
    CSettingsMenu menu(Filter);
    CTool tool(menu);
    EXPECT_FALSE(menu.Load());
    m_dialogs.Prepare(Custom("x.flt"));
    EXPECT_TRUE(menu.Load());
    tool.gives = false;
    m_dialogs.Prepare(Custom("y.flt"));
    EXPECT_FALSE(menu.SaveAs());
    EXPECT_EQ(menu.GetText(), u"x.flt");
    EXPECT_EQ(m_dialogs.GetShown().back().file, Custom("x.flt"));
    tool.gives = true;
    m_dialogs.Prepare(Custom("y.flt"));
    EXPECT_TRUE(menu.SaveAs());
    EXPECT_EQ(menu.GetText(), u"y.flt");
    EXPECT_EQ(m_folder.Read("Custom Settings/y.flt"), "Kind=7\n");
    WaitFor(menu.GetScan());
    EXPECT_EQ(Tell(menu.MakeCustomItems()), u"x.flt. *y.flt.");
    EXPECT_EQ(tool.taken, u"x.flt|");
    EXPECT_EQ(Recent(Filter), u"y.flt|x.flt|");
}

TEST_F(SettingsMenu, TheCurrentSetFollowsItsFile)
{
    WriteCustom("x.flt", "");
    CSettingsMenu menu(Filter);
    EXPECT_TRUE(menu.Choose({Custom("x.flt"), Filter}));
    SSettingsEntry entry = menu.GetCurrent();
    EXPECT_FALSE(menu.Rename(entry, u""));
    EXPECT_FALSE(menu.GetScan().IsRunning());
    EXPECT_TRUE(menu.Rename(entry, u"y"));
    EXPECT_EQ(menu.GetText() + entry.m_File, u"y.flt" + Custom("y.flt"));
    WaitFor(menu.GetScan());
    EXPECT_EQ(Tell(menu.MakeCustomItems()), u"*y.flt.");
    m_boxes.Prepare(EMessageBoxAnswer::Yes);
    EXPECT_TRUE(menu.Delete(menu.GetCurrent()));
    WaitFor(menu.GetScan());
    EXPECT_EQ(Tell(menu.MakeCustomItems()), u"(No sets of your own yet)");
    EXPECT_EQ(menu.GetText(), u"y.flt");
}

TEST_F(SettingsMenu, KnowsTheColorsOfScales)
{
    constexpr auto c_red = EBuiltInSetting::CSQuickLaunchRed;
    WriteCustom("red.col", GetBuiltInSettingText(c_red).ToUtf8());
    WriteCustom("none.col", "Stop1=1\n");
    CSettingsMenu menu(ColorScale);
    menu.GetScan().Start();
    WaitFor(menu.GetScan());
    const auto* const builtIn = menu.FindColors({c_red, ColorScale});
    const auto* const file = menu.FindColors({Custom("red.col"), ColorScale});
    ASSERT_TRUE(builtIn && file);
    EXPECT_EQ(builtIn->size(), 64U);
    EXPECT_EQ(*builtIn, *file);
    EXPECT_EQ(menu.FindColors({Custom("none.col"), ColorScale}), nullptr);
    EXPECT_EQ(menu.FindColors({EBuiltInSetting{4}, PlaneCorr}), nullptr);
}

TEST_F(SettingsMenu, TheChooserFindsSetsByTheirWords)
{
    CSlowDrive drive;
    CSettingsMenu menu(Filter, true, drive.MakeFind());
    CSettingsChooser chooser(menu);
    const CSettingsChooser all(menu);
    const CStr last = all.GetRow(94).entry.m_Name;
    EXPECT_EQ(chooser.Describe(), u"95 of 95 sets; looking for more") << "the built-in ones at once";
    struct SSeen {
        void OnChange(const CSettingsChooser::SChange& change)
        {
            told += CStr::Format(u"%s%d+%d:%d ", change.isReset ? u"all " : u"", change.first, change.count,
                                 chooser->GetCount());
        }
        CSettingsChooser* chooser;
        CStr told;
        CClosureConnection connection;
    } seen{&chooser, {}, {}};
    chooser.GetChanged().Subscribe(seen, &SSeen::OnChange, seen.connection);
    const auto first = [&] { return chooser.GetRow(0).entry.m_Name + u" in " + chooser.GetRow(0).place; };
    chooser.SetFilter(u"  CUSTOM a ");
    EXPECT_EQ(chooser.Describe(), u"0 of 95 sets; looking for more");
    drive.Answer(2);
    WaitFor(menu.GetScan());
    EXPECT_EQ(chooser.Describe(), u"1 of 97 sets");
    EXPECT_EQ(first(), u"1.flt in Custom Settings / a");
    EXPECT_EQ(all.GetRow(1).entry.m_Name + all.GetRow(96).entry.m_Name, u"2.flt" + last);
    chooser.SetFilter(u"2.FLT");
    EXPECT_EQ(first(), u"2.flt in Custom Settings");
    chooser.SetFilter(u"POINT light 3 spike");
    EXPECT_EQ(chooser.Describe(), u"1 of 97 sets");
    menu.SetCurrent(chooser.GetRow(0).entry);
    EXPECT_EQ(chooser.Find(menu.GetCurrent()), 0U);
    chooser.SetFilter(u"");
    EXPECT_EQ(chooser.GetRow(chooser.Find(menu.GetCurrent())).entry.m_ID, menu.GetCurrent().m_ID);
    EXPECT_EQ(
        seen.told,
        u"all 0+0:95 all 0+0:0 0+1:0 0+1:1 all 0+0:1 all 0+0:1 all 0+0:1 all 0+0:1 all 0+0:1 all 0+0:97 ");
}
