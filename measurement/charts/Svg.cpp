#include "measurement/charts/Svg.h"

#include "common/NumberText.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Measurement
{

namespace
{

// Far outside of every picture; browsers do not count further than some millions.
constexpr double c_farthest = 1e5;

bool IsPlain(char character)
{
    return character >= ' ' && character < 0x7F && character != '<' && character != '>' && character != '&' &&
           character != '"';
}

bool IsControl(char16_t unit)
{
    return unit < u' ' || (unit >= 0x7F && unit <= 0x9F);
}

} // namespace

std::string CoordinateText(double value)
{
    if (std::isnan(value))
        return "0";
    const CNumberText number(std::clamp(value, -c_farthest, c_farthest), {.conversion = 'f', .precision = 2});
    std::string text(number.View());
    text.erase(text.find_last_not_of('0') + 1);
    if (text.back() == '.')
        text.pop_back();
    return text == "-0" ? "0" : text;
}

std::string EscapeXml(std::string_view text)
{
    if (std::ranges::all_of(text, IsPlain))
        return std::string(text);
    std::u16string line(CStr::FromUtf8(text).View());
    for (char16_t& unit : line) {
        if (IsControl(unit))
            unit = u' ';
        else if (unit >= 0xFFFE) // no characters of XML
            unit = u'\xFFFD';
    }
    return CStr(line)
        .Replace(u"&", u"&amp;")
        .Replace(u"<", u"&lt;")
        .Replace(u">", u"&gt;")
        .Replace(u"\"", u"&quot;")
        .ToUtf8();
}

void CSvgPath::MoveTo(double x, double y)
{
    Append('M', x, y);
}

void CSvgPath::LineTo(double x, double y)
{
    Append('L', x, y);
}

void CSvgPath::Append(char command, double x, double y)
{
    m_data += command;
    m_data += CoordinateText(x);
    m_data += ' ';
    m_data += CoordinateText(y);
}

SSvgAttribute::SSvgAttribute(std::string_view attribute, std::string_view text)
    : name(attribute)
    , value(EscapeXml(text))
{
}

SSvgAttribute::SSvgAttribute(std::string_view attribute, const char* text)
    : SSvgAttribute(attribute, std::string_view(text))
{
}

SSvgAttribute::SSvgAttribute(std::string_view attribute, double coordinate)
    : name(attribute)
    , value(CoordinateText(coordinate))
{
}

CSvg::CSvg(double width, double height, const CStr& title, const CStr& description)
{
    Open("svg", {{"xmlns", "http://www.w3.org/2000/svg"},
                 {"class", "chart"},
                 {"viewBox", "0 0 " + CoordinateText(width) + ' ' + CoordinateText(height)},
                 {"width", "100%"},
                 {"role", "img"}});
    AddTextElement("title", title);
    AddTextElement("desc", description);
}

void CSvg::Begin(std::string_view element, CAttributes attributes)
{
    m_text += '<';
    m_text += element;
    for (const SSvgAttribute& attribute : attributes) {
        m_text += ' ';
        m_text += attribute.name;
        m_text += "=\"";
        m_text += attribute.value;
        m_text += '"';
    }
}

void CSvg::Add(std::string_view element, CAttributes attributes)
{
    Begin(element, attributes);
    m_text += "/>\n";
}

void CSvg::AddTextElement(std::string_view element, const CStr& text)
{
    Begin(element, {});
    m_text += '>' + EscapeXml(text.ToUtf8()) + "</";
    m_text += element;
    m_text += ">\n";
}

void CSvg::AddText(const CStr& text, double x, double y, std::string_view classes)
{
    Begin("text", {{"class", classes}, {"x", x}, {"y", y}});
    m_text += '>' + EscapeXml(text.ToUtf8()) + "</text>\n";
}

void CSvg::AddLine(double x1, double y1, double x2, double y2, std::string_view classes)
{
    Add("line", {{"class", classes}, {"x1", x1}, {"y1", y1}, {"x2", x2}, {"y2", y2}});
}

void CSvg::AddPath(const CSvgPath& path, std::string_view classes)
{
    if (!path.IsEmpty())
        Add("path", {{"class", classes}, {"d", path.GetData()}});
}

void CSvg::Open(std::string_view element, CAttributes attributes)
{
    Begin(element, attributes);
    m_text += ">\n";
    m_open.emplace_back(element);
}

void CSvg::Close()
{
    m_text += "</" + m_open.back() + ">\n";
    m_open.pop_back();
}

std::string CSvg::Finish()
{
    while (!m_open.empty())
        Close();
    return std::move(m_text);
}

} // namespace CommonUI::Measurement
