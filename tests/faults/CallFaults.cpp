// Every system call of what reads and writes files fails once, by each error that it knows, and reads and
// writes end early. The file is the old or the new one, whole; a failure has its reason, and nothing is left.

#include "common/Diagnostics.h"
#include "common/file/FileBytes.h"
#include "common/file/KeptFile.h"
#include "common/ini/IniStore.h"
#include "tests/faults/Faults.h"
#include "tests/faults/RunReport.h"
#include "tests/TemporaryFolder.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <functional>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>
#include <vector>

using namespace CommonUI;
using Faults::Expect;

namespace
{

namespace fs = std::filesystem;

enum ECall {
    Open,
    Read,
    Write,
    Sync,
    Close,
    Rename,
    Link,
    Lock,
    Truncate,
    OpenStream,
    Stat,
    StatLink,
    StatFile,
    Unlink,
    Remove,
    MakeFolder,
    OpenFolder,
    CallCount
};

constexpr std::array c_names{"open",  "read",   "write",     "fsync",   "close",  "rename",
                             "link",  "flock",  "ftruncate", "fopen64", "stat",   "lstat",
                             "fstat", "unlink", "remove",    "mkdir",   "opendir"};
static_assert(c_names.size() == CallCount);
// Streams of clang's library read by functions within the C library.
#if defined(_LIBCPP_VERSION)
constexpr std::array c_neverSeen{Read, OpenStream};
#else
constexpr std::array<ECall, 0> c_neverSeen{};
#endif
constexpr int c_short = -1; // an "error" of what reads and writes less than it could

std::string s_folder; // Only what lies in it fails.
std::array<std::atomic<bool>, 4096> s_isOurs{};
std::array<std::atomic<int>, CallCount> s_counts{};
int s_call = CallCount; // the kind that fails
int s_number = 0;       // which one of the kind, from 1
int s_error = 0;
std::atomic<bool> s_hasFailed = false;

bool IsOurs(const char* path)
{
    return !s_folder.empty() && std::string_view(path).starts_with(s_folder);
}

bool IsOurs(int file)
{
    return file >= 0 && static_cast<std::size_t>(file) < s_isOurs.size() && s_isOurs[std::size_t(file)];
}

void SetOurs(int file, bool isOurs)
{
    if (file >= 0 && static_cast<std::size_t>(file) < s_isOurs.size())
        s_isOurs[std::size_t(file)] = isOurs;
}

bool Fails(ECall call)
{
    if (++s_counts[call] != s_number || call != s_call)
        return false;
    s_hasFailed = true;
    errno = s_error;
    return true;
}

template<ECall Call, class TResult, class... TArgs>
TResult CallSystem(TArgs... args)
{
    static const auto real = reinterpret_cast<TResult (*)(TArgs...)>(dlsym(RTLD_NEXT, c_names[Call]));
    return real(args...);
}

template<ECall Call, class TResult, class TFirst, class... TArgs>
TResult CallOrFail(TResult failure, TFirst first, TArgs... args)
{
    return IsOurs(first) && Fails(Call) ? failure : CallSystem<Call, TResult>(first, args...);
}

template<ECall Call, class TBytes>
ssize_t Transfer(int file, TBytes bytes, std::size_t count)
{
    if (!IsOurs(file) || !Fails(Call))
        return CallSystem<Call, ssize_t>(file, bytes, count);
    return s_error == c_short ? CallSystem<Call, ssize_t>(file, bytes, (count + 1) / 2) : -1;
}

} // namespace

#pragma GCC visibility push(default)

