#include "dialogs/help/DocumentationHelp.h"

#include "tests/DiagnosticsCapture.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>

using namespace CommonUI;

namespace
{

class CShownPages : public CDocumentationHelp
{
public:
    using CDocumentationHelp::CDocumentationHelp;
    bool Show(const std::filesystem::path& page, const CStr& chapter) override
    {
        shown = page.filename().string() + "#" + chapter.ToUtf8();
        return works;
    }

    std::string shown;
    bool works = true;
};

} // namespace

TEST(DocumentationHelp, OpensThePageOfATopic)
{
    const CTemporaryFolder folder;
    const std::filesystem::path base = folder.GetPath();
    const auto docs = base / "share" / "doc" / "CommonUI";
    EXPECT_EQ(FindDocumentation(base / "bin"), std::filesystem::path());
    create_directories(docs);
    create_directories(base / "bin");
    EXPECT_TRUE(equivalent(FindDocumentation(base / "bin"), docs));
    create_directories(base / "bin" / "docs");
    EXPECT_TRUE(equivalent(FindDocumentation(base / "bin"), base / "bin" / "docs")) << "the program's own";

    std::ofstream(docs / "dialogs.md") << "# Dialogs";
    CShownPages help(docs);
    const SHelpTopic own[] = {{77, u"own.md", u"start"}, {7204, u"dialogs.md", u""}};
    help.AddTopics(own, base);
    CDiagnosticsCapture capture;
    EXPECT_TRUE(help.Open(7820));
    EXPECT_EQ(help.shown, "dialogs.md#lists-to-choose-from");
    EXPECT_FALSE(help.Open(7204)) << "the application's folder has no such page";
    EXPECT_FALSE(help.Open(77));
    EXPECT_FALSE(help.Open(78));
    EXPECT_EQ(capture.Take().size(), 3U);
    std::ofstream(base / "own.md") << "# Own";
    std::ofstream(base / "own.html") << "<h1>Own</h1>";
    EXPECT_TRUE(help.Open(77));
    EXPECT_EQ(help.shown, "own.html#start");
    const auto before = std::filesystem::current_path();
    current_path(docs);
    EXPECT_FALSE(CShownPages(std::filesystem::path()).Open(7820))
        << "no documentation, though the current folder has a page";
    current_path(before);
    help.works = false;
    EXPECT_FALSE(help.Open(77));
    EXPECT_EQ(capture.GetCount(), 2);
}
