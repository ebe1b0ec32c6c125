#include "common/file/FileReplacement.h"
#include "common/file/FileBytes.h"

#include "tests/TemporaryFolder.h"

#include <chrono>
#include <future>
#include <gtest/gtest.h>
#include <memory>
#include <optional>
#include <thread>

#if defined(_WIN32)
#include <windows.h>
#endif

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

#if defined(_WIN32) // elsewhere nobody is in the way of those who replace a file
namespace
{

// Reads a file and lets nobody else write or remove it, until a while has gone.
std::future<void> HoldForAWhile(const fs::path& file)
{
    const HANDLE reader =
        CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(reader, INVALID_HANDLE_VALUE);
    return std::async(std::launch::async, [reader] {
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        CloseHandle(reader);
    });
}

} // namespace

TEST(FileReplacement, WaitsForAReaderThatKeepsOthersOut)
{
    for (const std::optional<std::string>& before :
         {std::optional<std::string>(), std::optional<std::string>("old")}) {
        const CTemporaryFolder folder;
        const fs::path file = folder.GetPath() / "file";
        if (before)
            folder.Write("file", *before);
        CStr reason;
        auto replacement = std::make_unique<CFileReplacement>();
        std::future<void> held = before ? HoldForAWhile(file) : std::future<void>();
        EXPECT_TRUE(replacement->Open(file.u16string(), reason)) << reason.ToUtf8();
        EXPECT_TRUE(replacement->ReplaceForNow(reason)) << reason.ToUtf8();
        held = HoldForAWhile(file);
        replacement.reset();
        EXPECT_EQ(ContentOf(file), before);
    }
}
#endif
