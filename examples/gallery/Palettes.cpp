#include "examples/gallery/Palettes.h"

#include "controls/color/InterfaceColors.h"

namespace Gallery
{

using namespace CommonUI;

namespace
{

CInterfaceColors* s_colors = nullptr;

} // namespace

void UseColors(CInterfaceColors& colors)
{
    s_colors = &colors;
}

CInterfaceColors& GetColors()
{
    return *s_colors;
}

void SetDark(bool dark)
{
    GetColors().SetChoice(dark ? EInterfaceScheme::Dark : EInterfaceScheme::Light);
}

} // namespace Gallery
