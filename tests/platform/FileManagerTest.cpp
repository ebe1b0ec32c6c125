#include "platform/files/FileManager.h"

#include "platform/memory/MemoryFileManager.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(FileManager, MovesFilesToATrashThatLosesNone)
{
    const CTemporaryFolder folder;
    const auto path = [&](const char* name) -> CStr { return (folder.GetPath() / name).u16string(); };
    std::filesystem::create_directory(folder.GetPath() / "trash");
    CMemoryFileManager manager(folder.GetPath() / "trash");
    for (const char* bytes : {"first", "second", "third"}) {
        folder.Write("a.flt", bytes);
        EXPECT_FALSE(GetFileManager().MoveToTrash(path("a.flt"))) << "without a trash nothing goes";
        EXPECT_EQ(folder.Read("a.flt"), bytes);
        EXPECT_TRUE(manager.MoveToTrash(path("a.flt")));
    }
    EXPECT_EQ(folder.Read("trash/a.flt") + folder.Read("trash/a 2.flt") + folder.Read("trash/a 3.flt"),
              "firstsecondthird");
    EXPECT_FALSE(manager.MoveToTrash(path("a.flt"))) << "gone";
    EXPECT_TRUE(manager.OpenFolder(path("")));
    EXPECT_EQ(manager.GetOpened(), std::vector<CStr>{path("")});
}
