#include "dialogs/help/HelpTopics.h"

#include "common/Str.h"
#include "TestFolders.h"

#include <gtest/gtest.h>

#include <cctype>
#include <filesystem>
#include <fstream>
#include <regex>
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

// What a heading is called in addresses.
std::string ToAnchor(const std::string& heading)
{
    std::string anchor;
    for (const char byte : heading) {
        const auto letter = static_cast<unsigned char>(byte);
        if (std::isalnum(letter) || letter == ' ' || letter == '-')
            anchor += letter == ' ' ? '-' : static_cast<char>(std::tolower(letter));
    }
    return anchor;
}

bool HasChapter(const std::string& page, const std::string& chapter)
{
    std::istringstream lines(page);
    for (std::string line; std::getline(lines, line);)
        if (line.rfind("## ", 0) == 0 && ToAnchor(line.substr(3)) == chapter)
            return true;
    return false;
}

} // namespace

TEST(Documentation, HasAChapterForEachTopicOfHelp)
{
    unsigned int before = 0;
    for (const auto& topic : CommonUI::GetHelpTopics()) {
        EXPECT_LT(before, topic.topic) << "one page each";
        before = topic.topic;
        const std::string page = Read("docs/" + CommonUI::ToUtf8(topic.page));
        EXPECT_TRUE(topic.chapter.empty() || HasChapter(page, CommonUI::ToUtf8(topic.chapter)))
            << topic.topic;
    }
}

TEST(Documentation, ShowsTheProgramsThatAreBuilt)
{
    const std::string page = Read("docs/qt.md");
    const auto shows = [](const std::string& in, const std::string& language, const std::string& file) {
        std::string block = "```" + language + "\n";
        block += Read("examples/" + file);
        block += "```\n";
        EXPECT_NE(in.find(block), std::string::npos) << file;
    };
    int programs = 0;
    for (const char* const program : {"measurement", "number_dialog", "progress_dialog", "format_dialog",
                                      "selection_dialog", "grid_dialog", "languages"}) {
        shows(page, "cpp", std::string(program) + "/main.cpp");
        ++programs;
    }
    for (const char* const program : {"measurement", "number_dialog"})
        shows(page, "cmake", std::string(program) + "/CMakeLists.txt");
    for (const auto& [language, file] : {std::pair("cpp", "main.cpp"), std::pair("cmake", "CMakeLists.txt")})
        for (const char* const program : {"windows_services/", "windows_dialog/"})
            shows(Read("docs/windows.md"), language, std::string(program) + file);
    shows(Read("docs/windows.md"), "", "windows_dialog/windows_dialog.rc");
    const std::string begin = "```cpp\n";
    for (std::size_t at = page.find(begin); at != page.npos; at = page.find(begin, at + 1))
        --programs;
    EXPECT_EQ(programs, 0) << "nothing that is no program";
}

TEST(Documentation, NamesEveryClassOfControlsDialogsAndWidgets)
{
    const std::string page = Read("docs/classes.md");
    const std::regex classes(R"((?:^|\n)class (?:COMMONUI\w*_API )?(\w+)(?: final)?\s*(?::[^:;]|\n?\{))");
    int count = 0;
    for (const std::string layer : {"controls", "dialogs", "qt"}) {
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(COMMONUI_SOURCE_DIR "/" + layer)) {
            const std::filesystem::path& path = entry.path();
            if (path.extension() != ".h" || path.parent_path().filename() == "detail")
                continue;
            const std::string file = path.lexically_relative(COMMONUI_SOURCE_DIR).generic_string();
            const std::string header = Read(file);
            for (std::sregex_iterator found(header.begin(), header.end(), classes), end; found != end;
                 ++found) {
                const std::string row = "| `" + found->str(1) + "` | ";
                const std::size_t place = page.find(row);
                EXPECT_NE(place, page.npos) << found->str(1) << " of " << file;
                EXPECT_NE(page.find("`" + file + "`"), page.npos) << file;
                ++count;
            }
        }
    }
    EXPECT_GT(count, 100);
}
