// A grid beside a tree of names: rows come, go, open and close, and items move.

#include "output/grid/GridCtrl.h"
#include "output/grid/MemoryGridView.h"
#include "tests/faults/Faults.h"
#include "tests/faults/Histories.h"

#include <memory>
#include <random>
#include <string>
#include <vector>

using namespace CommonUI;

namespace Faults
{

namespace
{

struct SNode {
    int name = 0;
    bool isExpanded = true;
    std::vector<std::unique_ptr<SNode>> below{};
};

using CRows = CGridRowList<std::unique_ptr<CGridRow>>;

class CGridGame
{
public:
    explicit CGridGame(unsigned seed)
        : m_random(seed)
    {
        m_grid.SetView(&m_view);
        m_grid.SetViewSize({200, 120});
        m_grid.AddColumn({u"Name", 100});
    }

    void Play(int steps)
    {
        for (int i = 0; i < steps; ++i) {
            Act();
            if (i % 16 == 0)
                Check();
        }
        Check();
    }

private:
    // A row and what stands for it, both null where the place is that of all rows.
    struct SPlace {
        CGridRow* row = nullptr;
        SNode* node = nullptr;
    };

    const CRows& RowsBelow(const SPlace& place) const
    {
        return place.row ? place.row->GetSubRows() : m_grid.GetRows();
    }
    // Somewhere in the tree, the deeper the less often.
    SPlace Choose()
    {
        SPlace place{nullptr, &m_root};
        while (!place.node->below.empty() && m_random() % 3 != 0) {
            const std::size_t index = m_random() % place.node->below.size();
            place = {RowsBelow(place)[index].get(), place.node->below[index].get()};
        }
        return place;
    }
    void Act()
    {
        const SPlace place = Choose();
        const auto action = m_random() % 8;
        if (action < 4 || !place.row) {
            if (m_count < 3000)
                Add(place);
        } else if (action < 6) {
            place.node->isExpanded = m_random() % 2 == 0;
            place.row->SetExpanded(place.node->isExpanded);
        } else if (action == 6) {
            m_grid.SelectCell({m_random() % m_grid.GetShownRows().size(), 0});
        } else {
            Remove(place);
        }
    }
    void Add(const SPlace& place)
    {
        CGridRow& row = place.row ? place.row->AddSubRow() : m_grid.AddRow();
        auto node = std::make_unique<SNode>();
        node->name = ++m_count;
        row.Emplace<CGridItem>(CStr::Format(u"%d", node->name));
        place.node->below.push_back(std::move(node));
    }
    void Remove(const SPlace& place)
    {
        CGridRow* const parent = place.row->GetParent();
        SNode& above = parent ? *Find(m_root, *parent) : m_root;
        m_grid.RemoveRow(*place.row);
        std::erase_if(above.below, [&](const auto& node) { return node.get() == place.node; });
    }
    static SNode* Find(SNode& below, const CGridRow& row)
    {
        SNode& above = row.GetParent() ? *Find(below, *row.GetParent()) : below;
        for (const auto& node : above.below)
            if (NameOf(row) == CStr::Format(u"%d", node->name))
                return node.get();
        Fail("a row is below another one");
    }
    static CStr NameOf(const CGridRow& row) { return row.GetItem(0)->FormatItem(); }
    void Check() const
    {
        std::size_t shown = 0;
        CheckBelow(m_root, m_grid.GetRows(), true, shown);
        Expect(shown == m_grid.GetShownRows().size(), "there are other rows than are shown");
        const SGridCell focus = m_grid.GetSelection().GetFocus();
        Expect(focus.row < shown || shown == 0, "the focus is on no row");
    }
    void CheckBelow(const SNode& above, const CRows& rows, bool areShown, std::size_t& shown) const
    {
        Expect(rows.size() == above.below.size(), "there are more rows, or less");
        auto node = above.below.begin();
        for (const auto& row : rows) {
            Expect(NameOf(*row) == CStr::Format(u"%d", (*node)->name), "rows are in another order");
            Expect(row->IsExpanded() == (*node)->isExpanded, "a row has opened or closed by itself");
            if (areShown)
                Expect(shown < m_grid.GetShownRows().size() && m_grid.GetShownRows()[shown++] == row.get(),
                       "there are other rows than are shown");
            CheckBelow(**node++, row->GetSubRows(), areShown && row->IsExpanded(), shown);
        }
    }

    std::mt19937 m_random;
    CMemoryGridView m_view{};
    CGridCtrl m_grid{};
    SNode m_root{};
    int m_count = 0;
};

} // namespace

void PlayGrid(unsigned seed, int steps)
{
    CGridGame(seed).Play(steps);
}

} // namespace Faults
