#pragma once

#include "../../controls/FloatEdit.h"
#include "../../controls/IntEdit.h"
#include "../../export/Export.h"

#include <QWidget>

namespace CommonUI
{

class CQtEditField;
class CQtSpinButton;
class CQtStepSizePopup;

/// A number to edit: the field, the spin button beside it, and the pop-up that slides out of the button.
/// CFloatEditWidget and CIntEditWidget own the edit that they show; this one shows an edit of somebody else.
///
/// Screen readers call the field by the accessible name of this widget, or the text of the label whose buddy
/// it is; both are looked up when the widget is shown. Ctrl+Page Up and Ctrl+Page Down do what the pop-up
/// does.
class COMMONUIQT_API CNumericEditWidget : public QWidget
{
    Q_OBJECT

public:
    /// @param parent owns the widget, as usual in Qt
    explicit CNumericEditWidget(QWidget* parent = nullptr);
    ~CNumericEditWidget() override;

    /// Shows an edit in place of the one before. It is not owned; either may go first.
    template<class T>
    void Attach(CScalarEdit<T>& edit)
    {
        Attach(edit, edit.GetSpinButton(), edit.GetStepSizeCtrl());
    }

    /// The field with the number; lives as long as this widget.
    CQtEditField& GetField() noexcept { return *m_field; }
    /// The button beside it; lives as long as this widget.
    CQtSpinButton& GetSpinButton() noexcept { return *m_spin; }
    /// The pop-up for the size of steps; lives as long as this widget.
    CQtStepSizePopup& GetStepSizePopup() noexcept { return *m_popup; }

protected:
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    void Attach(CExEdit& edit, CUpDown& spin, CStepSizeCtrl& stepSize);
    void AddStepSizeAction(CStepSizeBtn::EType type, Qt::Key key, int textId);

    CQtEditField* m_field;
    CQtSpinButton* m_spin;
    CQtStepSizePopup* m_popup;
};

/// A CFloatEdit in a dialog, with its spin button.
class COMMONUIQT_API CFloatEditWidget : public CNumericEditWidget
{
    Q_OBJECT

public:
    /// @param parent owns the widget
    explicit CFloatEditWidget(QWidget* parent = nullptr);
    ~CFloatEditWidget() override;

    /// The edit that is shown; lives as long as this widget.
    CFloatEdit& GetEdit() noexcept { return m_edit; }

private:
    CFloatEdit m_edit;
};

/// A CIntEdit in a dialog, with its spin button.
class COMMONUIQT_API CIntEditWidget : public CNumericEditWidget
{
    Q_OBJECT

public:
    /// @param parent owns the widget
    explicit CIntEditWidget(QWidget* parent = nullptr);
    ~CIntEditWidget() override;

    /// The edit that is shown; lives as long as this widget.
    CIntEdit& GetEdit() noexcept { return m_edit; }

private:
    CIntEdit m_edit;
};

} // namespace CommonUI