// By their names in the object file, as the headers may make macros and inline functions of them. The
// libraries find these functions before those of the system.
int FaultyOpen(const char* path, int flags, mode_t mode) __asm__("open");
ssize_t FaultyRead(int file, void* bytes, std::size_t count) __asm__("read");
ssize_t FaultyWrite(int file, const void* bytes, std::size_t count) __asm__("write");
int FaultySync(int file) __asm__("fsync");
int FaultyClose(int file) __asm__("close");
int FaultyRename(const char* from, const char* to) __asm__("rename");
int FaultyLink(const char* from, const char* to) __asm__("link");
int FaultyLock(int file, int operation) __asm__("flock");
int FaultyTruncate(int file, off_t length) __asm__("ftruncate");
FILE* FaultyOpenStream(const char* path, const char* mode) __asm__("fopen64");
int FaultyStat(const char* path, void* status) __asm__("stat");
int FaultyStatLink(const char* path, void* status) __asm__("lstat");
int FaultyStatFile(int file, void* status) __asm__("fstat");
int FaultyUnlink(const char* path) __asm__("unlink");
int FaultyRemove(const char* path) __asm__("remove");
int FaultyMakeFolder(const char* path, mode_t mode) __asm__("mkdir");
DIR* FaultyOpenFolder(const char* path) __asm__("opendir");

#pragma GCC visibility pop

int FaultyOpen(const char* path, int flags, mode_t mode)
{
    const int file = CallOrFail<Open>(-1, path, flags, mode);
    SetOurs(file, IsOurs(path));
    return file;
}

ssize_t FaultyRead(int file, void* bytes, std::size_t count)
{
    return Transfer<Read>(file, bytes, count);
}

ssize_t FaultyWrite(int file, const void* bytes, std::size_t count)
{
    return Transfer<Write>(file, bytes, count);
}

int FaultySync(int file)
{
    return CallOrFail<Sync>(-1, file);
}

// What cannot be closed is closed all the same.
int FaultyClose(int file)
{
    const bool fails = IsOurs(file) && Fails(Close);
    const int error = errno;
    SetOurs(file, false);
    const int result = CallSystem<Close, int>(file);
    if (!fails)
        return result;
    errno = error;
    return -1;
}

int FaultyRename(const char* from, const char* to)
{
    return CallOrFail<Rename>(-1, from, to);
}

int FaultyLink(const char* from, const char* to)
{
    return CallOrFail<Link>(-1, from, to);
}

int FaultyLock(int file, int operation)
{
    return CallOrFail<Lock>(-1, file, operation);
}

int FaultyTruncate(int file, off_t length)
{
    return CallOrFail<Truncate>(-1, file, length);
}

FILE* FaultyOpenStream(const char* path, const char* mode)
{
    FILE* const file = CallOrFail<OpenStream>(static_cast<FILE*>(nullptr), path, mode);
    if (file)
        SetOurs(fileno(file), IsOurs(path));
    return file;
}

int FaultyStat(const char* path, void* status)
{
    return CallOrFail<Stat>(-1, path, status);
}

int FaultyStatLink(const char* path, void* status)
{
    return CallOrFail<StatLink>(-1, path, status);
}

int FaultyStatFile(int file, void* status)
{
    return CallOrFail<StatFile>(-1, file, status);
}

int FaultyUnlink(const char* path)
{
    return CallOrFail<Unlink>(-1, path);
}

int FaultyRemove(const char* path)
{
    return CallOrFail<Remove>(-1, path);
}

int FaultyMakeFolder(const char* path, mode_t mode)
{
    return CallOrFail<MakeFolder>(-1, path, mode);
}

DIR* FaultyOpenFolder(const char* path)
{
    return CallOrFail<OpenFolder>(static_cast<DIR*>(nullptr), path);
}

