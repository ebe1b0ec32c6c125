#include "programs/make_sample/SampleSurface.h"

#include "formats/SurfaceReader.h"
#include "TestFolders.h"

#include <fstream>
#include <gtest/gtest.h>
#include <iterator>

using namespace MakeSample;

TEST(SampleSurface, IsTheCommittedFile)
{
    const std::filesystem::path path = COMMONUI_EXAMPLE_DATA "/ground_steel.sdf";
    std::ifstream stream(path, std::ios::binary);
    const std::string committed(std::istreambuf_iterator<char>(stream), {});
    EXPECT_TRUE(committed == MakeSampleSurface()) << "make_sample writes another file";

    const auto surface = CommonUI::Formats::ReadSurface(path);
    EXPECT_EQ(surface.points, 128u);
    EXPECT_EQ(surface.lines, 96u);
    EXPECT_EQ(surface.missing, 36u);
}
