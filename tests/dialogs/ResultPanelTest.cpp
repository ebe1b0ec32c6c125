#include "common/ini/SectionScope.h"
#include "dialogs/results/MemoryResultPanelView.h"
#include "platform/memory/MemoryClipboard.h"
#include "platform/memory/MemoryFileDialogService.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/FullDisk.h"
#include "tests/Script.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <map>
#include <memory>

using namespace CommonUI;

namespace
{

constexpr double c_none = std::numeric_limits<double>::quiet_NaN();

CParameter MakeParameter(int value, const CStr& name, CParameter::EDimension dimension)
{
    CParameter parameter(value, name, name, name, 0, true, dimension);
    parameter.SetFloatFormat({CParameter::EFormatSpecifier::FormatDecimals, 1});
    return parameter;
}

// Two heights of a group and a number, of two profiles; one value is missing.
std::shared_ptr<SResultSet> MakeResults()
{
    using EDimension = CParameter::EDimension;
    auto set = std::make_shared<SResultSet>();
    set->name = u"Test";
    set->title = u"A < B & C";
    set->provenance = u"steel.sdf, 2026-01-01";
    set->summary = {{u"File", u"<steel>"}};
    set->rowHeader = u"Profile";
    set->rowNames = {u"1", u"=2"};
    set->quantities = {{.key = u"Ra",
                        .parameter = MakeParameter(1, u"Ra", EDimension::Length),
                        .header = u"Ra\r\nISO",
                        .group = u"Height",
                        .values = {1.25e-6, 2e-6},
                        .statistics = {2, 1.5e-6}},
                       {.key = u"Rq(5,10)",
                        .parameter = MakeParameter(2, u"Rq", EDimension::Length),
                        .header = u"Rq",
                        .group = u"Height",
                        .values = {c_none, 3e-6},
                        .states = {{0, {EValueState::NotApplicable, u"the profile is flat"}}},
                        .statistics = {1, c_none},
                        .statisticStates = {{1, {EValueState::NotApplicable, u"one value alone"}}}},
                       {.key = u"RPc",
                        .parameter = MakeParameter(3, u"RPc", EDimension::None),
                        .header = u"RPc",
                        .values = {7, 8},
                        .statistics = {2, 7.5}}};
    set->statistics = {{u"Count", u"Count", SResultStatistic::EUnit::Count}, {u"Mean", u"Mean"}};
    return set;
}

// A panel with its view and the services that it uses.
class CStage
{
public:
    CStage()
    {
        m_panel.SetView(&m_view);
        m_panel.SetResults(MakeResults());
    }
    void Act(const SCommand& command)
    {
        m_said.Clear();
        m_verbs.at(command.verb)(command);
    }
    std::string Tell()
    {
        const CStr told = m_said.IsEmpty() ? m_view.Draw() : m_said;
        return told.Replace(u"\r", u"").Replace(u"\n", u" / ").Replace(u"\t", u"|").Trim().ToUtf8();
    }

private:
    using CCommand = const SCommand&;

