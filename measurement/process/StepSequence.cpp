#include "measurement/process/StepSequence.h"

#include "common/file/FileBytes.h"
#include "common/file/FileReplacement.h"
#include "common/PathText.h"
#include "measurement/NamedSet.h"
#include "settings/SetReference.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace CommonUI::Measurement
{

namespace
{

struct SFile {
    CStr path;
    std::string bytes;
};

// Beside the steps, a sequence has the paths of the sets that came into being with it.
constexpr std::u16string_view c_ownSection = u"OwnSets";
constexpr std::u16string_view c_ownPaths = u"Paths";

using CPaths = std::set<CStr>;

// Those of the sequence in a file; none where there is none.
CPaths ReadOwnSets(const CStr& path)
{
    const CFailureReason unsaid;
    CInifile ini;
    if (!ini.Load(path))
        return {};
    ini.SelectSection(c_ownSection);
    const std::vector<CStr> paths = ini.ReadTexts(c_ownPaths);
    return {paths.begin(), paths.end()};
}

bool IsSameFile(const CStr& one, const CStr& other)
{
    std::error_code error;
    return one == other || std::filesystem::equivalent(ToPath(one), ToPath(other), error);
}

CStr WithoutExtension(const CStr& path)
{
    const std::size_t dot = path.ReverseFind(u'.');
    return dot == CStr::npos || dot < GetFolder(path).size() ? path : path.Left(dot);
}

// The files of a sequence: first the sets of its steps, then itself.
class CSequenceFiles
{
public:
    CSequenceFiles(const CProcessSteps& steps, const CStr& path)
        : m_path(path)
        , m_ownBefore(ReadOwnSets(path))
    {
        for (const SProcessStep& step : steps) // also those that are off, which may be on next time
            if (!step.isEdited)
                m_needed.insert(CStr(GetReferredPath(step.source.settings)));
    }

    void Add(const SProcessStep& step)
    {
        SBatchStep& stored = m_sequence.steps.emplace_back(step.source);
        if (!step.isEdited)
            return;
        const CStr path = FindName(step.source.type);
        m_files.push_back({path, WriteWork(step.work)});
        stored.settings = CStr(c_filePrefix) + path;
    }
    const std::vector<SFile>& Finish()
    {
        CInifile ini;
        m_sequence.Save(ini);
        if (const std::vector<CStr> own = ListOwnSets(); !own.empty()) {
            ini.SelectSection(c_ownSection);
            ini.WriteTexts(c_ownPaths, own);
        }
        m_files.push_back({m_path, ini.GetBytes()});
        return m_files;
    }

private:
    CStr FindName(ESettingType type) const
    {
        const CStr base = WithoutExtension(m_path) + CStr::Format(u" step %zu", m_sequence.steps.size());
        CStr name = CSettingsFactory::AddExtension(type, base);
        for (int other = 2; !IsFree(name); ++other)
            name = CSettingsFactory::AddExtension(type, base + CStr::Format(u"-%d", other));
        return name;
    }
    bool IsFree(const CStr& name) const
    {
        return std::ranges::none_of(m_needed, [&](const CStr& path) { return IsSameFile(path, name); }) &&
               (m_ownBefore.contains(name) || !FileExists(name));
    }
    // The files to write, and those of before that steps still need.
    std::vector<CStr> ListOwnSets() const
    {
        std::vector<CStr> own;
        std::ranges::set_intersection(m_ownBefore, m_needed, std::back_inserter(own));
        std::ranges::transform(m_files, std::back_inserter(own), &SFile::path);
        return own;
    }

    CStr m_path;
    CPaths m_ownBefore;
    CPaths m_needed; // by steps that are not edited
    SBatchSequenceSettings m_sequence;
    std::vector<SFile> m_files;
};

void WriteAll(const std::vector<SFile>& files)
{
    std::vector<std::unique_ptr<CFileReplacement>> replacements;
    CStr reason;
    for (const SFile& file : files) {
        CFileReplacement& replacement = *replacements.emplace_back(std::make_unique<CFileReplacement>());
        if (!replacement.Open(file.path, reason) || !replacement.Write(file.bytes, reason))
            throw ERequest(file.path, reason);
    }
    for (std::size_t i = 0; i < files.size(); ++i)
        if (!replacements[i]->ReplaceForNow(reason))
            throw ERequest(files[i].path, reason);
    for (const auto& replacement : replacements)
        replacement->Keep();
}

} // namespace

CProcessSteps LoadSequence(CSettingsFactory& factory, CInifile& sequence, const CStr& name)
{
    const CFailureReason reason;
    SBatchSequenceSettings read;
    if (!read.Load(sequence))
        throw ERequest(name, reason.GetText());
    CProcessSteps steps;
    for (const SBatchStep& step : read.steps)
        steps.push_back(LoadStep(factory, step));
    return steps;
}

void SaveSequence(const CProcessSteps& steps, const CStr& path)
{
    const auto count = static_cast<std::size_t>(std::ranges::count_if(steps, &SProcessStep::isOn));
    if (count == 0)
        throw ERequest(path, u"no step is on");
    if (count > SBatchSequenceSettings::c_mostSteps)
        throw ERequest(
            path, CStr::Format(u"a sequence has at most %zu steps", SBatchSequenceSettings::c_mostSteps));
    CSequenceFiles files(steps, path);
    for (const SProcessStep& step : steps)
        if (step.isOn)
            files.Add(step);
    WriteAll(files.Finish());
}

} // namespace CommonUI::Measurement
