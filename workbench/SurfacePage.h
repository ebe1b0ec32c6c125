#pragma once

#include "measurement/process/SurfaceProcessing.h"
#include "settings/readers/ColorScale.h"
#include "workbench/BlockWidget.h"
#include "workbench/FileWatch.h"
#include "workbench/MapWidget.h"

#include <QPointer>
#include <QSplitter>

#include <optional>

class QLabel;
class QStackedWidget;

namespace Workbench
{

class CGrainOverlay;
class CMarkEditor;

/// A surface in its tab: the map and the block, side by side where there is room. Where the block cannot be
/// drawn, a sentence says why in its place.
class CSurfacePage : public QSplitter
{
    Q_OBJECT

public:
    explicit CSurfacePage(std::shared_ptr<const SurfaceView::SViewedSurface> surface);
    ~CSurfacePage() override;

    /// The surface with its steps done; another object after each SurfaceChanged.
    const SurfaceView::SViewedSurface& GetSurface() const noexcept { return *m_surface; }
    std::shared_ptr<const SurfaceView::SViewedSurface> ShareSurface() const noexcept { return m_surface; }
    CommonUI::Measurement::CSurfaceProcessing& GetProcessing() noexcept { return m_processing; }
    /// The file was read again; the steps stay.
    void Reload(const SurfaceView::SViewedSurface& surface);
    /// Whether the file has changed since it was read.
    bool IsFileChanged() const noexcept { return m_isFileChanged; }
    /// What the file is now is known: nobody has to be told.
    void AcceptFile();
    void SetDriver(CommonUI::E3DAccelerationMode mode, double target);
    void SetColors(const CommonUI::SColorScale& colors);
    void SetLook(const SBlockLook& look);
    /// One of both is always shown.
    void ShowViews(bool map, bool block);
    /// The view that the user works in: the map unless the block has the focus or is shown alone.
    void Zoom(double factor);
    void Fit();

    CMapWidget& GetMap() noexcept { return *m_map; }
    /// Null where it cannot be drawn.
    CBlockWidget* GetBlock() noexcept { return m_surface->box ? m_block.data() : nullptr; }
    CGrainOverlay& GetGrains() noexcept { return *m_grains; }
    /// The lines that are drawn over the map.
    CMarkEditor& GetMarks() noexcept { return *m_marks; }
    /// What is said in place of the block.
    QString GetBlockText() const;

Q_SIGNALS:
    void PointRead(const QString& text);
    void LookChanged();
    /// The steps are done anew, or the file was read again. Not for previews, which the views alone show.
    void SurfaceChanged();
    void FileChanged();

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Show(const std::shared_ptr<const SurfaceView::SViewedSurface>& surface, bool isPreview);
    void MakeBlock(const std::shared_ptr<const SurfaceView::SViewedSurface>& surface);
    void ShowBlock(const std::shared_ptr<const SurfaceView::SViewedSurface>& surface);
    void ShowFault(const QString& reason);
    void MarkGrains();
    bool IsBlockMeant() const;

    std::shared_ptr<const SurfaceView::SViewedSurface> m_surface;
    CMapWidget* m_map;
    CGrainOverlay* m_grains; // below the marks
    CMarkEditor* m_marks;
    QStackedWidget* m_blockPlace;
    QLabel* m_fault;
    QPointer<CBlockWidget> m_block;
    bool m_hasFailed = false; // the driver
    CommonUI::E3DAccelerationMode m_mode{};
    double m_target = 0;
    std::optional<CommonUI::SColorScale> m_colors{};
    std::optional<SBlockLook> m_look{};
    CFileWatch m_file;
    bool m_isFileChanged = false;
    CommonUI::Measurement::CSurfaceProcessing m_processing;
};

} // namespace Workbench