    std::vector<std::size_t> Numbers(CCommand command, std::size_t first = 0)
    {
        std::vector<std::size_t> numbers;
        for (std::size_t i = first; i < command.words.size(); ++i)
            numbers.push_back(command.Get<std::size_t>(i));
        return numbers;
    }
    void Select(CCommand c)
    {
        m_panel.OnTable(static_cast<EResultTable>(c.Get()));
        m_panel.ShareTables()
            ->Get(static_cast<EResultTable>(c.Get()))
            .Select(
                {c.Get<std::size_t>(1), c.Get<std::size_t>(2), c.Get<std::size_t>(3), c.Get<std::size_t>(4)});
    }
    void Copy(CCommand c)
    {
        const CServiceScope<CClipboard> scope(m_clipboard);
        const auto kind = static_cast<ENumberProfile>(c.Get());
        const auto scopeOf =
            c.words.size() > 1 ? CResultPanel::EScope::Everything : CResultPanel::EScope::Selection;
        EXPECT_TRUE(m_panel.Copy(scopeOf, kind));
        m_said = m_clipboard.GetText();
    }
    void Format(CCommand c)
    {
        m_view.onFormat = [&c](CFormatSpecifierDlg& dialog, CMemoryFormatSpecifierView& view) {
            dialog.OnSizeEditChanged(c.Get());
            view.Press(c.words.back() == "cancel" ? CBaseDialog::c_cancel : CBaseDialog::c_ok);
        };
        m_panel.ChangeFormat(std::vector<std::size_t>{0, 2});
    }
    void Menu(CCommand c)
    {
        const SGridRange range{0, 9, c.Get<std::size_t>(3), c.Get<std::size_t>(4)};
        const auto quantities = m_panel.GetQuantities(static_cast<EResultTable>(c.Get()),
                                                      {c.Get<std::size_t>(1), c.Get<std::size_t>(2)}, range);
        m_said = u"quantities";
        for (const std::size_t quantity : quantities)
            m_said += CStr::Format(u" %zu", quantity);
        m_said += CStr::Format(u", %zu units", m_panel.GetUnits(quantities).size());
        m_said += m_panel.CanHide(quantities) ? u", can hide" : u"";
    }
    // The user closes the dialog of the printers in some way.
    void Print(CCommand c)
    {
        m_view.onPrint = [&c, this] {
            m_panel.Hide(std::vector<std::size_t>{0}, true); // meanwhile
            return c.IsYes();
        };
        m_panel.Print();
        m_said = m_view.GetPrinted().IsEmpty() ? CStr(u"nothing") : m_view.GetPrinted();
    }
    // What a second panel with the same results, which is none of the user's, shows then.
    void Other()
    {
        m_other.SetView(&m_otherView);
        m_other.SetResults(MakeResults());
    }
    void TellOther()
    {
        m_said = CStr::Format(u"%d notes, %d sizes / ", m_other.GetNotes().size(),
                              m_otherView.GetSizeUpdateCount());
        m_said += m_otherView.Draw();
    }
    void Heights(CCommand c)
    {
        std::array<std::optional<int>, CResultTables::c_count> heights;
        for (std::size_t i = 0; i < heights.size(); ++i)
            if (c.words[i] != "-")
                heights[i] = c.Get(i);
        m_panel.OnHeights(heights);
        for (const int height : m_panel.GetLayout().heights)
            m_said += CStr::Format(u"%d ", height);
    }
    void Restart()
    {
        CInifile ini;
        m_layouts.Save(ini);
        m_layouts.Clear();
        m_layouts.Load(ini);
        m_panel.SetResults(MakeResults());
    }
    void Analysis()
    {
        auto results = MakeResults();
        results->quantities[0].parameter.SetUnitFactor(CUnit::EUnitFactor::Milli);
        m_panel.SetResults(results);
    }

    // The dialog of the preferences has other quantities chosen.
    void Choose(CCommand c)
    {
        auto results = MakeResults();
        const auto all = std::exchange(results->quantities, {});
        for (const std::size_t number : Numbers(c))
            results->quantities.push_back(all[number]);
        m_panel.SetResults(results);
    }

    const std::map<std::string, std::function<void(CCommand)>> m_verbs = {
        {"unit",
         [this](CCommand c) {
             m_panel.SetUnitFactor(Numbers(c, 1), static_cast<CUnit::EUnitFactor>(c.Get()));
         }},
        {"format", [this](CCommand c) { Format(c); }},
        {"hide", [this](CCommand c) { m_panel.Hide(Numbers(c), true); }},
        {"show", [this](CCommand c) { m_panel.Hide(Numbers(c), false); }},
        {"all", [this](CCommand) { m_panel.ShowAll(); }},
        {"transpose", [this](CCommand c) { m_panel.Transpose(c.IsYes()); }},
        {"notes", [this](CCommand c) { m_panel.ShowNotes(c.IsYes()); }},
        {"signs",
         [this](CCommand c) {
             m_panel.SetSeparator(static_cast<char16_t>(c.words[0][0]));
             m_panel.SetDecimal(static_cast<char16_t>(c.words[1][0]));
         }},
        {"width",
         [this](CCommand c) { m_panel.OnWidth(EResultTable::Results, c.Get<std::size_t>(), c.Get(1)); }},
        {"widths",
         [this](CCommand c) {
             for (const std::size_t column : Numbers(c))
                 m_said += CStr::Format(u"%d ", m_panel.GetWidth(EResultTable::Results, column));
         }},
        {"select", [this](CCommand c) { Select(c); }},
        {"copy", [this](CCommand c) { Copy(c); }},
        {"menu", [this](CCommand c) { Menu(c); }},
        {"restart", [this](CCommand) { Restart(); }},
        {"choose", [this](CCommand c) { Choose(c); }},
        {"analysis", [this](CCommand) { Analysis(); }},
        {"print", [this](CCommand c) { Print(c); }},
        {"other", [this](CCommand) { Other(); }},
        {"told", [this](CCommand) { TellOther(); }},
        {"heights", [this](CCommand c) { Heights(c); }},
    };
    CResultLayoutManager m_layouts;
    CMemoryClipboard m_clipboard;
    CMemoryResultPanelView m_view;
    CResultPanel m_panel{m_layouts};
    CMemoryResultPanelView m_otherView;
    CResultPanel m_other{m_layouts};
    CStr m_said;
};

} // namespace

TEST(ResultPanel, ShowsAndCopiesAsTheScriptSays)
{
    ExpectScriptOf<CStage>("result-panel.txt");
}

