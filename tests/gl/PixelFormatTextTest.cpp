#include "gl/PixelFormatText.h"
#include "tests/gl/GLTesting.h"

using namespace CommonUI;

namespace
{

// A descriptor with another value in every field, and every flag set.
PIXELFORMATDESCRIPTOR MakeFullDescriptor()
{
    return {40, 65535, 0xFFFFFFFF, 1,  255, 5,  6,  7,  8,   9,  10, 11,         12,
            13, 14,    15,         16, 17,  18, 19, 20, 200, 22, 23, 0xFFFFFFFF, 0x80000000};
}

} // namespace

TEST(PixelFormatText, DescriptorsWithAllAndWithoutAnyFlags)
{
    const CStr full = PixelFormatDescriptorString(MakeFullDescriptor(), u"\n");
    EXPECT_EQ(full.ToUtf8() + "\n", ReadTestData("pixel-format-descriptor.txt"));

    PIXELFORMATDESCRIPTOR descriptor{};
    descriptor.dwFlags = 0x2000;
    descriptor.iPixelType = 2;
    const CStr unknown = PixelFormatDescriptorString(descriptor, u";");
    EXPECT_TRUE(unknown.Contains(u";dwFlags          : ;iPixelType       : ;cColorBits"));
}

TEST(PixelFormatText, AttributesAroundTheKnownOnes)
{
    std::vector<int> attributes = {0, -1};
    for (int attribute = 0x1FFF; attribute <= 0x203D; ++attribute)
        attributes.push_back(attribute);
    std::vector<int> values(attributes.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<int>(i) - 1;
    // All values with a name, and one beyond on both sides.
    for (const auto& [attribute, first, last] :
         {std::array{0x2003, 0x2024, 0x2028}, {0x2007, 0x2027, 0x202B}, {0x2013, 0x202A, 0x202D}}) {
        for (int value = first; value <= last; ++value) {
            attributes.push_back(attribute);
            values.push_back(value);
        }
    }
    const auto count = static_cast<unsigned int>(attributes.size());
    const CStr text = ExtPixelFormatDescriptorString(count, attributes.data(), values.data(), u"\n");
    EXPECT_EQ(text.ToUtf8() + "\n", ReadTestData("pixel-format-attributes.txt"));
}
