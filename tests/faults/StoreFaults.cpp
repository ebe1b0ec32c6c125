// Several processes save keys of their own to one file and are killed at random moments; nothing that a save
// has promised may be lost, no lock may stay, and no rest.

#include "common/Diagnostics.h"
#include "common/file/FileLock.h"
#include "common/ini/IniStore.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <map>
#include <new>
#include <random>
#include <string>
#include <sys/mman.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace CommonUI;

namespace
{

namespace fs = std::filesystem;
using CClock = std::chrono::steady_clock;

constexpr int c_mostProcesses = 64;
constexpr int c_keys = 16; // of each process

struct SCounts {
    int processes = 8;
    int saves = 10'000; // of each process
    int kills = 1'000;
    unsigned seed = 1;
};

// What a process says of itself, in memory that outlives it.
struct SProgress {
    std::atomic<int> begun{0};
    std::atomic<int> done{0};
    std::atomic<long> longest{0}; // save, in milliseconds
};

[[noreturn]] void Fail(const std::string& text)
{
    std::cerr << "store_faults: " << text << std::endl;
    std::_Exit(1);
}

CStr SectionOf(int process)
{
    return CStr::Format(u"Process%d", process);
}

CStr KeyOf(int number)
{
    return CStr::Format(u"Key%d", number % c_keys);
}

// What the keys of a process hold after its save of that number.
void Check(CInifile& ini, int process, int number)
{
    ini.SelectSection(SectionOf(process));
    for (int i = std::max(1, number - c_keys + 1); i <= number; ++i) {
        if (const int found = ini.ReadInt(KeyOf(i), 0); found != i)
            Fail("process " + std::to_string(process) + ": the save " + std::to_string(i) +
                 " is lost, and there is " + std::to_string(found));
    }
}

// Goes on behind what the file holds, which is what was promised or what was about to be.
int FindNumber(CInifile& ini, int process, SProgress& progress)
{
    ini.SelectSection(SectionOf(process));
    int number = 0;
    for (int i = 0; i < c_keys; ++i)
        number = std::max(number, ini.ReadInt(KeyOf(i), 0));
    if (number != progress.done && number != progress.begun)
        Fail("process " + std::to_string(process) + ": the file is at " + std::to_string(number) +
             ", promised was " + std::to_string(progress.done));
    Check(ini, process, number);
    progress.done = number;
    return number;
}

void LoadStore(CIniStore& store)
{
    if (!store.Load() || store.GetAccount().found == SStoreAccount::EFound::Damaged)
        Fail("the file is damaged");
}

// Keeps its document for some saves, as a window does, and then starts anew.
void SaveAll(const CStr& file, int process, const SCounts& counts, SProgress& progress)
{
    CIniStore store(file);
    LoadStore(store);
    for (int number = FindNumber(store.GetInifile(), process, progress) + 1; number <= counts.saves;
         ++number) {
        if (number % 50 == 0)
            LoadStore(store);
        CInifile& ini = store.GetInifile();
        ini.SelectSection(SectionOf(process));
        ini.WriteInt(KeyOf(number), number);
        progress.begun = number;
        const auto begin = CClock::now();
        // Half of the processes know nothing of versions and backups.
        if (!(process % 2 == 0 ? store.Save() : ini.SaveMerged()))
            Fail("a save has failed");
        progress.done = number;
        const auto took = std::chrono::duration_cast<std::chrono::milliseconds>(CClock::now() - begin);
        progress.longest = std::max<long>(progress.longest, took.count());
    }
}

class CProcesses
{
public:
    CProcesses(const CStr& file, const SCounts& counts)
        : m_file(file)
        , m_counts(counts)
        , m_random(counts.seed)
    {
        void* const memory = mmap(nullptr, sizeof(SProgress) * c_mostProcesses, PROT_READ | PROT_WRITE,
                                  MAP_SHARED | MAP_ANONYMOUS, -1, 0);
        if (memory == MAP_FAILED)
            Fail("there is no memory");
        m_progress = static_cast<SProgress*>(memory);
        for (int i = 0; i < c_mostProcesses; ++i)
            new (m_progress + i) SProgress;
        for (int i = 0; i < counts.processes; ++i)
            Start(i);
    }
    CProcesses(const CProcesses&) = delete;
    CProcesses& operator=(const CProcesses&) = delete;

