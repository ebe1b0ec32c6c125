#pragma once

#include "../../common/Rect.h"
#include "../../controls/FloatEdit.h"
#include "../../controls/IntEdit.h"
#include "../../export/Export.h"

#include <memory>

struct HWND__;

namespace CommonUI
{

class CWinEditField;
class CWinSpinButton;
class CWinStepSizePopup;

/// A number to edit in a dialog of Windows: an edit field of the system, the spin button beside it, and the
/// pop-up that slides out of the button. CWinFloatEdit and CWinIntEdit own the edit that they show; this one
/// shows an edit of somebody else.
///
/// The spin button takes its room from the right end of the field. It goes where the field goes, and is shown
/// and enabled as that is, so that the application moves, hides and disables the field alone. Ctrl+Page Up
/// and Ctrl+Page Down do what the pop-up does. Screen readers know the field as one of the system, by the
/// label in front of it, and the number, its range and its step by UI Automation.
///
/// What was typed counts when the field has lost the keyboard, after the EN_KILLFOCUS that the dialog gets:
/// a dialog hears of it by the edit's change notification.
///
/// The application keeps the font, and on a change of the monitor the size of the field. The window may go
/// before the object, with its dialog. Callbacks of the edit may destroy the object, and throw: see
/// CWinMessageLoop. User-interface thread only.
class COMMONUIWIN_API CWinNumericEdit
{
public:
    /// On an edit field of a dialog that is there, with which the object leaves its window as it was. Throws
    /// std::system_error where the dialog has no control of that number.
    CWinNumericEdit(HWND__* dialog, int identifier);
    /// Makes the field, which goes with the object, as a tab stop behind the controls that are there.
    /// @param place of field and button, in pixels of the parent
    CWinNumericEdit(HWND__* parent, int identifier, const SRect& place);
    virtual ~CWinNumericEdit();
    CWinNumericEdit(const CWinNumericEdit&) = delete;
    CWinNumericEdit& operator=(const CWinNumericEdit&) = delete;

    /// Shows an edit in place of the one before. It is not owned; either may go first.
    template<class T>
    void Attach(CScalarEdit<T>& edit)
    {
        Attach(edit, edit.GetSpinButton(), edit.GetStepSizeCtrl());
    }

    /// The windows of the parts; null when the system has destroyed them.
    HWND__* GetField() const noexcept;
    HWND__* GetSpinButton() const noexcept;
    HWND__* GetStepSizePopup() const noexcept;

private:
    CWinNumericEdit(HWND__* field, bool isOwned);
    void Attach(CExEdit& edit, CUpDown& spin, CStepSizeCtrl& stepSize);
    void OnStepKey(int by) const;

    HWND__* m_owned; // the field, if it goes with the object
    std::unique_ptr<CWinEditField> m_field;
    std::unique_ptr<CWinSpinButton> m_spin;
    std::unique_ptr<CWinStepSizePopup> m_popup;
};

/// A CFloatEdit in a dialog, with its spin button.
class COMMONUIWIN_API CWinFloatEdit : public CWinNumericEdit
{
public:
    CWinFloatEdit(HWND__* dialog, int identifier);
    CWinFloatEdit(HWND__* parent, int identifier, const SRect& place);
    ~CWinFloatEdit() override;

    CFloatEdit& GetEdit() noexcept { return m_edit; }

private:
    CFloatEdit m_edit;
};

/// A CIntEdit in a dialog, with its spin button.
class COMMONUIWIN_API CWinIntEdit : public CWinNumericEdit
{
public:
    CWinIntEdit(HWND__* dialog, int identifier);
    CWinIntEdit(HWND__* parent, int identifier, const SRect& place);
    ~CWinIntEdit() override;

    CIntEdit& GetEdit() noexcept { return m_edit; }

private:
    CIntEdit m_edit;
};

} // namespace CommonUI
