#include "platform/Folders.h"

#include "platform/memory/FixedFolders.h"

#include <gtest/gtest.h>

using namespace CommonUI;

TEST(Folders, TheSystemsUnlessTheApplicationSetsThem)
{
    const std::filesystem::path system = GetFolders().GetApplicationFolder();
    EXPECT_TRUE(std::filesystem::is_directory(system)) << system;
    EXPECT_TRUE(system.is_absolute());
    EXPECT_FALSE(GetFolders().GetSettingsFolder().empty());
    CFixedFolders folders("application", "settings");
    const CServiceScope<CFolders> scope(folders);
    EXPECT_EQ(GetFolders().GetApplicationFolder(), "application");
    EXPECT_EQ(GetFolders().GetSettingsFolder(), "settings");
}
