#include "formats/SurfaceWriter.h"

#include "formats/detail/Writers.h"

#include <array>
#include <charconv>

namespace CommonUI::Formats
{

void AppendNumber(std::string& text, double number)
{
    std::array<char, 32> buffer;
    text.append(buffer.data(), std::to_chars(buffer.data(), buffer.data() + buffer.size(), number).ptr);
}

std::string WriteSurface(const Analysis::SSurface& surface, EFormat format, std::chrono::sys_seconds time)
{
    if (surface.heights.empty())
        throw EWriteError("there is no point to write");
    switch (format) {
    case EFormat::Sdf:
        return WriteSdf(surface, time);
    case EFormat::BinarySdf:
        return WriteBinarySdf(surface, time);
    case EFormat::X3p:
        return WriteX3p(surface, time);
    case EFormat::Profile:
        return WriteProfile(surface);
    default:
        return WriteMatrix(surface);
    }
}

} // namespace CommonUI::Formats
