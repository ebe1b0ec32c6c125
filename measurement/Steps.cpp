#include "measurement/Steps.h"

#include "measurement/detail/ReadSet.h"
#include "measurement/NamedSet.h"
#include "settings/readers/RoughnessSettings.h"

#include <algorithm>
#include <iterator>
#include <string>

namespace CommonUI::Measurement
{

namespace
{

// Whether a template that is a document is meant, which is no text to be loaded.
bool NamesDocument(const CSettingsFactory& factory, const CStr& userSpec)
{
    CSettingsFactory::SParseInfo info;
    return factory.ParseUserSpec(userSpec, info) && info.type == ESettingType::ActiveReport &&
           !info.entries.empty() && info.entries.front().m_IsFile &&
           IsDocumentTemplate(info.entries.front().m_File.View());
}

void AddSet(CSettingsFactory& factory, const CStr& userSpec, SSets& sets)
{
    using enum ESettingType;
    if (NamesDocument(factory, userSpec))
        throw ERequest(userSpec, CStr(c_documentRefusal));
    SNamedSet set = LoadNamedSet(
        factory, userSpec, {PlaneCorr, Filter, ImageRoughness, ProfileRoughness, ActiveReport},
        u"only plane corrections (PlaneCorr), filters (Filter), roughness settings "
        u"(ImageRoughness, ProfileRoughness) and report templates (ActiveReport) can be applied");
    if (set.type == PlaneCorr || set.type == Filter)
        sets.steps.push_back(ReadStep(set, userSpec));
    else if (set.type == ActiveReport)
        sets.report = ReadReportTemplate(set, userSpec);
    else
        sets.roughness.push_back(ReadRoughness(set, userSpec));
}

} // namespace

SStep ReadStep(SNamedSet& set, const CStr& subject)
{
    SStep step{.userSpec = subject, .name = set.name, .settings = {}};
    if (set.type == ESettingType::PlaneCorr)
        step.settings = ReadNamedSet<SPlaneCorrectionSettings>(set, subject);
    else
        step.settings = ReadNamedSet<SFilterSettings>(set, subject);
    return step;
}

SRoughnessSet ReadRoughness(SNamedSet& set, const CStr& subject)
{
    const auto analysis =
        set.type == ESettingType::ImageRoughness ? EAnalysis::Roughness : EAnalysis::RoughnessProfile;
    const CFailureReason reason;
    CRoughnessAnalysisPreferencesData data(analysis);
    if (!LoadRoughnessSettings(set.settings, data))
        throw ERequest(subject, reason.GetText());
    return {subject, set.name, std::move(data)};
}

SReportTemplate ReadReportTemplate(SNamedSet& set, const CStr& subject)
{
    return {set.settings.GetEntryInfo().m_Name.TrimRight(),
            ReadNamedSet<SReportTemplateSettings>(set, subject)};
}

bool IsDocumentTemplate(std::u16string_view path)
{
    const std::size_t dot = path.rfind(u'.');
    std::u16string suffix(dot == path.npos ? std::u16string_view() : path.substr(dot));
    std::ranges::transform(suffix, suffix.begin(), [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit - u'A' + u'a') : unit;
    });
    constexpr std::u16string_view c_documents[] = {u".htm", u".html", u".doc", u".docx", u".docm"};
    return std::ranges::find(c_documents, suffix) != std::end(c_documents);
}

SSets LoadSets(CSettingsFactory& factory, const std::vector<CStr>& userSpecs)
{
    SSets sets;
    for (const CStr& userSpec : userSpecs)
        AddSet(factory, userSpec, sets);
    return sets;
}

} // namespace CommonUI::Measurement
