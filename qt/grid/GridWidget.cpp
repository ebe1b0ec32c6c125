#include "qt/grid/GridWidget.h"

#include "common/StringTable.h"
#include "qt/detail/EventGuard.h"
#include "qt/grid/detail/GridAccessible.h"
#include "qt/grid/detail/GridEditor.h"
#include "qt/grid/detail/GridRects.h"
#include "qt/QtText.h"

#include <QAction>
#include <QPainter>
#include <QPaintEvent>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace CommonUI
{

namespace
{

constexpr int c_fitColumns = 10307;
constexpr int c_wider = 11830;
constexpr int c_narrower = 11831;

} // namespace

CGridWidget::CGridWidget(QWidget* parent)
    : QAbstractScrollArea(parent)
{
    InstallGridAccessible();
    setFocusPolicy(Qt::StrongFocus);
    // Columns run from left to right in every language; so do the scroll bar and the texts in them.
    setLayoutDirection(Qt::LeftToRight);
    viewport()->setMouseTracking(true);
    AddColumnAction(c_fitColumns, Qt::CTRL | Qt::Key_Plus, [](CGridPane& grid) { grid.OnFitColumns(); });
    // Numbers are wider to the right in every language.
    AddColumnAction(c_wider, Qt::ALT | Qt::SHIFT | Qt::Key_Right, [](CGridPane& grid) { grid.OnWiden(1); });
    AddColumnAction(c_narrower, Qt::ALT | Qt::SHIFT | Qt::Key_Left,
                    [](CGridPane& grid) { grid.OnWiden(-1); });
}

void CGridWidget::AddColumnAction(int textId, QKeyCombination key, void (*act)(CGridPane&))
{
    auto* const action = new QAction(ToQString(GetString(textId)), this);
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, [this, act] {
        Guarded([this, act] {
            if (GetControl())
                act(*GetControl());
        });
    });
    addAction(action);
    m_columnActions.append(action);
}

CGridWidget::~CGridWidget()
{
    // What is in the editor is given up with it.
    if (m_editor)
        m_editor->Disarm();
}

void CGridWidget::Attach(CGridPane& grid)
{
    CloseEditor();
    m_lineHeight = GetLineHeight();
    grid.SetView(this);
    grid.SetLineHeight(m_lineHeight);
    grid.SetViewSize({viewport()->width(), viewport()->height()});
    UpdateFocus();
}

void CGridWidget::SetImages(CQtGridPainter::FImages images)
{
    m_images = std::move(images);
    viewport()->update();
}

int CGridWidget::GetLineHeight() const
{
    return fontMetrics().height() + 2;
}

void CGridWidget::UpdateFont()
{
    CGridPane* const grid = GetControl();
    const int before = std::exchange(m_lineHeight, GetLineHeight());
    if (!grid || before == m_lineHeight)
        return;
    grid->SetLineHeight(m_lineHeight);
    for (std::size_t column = 0; column < grid->GetColumnCount(); ++column)
        grid->SetColumnWidth(column, grid->GetColumnWidth(column) * m_lineHeight / before);
}

void CGridWidget::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        UpdateFont();
}

void CGridWidget::Invalidate(const SRect& rect)
{
    viewport()->update(ToQRect(rect));
}

int CGridWidget::GetTextWidth(std::u16string_view text) const
{
    // Rounded down, a text would not fit into its own width.
    return static_cast<int>(std::ceil(QFontMetricsF(font()).horizontalAdvance(ToQString(text))));
}

QSize CGridWidget::sizeHint() const
{
    constexpr int c_rows = 8;
    const QSize frame = QSize(2, 2) * frameWidth();
    const int line = fontMetrics().height();
    const CGridPane* const grid = GetControl();
    if (!grid)
        return frame + QSize(20 * line, c_rows * line);
    const CGridPane::SExtent extent = grid->GetExtent();
    const int width = extent.width + verticalScrollBar()->sizeHint().width();
    const bool hasBar = width > 40 * line && horizontalScrollBarPolicy() != Qt::ScrollBarAlwaysOff;
    const int bar = hasBar ? horizontalScrollBar()->sizeHint().height() : 0;
    const long long most = grid->GetHeaderHeight() + c_rows * grid->GetRowHeight();
    return frame + QSize(std::min(width, 40 * line), static_cast<int>(std::min(extent.height, most)) + bar);
}

