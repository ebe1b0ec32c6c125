#pragma once

#include "measurement/charts/Chart.h"

#include <QWidget>

#include <array>
#include <optional>

namespace Workbench
{

/// A chart to look around in. The wheel and + and - zoom along x, with Ctrl along y; dragging and Shift with
/// the arrow keys move what is seen, Home and a double click show all. A click sets a cursor, dragging one
/// moves it; 1 and 2 say which cursor it is that a click sets and the arrow keys move, with Ctrl by single
/// pixels; Delete takes both away.
class CChartWidget : public QWidget
{
    Q_OBJECT

public:
    CChartWidget();
    ~CChartWidget() override;

    /// @param keepsView whether what is seen stays, as for a curve that changes while somebody looks at it
    void SetChart(CommonUI::Measurement::SChart chart, bool keepsView = false);
    const CommonUI::Measurement::SChart& GetChart() const noexcept { return m_chart; }
    /// The line that cursors read out, by its index.
    void SetRead(std::size_t line);
    /// Places of the cursors along x.
    const std::array<std::optional<double>, 2>& GetCursors() const noexcept { return m_cursors; }
    /// What the cursors read out: both places, and what lies between them.
    QString GetReadOut() const;
    void Zoom(double factorX, double factorY);
    void Fit();
    CommonUI::CRange<double> GetSeenX() const noexcept { return m_seenX; }
    CommonUI::CRange<double> GetSeenY() const noexcept { return m_seenY; }
    /// Where a value lies.
    QPointF ToPoint(double x, double y) const;
    /// A picture of the chart alone, without cursors.
    QPixmap MakePicture(double scale) const;

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

Q_SIGNALS:
    void CursorsChanged();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void LayOut();
    void ZoomAt(const QPointF& at, double factorX, double factorY);
    void Pan(double right, double down);
    void SetCursor(std::size_t cursor, double x);
    void MoveCursor(double right);
    std::optional<std::size_t> FindCursor(double x) const;
    double ToX(double pixel) const;
    double GetReadValue(double x) const;
    void DrawAll(QPainter& painter) const;
    void DrawAxes(QPainter& painter) const;
    void DrawLine(QPainter& painter, const CommonUI::Measurement::SChartLine& line) const;
    void DrawNames(QPainter& painter) const;
    void DrawMarks(QPainter& painter) const;
    void DrawCursors(QPainter& painter) const;
    CommonUI::Measurement::SScale GetScaleX() const;
    CommonUI::Measurement::SScale GetScaleY() const;

    CommonUI::Measurement::SChart m_chart;
    CommonUI::CRange<double> m_seenX{0, 1};
    CommonUI::CRange<double> m_seenY{0, 1};
    QRect m_frame;
    std::size_t m_read = 0;
    std::array<std::optional<double>, 2> m_cursors{};
    std::size_t m_active = 0;         // cursor
    std::optional<QPointF> m_dragged; // from where
    bool m_isMovingCursor = false;
    bool m_hasMoved = false;
};

} // namespace Workbench
