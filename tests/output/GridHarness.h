#pragma once

#include "output/grid/GridCtrl.h"
#include "output/grid/MemoryGridView.h"
#include "output/grid/TextGridPainter.h"

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace CommonUI
{

constexpr SGridModifiers c_plain{};
constexpr SGridModifiers c_shift{.shift = true};
constexpr SGridModifiers c_control{.control = true};

/// A grid of two columns of 100 pixels in a view of 200 by 120: a header and five rows, 20 pixels each.
class CGridHarness
{
public:
    CGridHarness()
    {
        grid->SetView(&view);
        grid->SetViewSize({200, 120});
        grid->AddColumn({u"Name", 100});
        grid->AddColumn({u"Value", 100});
        grid->SetChangeCallback(*this, &CGridHarness::OnChange);
        grid->SetColumnWidthCallback(*this, &CGridHarness::OnWidth);
    }

    /// What is drawn of one item.
    std::string Draw(const CGridItem& item) const
    {
        CTextGridPainter painter;
        item.OnDrawValue(painter, grid->GetItemRect(item));
        EXPECT_EQ(painter.GetTextColor(), SColor{});
        return painter.GetLog().ToUtf8();
    }
    std::string DrawAll() const
    {
        CTextGridPainter painter;
        grid->Draw(painter, {0, 0, 200, 120});
        return painter.GetLog().ToUtf8();
    }
    void Press(int x, int y, unsigned int message = GridMouse::c_leftDown)
    {
        grid->OnMouse(message, {x, y}, c_plain);
    }
    bool Key(EGridKey key, SGridModifiers modifiers = c_plain) { return grid->OnKey({key, modifiers}); }

    /// What the listener has heard since the last time: "id", "id!" of an item that was marked as changed
    /// before, and "column:width".
    std::string TakeChanges() { return std::exchange(changes, {}); }

    CMemoryGridView view;
    std::unique_ptr<CGridCtrl> grid = std::make_unique<CGridCtrl>();
    std::string changes;
    bool destroyOnChange = false;

private:
    void OnWidth(std::size_t column, int width)
    {
        changes += std::to_string(column) + ":" + std::to_string(width) + " ";
        if (destroyOnChange)
            grid.reset();
    }
    void OnChange(CGridItem& item, int id)
    {
        changes += std::to_string(id) + (item.IsChanged() ? "! " : " ");
        if (destroyOnChange)
            grid.reset();
    }
};

} // namespace CommonUI
