#pragma once

#include "../../export/Export.h"
#include "../../output/grid/GridCtrl.h"
#include "QtGridPainter.h"

#include <QAbstractScrollArea>
#include <QBasicTimer>
#include <QKeyCombination>
#include <QList>
#include <QPointer>

class QAction;

namespace CommonUI
{

class CGridEditor;

/// Shows a grid, whichever it is: draws what is visible, scrolls, and forwards mouse and keys. A grid of
/// items opens its editors here. CGridCtrlWidget and CResultGridWidget own the grid that they show.
///
/// Rows are as high as a line in the font of the widget; columns grow and shrink when that changes. Ctrl++
/// fits all columns, as a double click on the edge of a header fits one; Alt+Shift+Right and Alt+Shift+Left
/// make the column that keys go to wider and narrower. Screen readers find a table, by the name of the widget
/// or the label whose buddy it is. Callbacks of the grid may destroy the grid and the widget.
class COMMONUIQT_API CGridWidget : public QAbstractScrollArea, public CGridView
{
    Q_OBJECT

public:
    /// @param parent owns the widget
    explicit CGridWidget(QWidget* parent = nullptr);
    ~CGridWidget() override;

    /// Shows a grid in place of the one before. It is not owned; either may go first.
    void Attach(CGridPane& grid);
    /// The pictures of buttons, by their numbers.
    void SetImages(CQtGridPainter::FImages images);
    /// Makes all columns as wide as they need to be; one of the actions of the widget.
    QAction& GetFitColumnsAction() noexcept { return *m_columnActions.front(); }
    /// That one, and those that make a column wider and narrower.
    const QList<QAction*>& GetColumnActions() const noexcept { return m_columnActions; }

    /// Takes over what is in the editor, if one is open. @return whether the widget is still there
    bool CommitEditor();

    void Invalidate(const SRect& rect) override;
    void UpdateScrollBars() override;
    void TakeFocus() override;
    void OpenEditor(const SGridEdit& edit) override;
    void MoveEditor(const SRect& rect) override;
    void CloseEditor() override;
    void OnSelectionChanged() override;
    int GetTextWidth(std::u16string_view text) const override;

    QSize sizeHint() const override;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void AddColumnAction(int textId, QKeyCombination key, void (*act)(CGridPane&));
    QAction* FindColumnAction(const QKeyEvent& event) const;
    int GetLineHeight() const;
    void UpdateFont();
    // Tells the grid whether keys go to it or its editor.
    void UpdateFocus();
    void UpdateCursor(SPoint point);
    void ForgetPress();
    // The release of the left button will be somebody else's: it counts as released.
    void AbandonPress();
    void UpdateVerticalBar(const CGridPane& grid, int shown);
    void UpdateHorizontalBar(const CGridPane& grid, int shown);
    void SendMouse(unsigned int message, SPoint point, Qt::KeyboardModifiers modifiers);
    void EndEdit(EGridEditEnd end);
    // Tells screen readers when the cell that has the focus says something else.
    void UpdateSpokenText(bool moved);

    CQtGridPainter::FImages m_images;
    QList<QAction*> m_columnActions{};
    QPointer<CGridEditor> m_editor;
    int m_lineHeight = 0;
    long long m_rowsScale = 1; // the pixels of a unit of the vertical scroll bar
    bool m_updatingBars = false;
    bool m_pressed = false; // the left button, which was pressed here
    SPoint m_pointer;       // where it was last while the button was held
    Qt::KeyboardModifiers m_modifiers;
    QBasicTimer m_repeat;
    CStr m_spoken; // what the cell that has the focus said last
};

/// A grid of items in a dialog.
class COMMONUIQT_API CGridCtrlWidget : public CGridWidget
{
    Q_OBJECT

public:
    /// @param parent owns the widget
    explicit CGridCtrlWidget(QWidget* parent = nullptr);
    ~CGridCtrlWidget() override;

    /// The grid that is shown; lives as long as the widget.
    CGridCtrl& GetGrid() noexcept { return m_grid; }

private:
    CGridCtrl m_grid;
};

} // namespace CommonUI
