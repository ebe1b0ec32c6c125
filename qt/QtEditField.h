#pragma once

#include "../controls/ExEdit.h"
#include "Export.h"

#include <QLineEdit>

namespace CommonUI
{

/// The line edit that shows a CExEdit and asks it about every key and turn of the wheel. Without a control it
/// is a plain line edit. The actions of the widget are at the end of its context menu. A callback of the
/// control may destroy the control and the widget.
class COMMONUIQT_API CQtEditField : public QLineEdit, public CEditView
{
    Q_OBJECT

public:
    explicit CQtEditField(QWidget* parent = nullptr);
    ~CQtEditField() override;

    CStr GetText() const override;
    void SetText(const CStr& text) override;
    void SelectAll() override { selectAll(); }
    bool HasFocus() const override { return hasFocus(); }
    void MoveFocus(bool backward) override { focusNextPrevChild(!backward); }

protected:
    bool event(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    bool OfferKey(const QKeyEvent& event);
    bool ClaimsKey(const QKeyEvent& event);
};

} // namespace CommonUI