namespace
{

using CFiles = std::map<std::string, std::string>; // contents by names

// One fault, and nothing before and after.
class CFault
{
public:
    CFault(const fs::path& folder, int call, int number, int error)
    {
        s_folder = folder.string();
        for (auto& count : s_counts)
            count = 0;
        s_call = call;
        s_number = number;
        s_error = error;
        s_hasFailed = false;
    }
    ~CFault()
    {
        s_folder.clear();
        s_call = CallCount;
    }
    CFault(const CFault&) = delete;
    CFault& operator=(const CFault&) = delete;
};

struct SOperation {
    std::string name;
    std::function<void(const CTemporaryFolder&)> prepare;
    // Returns false with a reason.
    std::function<bool(const fs::path&, std::string&)> act;
    // Where it may be done in part: goes on to the end.
    std::function<bool(const fs::path&, std::string&)> goOn{};
};

// Without the name of the folder, which is another one each time.
CFiles ReadFiles(const CTemporaryFolder& folder)
{
    CFiles files;
    const std::string path = folder.GetPath().string();
    for (const auto& entry : fs::recursive_directory_iterator(folder.GetPath())) {
        if (!entry.is_regular_file())
            continue;
        std::string& content = files[fs::relative(entry.path(), folder.GetPath()).string()];
        content = folder.Read(entry.path());
        for (std::size_t at = 0; (at = content.find(path, at)) != content.npos;)
            content.replace(at, path.size(), "FOLDER");
    }
    return files;
}

// A backup or an earlier version may have been kept or not; what is a file for a while only may not stay.
bool IsKept(const std::string& name)
{
    return name.ends_with(".backup") || name.find(".version-") != name.npos ||
           name.find(".damaged-") != name.npos || name.find(".kept") != name.npos;
}

bool IsForAWhile(const std::string& name)
{
    return fs::path(name).filename().string().starts_with("~") && !name.ends_with(".backup");
}

// Says how far a run on many files has come.
bool IsOfAll(const std::string& name)
{
    return name.starts_with("out/report.");
}

std::string Tell(const CFiles& files)
{
    std::string text;
    for (const auto& [name, content] : files)
        text += "  " + name + ", " + std::to_string(content.size()) + " bytes\n";
    return text;
}

CStr s_told;

class CTrial
{
public:
    explicit CTrial(const SOperation& operation)
        : m_operation(operation)
    {
        Run(CallCount, 0, 0);
        Expect(m_isDone, operation.name + ": " + m_reason);
        m_wanted = m_after;
        for (std::size_t call = 0; call < CallCount; ++call)
            m_counts[call] = s_counts[call];
    }

    /// How often the operation calls each.
    const std::array<int, CallCount>& GetCounts() const { return m_counts; }

