#include "dialogs/settings/SettingsMenu.h"

#include "common/StringTable.h"
#include "dialogs/settings/detail/SettingsMenuTexts.h"
#include "dialogs/settings/SettingsFiles.h"
#include "settings/catalogue/BuiltInSettingText.h"
#include "settings/readers/ColorScale.h"

#include <algorithm>
#include <utility>

namespace CommonUI
{

namespace
{

using EKind = SSettingsMenuItem::EKind;
using ECommand = ESettingsCommand;

constexpr std::pair<ESettingsCommand, int> c_commands[] = {
    {ECommand::AllSets, c_allSetsText}, {ECommand::Load, c_loadText},       {ECommand::SaveAs, c_saveAsText},
    {ECommand::Import, c_importText},   {ECommand::Compare, c_compareText}, {ECommand::Manage, c_manageText},
};

CStr GetCategoryText(ESettingCategory category)
{
    return GetSettingCategoryEnum().GetFriendlyString(static_cast<int>(category));
}

SSettingsMenuItem MakeNote(int text)
{
    return {.kind = EKind::Note, .text = GetString(text)};
}

CCustomSettingsScan::CColors MakeColors(EBuiltInSetting setting)
{
    CInifile ini;
    SColorScale scale;
    ini.LoadBytes(GetBuiltInSettingText(setting).ToUtf8());
    return scale.Load(ini) ? scale.MakeTable(CCustomSettingsScan::c_colorCount)
                           : CCustomSettingsScan::CColors();
}

} // namespace

bool IsSameSet(const SSettingsEntry& one, const SSettingsEntry& other)
{
    if (one.m_Type != other.m_Type || one.m_IsFile != other.m_IsFile)
        return false;
    return one.m_IsFile ? one.m_File == other.m_File : one.m_BuiltIn == other.m_BuiltIn;
}

CSettingsMenu::CSettingsMenu(ESettingType type, bool withCommands)
    : m_withCommands(withCommands)
    , m_scan(type)
{
}

CSettingsMenu::CSettingsMenu(ESettingType type, bool withCommands, CCustomSettingsScan::FFind find)
    : m_withCommands(withCommands)
    , m_scan(type, std::move(find))
{
}

void CSettingsMenu::SetCurrent(const SSettingsEntry& entry)
{
    m_current = entry;
    m_currentChanged.Invoke();
}

CStr CSettingsMenu::GetText() const
{
    return m_current.m_Name.IsEmpty() ? GetString(c_noSettingsText) : m_current.m_Name;
}

std::vector<SSettingsMenuItem> CSettingsMenu::MakeItems() const
{
    CItems items;
    AddRecent(items);
    AddCustom(items);
    AddBuiltIn(items);
    AddCommands(items);
    return items;
}

void CSettingsMenu::AddRecent(CItems& items) const
{
    for (const auto& heading : GetSettingsFactory().GetTree(GetType(), ESettingCategory::Recent)) {
        items.push_back({.kind = EKind::Heading, .text = heading.GetValue().first});
        for (SSettingsMenuItem& item : MakeTreeItems(heading.GetChildren()))
            items.push_back(std::move(item));
        items.push_back({});
    }
}

void CSettingsMenu::AddCustom(CItems& items) const
{
    if (CSettingsFactory::GetCustomPlace(GetType()).masks.IsEmpty())
        return;
    items.push_back({.kind = EKind::Group,
                     .text = GetCategoryText(ESettingCategory::Custom),
                     .isCustom = true,
                     .items = MakeCustomItems()});
}

void CSettingsMenu::AddBuiltIn(CItems& items) const
{
    for (const auto& heading : GetSettingsFactory().GetTree(GetType(), ESettingCategory::QuickLaunch)) {
        CItems sets = MakeTreeItems(heading.GetChildren());
        if (sets.front().kind == EKind::Set) {
            items.push_back(
                {.kind = EKind::Group, .text = heading.GetValue().first, .items = std::move(sets)});
            continue;
        }
        items.push_back({.kind = EKind::Heading, .text = heading.GetValue().first});
        std::ranges::move(sets, std::back_inserter(items));
    }
}

void CSettingsMenu::AddCommands(CItems& items) const
{
    items.push_back({});
    for (const auto& [command, text] : c_commands)
        if (IsAvailable(command))
            items.push_back(MakeCommand(command));
}

SSettingsMenuItem CSettingsMenu::MakeCommand(ESettingsCommand command)
{
    const auto* const found =
        std::ranges::find(c_commands, command, &std::pair<ESettingsCommand, int>::first);
    return {.kind = EKind::Command, .text = GetString(found->second), .command = command};
}

bool CSettingsMenu::IsAvailable(ESettingsCommand command) const
{
    switch (command) {
    case ECommand::AllSets:
        return true;
    case ECommand::SaveAs:
        return m_withCommands && m_saver.GetCount() > 0 && CSettingsFactory::CanSave(GetType());
    case ECommand::Compare:
        // Report templates are documents.
        return m_withCommands && GetType() != ESettingType::ActiveReport;
    default:
        return m_withCommands && !CSettingsFactory::GetCustomPlace(GetType()).masks.IsEmpty();
    }
}

SSettingsMenuItem CSettingsMenu::MakeSet(const SSettingsEntry& entry) const
{
    return {.kind = EKind::Set,
            .text = entry.m_Name,
            .entry = entry,
            .isCurrent = !m_current.m_Name.IsEmpty() && IsSameSet(entry, m_current)};
}

std::vector<SSettingsMenuItem>
CSettingsMenu::MakeTreeItems(const std::vector<CSettingsFactory::CTree>& trees) const
{
    CItems items;
    for (const auto& tree : trees) {
        const auto& [text, id] = tree.GetValue();
        if (tree.IsLeaf())
            items.push_back(MakeSet(GetSettingsFactory().GetEntry(id)));
        else
            items.push_back({.kind = EKind::Group, .text = text, .items = MakeTreeItems(tree.GetChildren())});
    }
    return items;
}

std::vector<SSettingsMenuItem> CSettingsMenu::MakeCustomItems() const
{
    CSimpleTree<CStr> files;
    for (const SFoundFolder& folder : m_scan.GetFolders())
        AddFoundFolder(folder, files);
    CItems items = MakeFileItems(files);
    if (m_scan.IsRunning())
        items.push_back(MakeNote(c_lookingText));
    else if (items.empty())
        items.push_back(MakeNote(c_noCustomSetsText));
    return items;
}

std::vector<SSettingsMenuItem> CSettingsMenu::MakeFileItems(const CSimpleTree<CStr>& files) const
{
    CItems items;
    for (const CSimpleTree<CStr>& node : files.GetChildren()) {
        if (items.size() == c_mostOfFolder) {
            SSettingsMenuItem rest = MakeCommand(ECommand::AllSets);
            rest.text = CStr::Format(GetString(c_allCountedSetsText), files.GetChildren().size());
            items.push_back(std::move(rest));
            break;
        }
        if (node.IsLeaf())
            items.push_back(MakeSet({node.GetValue(), GetType()}));
        else
            items.push_back({.kind = EKind::Group, .text = node.GetValue(), .items = MakeFileItems(node)});
    }
    return items;
}

const CSettingsMenu::CColors* CSettingsMenu::FindColors(const SSettingsEntry& entry) const
{
    if (entry.m_Type != ESettingType::ColorScale)
        return nullptr;
    if (entry.m_IsFile)
        return m_scan.FindColors(entry.m_File);
    const auto [place, isNew] = m_builtInColors.try_emplace(entry.m_BuiltIn);
    if (isNew)
        place->second = MakeColors(entry.m_BuiltIn);
    return &place->second;
}

bool CSettingsMenu::Choose(const SSettingsEntry& entry)
{
    const CWatch watch(*this);
    const int id = entry.m_IsFile ? GetSettingsFactory().GetFileID(entry.m_Type, entry.m_File)
                                  : static_cast<int>(entry.m_BuiltIn);
    CSettings settings = GetSettingsFactory().GetSettings(id, m_withCommands);
    if (watch.IsGone())
        return false;
    if (settings.GetEntryInfo() == SSettingsEntry::s_InvalidID) {
        m_scan.Start();
        return false;
    }
    Use(settings);
    return true;
}

bool CSettingsMenu::Load()
{
    const CWatch watch(*this);
    CSettings settings;
    if (!GetSettingsFactory().LoadSettingsPrompt(settings, GetType(), {}, true) || watch.IsGone())
        return false;
    Use(settings);
    return true;
}

bool CSettingsMenu::SaveAs()
{
    const CWatch watch(*this);
    CStr path = m_current.m_File;
    if (!GetSettingsFactory().SaveSettingsPrompt(GetType(), path, m_saver, true) || watch.IsGone())
        return false;
    m_scan.Start();
    SetCurrent(GetSettingsFactory().GetEntry(GetSettingsFactory().GetFileID(GetType(), path)));
    return true;
}

bool CSettingsMenu::Rename(SSettingsEntry& entry, const CStr& name)
{
    const CWatch watch(*this);
    CStr path = entry.m_File;
    if (!RenameSettings(entry.m_Type, path, name) || watch.IsGone())
        return false;
    const bool isCurrent = IsSameSet(entry, m_current);
    entry = GetSettingsFactory().GetEntry(GetSettingsFactory().GetFileID(entry.m_Type, path));
    m_scan.Start();
    if (isCurrent)
        SetCurrent(entry);
    return true;
}

bool CSettingsMenu::Delete(const SSettingsEntry& entry)
{
    const CWatch watch(*this);
    if (!DeleteSettings(entry.m_Type, entry.m_File) || watch.IsGone())
        return false;
    m_scan.Start();
    return true;
}

void CSettingsMenu::Use(CSettings& settings)
{
    const CWatch watch(*this);
    SetCurrent(settings.GetEntryInfo());
    if (!watch.IsGone())
        m_chosen.Invoke(settings);
}

} // namespace CommonUI
