#pragma once

namespace CommonUI
{
class CInterfaceColors;
}

namespace Gallery
{

/// Says whose colours the application has. Not owned.
void UseColors(CommonUI::CInterfaceColors& colors);
CommonUI::CInterfaceColors& GetColors();

/// Gives the application light or dark colours, whatever the desktop has.
void SetDark(bool dark);

} // namespace Gallery
