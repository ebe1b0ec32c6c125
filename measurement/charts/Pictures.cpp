#include "measurement/charts/Pictures.h"

#include "analysis/areal/HeightParameters.h"
#include "analysis/profile/PowerSpectrum.h"
#include "analysis/profile/SplitProfile.h"
#include "measurement/charts/HeightCharts.h"
#include "measurement/charts/Plot.h"
#include "measurement/charts/ProfileChart.h"
#include "measurement/charts/SpectrumChart.h"
#include "measurement/charts/SurfaceMap.h"
#include "measurement/GrainLimit.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

using Analysis::CMaterialRatio;
using Analysis::SSurface;

namespace
{

constexpr std::size_t c_mostFrequencies = 256;

std::string Figure(const CStr& caption, const std::string& svg)
{
    return "<figure>\n<figcaption>" + EscapeXml(caption.ToUtf8()) + "</figcaption>\n" + svg + "</figure>\n";
}

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

std::string ProfileFigure(const SSurface& surface, std::optional<double> cutoff)
{
    const std::size_t line = FindMiddleLine(surface);
    const std::string svg = DrawProfile(surface.GetLine(line), surface.dx,
                                        cutoff.value_or(Analysis::DefaultCutoff(surface.points, surface.dx)));
    return Figure(
        surface.IsProfile() ? u"Profile" : CStr::Format(u"Profile %u of %u", line + 1, surface.lines), svg);
}

std::string SpectrumFigure(const SSurface& surface)
{
    const std::string svg = DrawSpectrum(Analysis::ComputePowerSpectrum(surface, c_mostFrequencies));
    return Figure(svg.empty()           ? u"No power spectrum: the profiles are flat or too short"
                  : surface.IsProfile() ? u"Power spectrum"
                                        : u"Power spectrum, the mean of the profiles",
                  svg);
}

std::string MapFigure(const SSurface& surface, const CStr& caption, const Analysis::SGrainMap* grains)
{
    const std::string svg =
        DrawSurfaceMap(surface, GetBuiltInColorScale(EBuiltInSetting::CSQuickLaunchDefault2D), grains);
    return Figure(svg.empty() ? u"No map: the program is built without libpng" : caption, svg);
}

CStr GrainCaption(const SFoundGrains& grains)
{
    return CStr::Format(u"%u ", grains.map.count) + DescribeLimit(grains.limit) + u"; numbers of the largest";
}

} // namespace

std::vector<std::string> MakePictures(const SInput& input, const SMethod& method, const SResults& results)
{
    const SSurface& surface = input.surface;
    std::vector<std::string> pictures{GetChartStyle() + "<div class=\"charts\">\n"};
    if (Analysis::FindRange(surface.heights).count == 0) {
        pictures.push_back(Figure(u"No pictures: the surface has no valid point", {}));
    } else if (const SFoundGrains* const grains = results.grains.get()) {
        pictures.push_back(MapFigure(surface, GrainCaption(*grains), &grains->map));
        pictures.push_back(
            Figure(u"Heights", DrawHistogram(CMaterialRatio(surface.heights), grains->limit.threshold)));
    } else {
        if (!surface.IsProfile())
            pictures.push_back(MapFigure(surface, u"Surface", nullptr));
        pictures.push_back(ProfileFigure(surface, method.cutoff));
        const CMaterialRatio curve(surface.heights);
        pictures.push_back(Figure(u"Heights", DrawHistogram(curve)));
        pictures.push_back(Figure(u"Material ratio curve", DrawMaterialRatio(curve, !surface.IsProfile())));
        pictures.push_back(SpectrumFigure(surface));
    }
    pictures.emplace_back("</div>\n");
    return pictures;
}

} // namespace CommonUI::Measurement