TEST(ResultPanel, FilesHoldWhatIsShown)
{
    const CTemporaryFolder folder;
    CMemoryFileDialogService files;
    const CServiceScope<CFileDialogService> scope(files);
    CResultLayoutManager layouts;
    CMemoryResultPanelView view;
    CResultPanel panel(layouts);
    panel.SetView(&view);
    panel.SetResults(MakeResults());
    panel.SetDecimal(u',');
    panel.Hide(std::vector<std::size_t>{1}, true);
    const CStr path = CStr::FromUtf8((folder.GetPath() / "results").string());
    const struct {
        EResultFile kind;
        std::vector<std::string> holds;
        std::string lacks;
    } rows[] = {
        {EResultFile::Text,
         {"\xEF\xBB\xBF"
          "A < B & C\r\nsteel.sdf",
          "1\t1250.0\t7.0\r\n"},
         "Rq"},
        {EResultFile::SpreadsheetCsv,
         {"Profile;Ra ISO;RPc\r\n", "1;1250,0;7,0\r\n", "'=2;2000,0;8,0\r\n"},
         "Rq"},
        {EResultFile::MachineCsv,
         {"Profile,Ra,RPc\r\nUnit,m,\r\n1,1.25e-06,7\r\n", "Mean,1.5e-06,7.5\r\n"},
         "steel"},
        {EResultFile::Html, {"<title>A &lt; B &amp; C</title>", "&lt;steel&gt;", "1250.0"}, "<steel>"},
        {EResultFile::Pdf, {"%PDF-", "1250.0"}, "Rq"},
    };
    for (const auto& [kind, holds, lacks] : rows) {
        files.Prepare(path);
        EXPECT_TRUE(panel.Save(kind));
        const std::string file = folder.Read("results");
        for (const std::string& part : holds)
            EXPECT_NE(file.find(part), file.npos) << part << " in " << file;
        EXPECT_EQ(file.find(lacks), file.npos) << lacks << " in " << file;
    }
    EXPECT_FALSE(panel.Save(EResultFile::Text)) << "cancelled";

    CMemoryMessageBoxService boxes;
    const CServiceScope<CMessageBoxService> boxScope(boxes);
    panel.SetView(nullptr); // who draws the pages
    files.Prepare(path);
    EXPECT_FALSE(panel.Save(EResultFile::Pdf));
    EXPECT_EQ(boxes.GetShown().back().text, path + u" cannot be written: its pages could not be drawn");
#if !defined(_WIN32) // which has no limit for the size of files
    const std::string before = folder.Read("results");
    files.Prepare(path);
    const CFullDisk disk(100);
    EXPECT_FALSE(panel.Save(EResultFile::Html));
    EXPECT_EQ(folder.Read("results"), before) << "stays whole";
    ASSERT_EQ(boxes.GetShown().size(), 2U);
    EXPECT_EQ(boxes.GetShown()[1].text.Find(path + u" cannot be written: "), 0U);
#endif
}

TEST(ResultLayout, WordsOfLaterVersionsStay)
{
    CInifile ini;
    ini.LoadBytes("[ResultDialog]\nA=Folded,Transposed,Tab,DecimalPoint\nA Ra=Unit 1 over 999,Hidden\n"
                  "A Rq=Colored red\nA Rz=Hidden\nB=Folded\n");
    CResultLayoutManager layouts;
    const CDiagnosticsCapture capture;
    layouts.Load(ini);
    layouts.Get(u"A").isTransposed = false;
    layouts.Get(u"A").columns[u"Ra"].width = 5;
    layouts.Get(u"A").columns[u"Rz"].isHidden = false;
    for (int save = 0; save < 2; ++save) {
        layouts.Save(ini);
        const CSectionScope scope(ini, CResultLayoutManager::c_section);
        using CTexts = std::vector<CStr>;
        EXPECT_EQ(ini.ReadTexts(u"A"), (CTexts{u"Folded", u"NotTransposed", u"Tab", u"DecimalPoint"}));
        EXPECT_EQ(ini.ReadTexts(u"A Ra"), (CTexts{u"Unit 1 over 999", u"Hidden", u"Width 5"}));
        EXPECT_EQ(ini.ReadTexts(u"A Rq"), (CTexts{u"Colored red"}));
        EXPECT_EQ(ini.ReadTexts(u"B"), (CTexts{u"Folded", u"Tab", u"DecimalPoint"}));
        EXPECT_FALSE(ini.HasKey(u"A Rz"));
    }
}

TEST(ResultDialog, StaysOpenBesideOthers)
{
    CResultLayoutManager layouts;
    CMemoryResultDialogView view;
    CResultDialog dialog(layouts);
    dialog.SetView(&view);
    dialog.Create();
    EXPECT_EQ(view.GetCaption(), u"Results");
    dialog.SetResults(MakeResults());
    EXPECT_EQ(view.GetCaption(), u"A < B & C");
    EXPECT_TRUE(view.IsVisible() && !view.IsModal());
    EXPECT_TRUE(view.Press(CBaseDialog::c_cancel) && !dialog.IsOpen());
}
