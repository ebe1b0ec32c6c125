// The factory of settings sets beside lists of paths: sets are used, saved, followed and stored; files go and
// come back.

#include "platform/memory/MemoryMessageBoxService.h"
#include "platform/MessageBoxService.h"
#include "settings/factory/SettingsFactory.h"
#include "tests/faults/Faults.h"
#include "tests/faults/Histories.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <random>
#include <string>
#include <vector>

using namespace CommonUI;

namespace Faults
{

namespace
{

class CFactoryGame
{
public:
    explicit CFactoryGame(unsigned seed)
        : m_random(seed)
    {
    }

    void Play(int steps)
    {
        for (int i = 0; i < steps; ++i) {
            Act(m_random() % 8);
            Check();
        }
    }

private:
    static constexpr ESettingType c_type = ESettingType::Filter;

    std::string Choose() { return "set " + std::to_string(m_random() % 9) + ".flt"; }
    CStr PathOf(const std::string& name) const { return (m_folder.GetPath() / name).u16string(); }
    void Use(const std::string& name)
    {
        std::erase(m_recent, name);
        m_recent.insert(m_recent.begin(), name);
        if (m_recent.size() > CSettingsFactory::s_MaxRecentCount)
            m_recent.pop_back();
    }
    void Act(unsigned action)
    {
        const std::string name = Choose();
        if (action < 2) {
            Save(name);
        } else if (action < 4) {
            const bool isLoaded = Exists(m_factory.LoadSettings(c_type, PathOf(name), true), name);
            if (isLoaded)
                Use(name);
        } else if (action == 4) {
            GetById(name);
        } else if (action == 5) {
            Move(name, Choose());
        } else if (action == 6) {
            std::filesystem::remove(m_folder.GetPath() / name);
            m_files.erase(name);
        } else {
            Restart();
        }
    }
    // Whether a set came out as the file that is there, or not, says.
    bool Exists(CSettings set, const std::string& name)
    {
        const auto file = m_files.find(name);
        const bool isLoaded = set.GetEntryInfo() != SSettingsEntry::s_InvalidID;
        Expect(isLoaded == (file != m_files.end()), name + " is loaded, or is not, against what is there");
        Expect(!isLoaded || set.ReadInt(u"Value", 0) == file->second, name + " is loaded with another value");
        return isLoaded;
    }
    void Save(const std::string& name)
    {
        CSettings set;
        set.SetEntryInfo({PathOf(name), c_type});
        set.WriteInt(u"Value", ++m_number);
        Expect(m_factory.SaveSettings(set, true), name + " cannot be saved");
        m_files[name] = m_number;
        Use(name);
    }
    // The user lets every set that is gone leave the list.
    void GetById(const std::string& name)
    {
        const int id = m_factory.GetFileID(c_type, PathOf(name));
        Expect(m_factory.GetEntry(id).m_File == PathOf(name), name + " has the identifier of another");
        m_boxes.Prepare(EMessageBoxAnswer::Yes);
        if (Exists(m_factory.GetSettings(id, true), name)) {
            Use(name);
            m_boxes.Show({u"takes the answer"});
        } else {
            std::erase(m_recent, name);
        }
    }
    void Move(const std::string& from, const std::string& to)
    {
        m_factory.OnFileMoved(c_type, PathOf(from), PathOf(to));
        const auto place = std::ranges::find(m_recent, from);
        if (from == to || place == m_recent.end())
            return;
        *place = "";
        std::erase(m_recent, to);
        *std::ranges::find(m_recent, "") = to;
    }
    // Identifiers are given anew, and the lists come from what was stored.
    void Restart()
    {
        CInifile ini;
        m_factory.Save(ini);
        CSettingsFactory other;
        other.Load(ini);
        m_factory = other;
    }
    void Check()
    {
        std::vector<std::string> listed;
        for (const auto& tree : m_factory.GetTree(c_type, ESettingCategory::Recent))
            for (const auto& leaf : tree.GetChildren())
                listed.push_back(leaf.GetValue().first.ToUtf8());
        Expect(listed == m_recent, "other sets were used last");
    }

    std::mt19937 m_random;
    CTemporaryFolder m_folder{};
    CMemoryMessageBoxService m_boxes{};
    CServiceScope<CMessageBoxService> m_scope{m_boxes};
    CSettingsFactory m_factory{};
    std::map<std::string, int> m_files{};
    std::vector<std::string> m_recent{};
    int m_number = 0;
};

} // namespace

void PlayFactory(unsigned seed, int steps)
{
    CFactoryGame(seed).Play(steps);
}

} // namespace Faults
