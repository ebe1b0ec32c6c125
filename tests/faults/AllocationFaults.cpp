// Every operation of a table fails at each of its allocations in turn: at that one alone, and at that one and
// all that come after. It has done its work then, or changed nothing, and no memory is lost.

#include "common/Diagnostics.h"
#include "common/file/FileBytes.h"
#include "common/file/KeptFile.h"
#include "common/ini/IniStore.h"
#include "controls/MultiClosure.h"
#include "dialogs/start_pane/Feed.h"
#include "model/AnalysisPreferencesManager.h"
#include "model/ParameterList.h"
#include "settings/factory/SettingsFactory.h"
#include "settings/preferences/PreferencesManager.h"
#include "settings/readers/AnimationSettings.h"
#include "settings/readers/BatchSequenceSettings.h"
#include "settings/readers/ColorScale.h"
#include "settings/readers/FilterSettings.h"
#include "settings/readers/GrainThresholdSettings.h"
#include "settings/readers/PlaneCorrectionSettings.h"
#include "settings/readers/ReportTemplateSettings.h"
#include "settings/readers/RoughnessSettings.h"
#include "TestFolders.h"
#include "tests/faults/AllocationTrial.h"
#include "tests/faults/Faults.h"
#include "tests/fuzz/FuzzBytes.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <memory>
#include <optional>
#include <random>
#include <string>
#include <vector>

using namespace CommonUI;
using namespace Faults;

