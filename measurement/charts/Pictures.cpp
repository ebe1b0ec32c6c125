#include "measurement/charts/Pictures.h"

#include "analysis/areal/HeightParameters.h"
#include "measurement/charts/HeightCharts.h"
#include "measurement/charts/OutputCharts.h"
#include "measurement/charts/Plot.h"
#include "measurement/charts/ReportPictures.h"

#include <utility>

namespace CommonUI::Measurement
{

using Analysis::CMaterialRatio;
using Analysis::SSurface;

namespace
{

std::string Figure(const SPicture& picture)
{
    return "<figure>\n<figcaption>" + EscapeXml(picture.caption.ToUtf8()) + "</figcaption>\n" + picture.svg +
           "</figure>\n";
}

// The surface, and what its analysis has besides the table. A map has a scale of lengths.
void AddOutputs(const SSurface& surface, const SOutputs& outputs, std::vector<std::string>& pictures)
{
    pictures.push_back(Figure(surface.IsProfile() ? PictureCrossSection(surface) : PictureSurface(surface)));
    for (const SOutputImage& image : outputs.images) {
        if (!image.isLength || image.surface.IsProfile())
            continue;
        SPicture picture = PictureSurface(image.surface);
        if (!picture.svg.empty())
            picture.caption = image.name;
        pictures.push_back(Figure(picture));
    }
    for (const SOutputCurve& curve : outputs.curves)
        if (std::string svg = DrawOutputCurve(curve); !svg.empty())
            pictures.push_back(Figure({curve.name, std::move(svg)}));
}

} // namespace

std::vector<std::string> MakePictures(const SInput& input, const SMethod& method, const SResults& results)
{
    const SSurface& surface = input.surface;
    std::vector<std::string> pictures{GetChartStyle() + "<div class=\"charts\">\n"};
    if (Analysis::FindRange(surface.heights).count == 0) {
        pictures.push_back(Figure({u"No pictures: the surface has no valid point"}));
    } else if (results.outputs) {
        AddOutputs(surface, *results.outputs, pictures);
    } else if (const SFoundGrains* const grains = results.grains.get()) {
        pictures.push_back(Figure(PictureGrains(surface, *grains)));
        pictures.push_back(
            Figure({u"Heights", DrawHistogram(CMaterialRatio(surface.heights), grains->limit.threshold)}));
    } else {
        if (!surface.IsProfile())
            pictures.push_back(Figure(PictureSurface(surface)));
        pictures.push_back(Figure(PictureProfile(surface, method.cutoff)));
        const CMaterialRatio curve(surface.heights);
        pictures.push_back(Figure({u"Heights", DrawHistogram(curve)}));
        pictures.push_back(Figure({u"Material ratio curve", DrawMaterialRatio(curve, !surface.IsProfile())}));
        pictures.push_back(Figure(PictureSpectrum(surface)));
    }
    pictures.emplace_back("</div>\n");
    return pictures;
}

} // namespace CommonUI::Measurement
