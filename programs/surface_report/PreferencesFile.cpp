#include "programs/surface_report/PreferencesFile.h"

#include "measurement/EditPreferences.h"
#include "measurement/FailureReason.h"
#include "model/ParameterList.h"
#include "programs/command_line/ForOption.h"

#include <filesystem>
#include <stdexcept>

namespace SurfaceReport
{

using CommandLine::ForOption;

using CommonUI::Measurement::CFailureReason;

CPreferencesFile::CPreferencesFile(const SOptions& options)
{
    if (options.preferences.empty())
        return;
    m_ini.SetFileName(options.preferences.u16string());
    const bool exists = std::filesystem::exists(options.preferences);
    if (const CFailureReason reason; exists && !m_ini.Load())
        throw std::runtime_error(reason.GetText().ToUtf8());
    m_factory.Load(m_ini);
    m_ini.SelectSection(c_section);
    if (exists)
        m_manager.Load(m_ini);
    for (const CommonUI::CStr& change : options.sets)
        ForOption("--set", [&] { CommonUI::Measurement::EditPreferences(m_manager, change); });
    m_usesSettings = !options.settings.empty() || !options.grainSet.IsEmpty() || !options.batch.IsEmpty();
    m_needsSaving = !exists || !options.sets.empty() || m_usesSettings;
}

void CPreferencesFile::Save()
{
    if (!m_needsSaving)
        return;
    m_manager.Save(m_ini);
    if (m_usesSettings)
        m_factory.Save(m_ini);
    if (const CFailureReason reason; !m_ini.SaveMerged(CommonUI::IsDynamicParametersSection))
        throw std::runtime_error(reason.GetText().ToUtf8());
}

} // namespace SurfaceReport
