#include "measurement/process/SessionJournal.h"

#include "common/file/FileBytes.h"
#include "common/file/FileSystem.h"
#include "common/file/KeptFile.h"
#include "common/PathText.h"
#include "measurement/FailureReason.h"

#include <algorithm>
#include <chrono>
#include <span>
#include <string>
#include <system_error>

namespace CommonUI::Measurement
{

namespace
{

constexpr std::u16string_view c_section = u"Journal";
constexpr int c_version = 1;
constexpr int c_mostSurfaces = 1000;
constexpr std::size_t c_mostBytes = std::size_t{64} << 20;
constexpr const char16_t* c_namePattern = u"session-%d.journal";
constexpr std::chrono::milliseconds c_noPatience{0};

CStr Numbered(const char16_t* name, std::size_t index)
{
    return CStr::Format(u"%s%zu", CStr(name), index + 1);
}

CStr TextOfPath(const std::filesystem::path& path)
{
    return path.u16string();
}

void WriteStep(CInifile& ini, const SProcessStep& step, const CStr& key)
{
    ini.WriteText(key + u"_Name", step.name);
    ini.WriteBool(key + u"_On", step.isOn);
    ini.WriteBool(key + u"_Edited", step.isEdited);
    ini.WriteInt(key + u"_Kind", static_cast<int>(step.work.index()));
    ini.WriteText(key + u"_Set", CStr::FromUtf8(WriteWork(step.work)));
}

bool ReadStep(CInifile& ini, SProcessStep& step, const CStr& key)
{
    const CStepWork works[] = {SPlaneCorrectionSettings(), SFilterSettings(), SInterpolation(), SNoChange()};
    const int kind = ini.ReadInt(key + u"_Kind", -1);
    step.name = ini.ReadText(key + u"_Name");
    step.isOn = ini.ReadBool(key + u"_On", true);
    step.isEdited = ini.ReadBool(key + u"_Edited", false);
    if (step.name.IsEmpty() || kind < 0 || kind >= static_cast<int>(std::size(works)))
        return false;
    step.work = works[kind];
    return ReadWork(ini.ReadText(key + u"_Set").ToUtf8(), step.work);
}

// Where the sources of the steps are, for each as many as a sequence can have.
CStr SequenceKey(std::size_t first)
{
    const std::size_t index = first / SBatchSequenceSettings::c_mostSteps;
    return index == 0 ? CStr(u"Sequence") : Numbered(u"Sequence", index);
}

void WriteSources(CInifile& ini, std::span<const SProcessStep> steps)
{
    for (std::size_t first = 0; first < steps.size(); first += SBatchSequenceSettings::c_mostSteps) {
        CInifile sequence;
        SBatchSequenceSettings stored;
        for (const SProcessStep& step :
             steps.subspan(first).first(std::min(SBatchSequenceSettings::c_mostSteps, steps.size() - first)))
            stored.steps.push_back(step.source);
        stored.Save(sequence);
        ini.WriteText(SequenceKey(first), CStr::FromUtf8(sequence.GetBytes()));
    }
}

bool ReadSources(CInifile& ini, std::size_t count, std::vector<SBatchStep>& sources)
{
    while (sources.size() < count) {
        CInifile sequence;
        SBatchSequenceSettings stored;
        sequence.LoadBytes(ini.ReadText(SequenceKey(sources.size())).ToUtf8());
        if (!stored.Load(sequence))
            return false;
        sources.insert(sources.end(), stored.steps.begin(), stored.steps.end());
    }
    return sources.size() == count;
}

// The section of the surface is the current one.
void WriteSurface(CInifile& ini, const SSessionSurface& surface)
{
    ini.WriteText(u"Path", surface.path);
    ini.WriteInt(u"Steps", static_cast<int>(surface.steps.size()));
    WriteSources(ini, surface.steps);
    for (std::size_t i = 0; i < surface.steps.size(); ++i)
        WriteStep(ini, surface.steps[i], Numbered(u"Step", i));
}

bool ReadSurface(CInifile& ini, SSessionSurface& surface)
{
    surface.path = ini.ReadText(u"Path");
    const int count = ini.ReadInt(u"Steps", -1);
    std::vector<SBatchStep> sources;
    if (surface.path.IsEmpty() || count < 0 || !ReadSources(ini, static_cast<std::size_t>(count), sources))
        return false;
    for (std::size_t i = 0; i < sources.size(); ++i) {
        SProcessStep& step = surface.steps.emplace_back();
        step.source = sources[i];
        if (!ReadStep(ini, step, Numbered(u"Step", i)))
            return false;
    }
    return true;
}

std::string WriteSession(const CSession& session)
{
    CInifile ini;
    ini.SelectSection(c_section);
    ini.WriteInt(u"Version", c_version);
    ini.WriteInt(u"Surfaces", static_cast<int>(session.size()));
    for (std::size_t i = 0; i < session.size(); ++i) {
        ini.SelectSection(Numbered(u"Surface", i));
        WriteSurface(ini, session[i]);
    }
    return ini.GetBytes();
}

// @return why it is none, in a clause; empty if it was read
CStr ReadSession(const std::string& bytes, CSession& session)
{
    const CFailureReason unsaid;
    CInifile ini;
    ini.LoadBytes(bytes);
    ini.SelectSection(c_section);
    const int count = ini.ReadInt(u"Surfaces", -1);
    if (ini.ReadInt(u"Version", 0) > c_version)
        return u"a newer version of the program has written it";
    if (count < 0 || count > c_mostSurfaces)
        return u"it does not say how many surfaces were open";
    CSession read(static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < read.size(); ++i) {
        ini.SelectSection(Numbered(u"Surface", i));
        if (!ReadSurface(ini, read[i]))
            return CStr::Format(u"what it says of surface %zu is not whole", i + 1);
    }
    session = std::move(read);
    return {};
}

// Gives a file that cannot be read a name that nothing has, as a copy would need its content.
bool RenameAside(const CStr& path, CStr& keptAs)
{
    keptAs = path + u".damaged";
    for (int number = 2; FileExists(keptAs); ++number)
        keptAs = path + CStr::Format(u".damaged-%d", number);
    std::error_code error;
    std::filesystem::rename(ToPath(path), ToPath(keptAs), error);
    return !error;
}

void RemoveFile(const CStr& path)
{
    std::error_code error;
    std::filesystem::remove(ToPath(path), error);
}

} // namespace

CSessionJournal::CSessionJournal(const std::filesystem::path& folder)
{
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    constexpr int c_most = 100;
    for (int number = 1; number <= c_most; ++number) {
        m_path = TextOfPath(folder) + u"/" + CStr::Format(c_namePattern, number);
        m_lock.emplace(m_path, c_noPatience);
        // Where the file system has no locks, a name that nobody has must do.
        if (!m_lock->IsTaken() && !FileExists(m_path))
            return;
    }
}

CSessionJournal::~CSessionJournal() = default;

bool CSessionJournal::Write(const CSession& session, CStr& reason)
{
    if (session == m_written)
        return true;
    if (session.empty()) {
        RemoveFile(m_path);
    } else if (!ReplaceFileBytes(m_path, WriteSession(session), reason)) {
        return false;
    }
    m_written = session;
    return true;
}

void CSessionJournal::Close()
{
    RemoveFile(m_path);
    m_written.clear();
}

CDeadJournal::CDeadJournal(const CStr& path, std::unique_ptr<CFileLock> lock)
    : m_path(path)
    , m_lock(std::move(lock))
{
    std::string bytes;
    CStr reason;
    const bool isRead = ReadFileBytes(path, bytes, c_mostBytes, reason);
    if (isRead)
        reason = ReadSession(bytes, m_session);
    if (reason.IsEmpty())
        return;
    m_damage = CStr::Format(u"The journal \"%s\" cannot be read: %s", CStr(GetFileName(path)), reason);
    CStr keptAs;
    const bool isKept = isRead ? PutAside(bytes, keptAs) : RenameAside(m_path, keptAs);
    m_damage += isKept ? CStr::Format(u"; it is kept as \"%s\".", CStr(GetFileName(keptAs))) : CStr(u".");
}

// Whoever knows more than this program may still make something of it.
bool CDeadJournal::PutAside(const std::string& bytes, CStr& keptAs) const
{
    CStr reason;
    if (!KeepFile(m_path, bytes, u"damaged", keptAs, reason))
        return false;
    RemoveFile(m_path);
    return true;
}

void CDeadJournal::Remove()
{
    RemoveFile(m_path);
}

void CDeadJournal::Keep(const CSession& rest)
{
    CStr reason;
    if (rest.empty())
        Remove();
    else if (rest != m_session)
        ReplaceFileBytes(m_path, WriteSession(rest), reason); // or more of them are offered again
}

std::vector<CDeadJournal> FindDeadJournals(const std::filesystem::path& folder)
{
    std::vector<CStr> paths;
    try {
        GetFileSystem().List(folder, [&](const std::filesystem::path& name) {
            const CStr text = TextOfPath(name);
            if (text.StartsWith(u"session-") && text.EndsWith(u".journal"))
                paths.push_back(TextOfPath(folder) + u"/" + text);
        });
    } catch (const std::system_error&) {
        return {}; // no folder, no journals
    }
    std::ranges::sort(paths);
    std::vector<CDeadJournal> journals;
    for (const CStr& path : paths) {
        auto lock = std::make_unique<CFileLock>(path, c_noPatience);
        if (lock->IsHeld() && FileExists(path)) // without locks it may be that of a living session
            journals.emplace_back(path, std::move(lock));
    }
    return journals;
}

} // namespace CommonUI::Measurement