void CGridWidget::paintEvent(QPaintEvent* event)
{
    const CGridPane* const grid = GetControl();
    if (!grid)
        return;
    QPainter painter(viewport());
    const QRect exposed = event->rect();
    CQtGridPainter gridPainter(painter, *this, m_images);
    Guarded([&] {
        grid->Draw(gridPainter, {exposed.left(), exposed.top(), exposed.right() + 1, exposed.bottom() + 1});
    });
    const int right = grid->GetExtent().width - grid->GetScrollLeft();
    if (right < viewport()->width() && exposed.top() < grid->GetHeaderHeight())
        gridPainter.FillHeaderRest({right, 0, viewport()->width(), grid->GetHeaderHeight()});
}

void CGridWidget::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    if (GetControl())
        GetControl()->SetViewSize({viewport()->width(), viewport()->height()});
}

void CGridWidget::UpdateVerticalBar(const CGridPane& grid, int shown)
{
    // A scroll bar counts in int, and adds a page to it.
    constexpr long long c_most = 1 << 30;
    QScrollBar& bar = *verticalScrollBar();
    const long long height = grid.GetExtent().height;
    m_rowsScale = height / c_most + 1;
    const auto toBar = [this](long long pixels) { return static_cast<int>(pixels / m_rowsScale); };
    bar.setSingleStep(std::max(toBar(grid.GetRowHeight()), 1));
    bar.setPageStep(std::max(toBar(shown - grid.GetBodyTop()), 1));
    bar.setRange(0, toBar(std::max(height - shown + m_rowsScale - 1, 0LL)));
    bar.setValue(toBar(grid.GetScrollTop()));
}

void CGridWidget::UpdateHorizontalBar(const CGridPane& grid, int shown)
{
    QScrollBar& bar = *horizontalScrollBar();
    bar.setSingleStep(grid.GetRowHeight());
    bar.setPageStep(shown);
    bar.setRange(0, std::max(grid.GetExtent().width - shown, 0));
    bar.setValue(grid.GetScrollLeft());
}

void CGridWidget::UpdateScrollBars()
{
    const CGridPane* const grid = GetControl();
    if (!grid)
        return;
    // A bar that comes or goes changes the size of the view, which leads here again.
    const bool outer = std::exchange(m_updatingBars, true);
    // Two bars that are there, each because the other takes room, go together.
    const CGridPane::SExtent extent = grid->GetExtent();
    const QSize most = maximumViewportSize();
    const bool fits = extent.width <= most.width() && extent.height <= most.height();
    UpdateVerticalBar(*grid, fits ? most.height() : viewport()->height());
    UpdateHorizontalBar(*grid, fits ? most.width() : viewport()->width());
    m_updatingBars = outer;
}

void CGridWidget::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    if (m_updatingBars || !GetControl())
        return;
    const QScrollBar& bar = *verticalScrollBar();
    const bool atEnd = bar.value() == bar.maximum();
    GetControl()->ScrollTo(horizontalScrollBar()->value(),
                           atEnd ? std::numeric_limits<long long>::max() / 2 : bar.value() * m_rowsScale);
    // The scroll bar must not be destroyed before it is done.
    QMetaObject::invokeMethod(
        this, [this] { CommitEditor(); }, Qt::QueuedConnection);
}

void CGridWidget::OnSelectionChanged()
{
    UpdateSpokenText(true);
}

void CGridWidget::UpdateSpokenText(bool moved)
{
    const CGridPane* const grid = GetControl();
    if (!grid || !QAccessible::isActive())
        return;
    const CStr before = std::exchange(m_spoken, grid->Speak(grid->GetSelection().GetFocus()).text);
    if (moved)
        TellGridFocus(*this, QAccessible::Focus);
    else if (m_spoken != before)
        TellGridFocus(*this, QAccessible::NameChanged);
}

CGridCtrlWidget::CGridCtrlWidget(QWidget* parent)
    : CGridWidget(parent)
{
    Attach(m_grid);
}

CGridCtrlWidget::~CGridCtrlWidget()
{
    m_grid.SetView(nullptr);
}

} // namespace CommonUI
