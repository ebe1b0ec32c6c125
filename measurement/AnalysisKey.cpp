#include "measurement/detail/AnalysisKey.h"

#include "model/RoughnessCatalogue.h"

namespace CommonUI::Measurement
{

std::string AnalysisKey(const CParameter& parameter)
{
    const CStr key = parameter.HasParent() ? GetRoughnessParametersEnum().GetIniName(parameter.GetBaseValue())
                                           : parameter.GetIniName();
    return key.ToUtf8();
}

} // namespace CommonUI::Measurement
