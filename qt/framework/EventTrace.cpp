#include "qt/framework/EventTrace.h"

#include "common/Diagnostics.h"
#include "qt/QtText.h"

#include <QCoreApplication>
#include <QMetaEnum>

#include <utility>

namespace CommonUI
{

CStr GetEventName(QEvent::Type type)
{
    if (const char* const name = QMetaEnum::fromType<QEvent::Type>().valueToKey(type))
        return CStr::FromAscii(name);
    const int number = type;
    const bool isUser = number > QEvent::User && number <= QEvent::MaxUser;
    return CStr::Format(isUser ? u"User+%d" : u"event %d", isUser ? number - QEvent::User : number);
}

CEventTrace::CEventTrace()
    : m_wasEnabled(GetDiagnostics().IsEnabled(c_category))
{
    GetDiagnostics().SetEnabled(c_category, true);
    QCoreApplication::instance()->installEventFilter(this);
}

CEventTrace::~CEventTrace()
{
    GetDiagnostics().SetEnabled(c_category, m_wasEnabled);
}

bool CEventTrace::eventFilter(QObject* watched, QEvent* event)
{
    if (std::exchange(m_isWriting, true))
        return false;
    CStr line = GetEventName(event->type()) + u" to ";
    line.AppendAscii(watched->metaObject()->className());
    if (!watched->objectName().isEmpty())
        line += CStr::Format(u" \"%s\"", FromQString(watched->objectName()));
    GetDiagnostics().Write(c_category, EDiagnosticLevel::Trace, line);
    m_isWriting = false;
    return false;
}

} // namespace CommonUI
