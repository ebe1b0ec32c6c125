#include <CommonUI/common/ini/IniStore.h>

#include <iostream>

using namespace CommonUI;

namespace
{

// What the program remembers from one start to the next.
struct SMemory {
    int starts = 0;
    double cutoff = 2.5e-6; // m
    std::vector<CStr> recent{};

    void Load(CInifile& ini)
    {
        ini.SelectSection(u"Memory");
        starts = ini.ReadInt(u"Starts", starts);
        cutoff = ini.ReadDouble(u"Cutoff", cutoff);
        recent = ini.ReadTexts(u"Recent");
    }
    void Save(CInifile& ini) const
    {
        ini.SelectSection(u"Memory");
        ini.WriteInt(u"Starts", starts);
        ini.WriteDouble(u"Cutoff", cutoff);
        ini.WriteTexts(u"Recent", recent);
    }
};

// Version 1 of the program kept the cut-off in µm, under another name.
void FromMicrometres(CInifile& ini)
{
    ini.SelectSection(u"Memory");
    if (!ini.HasKey(u"CutoffUm"))
        return;
    ini.WriteDouble(u"Cutoff", ini.ReadDouble(u"CutoffUm", 0) * 1e-6);
    ini.RemoveKey(u"CutoffUm");
}

// What was repaired or kept aside is nothing to hide from the user.
void Tell(const CIniStore& store)
{
    for (const CStr& sentence : store.GetAccount().GetSentences())
        std::cerr << sentence.ToUtf8() << "\n";
}

} // namespace

int main()
{
    CIniStore store(u"ini_store.ini", {.version = 2, .steps = {{}, FromMicrometres}});
    const bool loaded = store.Load(); // there is no file at first, which is as good as an empty one
    Tell(store);
    if (!loaded)
        return 1;

    SMemory memory;
    memory.Load(store.GetInifile());
    ++memory.starts;
    memory.recent.push_back(CStr::Format(u"scan %d.sdf", memory.starts));
    if (memory.recent.size() > 4)
        memory.recent.erase(memory.recent.begin());
    memory.Save(store.GetInifile());
    if (!store.Save()) // beside other programs that use the file; comments and other keys stay
        return 1;
    std::cout << CStr::Format(u"start %d, cut-off %g m, %u recent files\n", memory.starts, memory.cutoff,
                              static_cast<unsigned>(memory.recent.size()))
                     .ToUtf8();
    return 0;
}
