#pragma once

#include "measurement/Choices.h"
#include "measurement/documents/ReportDocument.h"
#include "tests/analysis/TestSurfaces.h"

#include <optional>

namespace CommonUI::Measurement
{

/// A measurement with all that a document is made of.
class CMeasured
{
public:
    /// @param threshold of particles; none are measured without it
    CMeasured(Analysis::SSurface surface, std::optional<double> threshold,
              const std::vector<CStr>& keys = {u"Sa", u"Str", u"Sq", u"4287Ra", u"4287RSm"})
        : m_input{.surface = std::move(surface)}
    {
        const CAnalysisPreferencesManager manager;
        if (std::ranges::any_of(m_input.surface.heights, [](double z) { return !std::isnan(z); }))
            m_roughness.emplace(ComputeResults(m_input, MakeChoices(manager, {.keys = keys})), false);
        if (!threshold)
            return;
        m_method.grains = SGrainLimit{*threshold, Analysis::EGrainKind::Particle};
        m_grains.emplace(ComputeResults(m_input, MakeChoices(manager, {.method = m_method})), false);
    }
    CMeasured(const CMeasured&) = delete;
    CMeasured& operator=(const CMeasured&) = delete;

    const CReportTables& GetRoughness() const { return *m_roughness; }
    SDocumentSource GetSource() const
    {
        return {.input = m_input,
                .method = m_method,
                .roughness = m_roughness ? &*m_roughness : nullptr,
                .grains = m_grains ? &*m_grains : nullptr};
    }

private:
    SInput m_input;
    SMethod m_method{};
    std::optional<CReportTables> m_roughness{};
    std::optional<CReportTables> m_grains{};
};

/// A wavy surface with some islands.
inline Analysis::SSurface MakeWaves(std::size_t points = 40, std::size_t lines = 30)
{
    Analysis::SSurface surface = Analysis::MakeSurface(points, lines, [](double x, double y) {
        return 1e-7 * (std::sin(x + x * y / 60) + std::cos(y / 2));
    });
    surface.fileName = "waves.sdf";
    return surface;
}

/// The file of a document.
inline std::string DocumentOf(const SReportTemplateSettings& layout, const SDocumentSource& source)
{
    std::string bytes;
    GetDocumentFile(layout, source).write([&bytes](std::string_view piece) { bytes += piece; });
    return bytes;
}

/// All blocks there are.
inline std::vector<EReportBlock> AllBlocks()
{
    std::vector<EReportBlock> blocks;
    for (const auto& row : GetReportBlockEnum())
        blocks.push_back(EReportBlock{row.GetValue()});
    return blocks;
}

/// A name that is trouble for whoever writes it as it is.
inline const CStr c_hostileName =
    std::u16string(u"<b>\"A&B\"</b>\x01\t\x1B[31m ]]> \xD800 \xDC00 \xFFFF 'ä'  \x7F") + u'\0' + u'.';
/// What remains of it.
inline const CStr c_plainName = u"<b>\"A&B\"</b>   [31m ]]> � � � 'ä'    .";

} // namespace CommonUI::Measurement
