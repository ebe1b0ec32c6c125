#include <CommonUI/settings/factory/SettingsFactory.h>
#include <CommonUI/settings/readers/FilterSettings.h>

#include <iostream>

using namespace CommonUI;

namespace
{

// A menu of sets: headings and folders with what is below them. Returns how many sets there are.
int Show(const std::vector<CSettingsFactory::CTree>& trees, int depth = 0)
{
    int count = 0;
    for (const auto& tree : trees) {
        const auto& [name, id] = tree.GetValue();
        const bool isSet = id != SSettingsEntry::s_InvalidID;
        std::cout << std::string(static_cast<std::size_t>(depth) * 2, ' ') << name.ToUtf8();
        std::cout << (isSet ? " [Id(" + std::to_string(id) + ")]\n" : "\n");
        count += isSet + Show(tree.GetChildren(), depth + 1);
    }
    return count;
}

// A filter of one's own in a file, from which it is chosen like those of the catalogue.
bool SaveOwn(CSettingsFactory& factory, const CStr& path)
{
    const SFilterSettings filter{.kind = EFilterKind::Mean, .rows = 3, .columns = 5};
    CSettings set({path, ESettingType::Filter}, {});
    filter.Save(set);
    return factory.SaveSettings(set, true); // false: the diagnostics have said why
}

// The set that a text names, as one that a user has typed. Returns false when it is none.
bool Find(CSettingsFactory& factory, const CStr& text, SFilterSettings& filter)
{
    CSettingsFactory::SParseInfo info;
    if (!factory.ParseUserSpec(text, info) || info.entries.empty()) {
        std::cerr << (info.error.IsEmpty() ? text + u": there is no such set" : info.error).ToUtf8() << "\n";
        return false;
    }
    const SSettingsEntry& entry = info.entries.front();
    CSettings set = entry.m_IsFile ? factory.LoadSettings(info.type, entry.m_File, true)
                                   : factory.GetSettings(entry.m_ID, true);
    return filter.Load(set);
}

} // namespace

int main()
{
    CSettingsFactory factory;
    SFilterSettings filter;
    if (!SaveOwn(factory, u"own.flt"))
        return 1;
    for (const CStr text : {u"Filter[File(own.flt)]", u"Filter[Id(76)]"}) {
        if (!Find(factory, text, filter))
            return 1;
        const CStr kind = GetFilterKindEnum().GetFriendlyString(static_cast<int>(filter.kind));
        std::cout << CStr::Format(u"%s: %s, %d x %d\n", text, kind, filter.rows, filter.columns).ToUtf8();
    }
    // Those used just now stand first, below "Recent".
    std::cout << Show(factory.GetTree(ESettingType::Filter, true)) << " sets\n";
    return 0;
}
