// Reports on one file and on many are killed at random moments and begun again. What lies in the folder of
// reports is always whole, and in the end it is what a run without a kill leaves, with no rest.

#include "common/Diagnostics.h"
#include "tests/faults/Faults.h"
#include "tests/faults/RunReport.h"
#include "tests/TemporaryFolder.h"

#include <chrono>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <map>
#include <optional>
#include <random>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <vector>

using namespace CommonUI;
using Faults::Expect;

namespace
{

namespace fs = std::filesystem;
using CWords = std::vector<std::string>;
using CFiles = std::map<std::string, std::string>; // contents by names
using CClock = std::chrono::steady_clock;

constexpr const char* c_names[] = {
    "a.txt",
    "below/a.txt",
    "below/further/b.txt",
    "a line\nfeed.txt",
    "$(touch here); `id` 'x' \"y\" <script>.txt",
    "no \xFF text.txt",
};

void WriteSurfaces(const CTemporaryFolder& folder)
{
    int number = 0;
    for (const char* const name : c_names) {
        std::string text = "# Width: 40 um\n# Height: 40 um\n# Value units: nm\n";
        ++number;
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 40; ++x)
                text += std::to_string((x * 7 + y * 13 + x * y * number) % 101) + ' ';
            text += '\n';
        }
        folder.Write(fs::path("in") / name, text);
    }
}

struct SRun {
    const char* name;
    const char* input;
    CWords options{};
    CWords goOn{}; // what a run that has been killed is begun again with
};

const SRun c_runs[] = {
    {"report", "in/a.txt"},
    {"reports", "in", {"--each"}, {"--resume"}},
};

int Report(const SRun& run, const fs::path& folder, const CWords& more)
{
    CWords words{(folder / run.input).string(), "--out", (folder / "out").string(), "--parameters",
                 "Sa,Sq,Sk"};
    words.insert(words.end(), run.options.begin(), run.options.end());
    words.insert(words.end(), more.begin(), more.end());
    std::string messages;
    const int status = Faults::RunReport(words, messages);
    if (status != 0)
        std::cerr << messages;
    return status;
}

// Without the name of the folder, which is another one each time.
CFiles ReadReports(const CTemporaryFolder& folder)
{
    CFiles files;
    const std::string path = folder.GetPath().string();
    if (!fs::exists(folder.GetPath() / "out"))
        return files;
    for (const auto& entry : fs::recursive_directory_iterator(folder.GetPath() / "out")) {
        if (!entry.is_regular_file())
            continue;
        std::string& content = files[fs::relative(entry.path(), folder.GetPath() / "out").string()];
        content = folder.Read(entry.path());
        for (std::size_t at = 0; (at = content.find(path, at)) != content.npos;)
            content.replace(at, path.size(), "FOLDER");
    }
    return files;
}

bool IsForAWhile(const std::string& name)
{
    return fs::path(name).filename().string().starts_with("~");
}

// The report on all files grows with how far a run has come.
bool Grows(const SRun& run, const std::string& name)
{
    return !run.options.empty() && name.starts_with("report.");
}

void Check(const SRun& run, const CTemporaryFolder& folder, const CFiles& wanted)
{
    for (const auto& [name, content] : ReadReports(folder)) {
        if (IsForAWhile(name))
            continue;
        const auto found = wanted.find(name);
        Expect(found != wanted.end(), std::string(run.name) + ": there is " + name);
        Expect(Grows(run, name) ? !content.empty() : content == found->second,
               std::string(run.name) + ": " + name + " is in part");
    }
}

// What lies beside a file for a while is removed a minute later.
void Age(const fs::path& folder)
{
    for (const auto& entry : fs::recursive_directory_iterator(folder))
        fs::last_write_time(entry, fs::file_time_type::clock::now() - std::chrono::hours(1));
}

class CKills
{
public:
    explicit CKills(const SRun& run)
        : m_run(run)
    {
        const CTemporaryFolder folder;
        WriteSurfaces(folder);
        const auto begin = CClock::now();
        Expect(Start(folder, {}, {}) == 0, std::string(run.name) + " fails");
        m_long = std::chrono::duration_cast<std::chrono::microseconds>(CClock::now() - begin);
        m_wanted = ReadReports(folder);
    }

    // Begins anew after each kill, in the same folder. Kills come later and later, so that there is an end.
    long Try(std::mt19937& random)
    {
        const CTemporaryFolder folder;
        WriteSurfaces(folder);
        long kills = 0;
        for (;; ++kills) {
            const auto most = static_cast<unsigned>(m_long.count() * (10 + kills) / 10 + 1);
            const int status =
                Start(folder, kills == 0 ? CWords{} : m_run.goOn, std::chrono::microseconds(random() % most));
            Check(m_run, folder, m_wanted);
            Expect(status <= 0, std::string(m_run.name) + " fails after a kill");
            if (status == 0)
                break;
        }
        if (kills != 0) {
            Age(folder.GetPath());
            Expect(Start(folder, m_run.goOn, {}) == 0, std::string(m_run.name) + " fails at the end");
        }
        Check(m_run, folder, m_wanted);
        CheckEnd(folder);
        return kills;
    }

private:
    // Returns the status of a process of its own, or -1 where it was killed.
    // @param after when it is killed; never where it is not given
    int Start(const CTemporaryFolder& folder, const CWords& more,
              std::optional<std::chrono::microseconds> after) const
    {
        const pid_t pid = fork();
        Expect(pid >= 0, "no process can be started");
        if (pid == 0)
            std::_Exit(Report(m_run, folder.GetPath(), more));
        if (after) {
            std::this_thread::sleep_for(*after);
            kill(pid, SIGKILL);
        }
        int status = 0;
        waitpid(pid, &status, 0);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }
    void CheckEnd(const CTemporaryFolder& folder) const
    {
        CFiles left = ReadReports(folder);
        for (const auto& [name, content] : m_wanted)
            Expect(name == "report.state" || left[name] == content,
                   std::string(m_run.name) + ": at the end " + name + " is another one");
        for (const auto& [name, content] : left)
            Expect(m_wanted.contains(name), std::string(m_run.name) + ": " + name + " is left over");
    }

    const SRun& m_run;
    CFiles m_wanted{};
    std::chrono::microseconds m_long{};
};

} // namespace

int main(int argc, char** argv)
{
    const Faults::SOptions options = Faults::ParseOptions(argc, argv);
    const Faults::CTime time(options);
    GetDiagnostics().SetSink([](const SDiagnosticLine&) {});
    std::mt19937 random(options.seed);
    std::vector<CKills> trials(std::begin(c_runs), std::end(c_runs));
    long runs = 0;
    long kills = 0;
    do {
        for (CKills& trial : trials) {
            kills += trial.Try(random);
            ++runs;
        }
    } while (time.IsLeft() || kills < 100);
    std::cout << "report_faults: seed " << options.seed << ", " << runs << " runs, " << kills << " kills, "
              << time.GetSeconds() << " s" << std::endl;
    return 0;
}
