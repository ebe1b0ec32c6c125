#include "workbench/see/LineColors.h"

#include <array>

namespace Workbench
{

QColor GetLineColor(int number, bool isDark)
{
    static constexpr std::array<QRgb, 8> c_onLight{0x0B5CAD, 0xC2410C, 0x15803D, 0x9333EA,
                                                   0xBE185D, 0x0E7490, 0x8A5A00, 0x57534E};
    static constexpr std::array<QRgb, 8> c_onDark{0x7CB8FF, 0xFFA366, 0x6EE7A0, 0xD0A2FF,
                                                  0xFF8FC7, 0x67E0F5, 0xF2CF5B, 0xD6D3D1};
    const auto index = static_cast<std::size_t>(number) % c_onLight.size();
    return QColor::fromRgb((isDark ? c_onDark : c_onLight)[index]);
}

} // namespace Workbench
