#include "programs/surface_report/PreferencesFile.h"

#include "measurement/EditPreferences.h"
#include "measurement/FailureReason.h"
#include "model/ParameterList.h"
#include "programs/command_line/CommandLine.h"
#include "programs/command_line/ForOption.h"

#include <filesystem>
#include <stdexcept>
#include <vector>

namespace SurfaceReport
{

using CommandLine::ForOption;

using CommonUI::Measurement::CFailureReason;

CPreferencesFile::CPreferencesFile(const SOptions& options)
{
    if (options.preferences.empty())
        return;
    CommonUI::CInifile& ini = m_store.GetInifile();
    ini.SetFileName(options.preferences.u16string());
    const bool exists = std::filesystem::exists(options.preferences);
    if (const CFailureReason reason; !m_store.Load())
        throw std::runtime_error(reason.GetText().ToUtf8());
    m_factory.Load(ini);
    ini.SelectSection(c_section);
    if (exists)
        m_manager.Load(ini);
    for (const CommonUI::CStr& change : options.sets)
        ForOption("--set", [&] { CommonUI::Measurement::EditPreferences(m_manager, change); });
    m_usesSettings = !options.settings.empty() || !options.grainSet.IsEmpty() || !options.batch.IsEmpty();
    m_needsSaving = !exists || !options.sets.empty() || m_usesSettings;
}

void CPreferencesFile::Save()
{
    if (!m_needsSaving)
        return;
    CommonUI::CInifile& ini = m_store.GetInifile();
    m_manager.Save(ini);
    if (m_usesSettings)
        m_factory.Save(ini);
    if (const CFailureReason reason; !m_store.Save(CommonUI::IsDynamicParametersSection))
        throw std::runtime_error(reason.GetText().ToUtf8());
}

void CPreferencesFile::Tell(std::ostream& err)
{
    const std::vector<CommonUI::CStr> sentences = m_store.GetAccount().GetSentences();
    for (; m_toldCount < sentences.size(); ++m_toldCount)
        err << "surface_report: " << CommandLine::ToTerminal(sentences[m_toldCount].ToUtf8()) << "\n";
}

} // namespace SurfaceReport