namespace
{

namespace fs = std::filesystem;

const CStr c_long = u"a text that has no place within the object";

void AddTexts(COperations& all)
{
    const auto look = [](CStr& text) { return text.ToUtf8(); };
    const auto add = [&](const char* name, const std::function<void(CStr&)>& call) {
        all.push_back(Operation<CStr>(
            std::string("text: ") + name, [](CStr& text) { text = u"what was there before the call"; },
            Call<CStr>(call), look));
    };
    add("append", [](CStr& text) { text += c_long; });
    add("append to itself", [](CStr& text) { text += text; });
    add("format",
        [](CStr& text) { text = CStr::Format(u"%s: %d and %.15g, %s", c_long, 7, 1.0 / 3, c_long); });
    add("replace", [](CStr& text) { text = text.Replace(u"t", c_long); });
    add("from UTF-8", [](CStr& text) { text = CStr::FromUtf8("\xC3\xA4 longer than fits into the object"); });
}

const std::string c_document = "; a comment\n[A]\nNumber=1\nText=some text that is longer than the object\n"
                               "[B]\nNumber=2\nList=1,2,3\n";

void AddInifile(COperations& all)
{
    const auto prepare = [](CInifile& ini) {
        ini.LoadBytes(c_document);
        ini.SelectSection(u"A");
    };
    const auto look = [](CInifile& ini) { return ini.GetSection().ToUtf8() + "\n" + ini.GetBytes(); };
    const auto add = [&](const char* name, const std::function<void(CInifile&)>& call) {
        all.push_back(
            Operation<CInifile>(std::string("INI document: ") + name, prepare, Call<CInifile>(call), look));
        all.back().mayBeInPart = std::string_view(name) != "load";
    };
    add("load", [](CInifile& ini) { ini.LoadBytes("[A]\nOther=1\n[Another section]\nx=1\n"); });
    add("write", [](CInifile& ini) { ini.WriteText(u"Text", c_long); });
    add("write a new key", [](CInifile& ini) { ini.WriteDouble(u"A new key with a long name", 1.0 / 3); });
    add("write Unicode",
        [](CInifile& ini) { ini.WriteText(u"Text", u"\u03BC and \u4E2D with something behind"); });
    add("write texts", [](CInifile& ini) { ini.WriteTexts(u"List of texts", {c_long, u"b,c", c_long}); });
    add("write numbers", [](CInifile& ini) { ini.WriteDoubles(u"List of numbers", {1, 2.5, 1e-300}); });
    add("remove", [](CInifile& ini) { ini.RemoveKey(u"Number"); });
    add("clear section", [](CInifile& ini) { ini.ClearSection(); });
    add("select", [](CInifile& ini) { ini.SelectSection(u"another section with a long name"); });
    add("parse line", [](CInifile& ini) { ini.ParseLine(u"[Another section with a long name]"); });
    add("parse key", [](CInifile& ini) { ini.ParseLine(u"Another key with a long name=7"); });
    add("assign", [](CInifile& ini) {
        CInifile other;
        other.LoadBytes("[C]\nx=1\n");
        ini = other;
    });
}

std::string Saved(const CAnalysisPreferencesManager& manager)
{
    CInifile ini;
    ini.SelectSection(u"Analysis");
    manager.Save(ini);
    return ini.GetBytes();
}

void AddModels(COperations& all)
{
    using CManager = CAnalysisPreferencesManager;
    const auto look = [](CManager& manager) { return Saved(manager); };
    for (const EAnalysis analysis : {EAnalysis::Roughness, EAnalysis::Measure, EAnalysis::Tip}) {
        const std::string name =
            "preferences of analysis " + std::to_string(static_cast<int>(analysis)) + ": ";
        all.push_back(Operation<CManager>(name + "parameters", {},
                                          Call<CManager>([analysis](CManager& manager) {
                                              auto list = manager.GetData(analysis).GetParameters();
                                              for (CParameter& parameter : list)
                                                  parameter.SetOn(!parameter.IsOn());
                                              manager.SetDataParameters(analysis, list);
                                          }),
                                          look));
        all.push_back(Operation<CManager>(name + "statistics", {},
                                          Call<CManager>([analysis](CManager& manager) {
                                              auto list = manager.GetData(analysis).GetStatistics();
                                              for (CParameter& parameter : list)
                                                  parameter.SetOn(!parameter.IsOn());
                                              manager.SetDataStatistics(analysis, list);
                                          }),
                                          look));
    }
    // A list that is saved stands in the document in full or not at all.
    all.push_back(Operation<CInifile>(
        "parameter list: save", [](CInifile& ini) { ini.LoadBytes("[A]\nSa_P_On=7\n"); },
        Call<CInifile>([](CInifile& ini) {
            ini.SelectSection(u"A");
            static const CManager c_defaults;
            auto list = c_defaults.GetData(EAnalysis::Roughness).GetParameters();
            SaveParameterList(list, ini, EAnalysis::Roughness);
        }),
        [](CInifile& ini) { return ini.GetBytes(); }));
}

std::string CorpusOf(const std::string& name)
{
    const fs::path folder = fs::path(COMMONUI_FUZZ_CORPUS) / name;
    std::vector<fs::path> files{fs::directory_iterator(folder), {}};
    std::ranges::sort(files);
    std::ifstream file(files.front(), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

template<class TSet>
void AddSet(COperations& all, const std::string& name)
{
    const auto ini = std::make_shared<CInifile>(Fuzz::IniOf(CorpusOf(name)));
    TSet probe;
    if (!probe.Load(*ini) || probe == TSet())
        Fail("the set of " + name + " cannot be tried");
    all.push_back(Operation<TSet>(
        name + ": load", {}, [ini](TSet& set) { return set.Load(*ini); },
        [](TSet& set) {
            CInifile saved;
            set.Save(saved);
            return saved.GetBytes();
        }));
}

void AddSettings(COperations& all)
{
    AddSet<SAnimationSettings>(all, "animation");
    AddSet<SBatchSequenceSettings>(all, "batch-sequence");
    AddSet<SColorScale>(all, "color-scale");
    AddSet<SFilterSettings>(all, "filter");
    AddSet<SGrainThresholdSettings>(all, "grain-threshold");
    AddSet<SPlaneCorrectionSettings>(all, "plane-correction");
    AddSet<SReportTemplateSettings>(all, "report-template");
    const auto preferences = std::make_shared<CInifile>(Fuzz::IniOf(CorpusOf("preferences")));
    all.push_back(Operation<CPreferencesManager>(
        "general preferences: load", {},
        [preferences](CPreferencesManager& manager) { return manager.Load(*preferences); },
        [](CPreferencesManager& manager) {
            CInifile saved;
            manager.Save(saved);
            return saved.GetBytes();
        }));
}

struct SSubscriber {
    void OnEvent() { ++calls; }
    int calls = 0;
    CClosureConnection connection{};
};

struct SListOfThree {
    SListOfThree() = default;
    CMultiClosure0<void> list;
    SSubscriber first{};
    SSubscriber second{};
    CMultiClosure0<void> other;
};

void AddCallbacks(COperations& all)
{
    const auto look = [](SListOfThree& work) {
        work.first.calls = work.second.calls = 0;
        work.list.Invoke();
        work.other.Invoke();
        return std::to_string(work.list.GetCount()) + std::to_string(work.other.GetCount()) +
               std::to_string(work.first.calls) + std::to_string(work.second.calls);
    };
    const auto prepare = [](SListOfThree& work) {
        work.list.Subscribe(work.first, &SSubscriber::OnEvent, work.first.connection);
    };
    all.push_back(Operation<SListOfThree>(
        "callbacks: subscribe", prepare, Call<SListOfThree>([](SListOfThree& work) {
            work.list.Subscribe(work.second, &SSubscriber::OnEvent, work.second.connection);
        }),
        look));
    // Whoever cannot be told by the new list still is by the old one.
    all.push_back(Operation<SListOfThree>(
        "callbacks: change the list", prepare, Call<SListOfThree>([](SListOfThree& work) {
            work.other.Subscribe(work.first, &SSubscriber::OnEvent, work.first.connection);
        }),
        look));
}

#if defined(COMMONUI_WITH_PUGIXML)
void AddFeeds(COperations& all)
{
    static constexpr std::string_view c_feed =
        "<rss version=\"2.0\"><channel><title>News of instruments</title><link>https://example.org/</link>"
        "<item><title>A new profiler with a long name</title><link>https://example.org/1</link>"
        "<description>&lt;b&gt;It measures&lt;/b&gt; what others do not</description></item></channel></rss>";
    all.push_back(Operation<SFeed>(
        "feed: read", {},
        [](SFeed& feed) {
            CStr reason;
            return ReadFeed(c_feed, u"https://example.org/feed", feed, reason);
        },
        [](SFeed& feed) {
            std::string text = feed.title.ToUtf8() + feed.link.ToUtf8();
            for (const SFeedEntry& entry : feed.entries)
                text += entry.title.ToUtf8() + entry.link.ToUtf8() + entry.summary.ToUtf8();
            return text;
        }));
}
#endif

// A folder with a file that programs save, and the document of one of them. What it holds counts, and that no
// other file is left.
struct SSavedFile {
    CTemporaryFolder folder{};
    CStr name = (folder.GetPath() / "store.ini").u16string();
    std::optional<CIniStore> store{};

    SSavedFile()
    {
        folder.Write("store.ini", c_document);
        store.emplace(name);
        store->Load();
        CInifile& ini = store->GetInifile();
        ini.SelectSection(u"A");
        ini.WriteText(u"Text", c_long);
        folder.Write("store.ini", c_document + "Theirs=1\n");
    }
    std::string Look() const
    {
        std::string seen = folder.Read("store.ini");
        std::vector<std::string> names;
        for (const auto& entry : fs::directory_iterator(folder.GetPath()))
            if (const std::string file = entry.path().filename().string(); file.find("backup") == file.npos)
                names.push_back(file);
        std::ranges::sort(names);
        for (const std::string& file : names)
            seen += '\n' + file;
        return seen;
    }
};

void AddFiles(COperations& all)
{
    const auto look = [](SSavedFile& file) { return file.Look(); };
    const auto add = [&](const char* name, const std::function<bool(SSavedFile&)>& act) {
        all.push_back(Operation<SSavedFile>(std::string("file: ") + name, {}, act, look));
        all.back().keepsCaches = true;
    };
    add("replace", [](SSavedFile& file) {
        CStr reason;
        return ReplaceFileBytes(file.name, "new content", reason);
    });
    add("keep", [](SSavedFile& file) {
        CStr reason;
        CStr keptAs;
        return KeepFile(file.name, c_document, u"kept", keptAs, reason);
    });
    add("save", [](SSavedFile& file) { return file.store->GetInifile().Save(); });
    add("save merged", [](SSavedFile& file) { return file.store->GetInifile().SaveMerged(); });
}

// A store keeps an earlier version beside the file before it brings it to its own, which is no rest: what the
// save itself does counts.
void AddStores(COperations& all)
{
    all.push_back(Operation<SSavedFile>(
        "store: save", {}, [](SSavedFile& file) { return file.store->Save(); },
        [](SSavedFile& file) { return file.folder.Read("store.ini"); }));
    all.back().keepsCaches = true;
}

} // namespace

int main(int argc, char** argv)
{
    const SOptions options = ParseOptions(argc, argv);
    const CTime time(options);
    GetDiagnostics().SetSink([](const SDiagnosticLine&) {});
    COperations all;
    for (const auto add : {AddTexts, AddInifile, AddModels, AddSettings, AddCallbacks, AddFiles, AddStores,
                           AddFormats, AddFactory, AddGrids})
        add(all);
#if defined(COMMONUI_WITH_PUGIXML)
    AddFeeds(all);
#endif
    std::mt19937 random(options.seed);
    long faults = 0;
    long passes = 0;
    do {
        std::ranges::shuffle(all, random);
        for (const SOperation& operation : all)
            faults += TryAllocations(operation);
        ++passes;
    } while (time.IsLeft());
    std::cout << "allocation_faults: seed " << options.seed << ", " << all.size() << " operations, " << passes
              << " passes, " << faults << " faults, " << time.GetSeconds() << " s" << std::endl;
    return 0;
}
