#include "programs/surface_report/ListSettings.h"

#include "programs/command_line/CommandLine.h"

namespace SurfaceReport
{

using namespace CommonUI;

namespace
{

// Appends a line for each node, deeper ones further to the right.
void AppendTrees(const std::vector<CSettingsFactory::CTree>& trees, std::size_t depth, CStr& text)
{
    for (const CSettingsFactory::CTree& tree : trees) {
        const auto& [name, id] = tree.GetValue();
        text += CStr(2 * depth, u' ');
        const CStr shown = CStr::FromUtf8(CommandLine::ToTerminal(name.ToUtf8()));
        text += id == SSettingsEntry::s_InvalidID ? shown : CStr::Format(u"%3d  %s", id, shown).TrimRight();
        text += u'\n';
        AppendTrees(tree.GetChildren(), depth + 1, text);
    }
}

} // namespace

std::string ListSettings(CSettingsFactory& factory, const std::string& type)
{
    CStr text;
    bool found = false;
    for (const auto& row : GetSettingTypeEnum()) {
        const auto listed = static_cast<ESettingType>(row.GetValue());
        const bool asked = type.empty() || row.GetIniName() == CStr::FromUtf8(type);
        if (!asked || listed == ESettingType::Unknown)
            continue;
        found = true;
        const auto trees = factory.GetTree(listed, true);
        text += CStr::Format(u"%s (%s)%s\n", row.GetFriendlyString(), row.GetIniName(),
                             trees.empty() ? u": none" : u"");
        AppendTrees(trees, 1, text);
    }
    if (!found)
        throw CommandLine::EUsage("--list-settings: there is no type \"" + type + "\"");
    return text.ToUtf8();
}

} // namespace SurfaceReport
