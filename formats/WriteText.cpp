#include "formats/detail/Writers.h"

#include <algorithm>
#include <cmath>

namespace CommonUI::Formats
{

namespace
{

void AppendLength(std::string& text, std::string_view key, double length)
{
    text.append("# ").append(key).append(": ");
    AppendNumber(text, length);
    text += " m\n";
}

void AppendHeight(std::string& text, double height)
{
    if (std::isnan(height))
        text += "NaN";
    else
        AppendNumber(text, height);
}

// On one line, whatever a file called it.
std::string OneLine(std::string text)
{
    std::ranges::replace_if(
        text, [](char c) { return c == '\n' || c == '\r'; }, ' ');
    return text;
}

} // namespace

std::string WriteMatrix(const Analysis::SSurface& surface)
{
    std::string text;
    if (!surface.channel.empty())
        text += "# Channel: " + OneLine(surface.channel) + '\n';
    AppendLength(text, "Width", surface.dx * static_cast<double>(surface.points));
    AppendLength(text, "Height", surface.dy * static_cast<double>(surface.lines));
    text += "# Value units: m\n";
    for (std::size_t line = 0; line < surface.lines; ++line) {
        for (std::size_t point = 0; point < surface.points; ++point) {
            if (point != 0)
                text += '\t';
            AppendHeight(text, surface.GetLine(line)[point]);
        }
        text += '\n';
    }
    return text;
}

std::string WriteProfile(const Analysis::SSurface& surface)
{
    if (surface.lines != 1)
        throw EWriteError("a profile has one line");
    if (surface.points < 2)
        throw EWriteError("a profile in columns has two points or more");
    std::string text = "x [m]\tz [m]\n";
    for (std::size_t point = 0; point < surface.points; ++point) {
        AppendNumber(text, surface.dx * static_cast<double>(point));
        text += '\t';
        AppendHeight(text, surface.heights[point]);
        text += '\n';
    }
    return text;
}

} // namespace CommonUI::Formats
