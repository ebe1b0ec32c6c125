#include "output/grid/GridSelection.h"

#include <gtest/gtest.h>

#include "tests/output/GridHarness.h"

using namespace CommonUI;

constexpr SGridModifiers c_both{.shift = true, .control = true};

TEST(GridSelection, Keys)
{
    const std::tuple<SGridKey, SGridCell, SGridRange> cases[] = {
        {{EGridKey::Left, c_plain}, {10, 1}, {10, 10, 1, 1}},
        {{EGridKey::Right, c_plain}, {10, 3}, {10, 10, 3, 3}},
        {{EGridKey::Up, c_shift}, {9, 2}, {9, 10, 2, 2}},
        {{EGridKey::Down, c_shift}, {11, 2}, {10, 11, 2, 2}},
        {{EGridKey::Left, c_control}, {10, 0}, {10, 10, 0, 0}},
        {{EGridKey::Right, c_both}, {10, 4}, {10, 10, 2, 4}},
        {{EGridKey::Up, c_control}, {0, 2}, {0, 0, 2, 2}},
        {{EGridKey::Down, c_control}, {99, 2}, {99, 99, 2, 2}},
        {{EGridKey::PageUp, c_plain}, {3, 2}, {3, 3, 2, 2}},
        {{EGridKey::PageDown, c_shift}, {17, 2}, {10, 17, 2, 2}},
        {{EGridKey::Home, c_plain}, {10, 0}, {10, 10, 0, 0}},
        {{EGridKey::End, c_shift}, {10, 4}, {10, 10, 2, 4}},
        {{EGridKey::Home, c_both}, {0, 0}, {0, 10, 0, 2}},
        {{EGridKey::End, c_control}, {99, 4}, {99, 99, 4, 4}},
        {{EGridKey::A, c_control}, {10, 2}, {0, 99, 0, 4}},
    };
    for (const auto& [key, focus, range] : cases) {
        CGridSelection selection;
        selection.SetSize(100, 5);
        selection.SelectCell({10, 2});
        EXPECT_TRUE(selection.OnKey(key, 8));
        EXPECT_EQ(selection.GetFocus(), focus);
        EXPECT_EQ(selection.GetRange(), range);
    }
    CGridSelection selection;
    EXPECT_FALSE(selection.OnKey({EGridKey::A, c_control}, 8)) << "no cells";
    selection.SetSize(100, 5);
    EXPECT_FALSE(selection.OnKey({EGridKey::A, c_plain}, 8));
    EXPECT_FALSE(selection.OnKey({EGridKey::F2, c_plain}, 8));
    EXPECT_TRUE(selection.OnKey({EGridKey::Up, c_plain}, 0));
    EXPECT_EQ(selection.GetRange(), (SGridRange{0, 0, 0, 0})) << "cut at the top";
}

TEST(GridSelection, WholeRowsColumnsAndTablesOfOtherSizes)
{
    CGridSelection selection;
    selection.SetSize(100, 5);
    selection.SelectRow(8, true);
    EXPECT_EQ(selection.GetRange(), (SGridRange{8, 8, 0, 4})) << "nothing to extend";
    selection.SelectCell({20, 1});
    selection.SelectCell({90, 9}, true);
    EXPECT_EQ(selection.GetRange(), (SGridRange{20, 90, 1, 4}));
    selection.SetSize(30, 2);
    EXPECT_EQ(selection.GetRange(), (SGridRange{20, 29, 1, 1})) << "cut to the table";
    selection.SetWholeRows(true);
    EXPECT_EQ(selection.GetRange(), (SGridRange{20, 29, 0, 1}));
    selection.SetSize(0, 2);
    EXPECT_TRUE(selection.IsEmpty());
    selection.SelectCell({0, 0});
    EXPECT_TRUE(selection.IsEmpty());
}
