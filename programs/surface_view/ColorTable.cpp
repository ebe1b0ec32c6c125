#include "programs/surface_view/ColorTable.h"

#include "measurement/charts/SurfaceMap.h"

#include <stdexcept>

namespace SurfaceView
{

using namespace CommonUI;

namespace
{

EBuiltInSetting SettingOf(const CEnumValue<int>& row)
{
    return static_cast<EBuiltInSetting>(row.GetValue());
}

bool IsColorScale(const CEnumValue<int>& row)
{
    return GetSettingType(SettingOf(row)) == ESettingType::ColorScale;
}

[[noreturn]] void ThrowUnknown(const std::string& name)
{
    CStr known;
    for (const auto& row : GetBuiltInSettingEnum()) {
        if (!IsColorScale(row))
            continue;
        if (!known.IsEmpty())
            known += u", ";
        known += row.GetFriendlyString();
    }
    throw std::runtime_error("--color: \"" + name + "\" is none of " + known.ToUtf8());
}

EBuiltInSetting FindScale(const std::string& name)
{
    const CStr wanted = CStr::FromUtf8(name);
    for (const auto& row : GetBuiltInSettingEnum()) {
        if (IsColorScale(row) && (row.GetIniName() == wanted || row.GetFriendlyString() == wanted))
            return SettingOf(row);
    }
    ThrowUnknown(name);
}

} // namespace

std::vector<SColor> GetColorTable(const std::string& name)
{
    return Measurement::GetBuiltInColorScale(FindScale(name)).MakeTable(1024);
}

} // namespace SurfaceView
