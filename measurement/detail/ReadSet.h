#pragma once

#include "measurement/NamedSet.h"
#include "measurement/Steps.h"

#include <string_view>

namespace CommonUI::Measurement
{

/// Reads a plane correction or a filter.
/// @param subject by which it was named, for the message
/// @throws ERequest for an unusable set
SStep ReadStep(SNamedSet& set, const CStr& subject);

/// The same for roughness settings of images or profiles.
SRoughnessSet ReadRoughness(SNamedSet& set, const CStr& subject);

/// The same for a report template.
SReportTemplate ReadReportTemplate(SNamedSet& set, const CStr& subject);

/// Whether a file of a report template is a document, in which an application fills fields.
bool IsDocumentTemplate(std::u16string_view path);

/// Why such a one is not used.
inline constexpr std::u16string_view c_documentRefusal = u"a template that is a document is not read";

} // namespace CommonUI::Measurement
