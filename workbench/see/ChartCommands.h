#pragma once

#include <QWidget>

#include <vector>

class QLabel;
class QPushButton;

namespace Workbench
{

class CChartWidget;

/// The row below a chart: what it reads out, and buttons that copy it as a table or a picture, and save it.
class CChartCommands : public QWidget
{
    Q_OBJECT

public:
    /// How many pixels of a copied picture one of the screen becomes.
    static constexpr double c_pictureScale = 2;

    /// @param chart outlives the row
    explicit CChartCommands(CChartWidget& chart);

    /// @param isThere whether the chart shows something
    void SetChartThere(bool isThere);
    void ShowReadOut();

Q_SIGNALS:
    void SaveWanted();

private:
    CChartWidget& m_chart;
    std::vector<QPushButton*> m_buttons;
    QLabel* m_readOut;
};

} // namespace Workbench
