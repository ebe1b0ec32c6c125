#include "programs/surface_view/Options.h"

#include "programs/command_line/CommandLine.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace SurfaceView;

TEST(Options, EveryOptionIsRead)
{
    const std::vector<const char*> arguments{
        "--size",       "640x480",  "in.sdf", "--out",     "out.png", "--projection",
        "orthographic", "--color",  "Grey",   "--azimuth", "-45.5",   "--elevation",
        "90",           "--zscale", "2.5",    "--level",   "plane"};
    const SOptions options = ParseOptions(arguments);
    EXPECT_EQ(options.input, "in.sdf");
    EXPECT_EQ(options.output, "out.png");
    EXPECT_EQ(options.size, (CommonUI::SSize{640, 480}));
    EXPECT_TRUE(options.orthographic);
    EXPECT_EQ(options.colorScale, "Grey");
    EXPECT_EQ(options.direction.azimuth, -45.5);
    EXPECT_EQ(options.direction.elevation, 90);
    EXPECT_EQ(options.zScale, 2.5);
    EXPECT_EQ(options.levelling, CommonUI::Analysis::ELevelling::Plane);
}

// A line of the record: the arguments, and the message.
TEST(Options, WhatCannotBeUnderstoodIsRefused)
{
    for (const std::string& row : ReadTestLines("surface-view-refusals.txt")) {
        const std::vector<std::string> cells = SplitText(row, '|');
        const std::vector<std::string> words = SplitText(cells[0], ' ');
        std::vector<const char*> arguments;
        std::ranges::transform(words, std::back_inserter(arguments), &std::string::c_str);
        try {
            ParseOptions(arguments);
            ADD_FAILURE() << row;
        } catch (const CommandLine::EUsage& error) {
            EXPECT_EQ(error.what(), cells[1]);
        }
    }
}
