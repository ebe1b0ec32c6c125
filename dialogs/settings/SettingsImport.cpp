#include "dialogs/settings/SettingsImport.h"

#include "common/file/FileBytes.h"
#include "common/PathText.h"
#include "common/StringTable.h"
#include "dialogs/settings/detail/SettingsMenuTexts.h"
#include "platform/FileDialogService.h"
#include "platform/MessageBoxService.h"
#include "settings/factory/SettingsFactory.h"
#include "settings/readers/AnimationSettings.h"
#include "settings/readers/BatchSequenceSettings.h"
#include "settings/readers/ColorScale.h"
#include "settings/readers/FilterSettings.h"
#include "settings/readers/GrainThresholdSettings.h"
#include "settings/readers/PlaneCorrectionSettings.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <utility>

namespace CommonUI
{

namespace
{

bool Fail(const CStr& text)
{
    GetMessageBoxService().Show({text, MessageBoxStyle::c_ok | MessageBoxStyle::c_error});
    return false;
}

CStr GetTypeText(ESettingType type)
{
    return GetSettingTypeEnum().GetFriendlyString(static_cast<int>(type));
}

template<class TSet>
bool Reads(CInifile& ini)
{
    return TSet().Load(ini);
}

bool HasKeys(CInifile& ini)
{
    return std::ranges::any_of(ini.GetSections(), [&](const CStr& section) {
        ini.SelectSection(section);
        return !ini.GetKeys().empty();
    });
}

// Whether the tool of a type takes a set. What the application reads itself has at least a key.
bool IsReadable(ESettingType type, CInifile& ini)
{
    switch (type) {
    case ESettingType::Batch:
        return Reads<SBatchSequenceSettings>(ini);
    case ESettingType::Filter:
        return Reads<SFilterSettings>(ini);
    case ESettingType::PlaneCorr:
        return Reads<SPlaneCorrectionSettings>(ini);
    case ESettingType::ColorScale:
        return Reads<SColorScale>(ini);
    case ESettingType::PnP:
        return Reads<SGrainThresholdSettings>(ini);
    case ESettingType::Animation:
        return Reads<SAnimationSettings>(ini);
    default:
        return HasKeys(ini);
    }
}

CInifile Parse(const std::string& bytes)
{
    CInifile ini;
    ini.LoadBytes(bytes);
    return ini;
}

} // namespace

CSettingsImport::CSettingsImport(ESettingType type)
    : m_type(type)
{
}

bool CSettingsImport::PrepareByPrompt()
{
    CStr path;
    return GetFileDialogService().Choose(CSettingsFactory::MakeOpenDialog(m_type), path) && Prepare(path);
}

bool CSettingsImport::Prepare(const CStr& path)
{
    CStr reason;
    if (!ReadFileBytes(path, m_bytes, CSettingsFactory::c_maximumFileSize, reason))
        return Fail(CStr::Format(GetString(c_cannotReadText), path, reason));
    if (!IsSet(m_bytes))
        return Fail(CStr::Format(GetString(c_noSetText), path, GetTypeText(m_type)));
    m_target = CSettingsFactory::GetCustomPlace(m_type).folder +
               CSettingsFactory::AddExtension(m_type, CStr(GetFileName(path)));
    if (!ReadTarget(m_target, m_before))
        return false;
    Compare();
    return true;
}

bool CSettingsImport::IsSet(const std::string& bytes) const
{
    if (m_type == ESettingType::ActiveReport)
        return true;
    CInifile ini = Parse(bytes);
    return IsReadable(m_type, ini);
}

// What a file has, if there is one. False, after a message box, for one that cannot be read.
bool CSettingsImport::ReadTarget(const CStr& path, CBytes& bytes)
{
    bytes.reset();
    CStr reason;
    if (!FileExists(path) ||
        ReadFileBytes(path, bytes.emplace(), CSettingsFactory::c_maximumFileSize, reason))
        return true;
    return Fail(CStr::Format(GetString(c_cannotReadText), path, reason));
}

void CSettingsImport::Compare()
{
    m_effect = !m_before ? EEffect::New : *m_before == m_bytes ? EEffect::Same : EEffect::Replaced;
    m_keys.clear();
    if (m_type != ESettingType::ActiveReport)
        m_keys = CompareSettings(Parse(m_before.value_or(std::string())), Parse(m_bytes));
}

CStr CSettingsImport::Describe() const
{
    constexpr int c_texts[] = {c_newSetText, c_replacedSetText, c_sameSetText};
    return CStr::Format(GetString(c_texts[static_cast<int>(m_effect)]), CStr(GetFileName(m_target)));
}

bool CSettingsImport::Apply()
{
    CBytes now;
    if (!ReadTarget(m_target, now))
        return false;
    if (now != m_before)
        return Fail(CStr::Format(GetString(c_changedMeanwhileText), m_target));
    CStr reason;
    std::error_code error;
    std::filesystem::create_directories(ToPath(GetFolder(m_target)), error);
    return ReplaceFileBytes(m_target, m_bytes, reason) ||
           Fail(CStr::Format(GetString(c_cannotWriteText), m_target, reason));
}

} // namespace CommonUI
