#include <CommonUI/analysis/areal/ArealParameters.h>
#include <CommonUI/common/Str.h>
#include <CommonUI/common/Version.h>
#include <CommonUI/formats/SurfaceReader.h>
#include <CommonUI/measurement/Choices.h>
#include <CommonUI/model/Enumerations.h>

#include <cstdio>

// Uses each library once.
int main()
{
    using namespace CommonUI;
    const CStr version =
        CStr::Format(u"%d.%d.%d", COMMONUI_VERSION_MAJOR, COMMONUI_VERSION_MINOR, COMMONUI_VERSION_PATCH);
    if (GetVersionNumber() != COMMONUI_VERSION || GetVersion() != version) {
        std::puts("The library is of another version than its headers.");
        return 1;
    }
    const auto& standards = GetAnalysisStandardsEnum();
    const CStr name = standards.GetIniName(static_cast<int>(EAnalysisStandards::ISO4287));
    const CStr line = CStr::Format(u"%d standards, among them %s", standards.GetCount(), name);
    std::puts(line.ToUtf8().c_str());

    const CAnalysisPreferencesManager manager;
    const Measurement::SChoices choices = Measurement::MakeChoices(manager, {});
    std::printf("%zu areal parameters, %zu to choose from\n", Analysis::GetArealQuantities().size(),
                choices.surface.size());
    try {
        Formats::ReadSurface("no such file");
    } catch (const Formats::EReadError& error) {
        std::puts(error.what());
        return name == u"ISO4287" && !choices.surface.empty() ? 0 : 1;
    }
    return 1;
}