    // Kills at random moments until all have saved everything. Kills are spread over the whole run.
    void Run()
    {
        while (!m_running.empty()) {
            std::this_thread::sleep_for(std::chrono::microseconds(m_random() % 20'000));
            m_namedHolders += !GetLockHolder(m_file).IsEmpty();
            Reap();
            if (!m_running.empty() && kills < m_counts.kills &&
                kills * CountSaves() <= CountDone() * m_counts.kills)
                Kill();
        }
    }
    long CountDone() const
    {
        long done = 0;
        for (int i = 0; i < m_counts.processes; ++i)
            done += m_progress[i].done;
        return done;
    }
    long GetLongest() const
    {
        long longest = 0;
        for (int i = 0; i < m_counts.processes; ++i)
            longest = std::max<long>(longest, m_progress[i].longest);
        return longest;
    }
    int GetNamedHolders() const { return m_namedHolders; }
    long kills = 0;

private:
    long CountSaves() const { return long(m_counts.processes) * m_counts.saves; }
    void Start(int process)
    {
        const pid_t pid = fork();
        if (pid < 0)
            Fail("no process can be started");
        if (pid == 0) {
            SaveAll(m_file, process, m_counts, m_progress[process]);
            std::_Exit(0);
        }
        m_running[pid] = process;
    }
    void Reap()
    {
        int status = 0;
        for (pid_t pid = 0; (pid = waitpid(-1, &status, WNOHANG)) > 0;) {
            const int process = m_running[pid];
            m_running.erase(pid);
            if (WIFSIGNALED(status) && WTERMSIG(status) == SIGKILL)
                Start(process);
            else if (status != 0)
                Stop();
        }
    }
    void Kill()
    {
        auto victim = m_running.begin();
        std::advance(victim, static_cast<long>(m_random() % m_running.size()));
        kill(victim->first, SIGKILL);
        ++kills;
    }
    [[noreturn]] void Stop()
    {
        for (const auto& [pid, process] : m_running)
            kill(pid, SIGKILL);
        Fail("a process has ended with a failure");
    }

    const CStr m_file;
    const SCounts m_counts;
    std::mt19937 m_random;
    SProgress* m_progress = nullptr;
    std::map<pid_t, int> m_running{};
    int m_namedHolders = 0;
};

// A save that comes later than a minute removes what killed ones have left.
void CheckRests(const fs::path& folder, CIniStore& store)
{
    for (const auto& entry : fs::directory_iterator(folder))
        fs::last_write_time(entry, fs::file_time_type::clock::now() - std::chrono::hours(1));
    store.GetInifile().SelectSection({});
    store.GetInifile().WriteInt(u"End", 1);
    if (!store.Save() || !store.Load())
        Fail("the last save has failed");
    for (const auto& entry : fs::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (name != "store.ini" && name != "~store.ini.backup" && name != "store.ini.version-0")
            Fail("\"" + name + "\" is left over");
    }
}

SCounts ParseCounts(const std::vector<std::string>& arguments)
{
    SCounts counts;
    const std::map<std::string, int*> options{
        {"--processes", &counts.processes}, {"--saves", &counts.saves}, {"--kills", &counts.kills}};
    for (std::size_t i = 0; i + 1 < arguments.size(); i += 2) {
        const int value = std::atoi(arguments[i + 1].c_str());
        if (const auto found = options.find(arguments[i]); found != options.end())
            *found->second = value;
        else if (arguments[i] == "--seed")
            counts.seed = static_cast<unsigned>(value);
        else
            Fail("unknown option " + arguments[i]);
    }
    if (arguments.size() % 2 != 0 || counts.processes < 1 || counts.processes > c_mostProcesses)
        Fail("usage: store_faults [--processes N] [--saves N] [--kills N] [--seed N]");
    return counts;
}

} // namespace

int main(int argc, char** argv)
{
    const SCounts counts = ParseCounts({argv + 1, argv + argc});
    const CTemporaryFolder folder;
    const CStr file = (folder.GetPath() / "store.ini").u16string();
    const auto begin = CClock::now();
    CProcesses processes(file, counts);
    processes.Run();
    const std::chrono::duration<double> seconds = CClock::now() - begin;

    CIniStore store(file);
    LoadStore(store);
    for (int i = 0; i < counts.processes; ++i)
        Check(store.GetInifile(), i, counts.saves);
    CheckRests(folder.GetPath(), store);
    if (!GetLockHolder(file).IsEmpty())
        Fail("somebody holds the lock");
    std::cout << "store_faults: seed " << counts.seed << ", " << counts.processes << " processes, "
              << processes.CountDone() << " saves, none lost, " << processes.kills << " kills, "
              << processes.GetNamedHolders() << " times the holder was named, the longest save "
              << processes.GetLongest() << " ms, " << seconds.count() << " s" << std::endl;
    return 0;
}