    long TryAll(std::mt19937& random)
    {
        long faults = 0;
        for (int call = 0; call < CallCount; ++call) {
            std::vector<int> errors{EIO, EACCES, ENOSPC};
            if (call == Open || call == Write || call == Read || call == Lock)
                errors.push_back(EINTR);
            if (call == Write || call == Read)
                errors.push_back(c_short);
            for (int number = 1; number <= m_counts[std::size_t(call)]; ++number) {
                const bool isShort = m_counts[std::size_t(call)] < 12;
                const std::size_t first = isShort ? 0 : random() % errors.size();
                for (std::size_t i = first; i < (isShort ? errors.size() : first + 1); ++i)
                    faults += TryOne(call, number, errors[i]);
            }
        }
        return faults;
    }

private:
    void Run(int call, int number, int error)
    {
        const CTemporaryFolder folder;
        m_operation.prepare(folder);
        m_before = ReadFiles(folder);
        m_reason.clear();
        s_told = {};
        {
            const CFault fault(folder.GetPath(), call, number, error);
            m_isDone = m_operation.act(folder.GetPath(), m_reason);
        }
        m_after = ReadFiles(folder);
        if (m_operation.goOn)
            m_hasGoneOn = m_operation.goOn(folder.GetPath(), m_goOnReason);
        m_atEnd = ReadFiles(folder);
    }
    bool TryOne(int call, int number, int error)
    {
        Run(call, number, error);
        const std::string place = m_operation.name + ", " + c_names[std::size_t(call)] + " " +
                                  std::to_string(number) + ": " +
                                  (error == c_short ? "less than it could" : std::strerror(error));
        Expect(m_isDone || !m_reason.empty(), place + ": fails without a reason");
        // Where a signal came between, or there was less, it is done in a second attempt.
        Expect(m_isDone || (error != EINTR && error != c_short), place + ": " + m_reason);
        // What cannot be removed stays for a while.
        if (call == Unlink || call == Remove)
            std::erase_if(m_after, [](const auto& file) { return IsForAWhile(file.first); });
        m_operation.goOn ? CheckParts(place) : CheckWhole(place);
        return s_hasFailed;
    }
    void CheckWhole(const std::string& place) const
    {
        const CFiles& whole = m_isDone ? m_wanted : m_before;
        CFiles after = m_after;
        std::erase_if(after,
                      [&](const auto& file) { return IsKept(file.first) && !whole.contains(file.first); });
        CFiles expected = whole;
        std::erase_if(expected,
                      [&](const auto& file) { return IsKept(file.first) && !after.contains(file.first); });
        for (auto& [name, content] : expected)
            if (IsKept(name) && m_before.contains(name) && after[name] == m_before.at(name))
                content = after[name];
        Expect(after == expected, place + (m_isDone ? " (done)" : " (" + m_reason + ")") + ": there is\n" +
                                      Tell(after) + "instead of\n" + Tell(expected));
    }
    // Each file is there as it was, or as it shall be; nothing is left to go on from but what leads there.
    void CheckParts(const std::string& place) const
    {
        for (const auto& [name, content] : m_after) {
            if (IsKept(name))
                continue;
            Expect(m_wanted.contains(name), place + ": there is " + name);
            const auto before = m_before.find(name);
            Expect(IsOfAll(name) || content == m_wanted.at(name) ||
                       (before != m_before.end() && content == before->second),
                   place + ": " + name + " is in part");
        }
        Expect(m_hasGoneOn, place + ": it does not go on: " + m_goOnReason);
        CFiles atEnd = m_atEnd;
        std::erase_if(atEnd, [](const auto& file) { return IsForAWhile(file.first) || IsKept(file.first); });
        atEnd["out/report.state"] = m_wanted.at("out/report.state"); // may know of inputs that have failed
        Expect(atEnd == m_wanted,
               place + ": at the end there is\n" + Tell(atEnd) + "instead of\n" + Tell(m_wanted));
    }

