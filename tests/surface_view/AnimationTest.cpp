#include "programs/surface_view/Animation.h"

#include "programs/command_line/CommandLine.h"
#include "programs/surface_view/Palette.h"
#include "tests/TemporaryFolder.h"

#include <gif_lib.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>

namespace fs = std::filesystem;
using namespace SurfaceView;
using CommonUI::SAnimationSettings;

namespace
{

// Draws one colour, and remembers from where.
struct SCamera {
    std::vector<double> azimuths{};
    std::vector<double> zooms{};

    FDrawFrame Draw()
    {
        return [this](const SDirection& direction, double zoom) {
            azimuths.push_back(direction.azimuth);
            zooms.push_back(zoom);
            return SPicture{.size = {.cx = 3, .cy = 2}, .bytes = std::vector<std::uint8_t>(18, 200)};
        };
    }
};

// The names of the files in a folder.
std::vector<std::string> NamesIn(const fs::path& folder)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
}

struct SGif {
    int frames = 0;
    bool loops = false;
    std::vector<int> delays{};
    GifColorType first{};
};

SGif ReadGif(const fs::path& path)
{
    GifFileType* const file = DGifOpenFileName(path.string().c_str(), nullptr);
    if (!file || DGifSlurp(file) != GIF_OK)
        return {};
    SGif gif{.frames = file->ImageCount};
    for (int i = 0; i < file->ImageCount; ++i) {
        const SavedImage& image = file->SavedImages[i];
        GraphicsControlBlock control;
        DGifSavedExtensionToGCB(file, i, &control);
        gif.delays.push_back(control.DelayTime);
        gif.loops |= image.ExtensionBlocks[0].Function == APPLICATION_EXT_FUNC_CODE;
        gif.first = image.ImageDesc.ColorMap->Colors[image.RasterBits[0]];
    }
    DGifCloseFile(file, nullptr);
    return gif;
}

} // namespace

TEST(Animation, EyeGoesClockwiseFrameByFrame)
{
    const CTemporaryFolder folder;
    const SAnimationSettings animation{.duration = 0.4,
                                       .framesPerSecond = 10,
                                       .loop = true,
                                       .keyFrames = {{0, {0, 35, 1}}, {1, {360, 35, 3}}}};
    SCamera camera;
    EXPECT_EQ(WriteAnimation(animation, folder.GetPath() / "a.png", camera.Draw(), [](double) {}), 4);
    EXPECT_EQ(camera.azimuths, (std::vector<double>{0, -90, -180, -270}));
    EXPECT_EQ(camera.zooms, (std::vector<double>{1, 1.5, 2, 2.5}));
    EXPECT_EQ(NamesIn(folder.GetPath()),
              (std::vector<std::string>{"a-0001.png", "a-0002.png", "a-0003.png", "a-0004.png"}));
}

TEST(Animation, GifKeepsTheTime)
{
    const struct {
        int framesPerSecond;
        bool loop;
        std::vector<int> delays;
    } rows[]{{10, true, {10, 10, 10}},
             {24, false, {4, 4, 5, 4, 4, 4, 4}},
             {60, true, {3, 4, 3, 3, 4, 3, 3, 4, 3}}};
    for (const auto& row : rows) {
        const CTemporaryFolder folder;
        const fs::path path = folder.GetPath() / "a.gif";
        SCamera camera;
        WriteAnimation({.duration = 0.3, .framesPerSecond = row.framesPerSecond, .loop = row.loop}, path,
                       camera.Draw(), [](double) {});
        const SGif gif = ReadGif(path);
        EXPECT_EQ(gif.delays, row.delays) << row.framesPerSecond;
        EXPECT_EQ(gif.loops, row.loop);
        EXPECT_EQ(gif.first.Red, 200);
        EXPECT_EQ(NamesIn(folder.GetPath()), std::vector<std::string>{"a.gif"});
    }
}

TEST(Animation, WhatIsNoAnimationIsRefused)
{
    const CTemporaryFolder folder;
    const std::string empty = (folder.GetPath() / "empty.animation").string();
    std::ofstream(empty) << "[Animation]\nDuration=1\n";
    for (const std::string& spec :
         {std::string("Animation"), std::string("Filter[Id(31)]"), std::string("Animation[Id(nothing)]"),
          "Animation[File(" + empty + ")]", "Animation[File(" + empty + ".not)]"})
        EXPECT_THROW(LoadAnimation(spec), CommandLine::EUsage) << spec;
    EXPECT_EQ(LoadAnimation("Animation[Id(AnimationQuickLaunchDemo)]").duration, 12);
}

TEST(Palette, ColorsOfManyPixelsStayAndOthersComeNear)
{
    // Half of it white, the other half 65536 colours.
    SPicture picture{.size = {.cx = 512, .cy = 256}};
    for (int y = 0; y < 256; ++y) {
        for (int x = 0; x < 256; ++x)
            picture.bytes.insert(picture.bytes.end(), {255, 255, 255, static_cast<std::uint8_t>(x),
                                                       static_cast<std::uint8_t>(y), 0});
    }
    const SIndexed indexed = ReduceColors(picture);
    EXPECT_EQ(indexed.colors.size(), 256U);
    int worst = 0;
    for (std::size_t i = 0; i < indexed.indices.size(); ++i) {
        for (std::size_t primary = 0; primary < 3; ++primary) {
            const int shown = indexed.colors.at(indexed.indices[i])[primary];
            const int difference = std::abs(shown - picture.bytes[3 * i + primary]);
            EXPECT_TRUE(difference == 0 || i % 2 == 1);
            worst = std::max(worst, difference);
        }
    }
    EXPECT_LE(worst, 16); // 255 colours for a square of 256 make steps of 16
}
