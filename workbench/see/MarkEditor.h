#pragma once

#include "measurement/marks/MarkMeasures.h"
#include "view/ViewedSurface.h"
#include "workbench/see/MapOverlay.h"

#include <QObject>

#include <memory>
#include <optional>
#include <vector>

class QKeyEvent;
class QMouseEvent;

namespace Workbench
{

class CMapWidget;

/// What dragging over a map does.
enum class EMapTool { Move, Profile, Distance, Angle };

/// Lines drawn by hand over a map. Dragging draws one by the tool, an angle with a click for its third place;
/// a place of a line, or all of it, is dragged whichever tool there is. Return draws one without the mouse;
/// Space goes from place to place of the line, the arrow keys move it, with Ctrl by single pixels, Delete
/// takes the line away and Escape leaves it.
class CMarkEditor : public QObject, public CMapOverlay
{
    Q_OBJECT

public:
    /// What the user works at: a mark with one of its points, or all of it.
    using SChosen = CommonUI::Measurement::CSurfaceMarks::SHit;

    /// @param map owns the editor
    CMarkEditor(CMapWidget& map, std::shared_ptr<const SurfaceView::SViewedSurface> surface);
    ~CMarkEditor() override;

    void SetSurface(std::shared_ptr<const SurfaceView::SViewedSurface> surface);
    const CommonUI::Analysis::SSurface& GetSurface() const { return m_surface->GetSurface(); }
    void SetTool(EMapTool tool);
    const std::vector<CommonUI::Measurement::SMark>& GetMarks() const noexcept { return m_marks.GetAll(); }
    /// Nothing where all points of the surface are missing.
    std::vector<std::vector<CommonUI::CStr>> MakeTable() const;
    const std::optional<SChosen>& GetChosen() const noexcept { return m_chosen; }
    void Choose(std::optional<std::size_t> mark);
    void RemoveChosen();
    /// Marks places that others point at.
    void SetSpots(std::vector<CommonUI::Analysis::SPlace> spots);

    void Draw(QPainter& painter, const QWidget& map, const SurfaceView::CMapPlace& place) override;
    bool Handle(QEvent& event, const SurfaceView::CMapPlace& place) override;

Q_SIGNALS:
    /// There are other marks, or they lie elsewhere, or another one is chosen.
    void Changed();
    /// What there is to say of the mark that the user works at.
    void Described(const QString& text);

private:
    bool Press(const QMouseEvent& event, const SurfaceView::CMapPlace& place);
    bool Drag(const QMouseEvent& event, const SurfaceView::CMapPlace& place);
    bool Release();
    void StopDragging();
    bool HandleKey(const QKeyEvent& event, const SurfaceView::CMapPlace& place);
    void Take(const SChosen& chosen);
    void MoveTo(const CommonUI::Analysis::SPlace& to);
    void MoveByKeys(double right, double down, const SurfaceView::CMapPlace& place);
    void DrawByKeys(const SurfaceView::CMapPlace& place);
    void ChooseNextPoint();
    void Tell();
    void DrawMark(QPainter& painter, const QWidget& map, const SurfaceView::CMapPlace& place,
                  std::size_t index) const;
    CommonUI::Measurement::EMark GetKind() const;

    CMapWidget& m_map;
    std::shared_ptr<const SurfaceView::SViewedSurface> m_surface;
    CommonUI::Measurement::CSurfaceMarks m_marks;
    CommonUI::Measurement::SLengthFormat m_width;
    CommonUI::Measurement::SLengthFormat m_height;
    EMapTool m_tool = EMapTool::Move;
    std::optional<SChosen> m_chosen;
    bool m_isDragging = false;
    bool m_isNew = false; // what is dragged has not been let go before
    CommonUI::Analysis::SPlace m_last{};
    std::vector<CommonUI::Analysis::SPlace> m_spots;
};

} // namespace Workbench
