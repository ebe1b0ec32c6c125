#include "examples/surface_view/Options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace SurfaceView;

TEST(OptionsTest, EveryOptionIsRead)
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
    EXPECT_EQ(options.azimuth, -45.5);
    EXPECT_EQ(options.elevation, 90);
    EXPECT_EQ(options.zScale, 2.5);
    EXPECT_EQ(options.levelling, SurfaceAnalysis::ELevelling::Plane);
}

TEST(OptionsTest, WhatCannotBeUnderstoodIsRefused)
{
    const struct {
        std::vector<const char*> arguments;
        std::string message;
    } rows[]{
        {{}, "no input is given; see --help"},
        {{"in"}, "no file is given for the picture; see --help"},
        {{"in", "in"}, "\"in\" is one input too many"},
        {{"in", "--out"}, "--out needs a value"},
        {{"--fast"}, "there is no option \"--fast\""},
        {{"--size", "640"}, "--size: \"640\" is no size such as 900x600"},
        {{"--size", "0x600"}, "--size: \"0\" is no number of pixels from 100 to 4096"},
        {{"--size", "900x4097"}, "--size: \"4097\" is no number of pixels from 100 to 4096"},
        {{"--size", "900x600x2"}, "--size: \"600x2\" is no number of pixels from 100 to 4096"},
        {{"--projection", "flat"}, "--projection: \"flat\" is none of perspective, orthographic"},
        {{"--elevation", "91"}, "--elevation: \"91\" is no number from 0 to 90"},
        {{"--azimuth", "nan"}, "--azimuth: \"nan\" is no number from -360 to 360"},
        {{"--zscale", "0"}, "--zscale: \"0\" is no number from 0.001 to 1e+09"},
        {{"--level", "all"}, "--level: \"all\" is none of none, mean, plane"},
    };
    for (const auto& row : rows) {
        try {
            ParseOptions(row.arguments);
            ADD_FAILURE() << row.message;
        } catch (const EUsage& error) {
            EXPECT_EQ(error.what(), row.message);
        }
    }
}
