#pragma once

#include "platform/files/FileManager.h"
#include "tests/TemporaryFolder.h"

#include <gtest/gtest.h>

namespace CommonUI
{

/// @file
/// What every file manager with a trash promises. A host has a member `manager`.

template<class THost>
class FileManagerContract : public testing::Test
{
protected:
    CTemporaryFolder folder;
    THost host;
};

TYPED_TEST_SUITE_P(FileManagerContract);

TYPED_TEST_P(FileManagerContract, MovesAFileToTheTrashAndNothingElse)
{
    const auto move = [this](const char* name) {
        return this->host.manager.MoveToTrash((this->folder.GetPath() / name).make_preferred().u16string());
    };
    for (const char* const name : {"mine.flt", "mine too.flt", "other.flt"})
        this->folder.Write(name, "x");
    EXPECT_FALSE(move("none.flt"));
    EXPECT_FALSE(move("mine*.flt")) << "a name and no mask";
    EXPECT_TRUE(move("mine.flt"));
    EXPECT_FALSE(std::filesystem::exists(this->folder.GetPath() / "mine.flt"));
    EXPECT_FALSE(move("mine.flt"));
    EXPECT_EQ(this->folder.Read("mine too.flt") + this->folder.Read("other.flt"), "xx");
}

REGISTER_TYPED_TEST_SUITE_P(FileManagerContract, MovesAFileToTheTrashAndNothingElse);

} // namespace CommonUI