    const SOperation& m_operation;
    std::array<int, CallCount> m_counts{};
    CFiles m_before{};
    CFiles m_after{};
    CFiles m_wanted{};
    CFiles m_atEnd{};
    bool m_hasGoneOn = false;
    std::string m_goOnReason{};
    bool m_isDone = false;
    std::string m_reason{};
};

const std::string c_document = "[A]\nNumber=1\nText=old\n";

CStr StoreOf(const fs::path& folder)
{
    return (folder / "store.ini").u16string();
}

void PrepareStore(const CTemporaryFolder& folder)
{
    folder.Write("store.ini", c_document);
}

void PrepareDamaged(const CTemporaryFolder& folder)
{
    PrepareStore(folder);
    CIniStore(StoreOf(folder.GetPath())).Load(); // keeps a backup
    folder.Write("store.ini", std::string("[A]\nNum\0ber", 11));
}

bool Load(CInifile& ini, const fs::path& folder)
{
    const bool isLoaded = ini.Load(StoreOf(folder));
    ini.SelectSection(u"A");
    ini.WriteText(u"Text", u"new");
    return isLoaded;
}

template<class FCall>
bool Reported(std::string& reason, const FCall& call)
{
    CStr text;
    const bool isDone = call(text);
    reason = text.IsEmpty() && !isDone ? s_told.ToUtf8() : text.ToUtf8();
    return isDone;
}

bool SaveStore(const fs::path& folder, std::string& reason)
{
    return Reported(reason, [&](CStr&) {
        CIniStore store(StoreOf(folder));
        if (!store.Load())
            return false;
        store.GetInifile().SelectSection(u"A");
        store.GetInifile().WriteText(u"Text", u"new");
        return store.Save();
    });
}

bool Report(const fs::path& folder, const char* input, const std::vector<std::string>& more,
            std::string& reason)
{
    std::vector<std::string> words{(folder / input).string(), "--out", (folder / "out").string(),
                                   "--preferences", (folder / "choices.ini").string()};
    words.insert(words.end(), more.begin(), more.end());
    return Faults::RunReport(words, reason) == 0;
}

void WriteSurface(const CTemporaryFolder& folder, const fs::path& name)
{
    std::string text = "# Width: 12 um\n# Height: 8 um\n# Value units: nm\n";
    for (int y = 0; y < 8; ++y) {
        for (int x = 0; x < 12; ++x)
            text += std::to_string((x * 7 + y * 13 + x * y) % 11) + ' ';
        text += '\n';
    }
    folder.Write(name, text);
}

void PrepareReport(const CTemporaryFolder& folder)
{
    WriteSurface(folder, "surface.txt");
    for (const char* name : {"report.txt", "report.html", "report.csv", "report.json"})
        folder.Write(fs::path("out") / name, "the old report");
}

void PrepareReports(const CTemporaryFolder& folder)
{
    for (const char* name : {"a.txt", "b.txt", "below/c.txt"})
        WriteSurface(folder, fs::path("in") / name);
}

bool ReportEach(const fs::path& folder, std::vector<std::string> more, std::string& reason)
{
    more.insert(more.end(), {"--each", "--parameters", "Sa,Sq"});
    return Report(folder, "in", more, reason);
}

const SOperation c_operations[] = {
    {"replace", PrepareStore,
     [](const fs::path& folder, std::string& reason) {
         return Reported(
             reason, [&](CStr& text) { return ReplaceFileBytes(StoreOf(folder), "something new", text); });
     }},
    {"save", PrepareStore,
     [](const fs::path& folder, std::string& reason) {
         return Reported(reason, [&](CStr&) {
             CInifile ini;
             return Load(ini, folder) && ini.Save();
         });
     }},
    {"merge", PrepareStore,
     [](const fs::path& folder, std::string& reason) {
         return Reported(reason, [&](CStr&) {
             CInifile ini;
             return Load(ini, folder) && ini.SaveMerged();
         });
     }},
    {"store", PrepareStore, SaveStore},
    {"repair", PrepareDamaged,
     [](const fs::path& folder, std::string& reason) {
         return Reported(reason, [&](CStr&) { return CIniStore(StoreOf(folder)).Load(); });
     }},
    {"keep", PrepareStore,
     [](const fs::path& folder, std::string& reason) {
         return Reported(reason, [&](CStr& text) {
             CStr keptAs;
             return KeepFile(StoreOf(folder), c_document, u"kept", keptAs, text);
         });
     }},
    {"report", PrepareReport,
     [](const fs::path& folder, std::string& reason) { return Report(folder, "surface.txt", {}, reason); }},
    {"reports", PrepareReports,
     [](const fs::path& folder, std::string& reason) { return ReportEach(folder, {}, reason); },
     [](const fs::path& folder, std::string& reason) { return ReportEach(folder, {"--resume"}, reason); }},
};

} // namespace

int main(int argc, char** argv)
{
    const Faults::SOptions options = Faults::ParseOptions(argc, argv);
    const Faults::CTime time(options);
    GetDiagnostics().SetSink([](const SDiagnosticLine& line) { s_told += line.text; });
    std::mt19937 random(options.seed);
    long faults = 0;
    long passes = 0;
    std::array<long, CallCount> calls{};
    do {
        for (const SOperation& operation : c_operations) {
            CTrial trial(operation);
            for (std::size_t call = 0; call < CallCount; ++call)
                calls[call] += trial.GetCounts()[call];
            faults += trial.TryAll(random);
        }
        for (std::size_t call = 0; call < CallCount; ++call)
            Faults::Expect(calls[call] > 0 || std::ranges::count(c_neverSeen, call) > 0,
                           std::string(c_names[call]) + " does not come through here");
        ++passes;
    } while (time.IsLeft());
    std::cout << "call_faults: seed " << options.seed << ", " << std::size(c_operations) << " operations, "
              << passes << " passes, " << faults << " faults, " << time.GetSeconds() << " s" << std::endl;
    return 0;
}
