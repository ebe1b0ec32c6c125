#include "common/file/FileReplacement.h"
#include "common/file/FileBytes.h"

#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <optional>

using namespace CommonUI;
namespace fs = std::filesystem;

namespace
{

// What a folder's only file holds; nothing where there is none.
std::optional<std::string> ContentOf(const fs::path& file)
{
    const auto folder = fs::directory_iterator(file.parent_path());
    EXPECT_LE(std::distance(begin(folder), end(folder)), 1) << "a temporary is left";
    std::string bytes;
    CStr reason;
    return ReadFileBytes(file.u16string(), bytes, 100, reason) ? std::optional(bytes) : std::nullopt;
}

} // namespace

TEST(FileReplacement, LeavesTheOldContentOrTheNewOne)
{
    enum EEnd { Dropped, Replaced, ReplacedForNow, Kept };
    const struct {
        EEnd end;
        bool isNew;
    } rows[] = {{Dropped, false}, {Replaced, true}, {ReplacedForNow, false}, {Kept, true}};
    for (const std::optional<std::string>& before :
         {std::optional<std::string>(), std::optional<std::string>("old")})
        for (const auto& row : rows) {
            SCOPED_TRACE(row.end);
            const CTemporaryFolder folder;
            const fs::path file = folder.GetPath() / "file";
            if (before)
                folder.Write("file", *before);
            {
                CStr reason;
                CFileReplacement replacement;
                ASSERT_TRUE(replacement.Open(file.u16string(), reason));
                ASSERT_TRUE(replacement.Write("ne", reason) && replacement.Write("w", reason));
                if (row.end == Replaced) {
                    EXPECT_TRUE(replacement.Replace(reason));
                }
                if (row.end == ReplacedForNow || row.end == Kept) {
                    ASSERT_TRUE(replacement.ReplaceForNow(reason));
                    std::string bytes;
                    EXPECT_TRUE(ReadFileBytes(file.u16string(), bytes, 100, reason));
                    EXPECT_EQ(bytes, "new");
                }
                if (row.end == Kept)
                    replacement.Keep();
            }
            EXPECT_EQ(ContentOf(file), row.isNew ? std::optional<std::string>("new") : before);
        }
}
