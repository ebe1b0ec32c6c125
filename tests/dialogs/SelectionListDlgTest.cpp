#include "dialogs/lists/MemorySelectionListView.h"

#include "tests/Script.h"

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>

using namespace CommonUI;

namespace
{

using CDlg = CSelectionListDlg;

// The dialog with a window, which plays lines of a script.
class CStage
{
public:
    CStage() { Make(CDlg::EMode::Single); }
    void Act(const SCommand& command) { m_verbs.at(command.verb)(command); }
    std::string Tell()
    {
        CStr told = m_dialog->IsOpen() ? u"open, " : u"closed, ";
        told += m_view.GetText(CDlg::c_count) + (m_view.IsEnabled(CDlg::c_ok) ? u":" : u", no OK:");
        for (std::size_t row = 0; row < m_dialog->GetRows().size(); ++row) {
            const std::size_t entry = m_dialog->GetRows()[row];
            told += CStr::Format(u"%s%s%s", m_view.GetRow() == row ? u" >" : u" ",
                                 m_dialog->IsChosen(entry) ? u"*" : u"", m_dialog->GetEntries()[entry]);
        }
        told += u"; chosen";
        for (const std::size_t entry : m_dialog->GetChosen())
            told += CStr::Format(u" %zu", entry);
        return told.ToUtf8();
    }

private:
    void Make(CDlg::EMode mode)
    {
        m_dialog = std::make_unique<CDlg>(
            mode, u"Parameters", u"&Parameters:",
            std::vector<CStr>{u"Sa", u"Sq", u"Sz height", u"S\u00C4 Height", u"Ra height"});
        m_dialog->SetView(&m_view);
    }

    using CCommand = const SCommand&;
    const std::map<std::string, std::function<void(CCommand)>> m_verbs = {
        {"several", [this](CCommand) { Make(CDlg::EMode::Several); }},
        {"chosen",
         [this](CCommand c) {
             m_dialog->SetChosen({c.Get<std::size_t>(), c.Get<std::size_t>(1), c.Get<std::size_t>(2)});
         }},
        {"open", [this](CCommand) { m_dialog->Create(); }},
        {"type", [this](CCommand c) { m_view.Type(CStr::FromUtf8(c.text)); }},
        {"row", [this](CCommand c) { m_view.Choose(c.Get<std::size_t>()); }},
        {"leave", [this](CCommand) { m_view.Choose({}); }},
        {"check", [this](CCommand c) { m_dialog->OnRowChecked(c.Get<std::size_t>(), true); }},
        {"uncheck", [this](CCommand c) { m_dialog->OnRowChecked(c.Get<std::size_t>(), false); }},
        {"all", [this](CCommand) { m_dialog->OnCheckRows(true); }},
        {"none", [this](CCommand) { m_dialog->OnCheckRows(false); }},
        {"activate", [this](CCommand) { m_dialog->OnRowActivated(); }},
        {"OK", [this](CCommand) { m_dialog->OnOK(); }},
        {"cancel", [this](CCommand) { m_view.Press(CDlg::c_cancel); }},
    };
    CMemorySelectionListView m_view;
    std::unique_ptr<CDlg> m_dialog;
};

} // namespace

TEST(SelectionListDlg, ChoosesAsTheScriptSays)
{
    ExpectScriptOf<CStage>("selection-list.txt");
}

TEST(ListFilter, TypingOnFindsWhatTypingAtOnceDoes)
{
    const std::vector<CStr> entries = {u"alpha beta", u"Beta", u"ALPHA", u"\u0391\u03B2", u"", u"a  b"};
    CListFilter once, typed;
    once.SetEntries(entries);
    typed.SetEntries(entries);
    const CStr text = u"be al ";
    for (std::size_t length = 0; length <= text.GetLength(); ++length) {
        typed.SetText(text.Left(length));
        once.SetText(u"#");
        once.SetText(text.Left(length));
        EXPECT_EQ(typed.GetFound(), once.GetFound()) << length;
    }
    EXPECT_EQ(typed.GetFound(), std::vector<std::size_t>{0});
    EXPECT_TRUE(typed.SetText(u"\u03B1"));
    EXPECT_EQ(typed.GetFound(), std::vector<std::size_t>{3}) << "a capital alpha";
    EXPECT_TRUE(typed.SetText(u"   "));
    EXPECT_EQ(typed.GetFound().size(), entries.size());
}
