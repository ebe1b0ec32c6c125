// Grids that grow and change; each call does its work or leaves the grid as it was.

#include "output/grid/GridCtrl.h"
#include "output/grid/MemoryGridView.h"
#include "output/results/GridBaseOutputCtrl.h"
#include "output/results/GridCopy.h"
#include "platform/memory/MemoryClipboard.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "platform/MessageBoxService.h"
#include "tests/faults/AllocationTrial.h"
#include "tests/faults/Faults.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

using namespace CommonUI;

namespace Faults
{

namespace
{

using CRows = CGridRowList<std::unique_ptr<CGridRow>>;

void Tell(const CRows& rows, bool areShown, std::string& text, std::vector<const CGridRow*>& shown)
{
    for (const auto& row : rows) {
        text += std::string(row->GetDepth(), ' ');
        for (std::size_t column = 0; column < 8; ++column)
            if (const auto item = row->GetItem(column)) {
                text += std::to_string(column) + '=' + item->FormatItem().ToUtf8() + ' ';
                Expect(item->GetRow() == row.get(), "an item is in another row");
            }
        text += row->IsExpanded() ? "-\n" : "+\n";
        if (areShown)
            shown.push_back(row.get());
        Tell(row->GetSubRows(), areShown && row->IsExpanded(), text, shown);
    }
}

// Two columns, many rows, the first of which has rows below it that have rows, all hidden.
struct SGrid {
    SGrid()
    {
        grid.SetView(&view);
        grid.SetViewSize({200, 120});
        grid.AddColumn({u"Name", 100});
        grid.AddColumn({u"Value", 100});
        first.SetExpanded(false);
        for (int i = 0; i < 3; ++i)
            first.AddSubRow().AddSubRow().Add(item);
        for (int i = 0; i < 1023; ++i)
            grid.AddRow();
    }
    std::string Look()
    {
        std::string text = std::to_string(grid.GetColumnCount()) + " columns\n";
        std::vector<const CGridRow*> shown;
        Tell(grid.GetRows(), true, text, shown);
        Expect(shown.size() == grid.GetShownRows().size(), "there are other rows than are shown");
        for (std::size_t i = 0; i < shown.size(); ++i)
            Expect(grid.GetShownRows()[i] == shown[i], "there are other rows than are shown");
        return text;
    }
    void Use()
    {
        for (const auto& row : grid.GetRows())
            for (int i = 0; i < 2; ++i)
                row->SetExpanded(!row->IsExpanded());
        grid.AddRow().AddSubRow();
        while (!grid.GetRows().empty())
            grid.RemoveRow(*grid.GetRows()[grid.GetRows().size() / 2]);
        Expect(Look().find('\n') != std::string::npos && grid.GetShownRows().empty(),
               "rows that are removed are shown");
    }

    CMemoryGridView view{};
    CGridCtrl grid{};
    CGridRow& first = grid.AddRow();
    std::shared_ptr<CGridItem> item = std::make_shared<CGridItem>(u"an item that moves to another row");
};

void Add(COperations& all, const char* name, const std::function<void(SGrid&)>& act)
{
    all.push_back(Operation<SGrid>(
        std::string("grid: ") + name, {}, Call<SGrid>(act), [](SGrid& work) { return work.Look(); },
        [](SGrid& work) { work.Use(); }));
}

struct STable {
    STable()
    {
        grid.SetNameHeader(u"Name of the surface");
        grid.AddColumn({u"Sa\r\nof the whole surface", u"a group of columns with a name"});
        grid.AddColumn({u"Sq", u"a group of columns with a name"});
        for (int i = 0; i < 20; ++i)
            grid.AddRow({u"a surface with a longer name", {u"0.123", u"0.234"}});
    }

    CMemoryMessageBoxService boxes{};
    CServiceScope<CMessageBoxService> scope{boxes};
    CMemoryClipboard clipboard{};
    CGridBaseOutputCtrl grid{CGridBaseOutputCtrl::SCellInfo::Results};
};

} // namespace

void AddGrids(COperations& all)
{
    Add(all, "add a row", [](SGrid& work) { work.grid.AddRow(); });
    Add(all, "add a row below a row", [](SGrid& work) { work.first.AddSubRow(); });
    Add(all, "add a row below one that is shown", [](SGrid& work) { work.grid.GetRows()[500]->AddSubRow(); });
    Add(all, "add a column", [](SGrid& work) { work.grid.AddColumn({u"Another column", 50}); });
    Add(all, "move an item", [](SGrid& work) { work.first.Set(5, work.item); });
    Add(all, "make an item", [](SGrid& work) { work.first.Emplace<CGridItem>(u"a new item of the grid"); });
    Add(all, "show rows", [](SGrid& work) { work.first.SetExpanded(true); });
    Add(all, "show many rows", [](SGrid& work) {
        for (int i = 0; i < 40; ++i)
            work.first.AddSubRow();
        work.first.SetExpanded(true);
    });
    all.back().mayBeInPart = true; // as there are many calls
    Add(all, "remove a row", [](SGrid& work) { work.grid.RemoveRow(work.first); });

    all.push_back(Operation<STable>(
        "table: copy", {}, [](STable& work) { return CopyGrid(work.grid, false, work.clipboard); },
        [](STable& work) { return work.clipboard.GetHtml().ToUtf8() + work.clipboard.GetText().ToUtf8(); }));
    all.back().tellsItself = all.back().keepsCaches = true;
    all.push_back(Operation<STable>(
        "table: add a row", {}, Call<STable>([](STable& work) {
            work.grid.AddRow({u"one more surface with a name", {u"0.345"}});
        }),
        [](STable& work) {
            return CGridBaseOutputCtrl::GenerateText(nullptr, &work.grid, nullptr, true).ToUtf8();
        }));
}

} // namespace Faults
