#include "measurement/documents/StandaloneSvg.h"

#include "common/NumberText.h"
#include "measurement/charts/Svg.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>
#include <tuple>
#include <utility>

namespace CommonUI::Measurement
{

namespace
{

// What a class of the page's style looks like on paper.
struct SClassStyle {
    std::string_view name;
    std::string_view attributes;
    double strokeWidth = 0; ///< 0 for that of the element around it
};

constexpr std::array c_classes{
    SClassStyle{"middle", "text-anchor=\"middle\""},
    SClassStyle{"end", "text-anchor=\"end\""},
    SClassStyle{"axis", "fill=\"none\" stroke=\"#000\""},
    SClassStyle{"grid", "fill=\"none\" stroke=\"#000\" stroke-opacity=\"0.15\""},
    SClassStyle{"mark", "fill=\"none\" stroke=\"#000\" stroke-opacity=\"0.7\" stroke-dasharray=\"5 4\""},
    SClassStyle{"curve",
                "fill=\"none\" stroke=\"#0B5CAD\" stroke-linejoin=\"round\" stroke-linecap=\"round\"", 1.5},
    SClassStyle{"second",
                "fill=\"none\" stroke=\"#C2410C\" stroke-linejoin=\"round\" stroke-linecap=\"round\"", 1.5},
    SClassStyle{"third",
                "fill=\"none\" stroke=\"#15803D\" stroke-linejoin=\"round\" stroke-linecap=\"round\"", 1.5},
    SClassStyle{"area", "fill=\"#0B5CAD\" fill-opacity=\"0.55\""},
    SClassStyle{"part", "fill=\"#15803D\" fill-opacity=\"0.25\""},
    SClassStyle{"first", "fill=\"#0B5CAD\""},
    SClassStyle{"other", "fill=\"#C2410C\""},
    SClassStyle{"more", "fill=\"#15803D\""},
    SClassStyle{"outline", "fill=\"none\" stroke=\"#000\"", 1.2},
    SClassStyle{"fine", "", 0.6},
    SClassStyle{"halo", "fill=\"none\" stroke=\"#FFF\" stroke-opacity=\"0.8\"", 2.8},
    SClassStyle{"number", "fill=\"#000\" font-size=\"12\" text-anchor=\"middle\""},
};

// A text is written in white below itself where something lies behind it.
constexpr std::string_view c_whiteBelow = "fill=\"#FFF\" stroke=\"#FFF\" stroke-width=\"3\" "
                                          "stroke-linejoin=\"round\"";

double NumberAt(std::string_view text, std::size_t at)
{
    const std::size_t end = text.find_first_not_of("-.0123456789", at);
    double value = 0;
    ParseDouble(CStr::FromUtf8(text.substr(at, end - at)), value);
    return value;
}

// The text of an attribute; empty without it.
std::string_view AttributeOf(std::string_view tag, std::string_view name)
{
    const std::string start = " " + std::string(name) + "=\"";
    const std::size_t at = tag.find(start);
    if (at == tag.npos)
        return {};
    const std::size_t begin = at + start.size();
    return tag.substr(begin, tag.find('"', begin) - begin);
}

// Width and height of a view box "0 0 w h".
std::pair<double, double> SizeOf(std::string_view viewBox)
{
    constexpr std::size_t c_start = 4;
    const std::size_t blank = viewBox.find(' ', c_start);
    return {NumberAt(viewBox, c_start), NumberAt(viewBox, blank + 1)};
}

class CConversion
{
public:
    explicit CConversion(std::string_view element)
        : m_rest(element)
    {
    }

