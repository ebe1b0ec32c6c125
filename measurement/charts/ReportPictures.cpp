#include "measurement/charts/ReportPictures.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/profile/PowerSpectrum.h"
#include "analysis/profile/SplitProfile.h"
#include "measurement/charts/PerspectiveView.h"
#include "measurement/charts/ProfileChart.h"
#include "measurement/charts/SpectrumChart.h"
#include "measurement/charts/SurfaceMap.h"
#include "measurement/GrainLimit.h"

namespace CommonUI::Measurement
{

using Analysis::SSurface;

namespace
{

constexpr std::size_t c_mostFrequencies = 256;

// The line nearest to the middle that has two valid points, of two equally near ones the first.
std::size_t FindMiddleLine(const SSurface& surface)
{
    const std::size_t middle = surface.lines / 2;
    for (std::size_t distance = 0; distance <= middle; ++distance) {
        for (const std::size_t line : {middle - distance, middle + distance}) {
            if (line < surface.lines && Analysis::FindRange(surface.GetLine(line)).count >= 2)
                return line;
        }
    }
    return middle;
}

SPicture PictureLine(const SSurface& surface, const CStr& name, double cutoff)
{
    const std::size_t line = FindMiddleLine(surface);
    return {surface.IsProfile() ? name : name + CStr::Format(u" %u of %u", line + 1, surface.lines),
            DrawProfile(surface.GetLine(line), surface.dx, cutoff)};
}

SPicture PictureMap(const SSurface& surface, const CStr& caption, const Analysis::SGrainMap* grains)
{
    std::string svg =
        DrawSurfaceMap(surface, GetBuiltInColorScale(EBuiltInSetting::CSQuickLaunchDefault2D), grains);
    return {svg.empty() ? u"No map: the program is built without libpng" : caption, std::move(svg)};
}

} // namespace

SPicture PictureSurface(const SSurface& surface)
{
    return PictureMap(surface, u"Surface", nullptr);
}

SPicture PictureGrains(const SSurface& surface, const SFoundGrains& grains)
{
    return PictureMap(surface,
                      CStr::Format(u"%u ", grains.map.count) + DescribeLimit(grains.limit) +
                          u"; numbers of the largest",
                      &grains.map);
}

SPicture PicturePerspective(const SSurface& surface)
{
    return {u"Surface in perspective",
            DrawPerspective(surface, GetBuiltInColorScale(EBuiltInSetting::CSQuickLaunchDefault3D))};
}

SPicture PictureCrossSection(const SSurface& surface)
{
    return PictureLine(surface, u"Cross section", 0);
}

SPicture PictureProfile(const SSurface& surface, std::optional<double> cutoff)
{
    return PictureLine(surface, u"Profile",
                       cutoff.value_or(Analysis::DefaultCutoff(surface.points, surface.dx)));
}

SPicture PictureSpectrum(const SSurface& surface)
{
    std::string svg = DrawSpectrum(Analysis::ComputePowerSpectrum(surface, c_mostFrequencies));
    return {svg.empty()           ? u"No power spectrum: the profiles are flat or too short"
            : surface.IsProfile() ? u"Power spectrum"
                                  : u"Power spectrum, the mean of the profiles",
            std::move(svg)};
}

} // namespace CommonUI::Measurement
