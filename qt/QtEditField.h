#pragma once

#include "../controls/ExEdit.h"
#include "Export.h"

#include <QLineEdit>

#include <typeinfo>

namespace CommonUI
{

/// The line edit that shows a CExEdit and asks it about every key and turn of the wheel. Without a control it
/// is a plain line edit. A window that is destroyed while the user types takes nothing any more, as the
/// callbacks may be its own. The actions of the widget are at the end of its context menu. A callback of the
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
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    bool OfferKey(const QKeyEvent& event);
    bool ClaimsKey(const QKeyEvent& event);
    const std::type_info& GetWindowType() const;

    const std::type_info* m_windowType = nullptr; ///< when the field got the focus
};

} // namespace CommonUI
