#pragma once

#include "../../controls/color/InterfaceColors.h"
#include "../../export/Export.h"

#include <QPalette>

namespace CommonUI
{

/// The same colour for Qt.
COMMONUIQT_API QColor ToQColor(const SColor& color);

/// The colours as Qt's styles take them.
COMMONUIQT_API QPalette MakePalette(const CInterfaceColors& colors);

/// Gives the application, its tooltips included, the colours of the interface, and in high contrast edges
/// around fields and buttons; again whenever they change. Made after the QApplication; when it goes, the
/// application has the colours of the desktop again.
class COMMONUIQT_API CInterfaceStyle
{
public:
    /// @param colors not owned; they outlive the style
    explicit CInterfaceStyle(CInterfaceColors& colors);
    ~CInterfaceStyle();
    CInterfaceStyle(const CInterfaceStyle&) = delete;
    CInterfaceStyle& operator=(const CInterfaceStyle&) = delete;

private:
    void Apply();
    void ShowEdges(bool show);

    CInterfaceColors& m_colors;
    QString m_style; // the name of the one below that with edges; empty while there are none
    CClosureConnection m_connection;
};

} // namespace CommonUI
