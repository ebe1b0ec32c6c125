#include "common/SmallLetter.h"
#include "controls/lists/ExtendedList.h"
#include "controls/lists/ItemList.h"
#include "controls/lists/TextOrder.h"
#include "controls/sections/Sections.h"
#include "controls/tabs/Tabs.h"
#include "tests/Script.h"

#include <algorithm>
#include <limits>

using namespace CommonUI;

namespace
{

std::vector<std::size_t> GetNumbers(const SCommand& command, std::size_t from = 0)
{
    std::vector<std::size_t> numbers;
    for (; from < command.words.size(); ++from)
        numbers.push_back(command.Get<std::size_t>(from));
    return numbers;
}

CStr GetWord(const SCommand& command, std::size_t word = 0)
{
    return command.words.size() > word ? CStr::FromUtf8(command.words[word]) : CStr();
}

// Counts the calls of two events.
class CEvents
{
public:
    void OnFirst() { ++m_first; }
    void OnSecond() { ++m_second; }
    std::string Tell()
    {
        std::string told(std::exchange(m_first, 0), '!');
        return told + std::string(std::exchange(m_second, 0), '*');
    }

    CClosureConnection m_firstConnection;
    CClosureConnection m_secondConnection;

private:
    std::size_t m_first = 0;
    std::size_t m_second = 0;
};

// Items are letters: "a [b] c+ >d", in brackets what is selected, with a plus what is checked, behind > the
// current one.
class CItemListStage
{
public:
    CItemListStage()
    {
        m_list.GetItemsChanged().Subscribe(m_events, &CEvents::OnFirst, m_events.m_firstConnection);
        m_list.GetSelectionChanged().Subscribe(m_events, &CEvents::OnSecond, m_events.m_secondConnection);
    }
    void Act(const SCommand& c)
    {
        if (c.verb == "set")
            m_list.SetItems(MakeItems(c));
        else if (c.verb == "add")
            m_list.Add(MakeItems(c));
        else if (c.verb == "select")
            m_list.Select(GetNumbers(c, 1), c.Get<std::size_t>());
        else if (c.verb == "up" || c.verb == "down")
            m_list.Move(c.verb == "up");
        else if (c.verb == "drag")
            m_list.MoveTo(c.Get<std::size_t>());
        else if (c.verb == "check")
            m_list.Check(c.Get<std::size_t>(), true);
        else
            m_list.Remove();
    }
    std::string Tell()
    {
        CStr told;
        for (std::size_t i = 0; i < m_list.GetItems().size(); ++i) {
            const SListItem& item = m_list.GetItems()[i];
            const bool selected = std::ranges::count(m_list.GetSelection(), i) > 0;
            told += i == m_list.GetCurrent() ? u">" : u"";
            told += selected ? u"[" + item.key + u"]" : item.key;
            told += item.checked ? u"+ " : u" ";
        }
        told += m_list.CanMove(true) ? u"up " : u"";
        told += m_list.CanMove(false) ? u"down " : u"";
        return told.ToUtf8() + "|" + m_events.Tell();
    }

private:
    static std::vector<SListItem> MakeItems(const SCommand& command)
    {
        std::vector<SListItem> items;
        for (std::size_t i = 0; i < command.words.size(); ++i)
            items.push_back({GetWord(command, i), u"Item " + GetWord(command, i)});
        return items;
    }

    CEvents m_events;
    CItemList m_list;
};

class CTabsStage
{
public:
    CTabsStage()
    {
        m_tabs.GetTabsChanged().Subscribe(m_events, &CEvents::OnFirst, m_events.m_firstConnection);
        m_tabs.GetCurrentChanged().Subscribe(m_events, &CEvents::OnSecond, m_events.m_secondConnection);
        m_tabs.SetCloseQuestion(*this, &CTabsStage::MayClose);
    }
    void Act(const SCommand& c)
    {
        if (c.verb == "add")
            m_tabs.Add({GetWord(c), u"Tab", c.Get(1) == 0});
        else if (c.verb == "front")
            m_tabs.SetCurrent(c.Get<std::size_t>());
        else if (c.verb == "move")
            m_tabs.Move(c.Get<std::size_t>(), c.Get<std::size_t>(1));
        else if (c.verb == "left" || c.verb == "right")
            m_tabs.MoveCurrent(c.verb == "right");
        else if (c.verb == "order")
            m_tabs.SetOrder(CStr::FromUtf8(c.text).Split(u" "));
        else if (c.verb == "close")
            m_tabs.Close(c.Get<std::size_t>());
        else if (c.verb == "others")
            m_tabs.CloseOthers(c.Get<std::size_t>());
        else if (c.verb == "next" || c.verb == "back")
            m_tabs.SwitchToNext(c.verb == "back");
        else
            m_tabs.EndSwitching();
    }
    std::string Tell()
    {
        CStr told;
        for (std::size_t i = 0; i < m_tabs.GetTabs().size(); ++i)
            told += (i == m_tabs.GetCurrent() ? u">" : u"") + m_tabs.GetTabs()[i].key + u' ';
        return told.ToUtf8() + "|" + m_events.Tell();
    }

private:
    bool MayClose(const CStr& key) { return key != u"stay"; }

