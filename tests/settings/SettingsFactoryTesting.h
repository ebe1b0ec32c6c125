#pragma once

#include "platform/FileDialogService.h"
#include "platform/Folders.h"
#include "platform/memory/FixedFolders.h"
#include "platform/memory/MemoryFileDialogService.h"
#include "platform/memory/MemoryMessageBoxService.h"
#include "platform/MessageBoxService.h"
#include "settings/factory/SettingsFactory.h"
#include "tests/DiagnosticsCapture.h"
#include "tests/TemporaryFolder.h"
#include "tests/TestData.h"

#include <gtest/gtest.h>

/// A factory whose inner operations can be called.
class CTestFactory : public CommonUI::CSettingsFactory
{
public:
    using CSettingsFactory::AddCustomItems;
    using CSettingsFactory::AddExampleItems;
    using CSettingsFactory::AddQuickLaunchItems;
    using CSettingsFactory::AddRecentItems;
    using CSettingsFactory::AddToRecentItems;
    using CSettingsFactory::GetFileDialogInfo;
    using CSettingsFactory::GetNewID;
    using CSettingsFactory::NewDynamicItem;
};

/// A factory with a settings folder, message boxes and file dialogs of the test's own.
class SettingsFactory : public testing::Test
{
protected:
    /// The full path of a name in the test's folder.
    CommonUI::CStr Path(const char* name = "") const
    {
        return (m_folder.GetPath() / name).make_preferred().u16string();
    }

    /// Trees as "Heading{leaf 5,Folder{x.pln 200}}".
    static CommonUI::CStr Text(const std::vector<CommonUI::CSettingsFactory::CTree>& trees)
    {
        CommonUI::CStr text;
        for (const auto& tree : trees) {
            const auto& [name, id] = tree.GetValue();
            text += (text.IsEmpty() ? u"" : u",") + name;
            if (tree.IsLeaf())
                text += CommonUI::CStr::Format(u" %d", id);
            else
                text += u"{" + Text(tree.GetChildren()) + u"}";
            EXPECT_TRUE(tree.IsLeaf() || id == -1);
        }
        return text;
    }
    CommonUI::CStr Recent(CommonUI::ESettingType type)
    {
        return Text(m_factory.GetTree(type, CommonUI::ESettingCategory::Recent));
    }

    CTemporaryFolder m_folder;
    CommonUI::CFixedFolders m_folders{m_folder.GetPath(), m_folder.GetPath()};
    CommonUI::CServiceScope<CommonUI::CFolders> m_foldersScope{m_folders};
    CommonUI::CMemoryMessageBoxService m_boxes;
    CommonUI::CServiceScope<CommonUI::CMessageBoxService> m_boxesScope{m_boxes};
    CommonUI::CMemoryFileDialogService m_dialogs;
    CommonUI::CServiceScope<CommonUI::CFileDialogService> m_dialogsScope{m_dialogs};
    CDiagnosticsCapture m_warnings;
    CTestFactory m_factory;
};
