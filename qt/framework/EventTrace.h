#pragma once

#include "../../common/Str.h"
#include "../../export/Export.h"

#include <QEvent>
#include <QObject>

#include <string_view>

namespace CommonUI
{

/// The name of a kind of event, such as u"MouseButtonPress"; "User+3" for the third one behind QEvent::User.
COMMONUIQT_API CStr GetEventName(QEvent::Type type);

/// Traces the events of all windows and other objects of the user-interface thread by their names as long as
/// it lives, to the category c_category of the diagnostics, which is enabled meanwhile. Without one, events
/// cost what they cost in Qt.
class COMMONUIQT_API CEventTrace : public QObject
{
    Q_OBJECT

public:
    COMMONUI_CONSTANT std::u16string_view c_category = u"Events"; ///< of its lines in the diagnostics

    CEventTrace();
    ~CEventTrace() override;

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_wasEnabled;
    bool m_isWriting = false; // what writing a line sets off is not traced
};

} // namespace CommonUI
