#include "measurement/process/StepSequence.h"

#include "common/file/FileBytes.h"
#include "common/file/FileReplacement.h"
#include "common/PathText.h"
#include "measurement/NamedSet.h"
#include "settings/SetReference.h"

#include <algorithm>
#include <memory>
#include <set>
#include <string>
#include <vector>

namespace CommonUI::Measurement
{

namespace
{

struct SFile {
    CStr path;
    std::string bytes;
};

// The paths that the sequence in a file refers to; none where there is none.
std::set<CStr> FindReferred(const CStr& path)
{
    const CFailureReason unsaid;
    CInifile ini;
    SBatchSequenceSettings sequence;
    std::set<CStr> paths;
    if (ini.Load(path) && sequence.Load(ini))
        for (const SBatchStep& step : sequence.steps)
            paths.insert(CStr(GetReferredPath(step.settings)));
    return paths;
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
    explicit CSequenceFiles(const CStr& path)
        : m_path(path)
        , m_replaced(FindReferred(path))
    {
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
        m_files.push_back({m_path, ini.GetBytes()});
        return m_files;
    }

private:
    CStr FindName(ESettingType type) const
    {
        const CStr base = WithoutExtension(m_path) + CStr::Format(u" step %zu", m_sequence.steps.size());
        CStr name = CSettingsFactory::AddExtension(type, base);
        for (int other = 2; FileExists(name) && !m_replaced.contains(name); ++other)
            name = CSettingsFactory::AddExtension(type, base + CStr::Format(u"-%d", other));
        return name;
    }

    CStr m_path;
    std::set<CStr> m_replaced;
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
    CSequenceFiles files(path);
    if (std::ranges::none_of(steps, &SProcessStep::isOn))
        throw ERequest(path, u"no step is on");
    for (const SProcessStep& step : steps)
        if (step.isOn)
            files.Add(step);
    WriteAll(files.Finish());
}

} // namespace CommonUI::Measurement
