// The factory of settings sets: what it knows of files and what was used recently.

#include "platform/Folders.h"
#include "platform/memory/FixedFolders.h"
#include "settings/factory/SettingsFactory.h"
#include "tests/faults/AllocationTrial.h"
#include "tests/faults/Faults.h"
#include "tests/TemporaryFolder.h"

#include <chrono>
#include <filesystem>
#include <string>
#include <vector>

using namespace CommonUI;

namespace Faults
{

namespace
{

using CTrees = std::vector<CSettingsFactory::CTree>;
constexpr ESettingType c_type = ESettingType::Filter;
constexpr const char* c_names[] = {"first.flt", "second filter with a long name.flt", "third.flt"};

std::string Tell(const CTrees& trees)
{
    std::string text;
    for (const auto& tree : trees)
        text += tree.GetValue().first.ToUtf8() + '{' + Tell(tree.GetChildren()) + '}';
    return text;
}

// A folder with sets, and a factory that knows the first two of them.
struct SFactory {
    SFactory()
    {
        for (const char* const name : c_names)
            folder.Write(name, "Cutoff=8E-05\n");
        folder.Write("scale.clr", "Name=a scale that is longer than the object\n");
        std::filesystem::last_write_time(folder.GetPath() / "scale.clr",
                                         std::filesystem::file_time_type::clock::now() -
                                             std::chrono::hours(1));
        factory.LoadSettings(c_type, Path(c_names[0]), true);
        factory.LoadSettings(c_type, Path(c_names[1]), true);
        set = factory.LoadSettings(c_type, Path(c_names[0]), false);
    }
    CStr Path(const std::string& name) const { return (folder.GetPath() / name).u16string(); }
    std::string Look()
    {
        std::string text = set.GetBytes() + set.GetEntryInfo().m_Name.ToUtf8();
        for (const auto& name : c_names)
            text += folder.Read(name);
        for (const ESettingType type : {c_type, ESettingType::ColorScale})
            text += Tell(factory.GetTree(type, ESettingCategory::Recent));
        return text;
    }
    // A file has one identifier, and what has it is the file.
    void Use()
    {
        for (const char* const name : c_names) {
            const int id = factory.GetFileID(c_type, Path(name));
            const SSettingsEntry entry = factory.GetEntry(id);
            Expect(entry == id && entry.m_File == Path(name) && factory.GetFileID(c_type, Path(name)) == id,
                   "a set is not known by its identifier");
            const CSettings loaded = factory.GetSettings(id, true);
            Expect(loaded.GetEntryInfo() == id, "a set cannot be loaded any more");
        }
        CInifile ini;
        Expect(factory.Save(ini), "recent lists cannot be saved any more");
    }

    CTemporaryFolder folder{};
    CFixedFolders folders{folder.GetPath(), folder.GetPath()};
    CServiceScope<CFolders> scope{folders};
    CSettingsFactory factory{};
    CSettings set{};
};

void Add(COperations& all, const char* name, const std::function<bool(SFactory&)>& act)
{
    all.push_back(Operation<SFactory>(
        std::string("factory: ") + name, {}, act, [](SFactory& work) { return work.Look(); },
        [](SFactory& work) { work.Use(); }));
    all.back().keepsCaches = true;
}

bool IsLoaded(SFactory& work, CSettings set)
{
    const bool isLoaded = set.GetEntryInfo() != SSettingsEntry::s_InvalidID;
    if (isLoaded)
        work.set = std::move(set);
    return isLoaded;
}

// Puts a factory with these lists into a document.
std::string ListsOf(const SFactory& work)
{
    return "[SettingsFactory]\nFilter=FILE:" + work.Path(c_names[2]).ToUtf8() + "\n";
}

} // namespace

void AddFactory(COperations& all)
{
    Add(all, "load a file", [](SFactory& work) {
        return IsLoaded(work, work.factory.LoadSettings(c_type, work.Path(c_names[2]), true));
    });
    Add(all, "load it again", [](SFactory& work) {
        return IsLoaded(work, work.factory.LoadSettings(c_type, work.Path(c_names[0]), true));
    });
    Add(all, "load a colour scale", [](SFactory& work) {
        return IsLoaded(work,
                        work.factory.LoadSettings(ESettingType::ColorScale, work.Path("scale.clr"), true));
    });
    Add(all, "a built-in set", [](SFactory& work) {
        const auto& trees = work.factory.GetTree(c_type, ESettingCategory::QuickLaunch);
        const auto* leaf = &trees.front();
        while (!leaf->IsLeaf())
            leaf = &leaf->GetChildren().front();
        return IsLoaded(work, work.factory.GetSettings(leaf->GetValue().second, true));
    });
    Add(all, "save", [](SFactory& work) {
        work.set.WriteText(u"Name", u"a filter that has got a longer name than fits into the object");
        return work.factory.SaveSettings(work.set, true);
    });
    all.back().mayBeInPart = true; // the set itself is changed before it is saved
    Add(all, "save as", [](SFactory& work) {
        CSettings set = work.set;
        set.SetEntryInfo({work.Path(c_names[2]), c_type});
        set.WriteText(u"Name", u"a filter that has got a longer name than fits into the object");
        return work.factory.SaveSettings(set, true);
    });
    Add(all, "follow a file", [](SFactory& work) {
        work.factory.OnFileMoved(c_type, work.Path(c_names[0]), work.Path("moved to a longer name.flt"));
        return true;
    });
    Add(all, "load recent lists", [](SFactory& work) {
        CInifile ini;
        ini.LoadBytes(ListsOf(work));
        return work.factory.Load(ini);
    });
    Add(all, "copy", [](SFactory& work) {
        CSettingsFactory other;
        if (!IsLoaded(work, other.LoadSettings(c_type, work.Path(c_names[2]), true)))
            return false;
        work.factory = other;
        return true;
    });
    all.back().mayBeInPart = true; // the set that is loaded
}

} // namespace Faults
