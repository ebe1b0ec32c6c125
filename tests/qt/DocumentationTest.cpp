#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace
{

std::string Read(std::string path)
{
    path.insert(0, COMMONUI_SOURCE_DIR "/");
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

} // namespace

TEST(Documentation, ShowsTheProgramsThatAreBuilt)
{
    for (const char* const program : {"examples/number_dialog/main.cpp", "examples/progress_dialog/main.cpp",
                                      "examples/selection_dialog/main.cpp"}) {
        std::string block = "```cpp\n";
        block += Read(program);
        block += "```\n";
        EXPECT_NE(Read("docs/qt.md").find(block), std::string::npos) << program;
    }
}
