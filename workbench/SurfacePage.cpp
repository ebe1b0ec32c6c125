#include "workbench/SurfacePage.h"

#include "workbench/analyze/GrainOverlay.h"
#include "workbench/see/MarkEditor.h"
#include "workbench/Texts.h"

#include <QLabel>
#include <QStackedWidget>

namespace Workbench
{

using CommonUI::Measurement::SProcessed;

namespace
{

constexpr std::size_t c_colorCount = 1024;

} // namespace

CSurfacePage::CSurfacePage(std::shared_ptr<const SurfaceView::SViewedSurface> surface)
    : QSplitter(Qt::Horizontal)
    , m_surface(std::move(surface))
    , m_map(new CMapWidget(m_surface))
    , m_grains(new CGrainOverlay(*m_map))
    , m_marks(new CMarkEditor(*m_map, m_surface))
    , m_blockPlace(new QStackedWidget)
    , m_fault(new QLabel)
    , m_file(m_surface->path)
    , m_processing(m_surface->input,
                   [this, path = m_surface->path](const SProcessed& processed, bool isPreview) {
                       auto viewed = SurfaceView::MakeViewedSurface(path, processed.input);
                       return [this, viewed, isPreview] { Show(viewed, isPreview); };
                   })
{
    m_fault->setWordWrap(true);
    m_fault->setAlignment(Qt::AlignCenter);
    m_fault->setMargin(2 * fontMetrics().height());
    m_fault->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    m_blockPlace->addWidget(m_fault);
    setChildrenCollapsible(false);
    addWidget(m_map);
    addWidget(m_blockPlace);
    setSizes({1000, 1000});
    connect(&m_file, &CFileWatch::Changed, this, [this] {
        m_isFileChanged = true;
        Q_EMIT FileChanged();
    });
    connect(m_map, &CMapWidget::PointRead, this, &CSurfacePage::PointRead);
    connect(m_marks, &CMarkEditor::Described, this, &CSurfacePage::PointRead);
    connect(this, &CSurfacePage::SurfaceChanged, m_marks, [this] { m_marks->SetSurface(m_surface); });
    connect(m_grains, &CGrainOverlay::Changed, this, &CSurfacePage::MarkGrains);
    ShowBlock(m_surface);
}

CSurfacePage::~CSurfacePage() = default;

void CSurfacePage::SetDriver(CommonUI::E3DAccelerationMode mode, double target)
{
    m_processing.SetTarget(target);
    m_mode = mode;
    m_target = target;
    if (m_block)
        m_block->SetDriver(mode, target);
}

void CSurfacePage::MakeBlock(const std::shared_ptr<const SurfaceView::SViewedSurface>& surface)
{
    m_block = new CBlockWidget(surface);
    if (m_target > 0)
        m_block->SetDriver(m_mode, m_target);
    if (m_colors)
        m_block->SetColors(m_colors->MakeTable(c_colorCount));
    if (m_look)
        m_block->SetLook(*m_look);
    m_blockPlace->addWidget(m_block);
    connect(m_block, &CBlockWidget::Failed, this, &CSurfacePage::ShowFault);
    connect(m_block, &CBlockWidget::LookChanged, this, &CSurfacePage::LookChanged);
    // What is picked in the block the map brings to its middle.
    connect(m_block, &CBlockWidget::Clicked, m_grains, [this](const auto& place) {
        m_grains->Pick(place);
        m_grains->ShowGrain(m_grains->GetChosen());
    });
    connect(m_block, &CBlockWidget::ClickTakenBack, m_grains, &CGrainOverlay::TakeBack);
    MarkGrains();
}

void CSurfacePage::MarkGrains()
{
    if (m_block)
        m_block->SetGrains(m_grains->ShareGrains(), m_grains->GetChosen());
}

// A driver that has failed is not asked again.
void CSurfacePage::ShowBlock(const std::shared_ptr<const SurfaceView::SViewedSurface>& surface)
{
    if (m_hasFailed)
        return;
    if (!surface->box) {
        m_fault->setText(QText(surface->heights ? EText::NeedsLines : EText::NothingToShow));
        m_blockPlace->setCurrentWidget(m_fault);
        return;
    }
    if (!CBlockWidget::IsPossible())
        return ShowFault(QText(EText::NoOpenGL));
    if (m_block)
        m_block->SetSurface(surface);
    else
        MakeBlock(surface);
    m_blockPlace->setCurrentWidget(m_block);
}

void CSurfacePage::Show(const std::shared_ptr<const SurfaceView::SViewedSurface>& surface, bool isPreview)
{
    m_map->SetSurface(surface, isPreview);
    ShowBlock(surface);
    if (isPreview) { // whose time counts until it is seen
        m_map->repaint();
        if (m_block)
            m_block->repaint();
        return;
    }
    m_surface = surface;
    Q_EMIT SurfaceChanged();
}

// Over each other where that leaves more room to both, which are about as high as wide.
void CSurfacePage::resizeEvent(QResizeEvent* event)
{
    setOrientation(width() < height() ? Qt::Vertical : Qt::Horizontal);
    QSplitter::resizeEvent(event);
}

void CSurfacePage::Reload(const SurfaceView::SViewedSurface& surface)
{
    AcceptFile();
    m_processing.SetOriginal(surface.input);
}

void CSurfacePage::AcceptFile()
{
    m_isFileChanged = false;
    m_file.Accept();
}

void CSurfacePage::SetColors(const CommonUI::SColorScale& colors)
{
    m_map->SetColors(colors);
    m_colors = colors;
    if (m_block)
        m_block->SetColors(colors.MakeTable(c_colorCount));
}

void CSurfacePage::SetLook(const SBlockLook& look)
{
    m_look = look;
    if (m_block && m_block->GetLook() != look)
        m_block->SetLook(look);
}

void CSurfacePage::ShowViews(bool map, bool block)
{
    m_map->setVisible(map || !block);
    m_blockPlace->setVisible(block);
}

bool CSurfacePage::IsBlockMeant() const
{
    return m_block && m_blockPlace->isVisible() && (m_block->hasFocus() || !m_map->isVisible());
}

void CSurfacePage::Zoom(double factor)
{
    if (IsBlockMeant())
        m_block->Zoom(factor);
    else
        m_map->Zoom(factor);
}

void CSurfacePage::Fit()
{
    if (IsBlockMeant())
        m_block->Fit();
    else
        m_map->Fit();
}

QString CSurfacePage::GetBlockText() const
{
    return m_fault->text();
}

void CSurfacePage::ShowFault(const QString& reason)
{
    m_hasFailed = true;
    m_fault->setText(reason);
    m_blockPlace->setCurrentWidget(m_fault);
    delete m_block;
}

} // namespace Workbench
