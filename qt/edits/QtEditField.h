#pragma once

#include "../../controls/ExEdit.h"
#include "../../export/Export.h"

#include <QAccessible>
#include <QLineEdit>

#include <memory>
#include <optional>

namespace CommonUI
{

class CWindowWatch;

/// The line edit that shows a CExEdit and asks it about every key and turn of the wheel. Without a control it
/// is a plain line edit. Screen readers get a number as a spin box, with its range and step. The actions of
/// the widget are at the end of its context menu.
///
/// The field asks its layout for as much room as the longest text needs that its control has shown, up to
/// twice the usual, so that a number with its unit is not cut. A field that cannot be changed has the ground
/// of its window.
///
/// A window that is destroyed while the user types takes nothing any more, as the callbacks may be its own. A
/// callback of the control may destroy the control and the widget; only while the program hides the widget,
/// disables it or clears its focus, Qt still needs the widget, which deleteLater spares.
class COMMONUIQT_API CQtEditField : public QLineEdit, public CEditView
{
    Q_OBJECT

public:
    /// @param parent owns the widget
    explicit CQtEditField(QWidget* parent = nullptr);
    ~CQtEditField() override;

    CStr GetText() const override;
    void SetText(const CStr& text) override;
    void SelectAll() override { selectAll(); }
    bool HasFocus() const override { return hasFocus(); }
    void SetReadOnly(bool readOnly) override;
    QSize sizeHint() const override { return WithRoom(QLineEdit::sizeHint()); }
    QSize minimumSizeHint() const override { return WithRoom(QLineEdit::minimumSizeHint()); }
    void MoveFocus(bool backward) override { focusNextPrevChild(!backward); }

    /// Takes a text as if the user had typed it and pressed Enter. The field may be gone afterwards.
    void EnterText(const QString& text);

Q_SIGNALS:
    /// Whether the user can change the text.
    void WritableChanged(bool writable);

protected:
    bool event(QEvent* event) override;
    void initStyleOption(QStyleOptionFrame* option) const override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    /// Tells screen readers that the number, or whether it can be changed, has changed.
    virtual void Announce(QAccessibleEvent& event);

private:
    bool OfferKey(const QKeyEvent& event);
    bool ClaimsKey(const QKeyEvent& event);
    void AnnounceNumber();
    QSize WithRoom(QSize size) const;

    std::unique_ptr<CWindowWatch> m_window;
    std::optional<double> m_announced; // what screen readers have heard last
    QString m_longest;                 // the longest text that the control has shown
};

} // namespace CommonUI
