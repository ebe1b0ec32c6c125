#include "programs/surface_report/Plan.h"

namespace SurfaceReport
{

std::string NameStepReport(std::size_t step, const CommonUI::CStr& name)
{
    std::string text;
    for (const char c : name.ToUtf8()) {
        const bool isPlain = (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
                             static_cast<unsigned char>(c) >= 0x80;
        if (isPlain)
            text += c;
        else if (!text.empty() && text.back() != '-')
            text += '-';
    }
    while (text.ends_with('-'))
        text.pop_back();
    const std::string number = std::to_string(step);
    return (step < 10 ? "0" + number : number) + "-" + text;
}

} // namespace SurfaceReport
