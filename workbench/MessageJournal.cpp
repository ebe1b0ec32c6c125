#include "workbench/MessageJournal.h"

#include "qt/QtText.h"

#include <QDateTime>

#include <cstdio>

namespace Workbench
{

using CommonUI::CStr;
using CommonUI::EDiagnosticLevel;
using CommonUI::SDiagnosticLine;

namespace
{

const char16_t* NameOf(EDiagnosticLevel level)
{
    switch (level) {
    case EDiagnosticLevel::Error:
        return u"error";
    case EDiagnosticLevel::Warning:
        return u"warning";
    default:
        return u"info";
    }
}

} // namespace

CMessageJournal::CMessageJournal()
    : m_before(CommonUI::GetDiagnostics().SetSink([this](const SDiagnosticLine& line) { Keep(line); }))
{
}

CMessageJournal::~CMessageJournal()
{
    CommonUI::GetDiagnostics().SetSink(std::move(m_before));
}

std::vector<CStr> CMessageJournal::GetMessages() const
{
    const std::lock_guard lock(m_mutex);
    return {m_messages.begin(), m_messages.end()};
}

// Without a sink before, lines go where they would have gone.
void CMessageJournal::Keep(const SDiagnosticLine& line)
{
    const CStr time = CommonUI::FromQString(QDateTime::currentDateTime().toString(Qt::ISODateWithMs));
    CStr text = time + u" " + NameOf(line.level) + u" " + CStr(line.category) + u": " + CStr(line.text);
    if (m_before)
        m_before(line);
    else
        std::fprintf(stderr, "%s\n", CStr(line.text).ToUtf8().c_str());
    const std::lock_guard lock(m_mutex);
    m_messages.push_back(std::move(text));
    if (m_messages.size() > c_mostMessages)
        m_messages.pop_front();
}

} // namespace Workbench
