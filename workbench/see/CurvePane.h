#pragma once

#include "measurement/BackgroundWork.h"
#include "qt/framework/DockPane.h"
#include "view/ViewedSurface.h"
#include "workbench/see/ChartWidget.h"

#include <array>
#include <string>
#include <vector>

class QComboBox;
class QLabel;

namespace Workbench
{

class CChartCommands;

/// What the heights of a surface come to, in a dock: their histogram, the material ratio curve with its core,
/// and the power spectrum. They are computed in the background while the dock is shown.
class CCurvePane : public CommonUI::CDockPane
{
    Q_OBJECT

public:
    /// A curve, and the same as SVG for a file; without lines where the surface does not allow it.
    struct SCurve {
        CommonUI::Measurement::SChart chart{};
        std::string svg{};
    };
    using CCurves = std::array<SCurve, 3>;

    CCurvePane();
    ~CCurvePane() override;

    /// @param surface null for none
    void SetSurface(std::shared_ptr<const SurfaceView::SViewedSurface> surface);
    CChartWidget& GetChart() noexcept { return *m_chart; }
    QComboBox& GetChoice() noexcept { return *m_choice; }
    bool IsBusy() const noexcept { return m_work.IsBusy(); }

protected:
    void showEvent(QShowEvent* event) override;

private:
    void Compute();
    void Show();
    void Save() const;
    const SCurve& GetCurve() const;

    std::shared_ptr<const SurfaceView::SViewedSurface> m_surface;
    std::shared_ptr<const CCurves> m_curves; // of the surface; null until they are computed
    QComboBox* m_choice;
    QLabel* m_state;
    CChartWidget* m_chart;
    CChartCommands* m_commands;
    CommonUI::Measurement::CBackgroundWork m_work;
};

} // namespace Workbench
