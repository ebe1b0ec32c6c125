#pragma once

#include "../../export/Export.h"
#include "../../output/results/ResultGridPane.h"
#include "GridWidget.h"

#include <array>
#include <memory>

namespace CommonUI
{

/// A table of results in a dialog, of its own or of somebody else: headers, scrolling, selection, and the
/// commands that copy it. Copying puts text and HTML on the library's clipboard together.
///
/// The commands are actions of the widget, in its context menu, and can be put on tool bars. The context menu
/// key opens it as well.
class COMMONUIQT_API CResultGridWidget : public CGridWidget
{
    Q_OBJECT

public:
    /// What the user can do with the table by menu and keys.
    enum class ECommand {
        Copy, ///< what is selected, with the headers of its columns
        CopyWithoutHeaders,
        CopyTransposed, ///< what is selected, with its headers, columns as rows
        CopyWhole,      ///< the table as reports have it
        CopyWholeTransposed,
        SelectAll
    };

    /// An empty table of its own.
    explicit CResultGridWidget(CGridBaseOutputCtrl::SCellInfo::ECellType type, QWidget* parent = nullptr);
    /// @param table not owned; it must outlive the widget
    explicit CResultGridWidget(CGridBaseOutputCtrl& table, QWidget* parent = nullptr);
    ~CResultGridWidget() override;

    /// The table that is shown.
    CGridBaseOutputCtrl& GetTable() noexcept { return m_table; }
    /// What lays it out and selects in it; lives as long as the widget.
    CResultGridPane& GetPane() noexcept { return m_pane; }
    /// To be called after rows or columns have changed. Columns are fitted when there are others than before.
    void Update();

    /// The action of a command, for menus and toolbars of the application; lives as long as the widget.
    QAction& GetAction(ECommand command) noexcept { return *m_actions[static_cast<std::size_t>(command)]; }

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Shows why a cell is empty.
    bool viewportEvent(QEvent* event) override;
    /// Where on the screen a menu opens that was not asked for with the mouse.
    QPoint GetMenuPlace() const;

private:
    CResultGridWidget(std::unique_ptr<CGridBaseOutputCtrl> owned, QWidget* parent);
    void AddCommand(ECommand command, int textId);
    void Run(ECommand command);
    void CopyWhole(bool transpose) const;
    std::unique_ptr<CGridBaseOutputCtrl> m_owned;
    CGridBaseOutputCtrl& m_table;
    CResultGridPane m_pane;
    std::array<QAction*, 6> m_actions{};
};

} // namespace CommonUI
