#include "qt/grid/ResultGridWidget.h"

#include "common/StringTable.h"
#include "output/results/GridCopy.h"
#include "qt/detail/EventGuard.h"
#include "qt/grid/detail/CopyIcons.h"
#include "qt/grid/detail/GridRects.h"
#include "qt/QtText.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QHelpEvent>
#include <QMenu>
#include <QToolTip>

#include <utility>

namespace CommonUI
{

namespace
{

using SCellInfo = CGridBaseOutputCtrl::SCellInfo;

// Of the first command; the others follow.
constexpr int c_commands = 10301;

} // namespace

CResultGridWidget::CResultGridWidget(SCellInfo::ECellType type, QWidget* parent)
    : CResultGridWidget(std::make_unique<CGridBaseOutputCtrl>(type), parent)
{
}

CResultGridWidget::CResultGridWidget(std::unique_ptr<CGridBaseOutputCtrl> owned, QWidget* parent)
    : CResultGridWidget(*owned, parent)
{
    m_owned = std::move(owned);
}

CResultGridWidget::CResultGridWidget(CGridBaseOutputCtrl& table, QWidget* parent)
    : CGridWidget(parent)
    , m_table(table)
    , m_pane(table)
{
    Attach(m_pane);
    m_pane.FitColumns();
    for (int command = 0; command < static_cast<int>(m_actions.size()); ++command)
        AddCommand(static_cast<ECommand>(command), c_commands + command);
    // The grid knows these keys itself.
    GetAction(ECommand::Copy).setShortcut(QKeySequence::Copy);
    GetAction(ECommand::SelectAll).setShortcut(QKeySequence::SelectAll);
}

CResultGridWidget::~CResultGridWidget()
{
    m_pane.SetView(nullptr);
}

bool CResultGridWidget::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return CGridWidget::viewportEvent(event);
    const auto& help = static_cast<const QHelpEvent&>(*event);
    const SGridHit hit = m_pane.HitTest({help.pos().x(), help.pos().y()});
    const CStr text = hit.part == SGridHit::EPart::Cell ? m_pane.GetToolTip(hit.cell) : CStr();
    QToolTip::showText(help.globalPos(), ToQString(text), viewport()); // an empty text hides the one before
    return true;
}

void CResultGridWidget::AddCommand(ECommand command, int textId)
{
    auto* const action = new QAction(MakeCopyIcon(command), ToQString(GetString(textId)), this);
    action->setShortcutContext(Qt::WidgetShortcut);
    connect(action, &QAction::triggered, this, [this, command] { Guarded([&] { Run(command); }); });
    m_actions[static_cast<std::size_t>(command)] = action;
    addAction(action);
}

void CResultGridWidget::Update()
{
    const std::size_t before = m_pane.GetColumnCount();
    m_pane.Update();
    if (m_pane.GetColumnCount() != before)
        m_pane.FitColumns();
}

void CResultGridWidget::Run(ECommand command)
{
    switch (command) {
    case ECommand::Copy:
        CopySelection(m_table, false, true);
        break;
    case ECommand::CopyWithoutHeaders:
        CopySelection(m_table, false, false);
        break;
    case ECommand::CopyTransposed:
        CopySelection(m_table, true, true);
        break;
    case ECommand::CopyWhole:
        CopyWhole(false);
        break;
    case ECommand::CopyWholeTransposed:
        CopyWhole(true);
        break;
    case ECommand::SelectAll:
        m_pane.SelectAll();
        break;
    }
}

void CResultGridWidget::CopyWhole(bool transpose) const
{
    CopyGrid(m_table, transpose);
}

QPoint CResultGridWidget::GetMenuPlace() const
{
    const QRect focus = ToQRect(m_pane.GetCellRect(m_pane.GetSelection().GetFocus()));
    const QRect shown = viewport()->rect();
    const bool isOut = m_pane.GetSelection().IsEmpty() || !shown.contains(focus.bottomLeft());
    return viewport()->mapToGlobal(isOut ? shown.center() / 2 : focus.bottomLeft());
}

void CResultGridWidget::contextMenuEvent(QContextMenuEvent* event)
{
    const QPointer<CResultGridWidget> self(this);
    if (event->reason() == QContextMenuEvent::Mouse) {
        // The menu is about what lies below it.
        const SGridHit hit = m_pane.HitTest({event->pos().x(), event->pos().y()});
        if (hit.part == SGridHit::EPart::Cell && !m_pane.GetSelection().Contains(hit.cell))
            Guarded([&] { m_pane.SelectCell(hit.cell); });
    }
    if (!self)
        return;
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (QAction* const action : m_actions) {
        if (action == m_actions.back())
            menu->addSeparator();
        menu->addAction(action);
    }
    menu->addActions(GetColumnActions());
    const bool byMouse = event->reason() == QContextMenuEvent::Mouse;
    menu->popup(byMouse ? event->globalPos() : GetMenuPlace());
}

} // namespace CommonUI
