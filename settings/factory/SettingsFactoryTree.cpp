#include "settings/factory/detail/CustomSettingsFolder.h"
#include "settings/factory/detail/FileMask.h"
#include "settings/factory/detail/SettingsFileTypes.h"
#include "settings/factory/FolderScan.h"
#include "settings/factory/SettingsFactory.h"

#include <algorithm>

namespace CommonUI
{

namespace
{

using CTree = CSettingsFactory::CTree;

CTree MakeNode(const CStr& text, int id = SSettingsEntry::s_InvalidID)
{
    return CTree({text, id});
}

CTree MakeHeading(ESettingCategory category)
{
    return MakeNode(GetSettingCategoryEnum().GetFriendlyString(static_cast<int>(category)));
}

CTree MakeLeaf(const SSettingsEntry& entry)
{
    return MakeNode(entry.m_Name, entry.m_ID);
}

void AddUnlessEmpty(CTree heading, std::vector<CTree>& trees)
{
    if (!heading.IsLeaf())
        trees.push_back(std::move(heading));
}

} // namespace

std::vector<CTree> CSettingsFactory::GetTree(ESettingType type, bool withRecent)
{
    std::vector<CTree> trees;
    if (withRecent)
        AddRecentItems(type, trees);
    AddCustomItems(type, trees);
    AddQuickLaunchItems(type, trees);
    AddExampleItems(type, trees);
    return trees;
}

std::vector<CTree> CSettingsFactory::GetTree(ESettingType type, ESettingCategory category)
{
    std::vector<CTree> trees;
    switch (category) {
    case ESettingCategory::All:
        return GetTree(type, true);
    case ESettingCategory::Recent:
        AddRecentItems(type, trees);
        break;
    case ESettingCategory::Custom:
        AddCustomItems(type, trees);
        break;
    case ESettingCategory::QuickLaunch:
        AddQuickLaunchItems(type, trees);
        break;
    case ESettingCategory::Example:
        AddExampleItems(type, trees);
        break;
    }
    return trees;
}

std::vector<CTree> CSettingsFactory::GetTree(ESettingType type, const CStr& folder, const CStr& masks)
{
    CSimpleTree<CStr> files;
    FindFilesBelow(folder, masks, [&](const SFoundFolder& found) {
        AddFoundFolder(found, files);
        return true;
    });
    std::vector<CTree> trees;
    GetTree_RecursiveAdd(type, files, trees);
    return trees;
}

std::vector<CTree> CSettingsFactory::GetTree(const SParseInfo& info)
{
    std::vector<CTree> trees;
    trees.reserve(info.entries.size());
    for (SSettingsEntry entry : info.entries) {
        if (entry.m_IsFile)
            NewDynamicItem(entry, false);
        trees.push_back(MakeLeaf(entry));
    }
    return trees;
}

bool CSettingsFactory::AddRecentItems(ESettingType type, std::vector<CTree>& trees) const
{
    CTree heading = MakeHeading(ESettingCategory::Recent);
    if (const auto recent = m_recent.find(type); recent != m_recent.end()) {
        for (const auto& [isFile, number] : recent->second)
            heading.GetChildren().push_back(
                MakeLeaf(isFile ? m_dynamicItems.at(type)[number]
                                : SSettingsEntry(static_cast<EBuiltInSetting>(number), type)));
    }
    AddUnlessEmpty(std::move(heading), trees);
    return true;
}

CSettingsFactory::SPlace CSettingsFactory::GetCustomPlace(ESettingType type)
{
    const SSettingsFileType* const files = FindSettingsFileType(type);
    return {GetCustomSettingsFolder(), files ? GetMasks(*files) : CStr()};
}

CStr CSettingsFactory::AddExtension(ESettingType type, const CStr& name)
{
    const SSettingsFileType* const files = FindSettingsFileType(type);
    const std::vector<CStr> masks = files ? GetMasks(*files).Split(u"|") : std::vector<CStr>();
    const bool hasOne = std::ranges::any_of(masks, [&](const CStr& mask) { return MatchesMask(name, mask); });
    return hasOne || masks.empty() ? name : name + masks.front().Mid(1);
}

bool CSettingsFactory::AddCustomItems(ESettingType type, std::vector<CTree>& trees)
{
    const SPlace place = GetCustomPlace(type);
    if (place.masks.IsEmpty())
        return false;
    CTree heading = MakeHeading(ESettingCategory::Custom);
    heading.GetChildren() = GetTree(type, place.folder, place.masks);
    AddUnlessEmpty(std::move(heading), trees);
    return true;
}

bool CSettingsFactory::AddQuickLaunchItems(ESettingType type, std::vector<CTree>& trees)
{
    CTree heading = MakeHeading(ESettingCategory::QuickLaunch);
    for (const SBuiltInSettingGroup& group : GetBuiltInSettingGroups()) {
        if (group.type != type)
            continue;
        CTree below = MakeNode(group.headingId != 0 ? GetString(group.headingId) : CStr());
        std::vector<CTree>& leaves = group.headingId != 0 ? below.GetChildren() : heading.GetChildren();
        for (int number = group.first; number <= group.last; ++number)
            leaves.push_back(MakeLeaf({EBuiltInSetting{number}, type}));
        AddUnlessEmpty(std::move(below), heading.GetChildren());
    }
    AddUnlessEmpty(std::move(heading), trees);
    return true;
}

bool CSettingsFactory::AddExampleItems(ESettingType, std::vector<CTree>&)
{
    return true;
}

void CSettingsFactory::GetTree_RecursiveAdd(ESettingType type, const CSimpleTree<CStr>& folderTree,
                                            std::vector<CTree>& trees)
{
    trees.reserve(trees.size() + folderTree.GetChildren().size());
    for (const CSimpleTree<CStr>& node : folderTree.GetChildren()) {
        if (node.IsLeaf()) {
            SSettingsEntry entry(node.GetValue(), type);
            NewDynamicItem(entry, false);
            trees.push_back(MakeLeaf(entry));
        } else {
            CTree below = MakeNode(node.GetValue());
            GetTree_RecursiveAdd(type, node, below.GetChildren());
            trees.push_back(std::move(below));
        }
    }
}

} // namespace CommonUI
