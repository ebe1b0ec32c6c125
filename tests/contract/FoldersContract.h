#pragma once

#include "platform/Folders.h"

#include <gtest/gtest.h>

namespace CommonUI
{

/// @file
/// What all folders that come from a system promise. A host has a member `folders`.

template<class THost>
class FoldersContract : public testing::Test
{
protected:
    THost host;
};

TYPED_TEST_SUITE_P(FoldersContract);

TYPED_TEST_P(FoldersContract, AreWholePathsAndThatOfTheProgramIsThere)
{
    const CFolders& folders = this->host.folders;
    EXPECT_TRUE(std::filesystem::is_directory(folders.GetApplicationFolder()));
    EXPECT_TRUE(folders.GetApplicationFolder().is_absolute());
    EXPECT_TRUE(folders.GetSettingsFolder().is_absolute());
}

REGISTER_TYPED_TEST_SUITE_P(FoldersContract, AreWholePathsAndThatOfTheProgramIsThere);

} // namespace CommonUI
