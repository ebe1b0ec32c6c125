#pragma once

#include "../common/Str.h"
#include "../export/Export.h"
#include "Service.h"

namespace CommonUI
{

/// The looks of a message box: one set of buttons, one icon and further bits, joined by `|`.
namespace MessageBoxStyle
{
constexpr unsigned int c_ok = 0x0;        ///< an OK button
constexpr unsigned int c_okCancel = 0x1;  ///< OK and Cancel
constexpr unsigned int c_yesNo = 0x4;     ///< Yes and No
constexpr unsigned int c_error = 0x10;    ///< the icon for errors
constexpr unsigned int c_question = 0x20; ///< the icon for questions
constexpr unsigned int c_warning = 0x30;  ///< the icon for warnings
constexpr unsigned int c_help = 0x4000;   ///< a Help button beside the others
/// The bits of a style that say which buttons there are.
constexpr unsigned int c_buttonMask = 0xF;
/// The bits of a style that say which icon there is.
constexpr unsigned int c_iconMask = 0xF0;
} // namespace MessageBoxStyle

/// The button that was pressed, or what counts as that.
enum class EMessageBoxAnswer : int {
    Ok = 1,
    Cancel = 2,
    Yes = 6,
    No = 7,
};

/// What a message box shows.
struct SMessageBox {
    CStr text{};                                ///< what is said or asked
    unsigned int style = MessageBoxStyle::c_ok; ///< bits of MessageBoxStyle
    /// The topic that the Help button opens, as a number of the application's help system; 0 without one.
    unsigned int helpTopic = 0;

    friend bool operator==(const SMessageBox&, const SMessageBox&) = default;
};

/// What an application lends the library to tell its user something and to ask. Used on the user-interface
/// thread.
class COMMONUI_API CMessageBoxService
{
public:
    CMessageBoxService() = default;
    virtual ~CMessageBoxService();
    CMessageBoxService(const CMessageBoxService&) = delete;
    CMessageBoxService& operator=(const CMessageBoxService&) = delete;

    /// Shows the box over the application's main window, if it has one, and waits for the answer. Closing a
    /// box counts as Cancel, as No where there is no Cancel, or as OK where there is neither. That is also
    /// the default button of a warning, the harmless one.
    virtual EMessageBoxAnswer Show(const SMessageBox& box) = 0;
    /// As Show, with a check box below the text, which is not checked at first. A service that does not
    /// override this shows the box without it.
    /// @param checkText the text of the check box, with `&` before its mnemonic
    /// @param isChecked receives whether the user has checked it
    virtual EMessageBoxAnswer ShowWithCheck(const SMessageBox& box, const CStr& checkText, bool& isChecked);
    /// Makes the sound that belongs to an icon of MessageBoxStyle, without a box, and does not wait for its
    /// end. A service that does not override this stays silent.
    virtual void Beep(unsigned int icon);

    /// The answer of a box that nobody answers: OK for boxes that only tell something, No or Cancel for
    /// questions.
    static EMessageBoxAnswer GetCautiousAnswer(unsigned int style) noexcept;

    /// Which one the process uses: see CServiceScope.
    static CCurrentService<CMessageBoxService> s_current;
};

/// A service for programs without a display: the text goes to the diagnostics, at level Warning, and the
/// answer is the cautious one. It lives until the process ends.
COMMONUI_API CMessageBoxService& GetSilentMessageBoxService();

/// The service that the library shows its message boxes with: GetSilentMessageBoxService() unless another one
/// was set.
COMMONUI_API CMessageBoxService& GetMessageBoxService();

} // namespace CommonUI