    CEvents m_events;
    CTabs m_tabs;
};

SExtendedRow MakeRow(const CStr& name, const std::optional<double>& number, const CStr& group = {})
{
    return {{{name}, {number ? CStr::Format(u"%g", *number) : CStr(), number}}, group};
}

std::string TellLines(const CExtendedList& list)
{
    CStr told;
    for (const SExtendedLine& line : list.GetLines())
        told += line.IsGroup() ? CStr::Format(u"%s(%zu) ", list.GetRows()[line.row].group, line.groupSize)
                               : list.GetText(line.row, 0) + u' ';
    return told.ToUtf8();
}

} // namespace

TEST(ItemList, MovesAsTheScriptSays)
{
    ExpectScriptOf<CItemListStage>("item-list.txt");
}

TEST(Tabs, GoAsTheScriptSays)
{
    ExpectScriptOf<CTabsStage>("tabs.txt");
}

TEST(TextOrder, IsThatOfPeople)
{
    const std::u16string_view rising[] = {u"",         u"Scan 02", u"scan 2",     u"scan 10",
                                          u"Scan 10b", u"zebra",   u"\u00C4ther", u"\u0431"};
    for (std::size_t i = 0; i < std::size(rising); ++i) {
        for (std::size_t j = 0; j < std::size(rising); ++j) {
            const bool isLess = i < j;
            EXPECT_EQ(CompareNatural(rising[i], rising[j]) < 0, isLess) << i << ' ' << j;
        }
    }
    EXPECT_EQ(ToSmall(u"\u00C4 \u00D7 \u0178 \u0141 \u03A9 \u0416 \u040B"),
              u"\u00E4 \u00D7 \u00FF \u0142 \u03C9 \u0436 \u045B");
}

TEST(ExtendedList, SortsFiltersAndFolds)
{
    CExtendedList list;
    list.SetColumns({{u"Name"}, {u"Sa", true}});
    list.SetRows({MakeRow(u"b10", 3, u"new"), MakeRow(u"b9", std::nullopt, u"old"),
                  MakeRow(u"A1", -2, u"new"), MakeRow(u"c", std::numeric_limits<double>::quiet_NaN(), u"old"),
                  MakeRow(u"b2", 30, u"old")});
    const std::pair<std::function<void()>, const char*> steps[] = {
        {[] {}, "b10 b9 A1 c b2 "},
        {[&] { list.CycleOrder(0); }, "A1 b2 b9 b10 c "},
        {[&] { list.CycleOrder(1); }, "A1 b10 b2 b9 c "},
        {[&] { list.CycleOrder(1); }, "b2 b10 A1 b9 c "},
        {[&] { list.SetFilter(u"B  "); }, "b2 b10 b9 "},
        {[&] { list.SetFilter(u"3 B"); }, "b2 b10 "},
        {[&] { list.SetGrouped(true); }, "old(1) b2 new(1) b10 "},
        {[&] { list.CycleOrder(1); }, "new(1) b10 old(1) b2 "},
        {[&] { list.FoldGroup(u"old", true); }, "new(1) b10 old(1) "},
        {[&] { list.CheckShown(true); }, "new(1) b10 old(1) "},
        {[&] { list.SetFilter({}); }, "new(2) b10 A1 old(3) "},
        {[&] { list.SetOrder(SExtendedOrder{7}); }, "new(2) b10 A1 old(3) "},
    };
    for (const auto& [act, lines] : steps) {
        act();
        EXPECT_EQ(TellLines(list), lines);
    }
    EXPECT_EQ(list.GetCheckedCount(), 2U) << "folded ones are checked, filtered ones are not";
    EXPECT_EQ(list.IsGroupChecked(u"new"), std::nullopt);
    const CStr group = u"new";
    list.CheckShown(true, &group);
    EXPECT_EQ(list.IsGroupChecked(u"new"), true);
    EXPECT_EQ(list.GetCheckedCount(), 3U);
}

TEST(Sections, KeepTheirStateByName)
{
    CInifile file;
    file.LoadBytes("[Page]\nFilter=0\nNewer=1\nBroken=perhaps\n");
    file.SelectSection(u"Page");
    CSections sections;
    sections.Add(u"Filter", true);
    sections.Add(u"Broken", true);
    sections.Load(file);
    EXPECT_FALSE(sections.IsExpanded(u"Filter"));
    EXPECT_TRUE(sections.IsExpanded(u"Broken"));
    sections.SetAllExpanded(false);
    sections.Add(u"Newer", false);
    EXPECT_TRUE(sections.IsExpanded(u"Newer")) << "loaded before it was added";
    sections.Toggle(u"Filter");
    sections.Toggle(u"unknown");
    sections.Save(file);
    EXPECT_EQ(file.GetBytes(), "[Page]\nFilter=1\nNewer=1\nBroken=0\n");
}
