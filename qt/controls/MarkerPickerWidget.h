#pragma once

#include "../../controls/color/MarkerPicker.h"
#include "../../export/Export.h"

#include <QWidget>

class QCheckBox;
class QComboBox;
class QPainter;
class QSpinBox;

namespace CommonUI
{

/// Draws a marker. @param edge the edge of its square, in the unit of the painter; the size of the marker is
/// not used
COMMONUIQT_API void DrawMarker(QPainter& painter, const QPointF& middle, double edge, const SMarker& marker);

/// A marker to choose: shape, colour, size and whether it is filled, in a row.
class COMMONUIQT_API CMarkerPickerWidget : public QWidget
{
    Q_OBJECT

public:
    /// @param picker not owned; it lives as long as the widget is used, and may go first when both go
    explicit CMarkerPickerWidget(CMarkerPicker& picker, QWidget* parent = nullptr);
    ~CMarkerPickerWidget() override;

    /// The list of shapes; lives as long as the widget.
    QComboBox& GetShapeList() noexcept { return *m_shape; }
    /// The field for the size; lives as long as the widget.
    QSpinBox& GetSizeField() noexcept { return *m_size; }

protected:
    void changeEvent(QEvent* event) override;

private:
    void LayOut();
    void Update();
    void DrawIcons();

    CMarkerPicker& m_picker;
    QComboBox* m_shape;
    QSpinBox* m_size;
    QCheckBox* m_filled;
    CClosureConnection m_connection;
};

} // namespace CommonUI
