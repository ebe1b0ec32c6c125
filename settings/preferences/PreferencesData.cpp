#include "settings/preferences/PreferencesData.h"

#include "common/ini/SectionScope.h"
#include "common/Rollback.h"
#include "model/Preference.h"

namespace CommonUI
{

namespace
{

constexpr std::u16string_view c_earlierSection = u"Image_Window_3D";
constexpr std::u16string_view c_accelerationMode = u"AccelerationMode";
constexpr std::u16string_view c_previewTargetTime = u"PreviewTargetTime";
constexpr std::u16string_view c_answerKeys = u"DontShowAgainKeys";
constexpr std::u16string_view c_decimalSeparator = u"DecimalSeparator";

constexpr SEnumRow c_accelerationModes[] = {
    {.value = 0, .iniName = u"Software", .textId = 10221},
    {.value = 1, .iniName = u"Automatic", .textId = 10222},
    {.value = 2, .iniName = u"Hardware", .textId = 10223},
};

constexpr SEnumRow c_decimalSeparators[] = {
    {.value = 0, .iniName = u"Period", .textId = 0, .literal = u"."},
    {.value = 1, .iniName = u"Comma", .textId = 0, .literal = u","},
};

CStr AnswerKey(const CStr& question)
{
    return u"DontShowAgain_" + question;
}

} // namespace

const CEnum<E3DAccelerationMode>& Get3DAccelerationModeEnum()
{
    return GetEnumOfRows<E3DAccelerationMode, c_accelerationModes, E3DAccelerationMode::Automatic>();
}

const CEnum<CPreferencesData::EDecimalSeparator>& CPreferencesData::GetDecimalSeparatorEnum()
{
    return GetEnumOfRows<EDecimalSeparator, c_decimalSeparators>();
}

CPreferencesData::CPreferencesData()
{
    CPreferencesData::Init();
}

CPreferencesData::~CPreferencesData() = default;

void CPreferencesData::Init()
{
    m_accelerationMode = E3DAccelerationMode::Automatic;
    m_previewTargetTime = 0.05;
    m_answers.clear();
}

bool CPreferencesData::Load(CInifile& ini)
{
    CRollback rollback(*this);
    const bool done = CBaseData::Load(ini, false);
    ClearModified();
    LoadAccelerationMode(ini);
    const CSectionScope scope(ini, c_section);
    ReadPreference(ini, c_previewTargetTime, m_previewTargetTime);
    LoadAnswers(ini);
    LoadDecimalSeparator(ini);
    rollback.Commit();
    return done;
}

void CPreferencesData::LoadAccelerationMode(CInifile& ini)
{
    CSectionScope scope(ini, c_section);
    if (!ini.HasKey(c_accelerationMode)) {
        ini.SelectSection(c_earlierSection);
        if (ini.HasKey(c_accelerationMode))
            SetModified();
    }
    const int mode = ini.ReadInt(c_accelerationMode, static_cast<int>(m_accelerationMode));
    // No warning: later versions may know more modes.
    m_accelerationMode = mode >= 0 && mode <= 2 ? E3DAccelerationMode{mode} : E3DAccelerationMode::Automatic;
}

void CPreferencesData::LoadAnswers(const CInifile& ini)
{
    m_answers.clear();
    for (const CStr& question : ini.ReadTexts(c_answerKeys))
        m_answers[question] = ini.ReadBool(AnswerKey(question), false);
}

void CPreferencesData::LoadDecimalSeparator(const CInifile& ini)
{
    const auto& separators = GetDecimalSeparatorEnum();
    const CStr key =
        ini.ReadText(c_decimalSeparator, separators.GetIniName(static_cast<int>(m_decimalSeparator)));
    if (separators.FindIniName(key) == separators.end())
        WarnOfPreference(CStr::Format(u"%s: there is no \"%s\"", CStr(c_decimalSeparator), key));
    m_decimalSeparator = separators.GetValue(key);
}

bool CPreferencesData::Save(CInifile& ini)
{
    const CSectionScope scope(ini, c_section);
    ini.WriteInt(c_accelerationMode, static_cast<int>(m_accelerationMode));
    ini.WriteDouble(c_previewTargetTime, m_previewTargetTime);
    SaveAnswers(ini);
    ClearModified();
    return true;
}

void CPreferencesData::SaveAnswers(CInifile& ini) const
{
    for (const CStr& question : ini.ReadTexts(c_answerKeys)) {
        if (!m_answers.contains(question))
            ini.RemoveKey(AnswerKey(question));
    }
    std::vector<CStr> questions;
    questions.reserve(m_answers.size());
    for (const auto& [question, answer] : m_answers) {
        ini.WriteBool(AnswerKey(question), answer);
        questions.push_back(question);
    }
    ini.WriteTexts(c_answerKeys, questions);
}

void CPreferencesData::Set3DAccelerationMode(E3DAccelerationMode mode) noexcept
{
    m_accelerationMode = mode;
    SetModified();
}

void CPreferencesData::Set3DPreviewTargetTime(double seconds) noexcept
{
    m_previewTargetTime = seconds;
    SetModified();
}

void CPreferencesData::SetDecimalSeparator(EDecimalSeparator separator) noexcept
{
    m_decimalSeparator = separator;
    SetModified();
}

bool CPreferencesData::GetDontShowAgain(const CStr& key, bool& answer) const
{
    const auto found = m_answers.find(key);
    if (found == m_answers.end())
        return false;
    answer = found->second;
    return true;
}

void CPreferencesData::RegisterDontShowAgain(const CStr& key, bool answer)
{
    m_answers[key] = answer;
}

bool CPreferencesData::SetupLocale() const
{
    return true;
}

} // namespace CommonUI
