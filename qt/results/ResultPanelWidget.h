#pragma once

#include "../../dialogs/results/ResultPanel.h"
#include "../../dialogs/results/ResultTexts.h"
#include "../../export/Export.h"

#include <QWidget>

#include <array>
#include <functional>
#include <memory>
#include <vector>

class QAction;
class QLabel;
class QMenu;
class QPushButton;
class QSplitter;
class QVBoxLayout;

namespace CommonUI
{

class CResultGridWidget;
class CResultTable;

/// Summary, results and statistics of a result panel in tables one below the other, with their commands: in a
/// result dialog, or as a pane of any window.
///
/// The context menu of a table, by the mouse, the menu key or Shift+F10, is about the quantity below it:
/// unit, number format, hiding. Alt+Shift+Down and Alt+Shift+Up move the edges between the tables. What is
/// selected is dragged into other programs, a single cell with Control.
class COMMONUIQT_API CResultPanelWidget : public QWidget, public CResultPanelView
{
    Q_OBJECT

public:
    /// @param parent owns the widget
    explicit CResultPanelWidget(QWidget* parent = nullptr);
    ~CResultPanelWidget() override;

    /// Shows a panel in place of the one before. It is not owned; either may go first.
    void Attach(CResultPanel& panel);
    /// Null before Attach.
    CResultGridWidget* GetTable(EResultTable table) const;
    /// A button, from left to right. Throws std::out_of_range where there is none.
    QPushButton& GetButton(std::size_t button) const { return *m_buttons.at(button); }

    void UpdateTables() override;
    void UpdateState() override;
    /// At the next turn of the event loop, once for many changes.
    void UpdateSizes() override;
    int Run(CFormatSpecifierDlg& dialog) override;
    void Print() override;
    std::string MakePdf(const SResultPages& pages) override;

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void changeEvent(QEvent* event) override;

private:
    class CWidths;
    struct STable {
        QWidget* part = nullptr; // the grid with its label
        QLabel* label = nullptr;
        CResultTable* grid = nullptr;
        std::shared_ptr<CWidths> widths{};
        QList<QAction*> heightActions{}; // of the grid
    };

    void MakeButtons();
    QPushButton* AddButton(EResultText text);
    void AddMenu(EResultText text, void (CResultPanelWidget::*fill)(QMenu&));
    void MakeTable(EResultTable table);
    CResultTable& Grid(EResultTable table) const;
    void AddHeightAction(EResultTable table, EResultText text, Qt::Key key, int lines);

    QAction* AddAction(QMenu& menu, EResultText text, std::function<void(CResultPanel&)> act,
                       int following = 0);
    QAction* AddAction(QMenu& menu, const QString& text, std::function<void(CResultPanel&)> act);
    void AddChoice(QMenu& menu, const QString& text, bool isChosen, std::function<void(CResultPanel&)> act);
    void AddCopies(QMenu& menu, CResultPanel::EScope scope);
    void FillCopyMenu(QMenu& menu);
    void AddSigns(QMenu& menu);
    void FillSaveMenu(QMenu& menu);
    void FillColumnsMenu(QMenu& menu);
    void FillTableMenu(QMenu& menu, EResultTable table, SGridCell cell);
    void AddUnits(QMenu& menu, const std::vector<std::size_t>& quantities);
    void AddHidden(QMenu& menu);

    void ShowWidths();
    void OnWidth(EResultTable table, std::size_t column, int width);
    void FitHeights();
    void FitSizes();
    // Moves the edge below a table, or that above the last one.
    void Heighten(EResultTable table, int lines);
    void TellHeights();
    void ShareScrolling();

    std::shared_ptr<CResultTables> m_shown; // what the grids show may outlive the panel
    QVBoxLayout* m_layout;
    QSplitter* m_parts; // the tables with their labels
    std::vector<QPushButton*> m_buttons;
    QPushButton* m_transpose = nullptr;
    QPushButton* m_showNotes = nullptr;
    std::array<STable, CResultTables::c_count> m_tables{};
    QWidget* m_beside = nullptr; // the statistics, as wide as the bar that scrolls the results
    QLabel* m_notes;
    bool m_hasOtherSizes = false; // which are not shown yet
};

} // namespace CommonUI
