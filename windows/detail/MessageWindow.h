#pragma once

#include "windows/detail/ControlWindow.h"

namespace CommonUI
{

/// A window that nobody sees, for the messages of the thread that makes it. They come from whatever loop runs
/// on the thread, those of the system's boxes and menus too.
class CMessageWindow : public CControlWindow
{
public:
    enum class EKind {
        MessageOnly, ///< hears what is sent to it and nothing else
        TopLevel     ///< hears what the system tells all windows, too
    };

    /// Throws std::system_error where the system has no window left.
    explicit CMessageWindow(EKind kind = EKind::MessageOnly);
};

} // namespace CommonUI
