#pragma once

#include "measurement/Results.h"
#include "view/GrainPicture.h"
#include "workbench/see/MapOverlay.h"

#include <QImage>
#include <QObject>
#include <QPointF>

#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace Workbench
{

class CMapWidget;

/// How grains are marked, whatever colours the surface has.
SurfaceView::SGrainColors GetGrainColors(const QPalette& palette);

/// The outlines of grains over a map. A click on a grain chooses it.
class CGrainOverlay : public QObject, public CMapOverlay
{
    Q_OBJECT

public:
    /// @param map owns the overlay
    explicit CGrainOverlay(CMapWidget& map);
    ~CGrainOverlay() override;

    /// @param grains of all points of the map, though it may show fewer; null for none
    void SetGrains(std::shared_ptr<const CommonUI::Measurement::SFoundGrains> grains);
    const CommonUI::Measurement::SFoundGrains* GetGrains() const noexcept { return m_grains.get(); }
    std::shared_ptr<const CommonUI::Measurement::SFoundGrains> ShareGrains() const noexcept
    {
        return m_grains;
    }
    /// @param grain from 1; 0 for none
    void Choose(std::uint32_t grain);
    /// Likewise, and moves it to the middle of the map.
    void ShowGrain(std::uint32_t grain);
    /// The user has clicked on a place of the surface, in the map or elsewhere; nothing for beside it.
    void Pick(const std::optional<SurfaceView::SMapPoint>& place);
    /// The last pick was none: what was chosen before it is so again.
    void TakeBack();
    std::uint32_t GetChosen() const noexcept { return m_chosen; }

    void Draw(QPainter& painter, const QWidget& map, const SurfaceView::CMapPlace& place) override;
    bool Handle(QEvent& event, const SurfaceView::CMapPlace& place) override;

Q_SIGNALS:
    /// The user has chosen a grain, or none, in a view.
    void Picked(std::uint32_t grain);
    /// There are other grains, or another one is chosen.
    void Changed();

private:
    CMapWidget& m_map;
    std::shared_ptr<const CommonUI::Measurement::SFoundGrains> m_grains;
    std::uint32_t m_chosen = 0;
    std::optional<std::uint32_t> m_before{}; // the last pick, as long as it can be taken back
    std::optional<QPointF> m_pressed;        // where the button went down that may become a click
    QImage m_picture;                        // null when there is to be another one
    std::vector<double> m_drawn;             // what it shows
};

} // namespace Workbench
