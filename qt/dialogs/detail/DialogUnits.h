#pragma once

#include "common/Rect.h"

#include <QRect>

class QWidget;

namespace CommonUI
{

/// The units in which dialogs are laid out, so that they fit their font: quarters of the average width of a
/// letter and eighths of the height of a line.
class CDialogUnits
{
public:
    /// Takes the font of the widget.
    explicit CDialogUnits(const QWidget& widget);

    /// In pixels.
    double GetWidth(int units) const { return units * m_width; }
    double GetHeight(int units) const { return units * m_height; }
    /// Rounded up, so that nothing is cut.
    QSize ToPixels(const SSize& size) const;
    QRect ToPixels(const SRect& rect) const;
    /// Rounded up.
    SSize ToUnits(const QSizeF& size) const;

private:
    double m_width; // of a unit, in pixels
    double m_height;
};

} // namespace CommonUI