    SStandaloneSvg Run()
    {
        while (!m_rest.empty()) {
            const std::size_t end = std::min(m_rest.find('>'), m_rest.size() - 1) + 1;
            AddTag(m_rest.substr(0, end));
            m_rest.remove_prefix(end);
        }
        return std::move(m_result);
    }

private:
    // A tag with the text in front of it.
    void AddTag(std::string_view piece)
    {
        const std::size_t start = std::min(piece.find('<'), piece.size());
        m_result.bytes += piece.substr(0, start);
        const std::string_view tag = piece.substr(start);
        if (m_result.width == 0)
            AddRoot(tag);
        else if (tag.starts_with("<text"))
            AddText(tag);
        else
            AddOther(tag);
    }
    void AddRoot(std::string_view tag)
    {
        const std::string_view viewBox = AttributeOf(tag, "viewBox");
        std::tie(m_result.width, m_result.height) = SizeOf(viewBox);
        m_result.bytes += "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                          "<svg xmlns=\"http://www.w3.org/2000/svg\" "
                          "xmlns:xlink=\"http://www.w3.org/1999/xlink\" version=\"1.1\" viewBox=\"" +
                          std::string(viewBox) + "\" width=\"" + CoordinateText(m_result.width) +
                          "\" height=\"" + CoordinateText(m_result.height) +
                          "\" font-family=\"Liberation Sans, Arial, sans-serif\" font-size=\"13\">";
    }
    // What is nested has lines as wide as those around it.
    void AddOther(std::string_view tag)
    {
        if (tag.starts_with("<svg") && !AttributeOf(tag, "viewBox").empty()) {
            const auto [width, height] = SizeOf(AttributeOf(tag, "viewBox"));
            m_scale = std::sqrt(NumberAt(AttributeOf(tag, "width"), 0) / width *
                                (NumberAt(AttributeOf(tag, "height"), 0) / height));
        } else if (tag.starts_with("</svg")) {
            m_scale = 1;
        }
        m_result.bytes += WithStyle(tag);
    }
    void AddText(std::string_view tag)
    {
        const std::string_view classes = AttributeOf(tag, "class");
        constexpr std::string_view c_end = "</text>";
        if (classes.find("note") != classes.npos || classes.find("number") != classes.npos) {
            const std::size_t end = m_rest.find(c_end, tag.size());
            const std::size_t begin = m_rest.find('>') + 1;
            std::string below = WithStyle(tag);
            if (const std::size_t fill = below.find(" fill=\"#000\""); fill != below.npos)
                below.erase(fill, std::string_view(" fill=\"#000\"").size());
            below.insert(below.size() - 1, " " + std::string(c_whiteBelow));
            m_result.bytes += below;
            m_result.bytes += m_rest.substr(begin, end - begin);
            m_result.bytes += c_end;
        }
        m_result.bytes += WithStyle(tag);
    }
    // The tag with attributes in place of its classes.
    std::string WithStyle(std::string_view tag) const
    {
        std::string text(tag);
        const std::string_view classes = AttributeOf(tag, "class");
        if (const std::size_t at = text.find(" class=\""); at != text.npos)
            text.replace(at, classes.size() + std::string_view(" class=\"\"").size(), StyleOf(classes));
        constexpr std::string_view c_link = " href=\"";
        if (const std::size_t at = text.find(c_link); at != text.npos)
            text.insert(at + 1, "xlink:");
        return text;
    }
    std::string StyleOf(std::string_view classes) const
    {
        std::string style;
        double strokeWidth = 0;
        while (!classes.empty()) {
            const std::string_view name = classes.substr(0, classes.find(' '));
            classes.remove_prefix(std::min(classes.size(), name.size() + 1));
            const auto found = std::ranges::find(c_classes, name, &SClassStyle::name);
            if (found == c_classes.end())
                continue;
            strokeWidth = found->strokeWidth > 0 ? found->strokeWidth : strokeWidth;
            if (!found->attributes.empty())
                style += " " + std::string(found->attributes);
        }
        if (strokeWidth > 0)
            style += " stroke-width=\"" + CoordinateText(strokeWidth / m_scale) + "\"";
        return style;
    }

    std::string_view m_rest;
    double m_scale = 1; // of the coordinates within the innermost picture
    SStandaloneSvg m_result{};
};

} // namespace

SStandaloneSvg MakeStandaloneSvg(const std::string& element)
{
    return CConversion(element).Run();
}

} // namespace CommonUI::Measurement
