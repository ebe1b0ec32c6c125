#include <CommonUI/common/Str.h>
#include <CommonUI/model/Enumerations.h>

#include <cstdio>

int main()
{
    using namespace CommonUI;
    const auto& standards = GetAnalysisStandardsEnum();
    const CStr name = standards.GetIniName(static_cast<int>(EAnalysisStandards::ISO4287));
    const CStr line = CStr::Format(u"%d standards, among them %s", standards.GetCount(), name);
    std::puts(line.ToUtf8().c_str());
    return name == u"ISO4287" ? 0 : 1;
}
