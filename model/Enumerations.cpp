#include "model/Enumerations.h"

namespace CommonUI
{

const CEnum<EAnalysisStandards>& GetAnalysisStandardsEnum()
{
    static constexpr SEnumRow c_rows[] = {
        {0, u"None", 7808},
        {1, u"VORNLegacy", 7810},
        {2, u"ISO4287", 7812},
        {4, u"ISO13565", 7814},
        {3, u"ISO12085", 7816},
        {.value = 5, .iniName = u"MUFU", .textId = 0, .literal = u"MUFU"},
        {6, u"RoughnessPlugIns", 7818},
    };
    static const auto& values = *new auto(CEnum<EAnalysisStandards>::FromRows(c_rows));
    return values;
}

} // namespace CommonUI
